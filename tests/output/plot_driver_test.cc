#include "output/plot_driver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "output/frame.h"
#include "output/plot_device.h"
#include "tests/output/plot_job.h"
#include "tests/output/recording_plot.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

using ::testing::Contains;
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

  // Labels below the frame: those of the time axis.
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

// A stack of two traces, the second without colour and label, and an overlay. The main pass has the key and
// decimal ticks on its time axis; the second pass has clock times, and an axis at the right that its first
// point takes below zero.
TEST_F(PlotDriver, AWholePlotCallByCall) {
  PlotJob graph(4);
  graph.job.mainOverlay.yMax = 36.0;
  graph.AddTrace("Red", {0.0F, 30.0F, 18.0F, 0.0F});
  graph.AddTrace(nullptr, {0.0F, 9.0F, 6.0F, 0.0F});
  graph.SetOverlay(28.0, {-8.0F, 10.0F, 20.0F, 10.0F});
  EXPECT_EQ(Plot(graph), 0);
  EXPECT_EQ(errors_, "graph: too few labelled axis ticks, adjust tick spacing manually\n");
  EXPECT_EQ(Recording().Text(), R"(
parampl 'BITMAPSIZE' '950x950'; 'BITMAPSIZE' '100x80'; newpl 'gif' '' 'out' 'stderr'; selectpl 1; openpl;
erase; fspace 0 0 4096 4096; savestate; fconcat 1 0 0 1 0 0; savestate; pencolorname 'black';
flinewidth -4.096; linemod 'solid'; fontname 'HersheySans'; ffontsize 88.4736; fmove 2129.92 3953.623;
alabel c b 'Load'; fmove 2129.92 3747.185; alabel c b 'Wednesday, 22 February 2012';
fbox 327.68 696.32 3932.16 3645.44; fontname 'HersheySans'; ffontsize 88.4736; fmove 327.68 674.2016;
alabel c t '08:00'; fline 327.68 3645.44 327.68 3615.949; 327.68 696.32 327.68 725.8112;
fmove 1328.924 674.2016; alabel c t '08:00'; fline 1328.924 3645.44 1328.924 3615.949;
1328.924 696.32 1328.924 725.8112; fmove 2330.169 674.2016; alabel c t '08:01';
fline 2330.169 3645.44 2330.169 3615.949; 2330.169 696.32 2330.169 725.8112; fmove 3331.413 674.2016;
alabel c t '08:02'; fline 3331.413 3645.44 3331.413 3615.949; 3331.413 696.32 3331.413 725.8112;
327.68 3645.44 327.68 3633.644; 327.68 696.32 327.68 708.1165; ... of 40; 3932.16 696.32 3932.16 708.1165;
fontname 'HersheySans'; ffontsize 88.4736; fmove 305.5616 696.32; flabelwidth '0'; alabel r c '0';
fline 3932.16 696.32 3902.669 696.32; 327.68 696.32 357.1712 696.32; fmove 305.5616 1515.52;
flabelwidth '10'; alabel r c '10'; fline 3932.16 1515.52 3902.669 1515.52; 327.68 1515.52 357.1712 1515.52;
fmove 305.5616 2334.72; flabelwidth '20'; alabel r c '20'; fline 3932.16 2334.72 3902.669 2334.72;
327.68 2334.72 357.1712 2334.72; fmove 305.5616 3153.92; flabelwidth '30'; alabel r c '30';
fline 3932.16 3153.92 3902.669 3153.92; 327.68 3153.92 357.1712 3153.92; 3932.16 696.32 3920.364 696.32;
327.68 696.32 339.4765 696.32; ... of 40; 327.68 3645.44 339.4765 3645.44; fontname 'HersheySans';
ffontsize 88.4736; fmove 146.3248 2170.88; ftextangle 90; alabel c x 'Percent'; ftextangle 0; flushpl;
restorestate; linemod 'solid'; colorname 'Red'; flinewidth 6.144; filltype 1; fmove 327.68 696.32;
savestate; restorestate; fcont 1529.173 3153.92; savestate; restorestate; fcont 2730.667 2170.88; savestate;
restorestate; fcont 3932.16 696.32; savestate; restorestate; linemod 'solid'; colorname null;
flinewidth 6.144; filltype 1; fmove 327.68 696.32; savestate; restorestate; fcont 1529.173 1433.6;
savestate; restorestate; fcont 2730.667 1187.84; savestate; restorestate; fcont 3932.16 696.32; savestate;
restorestate; fontname 'HersheySans'; ffontsize 73.728; linemod 'solid'; filltype 1; pencolorname 'Red';
fillcolorname 'Red'; fbox 1786.88 507.904 1827.84 536.576; pencolorname 'black'; fillcolorname 'black';
fmove 1848.32 483.328; alabel l b 'Red'; linemod 'solid'; filltype 1; pencolorname null; fillcolorname null;
fbox 2042.88 507.904 2083.84 536.576; pencolorname 'black'; fillcolorname 'black'; fmove 2104.32 483.328;
linemod 'solid'; pencolorname 'orange'; fline 2298.88 509.952 2360.32 509.952; pencolorname 'black';
fillcolorname 'black'; fmove 2380.8 471.04; alabel l b 'Reads'; restorestate; savestate;
fconcat 1 0 0 1 0 0; savestate; pencolorname 'black'; flinewidth -4.096; linemod 'solid'; savestate;
colorname 'white'; filltype 1; fbox 2129.92 2170.88 2129.92 2170.88; restorestate; fontname 'HersheySans';
ffontsize 88.4736; fmove 2129.92 3953.623; alabel c b 'Load'; fmove 2129.92 3747.185;
alabel c b 'Wednesday, 22 February 2012'; fbox 327.68 696.32 3932.16 3645.44; fontname 'HersheySans';
ffontsize 88.4736; fmove 327.68 674.2016; alabel c t '08:00'; fline 327.68 3645.44 327.68 3615.949;
327.68 696.32 327.68 725.8112; fontname 'HersheySans'; ffontsize 88.4736; fmove 3954.278 1351.68;
flabelwidth '0'; alabel l c '0'; fline 3932.16 1351.68 3902.669 1351.68; 327.68 1351.68 357.1712 1351.68;
fmove 3954.278 2170.88; flabelwidth '10'; alabel l c '10'; fline 3932.16 2170.88 3902.669 2170.88;
327.68 2170.88 357.1712 2170.88; fmove 3954.278 2990.08; flabelwidth '20'; alabel l c '20';
fline 3932.16 2990.08 3902.669 2990.08; 327.68 2990.08 357.1712 2990.08; 3932.16 696.32 3920.364 696.32;
327.68 696.32 339.4765 696.32; ... of 40; 327.68 3645.44 339.4765 3645.44; linemod 'dotted';
fline 327.68 1351.68 3932.16 1351.68; linemod 'solid'; fontname 'HersheySans'; ffontsize 88.4736;
fmove 4113.515 2170.88; ftextangle 90; alabel c t 'Rate'; ftextangle 0; flushpl; restorestate;
linemod 'solid'; colorname 'orange'; flinewidth 6.144; filltype 0; fmove 327.68 696.32; savestate;
restorestate; fcont 1529.173 2170.88; savestate; restorestate; fcont 2730.667 2990.08; savestate;
restorestate; fcont 3932.16 2170.88; savestate; restorestate; restorestate; closepl; selectpl 0; deletepl 1;
)");
}

