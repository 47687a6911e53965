#include "output/plot_driver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "output/plot_device.h"
#include "tests/output/plot_job.h"
#include "tests/output/recording_plot.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::MORNING;
using testing::PlotJob;
using testing::Recording;
using testing::RecordingStart;
using testing::ScopedVariable;
using testing::TempDirectory;
using Calls = std::vector<std::string>;

class PlotDriver : public ::testing::Test {
 protected:
  PlotDriver() {
    tzset();
    RecordingStart();
  }

  int Plot(PlotJob& graph) {
    graph.job.graphFile = directory_ / "plot";
    ::testing::internal::CaptureStderr();
    const int result = PlotGraphJob(graph.job);
    errors_ = ::testing::internal::GetCapturedStderr();
    return result;
  }

  static PlotJob Band(int pointCount) {
    PlotJob graph(pointCount);
    graph.AddBand("Red", 55.0F);
    return graph;
  }

  // Labels that stand below the frame: those of the time axis.
  static Calls TimeLabels() {
    Calls labels;
    for (const std::string& call : Recording().Named("alabel")) {
      if (call.rfind("alabel c t '", 0) == 0 && call.find(':') != std::string::npos) {
        labels.push_back(call.substr(12, 5));
      }
    }
    return labels;
  }

  ScopedVariable zone_{"TZ", "UTC0"};
  TempDirectory directory_;
  std::string errors_;
};

TEST_F(PlotDriver, OpensOnePlotterAndClosesIt) {
  PlotJob graph = Band(11);
  EXPECT_EQ(Plot(graph), 0);
  EXPECT_THAT(Recording().Slice(0, 10),
              ElementsAre("parampl 'BITMAPSIZE' '950x950'", "parampl 'BITMAPSIZE' '100x80'",
                          "newpl 'gif' '' 'out' 'stderr'", "selectpl 1", "openpl", "erase",
                          "fspace 0 0 4096 4096", "savestate", "fconcat 1 0 0 1 0 0", "savestate"));
  EXPECT_THAT(Recording().Slice(Recording().calls.size() - 4, 4),
              ElementsAre("restorestate", "closepl", "selectpl 0", "deletepl 1"));
}

TEST_F(PlotDriver, TracesAreDrawnFromTheWholeStackDownAndTheKeyFollows) {
  PlotJob graph(3);
  graph.AddTrace("Red", {0.0F, 55.0F, 0.0F});
  graph.AddTrace(nullptr, {0.0F, 11.0F, 0.0F});
  Plot(graph);
  const size_t traces = Recording().Find("flinewidth 6.144") - 2;
  const Calls pair = {"savestate", "restorestate"};
  EXPECT_THAT(
      Recording().Slice(traces, 26),
      ElementsAre("linemod 'solid'", "colorname 'Red'", "flinewidth 6.144", "filltype 1",
                  "fmove 327.68 696.32", pair[0], pair[1], "fcont 2129.92 2170.88", pair[0], pair[1],
                  "fcont 3932.16 696.32", pair[0], pair[1], "linemod 'solid'", "colorname null",
                  "flinewidth 6.144", "filltype 1", "fmove 327.68 696.32", pair[0], pair[1],
                  "fcont 2129.92 991.232", pair[0], pair[1], "fcont 3932.16 696.32", pair[0], pair[1]));
  EXPECT_EQ(Recording().calls[traces + 26], "fontname 'HersheySans'");
}

TEST_F(PlotDriver, SixteenTracesShareSevenColours) {
  PlotJob graph(11);
  const std::vector<std::string> colours = {"a", "b", "c", "d", "e", "f", "g", "h",
                                            "i", "j", "k", "l", "m", "n", "o", "p"};
  for (const std::string& colour : colours) {
    graph.AddBand(colour.c_str(), 5.0F);
  }
  Plot(graph);
  const Calls drawn = Recording().Named("colorname");
  ASSERT_EQ(drawn.size(), 16U);
  EXPECT_EQ(drawn[7], "colorname 'a'");
  EXPECT_EQ(drawn[15], "colorname 'b'");
  EXPECT_THAT(Recording().calls, Contains("pencolorname 'p'"));
}

