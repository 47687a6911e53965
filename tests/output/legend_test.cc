#include "output/legend.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/output/plot_job.h"
#include "tests/output/recording_plot.h"

namespace ozmo {
namespace {

using ::testing::ElementsAre;
using ::testing::ExitedWithCode;
using testing::PlotJob;
using testing::Recording;
using testing::RecordingStart;

TEST(LegendPlan, FewLabelsAreCentred) {
  const LegendLayout layout = LegendPlan(73, 5, 3);  // 4096 / 255.5
  EXPECT_EQ(layout.columns, 16);
  EXPECT_DOUBLE_EQ(layout.cell, 1.0 / 16);
  EXPECT_DOUBLE_EQ(layout.left, 0.53 - 1.5 / 16);
}

TEST(LegendPlan, AFullRowStartsAtTheLeft) {
  for (const int count : {16, 95}) {
    const LegendLayout layout = LegendPlan(73, 5, count);
    EXPECT_EQ(layout.columns, 16);
    EXPECT_DOUBLE_EQ(layout.cell, 0.94 / 16);
    EXPECT_DOUBLE_EQ(layout.left, 0.06);
  }
}

TEST(LegendPlan, SixFullRowsArePackedCloser) {
  const LegendLayout layout = LegendPlan(73, 5, 96);  // 4370.432 / 219
  EXPECT_EQ(layout.columns, 19);
  EXPECT_DOUBLE_EQ(layout.cell, 1.0 / 19);
  EXPECT_DOUBLE_EQ(layout.left, 0.01);
}

TEST(LegendPlan, EightyBytesJustFitAndEightyOneDoNot) {
  EXPECT_EQ(LegendPlan(73, 80, 1).columns, 1);
  EXPECT_EQ(LegendPlan(73, 81, 1).columns, 0);
}

class LegendDrawing : public ::testing::Test {
 protected:
  LegendDrawing() {
    GrapherSetParameters(grapher_, PlotSettings{}, {.x = {.max = 10.0}, .y = {.max = 10.0}});
    RecordingStart();
  }

  Grapher grapher_;
};

TEST_F(LegendDrawing, ATraceHasABoxInItsColourAndItsLabelInBlack) {
  PlotJob graph(1);
  graph.AddTrace("Red", {0.0F});
  GrapherDrawLegend(grapher_, graph.job);
  // 73 * 3 * 0.7 leaves 26 columns: the cell starts at 0.53 - 1 / 52 of 4096.
  EXPECT_THAT(Recording().calls,
              ElementsAre("fontname 'HersheySans'", "ffontsize 73.728", "linemod 'solid'", "filltype 1",
                          "pencolorname 'Red'", "fillcolorname 'Red'",
                          "fbox 2092.111 507.904 2133.071 536.576", "pencolorname 'black'",
                          "fillcolorname 'black'", "fmove 2153.551 483.328", "alabel l b 'Red'"));
}

TEST_F(LegendDrawing, TheOverlayHasALineBehindTheTraces) {
  PlotJob graph(1);
  graph.AddTrace("Red", {0.0F});
  graph.SetOverlay(10.0, {0.0F});
  GrapherDrawLegend(grapher_, graph.job);
  // "Reads" leaves 16 columns: the second cell starts at 0.53 of 4096.
  const size_t line = Recording().Find("pencolorname 'orange'");
  EXPECT_THAT(Recording().Slice(line - 1, 6),
              ElementsAre("linemod 'solid'", "pencolorname 'orange'", "fline 2170.88 509.952 2232.32 509.952",
                          "pencolorname 'black'", "fillcolorname 'black'", "fmove 2252.8 471.04"));
  EXPECT_EQ(Recording().calls.back(), "alabel l b 'Reads'");
}

TEST_F(LegendDrawing, ARowLiesOneAndAThirdFontSizesLower) {
  PlotJob graph(1);
  for (int n = 0; n < 17; ++n) {
    graph.AddTrace("Green", {0.0F});
  }
  GrapherDrawLegend(grapher_, graph.job);
  const std::vector<std::string> boxes = Recording().Named("fbox");
  EXPECT_EQ(boxes[0], "fbox 245.76 507.904 286.72 536.576");
  EXPECT_EQ(boxes[15], "fbox 3855.36 507.904 3896.32 536.576");
  EXPECT_EQ(boxes[16], "fbox 245.76 413.004 286.72 441.676");
}

// A backslash comes as its glyph: libplot would take what follows for markup.
TEST_F(LegendDrawing, TextsAreDrawnAsTheirCharactersAndMissingOnesAreLeftOut) {
  PlotJob graph(1);
  graph.AddTrace("Red", {0.0F});
  graph.AddTrace(nullptr, {0.0F});
  graph.job.mainOverlay.traces[0].label = "100% \\sp %s";
  GrapherDrawLegend(grapher_, graph.job);
  EXPECT_THAT(Recording().Named("alabel"), ElementsAre("alabel l b '100% \\#H4002sp %s'"));
  EXPECT_THAT(Recording().Named("fillcolorname"), ElementsAre("fillcolorname 'Red'", "fillcolorname 'black'",
                                                              "fillcolorname null", "fillcolorname 'black'"));
}

TEST_F(LegendDrawing, ALabelTooLongForOneColumnEndsTheProcess) {
  PlotJob graph(1);
  graph.AddTrace("Red", {0.0F});
  graph.SetOverlay(10.0, {0.0F});
  graph.job.additionalOverlay->traces[0].label = std::string(81, 'x');
  EXPECT_EXIT(GrapherDrawLegend(grapher_, graph.job), ExitedWithCode(1), "^graph: error: [^\n]*\n$");
}

}  // namespace
}  // namespace ozmo