TEST_F(PlotDriver, TitlesRiseWithTheFontSizeThatLibplotReturns) {
  PlotJob graph = Band(11);
  Recording().fontScale = 2.0;
  Plot(graph);
  EXPECT_THAT(Recording().calls, Contains("fmove 2129.92 4011.131"));
}

TEST_F(PlotDriver, TheSecondTitleGoesByTheSpanLimitsIncluded) {
  for (const auto& [seconds, title] : {std::pair(86400.0, "Wednesday, 22 February 2012"),
                                       {86401.0, "February 2012, Week # 08"},
                                       {172800.0, "February 2012, Week # 08"},
                                       {172801.0, "February 2012"},
                                       {2592000.0, "February 2012"},
                                       {2678400.0, "2012"}}) {
    EXPECT_EQ(PeriodText(MORNING, seconds), title);
  }
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

TEST_F(PlotDriver, ABitmapThatLibplotCanNotMakeIsReportedAndNotTried) {
  struct Case {
    GraphType type;
    double width;
    bool made;
  };
  for (const Case& row : std::vector<Case>{{GraphType::GIF, 0.0, false},
                                           {GraphType::GIF, -5.0, false},
                                           {GraphType::GIF, 0.5, false},
                                           {GraphType::GIF, 65535.0, true},
                                           {GraphType::GIF, 65536.0, false},
                                           {GraphType::GIF, 1e300, false},
                                           {GraphType::GIF, std::nan(""), false},
                                           {GraphType::JPEG, 65501.0, false},
                                           {GraphType::POSTSCRIPT, 1e300, true}}) {
    RecordingStart();
    PlotJob graph = Band(11);
    graph.job.graphType = row.type;
    graph.job.width = row.width;
    EXPECT_EQ(Plot(graph), row.made ? 0 : 1) << row.width;
    EXPECT_EQ(errors_, row.made ? "" : "graph: error: couldn't open plot device\n") << row.width;
    EXPECT_EQ(Recording().Named("newpl").size(), row.made ? 1U : 0U) << row.width;
  }
}

TEST_F(PlotDriver, PlottersThatFailAreReported) {
  struct Case {
    int newpl, openpl, closepl;
    const char* error;
    const char* last;  // call to libplot
  };
  for (const Case& row :
       {Case{-1, 0, 0, "graph: error: couldn't open plot device\n", "newpl 'gif' '' 'out' 'stderr'"},
        {1, -1, 0, "graph: error: couldn't open plot device\n", "openpl"},
        {1, 0, -1, "graph: error: could not close plot device\n", "closepl"}}) {
    RecordingStart();
    Recording().newplResult = row.newpl;
    Recording().openplResult = row.openpl;
    Recording().closeplResult = row.closepl;
    PlotJob graph = Band(11);
    EXPECT_EQ(Plot(graph), 1);
    EXPECT_EQ(errors_, row.error);
    EXPECT_EQ(Recording().calls.back(), row.last);
    EXPECT_FALSE(std::filesystem::exists(graph.job.graphFile));
  }
}

TEST_F(PlotDriver, AFileThatCanNotBeCreatedEndsTheProcessWithItsName) {
  PlotJob graph = Band(11);
  graph.job.graphFile = directory_ / "no/such.gif";
  EXPECT_EXIT(PlotGraphJob(graph.job), ::testing::ExitedWithCode(1),
              "^graph: error: could not open output file .*/no/such.gif\n$");
}

}  // namespace
}  // namespace ozmo