TEST_F(PlotDriver, TimeTicksAreTheFirstThatMakeFewerThanNineParts) {
  struct Case {
    int pointCount;
    const char* second;
    size_t count;
  };
  for (const Case& row : std::vector<Case>{{11, "08:05", 3},
                                           {45, "08:05", 9},     // 2640 seconds
                                           {46, "08:10", 5},     // 2700 seconds
                                           {1441, "12:00", 8},   // a day: every 3 hours, from 09:00
                                           {10081, "00:00", 7},  // a week
                                           {100801, "00:00", 10}}) {
    RecordingStart();
    PlotJob graph = Band(row.pointCount);
    Plot(graph);
    const Calls labels = TimeLabels();
    ASSERT_EQ(labels.size(), row.count) << row.pointCount;
    EXPECT_EQ(labels[1], row.second) << row.pointCount;
  }
}

class PlotDriverOverlay : public PlotDriver {
 protected:
  PlotDriverOverlay() : graph_(11) {
    graph_.AddBand("Red", 55.0F);
    std::vector<float> values(11, 20.0F);
    values[0] = 0.0F;
    graph_.SetOverlay(40.0, values);
    EXPECT_EQ(Plot(graph_), 0);
  }

  PlotJob graph_;
};

TEST_F(PlotDriverOverlay, DrawsTwoPassesOnOnePlotter) {
  EXPECT_EQ(Recording().Named("openpl").size(), 1U);
  EXPECT_EQ(Recording().Named("fconcat").size(), 2U);
  EXPECT_EQ(Recording().Named("erase").size(), 1U);
  EXPECT_EQ(Recording().Named("alabel c b 'Load'").size(), 2U);
  EXPECT_THAT(Recording().calls, Contains("fbox 2129.92 2170.88 2129.92 2170.88"));
}

TEST_F(PlotDriverOverlay, TheMainPassHasDecimalTicksAndTheKey) {
  const size_t second = Recording().Find("fconcat", Recording().Find("fconcat") + 1);
  // The points up to the last but one: 540 of 600 seconds are in, but the limit above is given.
  const Calls labels = TimeLabels();
  EXPECT_THAT(labels, ElementsAre("08:00", "08:01", "08:03", "08:05", "08:06", "08:08", "08:10", "08:00",
                                  "08:05", "08:10"));
  EXPECT_LT(Recording().Find("alabel l b 'Reads'"), second);
  EXPECT_EQ(Recording().Named("alabel l b 'Reads'").size(), 1U);
}

TEST_F(PlotDriverOverlay, TheOverlayIsAnOrangeLineWithItsOwnAxisAtTheRight) {
  const size_t second = Recording().Find("fconcat", Recording().Find("fconcat") + 1);
  const size_t trace = Recording().Find("flinewidth 6.144", second);
  EXPECT_THAT(Recording().Slice(trace - 2, 5),
              ElementsAre("linemod 'solid'", "colorname 'orange'", "flinewidth 6.144", "filltype 0",
                          "fmove 327.68 696.32"));
  EXPECT_EQ(Recording().calls[Recording().Find("fcont", second)], "fcont 688.128 2170.88");
  EXPECT_LT(Recording().Find("alabel l c '40'", second), Recording().calls.size());
  EXPECT_LT(Recording().Find("alabel c t 'Rate'", second), Recording().calls.size());
}

TEST_F(PlotDriver, AFallenFirstPointLowersTheOverlayAxis) {
  PlotJob graph = Band(4);
  graph.SetOverlay(30.0, {-10.0F, 10.0F, 20.0F, 10.0F});
  Plot(graph);
  EXPECT_THAT(Recording().calls, Contains("alabel l c '-10'"));
  EXPECT_THAT(Recording().calls, Contains("linemod 'dotted'"));
}

TEST_F(PlotDriver, ATopThatIsNoNumberIsTakenFromTheValuesDrawn) {
  PlotJob graph = Band(11);
  graph.job.mainOverlay.yMax = INFINITY;
  const_cast<float&>(graph.job.mainOverlay.traces[0].series[3]) = INFINITY;
  EXPECT_EQ(Plot(graph), 0);
  EXPECT_EQ(errors_, "");
  EXPECT_THAT(Recording().calls, Contains("alabel r c '60'"));  // below 1.1 * 55
  EXPECT_THAT(Recording().Named("fcont"), ::testing::SizeIs(9));
}

