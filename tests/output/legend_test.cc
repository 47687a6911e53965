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

TEST(LegendPlan, RowsAreCentredOrFullOrPackedCloser) {
  struct Case {
    size_t longest;
    int labels, columns;
    double cell, left;
  };
  for (const Case& row : {Case{5, 3, 16, 1.0 / 16, 0.53 - 1.5 / 16},  // 4096 / 255.5
                          {5, 16, 16, 0.94 / 16, 0.06},
                          {5, 95, 16, 0.94 / 16, 0.06},
                          {5, 96, 19, 1.0 / 19, 0.01},  // six full rows: 4370.432 / 219
                          {80, 1, 1, 1.0, 0.03},
                          {81, 1, 0, 0, 0}}) {
    const LegendLayout layout = LegendPlan(73, row.longest, row.labels);
    EXPECT_EQ(layout.columns, row.columns) << row.labels;
    if (row.columns < 2) continue;
    EXPECT_DOUBLE_EQ(layout.cell, row.cell) << row.labels;
    EXPECT_DOUBLE_EQ(layout.left, row.left) << row.labels;
  }
}

class LegendDrawing : public ::testing::Test {
 protected:
  LegendDrawing() {
    GrapherSetParameters(grapher_, PlotSettings{}, {.x = {.max = 10.0}, .y = {.max = 10.0}});
    RecordingStart();
  }

  Grapher grapher_;
};

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