TEST_F(PlotDriver, ASpanOfOnePointIsDrawnWithItsLimitsApart) {
  PlotJob graph = Band(1);
  EXPECT_EQ(Plot(graph), 0);
  EXPECT_THAT(errors_, ::testing::StartsWith("graph: separating identical upper and lower x limits\n"));
}

TEST_F(PlotDriver, SizesAreCutToDotsAtTheResolutionOfTheType) {
  GraphJob job;
  const auto size = [&](GraphType type, SizeUnit unit, double width, double height) {
    job.graphType = type;
    job.sizeUnit = unit;
    job.width = width;
    job.height = height;
    const BitmapSize dots = BitmapSizeOf(job);
    return std::to_string(dots.width) + "x" + std::to_string(dots.height);
  };
  EXPECT_EQ(size(GraphType::JPEG, SizeUnit::INCHES, 11.0, 8.5), "1056x816");
  EXPECT_EQ(size(GraphType::POSTSCRIPT, SizeUnit::INCHES, 11.0, 8.5), "792x612");
  EXPECT_EQ(size(GraphType::GIF, SizeUnit::CENTIMETRES, 20.0, 10.0), "756x378");
  EXPECT_EQ(size(GraphType::GIF, SizeUnit::PIXELS, 500.9, -0.9), "500x0");
  EXPECT_EQ(size(GraphType::GIF, SizeUnit::PIXELS, 16777217.0, 1e300), "16777216x2147483647");
}

TEST_F(PlotDriver, ABitmapThatLibplotCanNotMakeIsToldAndNotTried) {
  for (const double side : {0.0, -5.0, 0.5, 65536.0, 1e300, std::nan("")}) {
    RecordingStart();
    PlotJob graph = Band(11);
    graph.job.width = side;
    EXPECT_EQ(Plot(graph), 1) << side;
    EXPECT_EQ(errors_, "graph: error: couldn't open plot device\n") << side;
    EXPECT_THAT(Recording().Named("newpl"), IsEmpty()) << side;
  }
}

TEST_F(PlotDriver, AJpegHasAShorterLongestSide) {
  PlotJob graph = Band(11);
  graph.job.graphType = GraphType::JPEG;
  graph.job.width = 65501.0;
  EXPECT_EQ(Plot(graph), 1);
  EXPECT_EQ(errors_, "graph: error: couldn't open plot device\n");
}

TEST_F(PlotDriver, APageTakesAnySize) {
  PlotJob graph = Band(11);
  graph.job.graphType = GraphType::POSTSCRIPT;
  graph.job.width = 1e300;
  EXPECT_EQ(Plot(graph), 0);
  EXPECT_THAT(Recording().calls, Contains("newpl 'ps' '' 'out' 'stderr'"));
}

TEST_F(PlotDriver, PlottersThatFailAreTold) {
  PlotJob graph = Band(11);
  Recording().newplResult = -1;
  EXPECT_EQ(Plot(graph), 1);
  EXPECT_EQ(errors_, "graph: error: couldn't open plot device\n");
  EXPECT_THAT(Recording().Named("openpl"), IsEmpty());

  RecordingStart();
  Recording().openplResult = -1;
  EXPECT_EQ(Plot(graph), 1);
  EXPECT_EQ(errors_, "graph: error: couldn't open plot device\n");

  RecordingStart();
  Recording().closeplResult = -1;
  EXPECT_EQ(Plot(graph), 1);
  EXPECT_EQ(errors_, "graph: error: could not close plot device\n");
  EXPECT_THAT(Recording().Named("deletepl"), IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(graph.job.graphFile));
}

TEST_F(PlotDriver, AFileThatCanNotBeCreatedEndsTheProcessWithItsName) {
  PlotJob graph = Band(11);
  graph.job.graphFile = directory_ / "no/such.gif";
  EXPECT_EXIT(PlotGraphJob(graph.job), ::testing::ExitedWithCode(1),
              "^graph: error: could not open output file .*/no/such.gif\n$");
}

}  // namespace
}  // namespace ozmo
