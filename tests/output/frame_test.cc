#include "output/frame.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/output/plot_job.h"
#include "tests/output/recording_plot.h"
#include "tests/support/environment.h"

namespace ozmo {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::MORNING;
using ::testing::Not;
using testing::PlotJob;
using testing::Recording;
using testing::RecordingStart;
using testing::ScopedVariable;

// A frame of ten minutes and 0 to 110.
class Frame : public ::testing::Test {
 protected:
  Frame() : graph_(11) {
    tzset();
    settings_.title = "Load";
    settings_.yTitle = "Percent";
    limits_.x = {
        .min = static_cast<double>(MORNING), .max = MORNING + 600.0, .spacing = 300.0, .spacingGiven = true};
    limits_.y = {.max = 110.0};
    RecordingStart();
  }

  // Draws and answers what was printed.
  std::string Draw(bool blankOut = false) {
    GrapherSetParameters(grapher_, settings_, limits_);
    ::testing::internal::CaptureStderr();
    GrapherDrawFrame(grapher_, graph_.job, blankOut);
    return ::testing::internal::GetCapturedStderr();
  }

  ScopedVariable zone_{"TZ", "UTC0"};
  PlotJob graph_;
  PlotSettings settings_;
  PlotLimits limits_;
  Grapher grapher_;
};

TEST_F(Frame, PeriodTextGoesByTheSpanLimitsIncluded) {
  EXPECT_EQ(PeriodText(MORNING, 86400.0), "Wednesday, 22 February 2012");
  EXPECT_EQ(PeriodText(MORNING, 86401.0), "February 2012, Week # 08");
  EXPECT_EQ(PeriodText(MORNING, 172800.0), "February 2012, Week # 08");
  EXPECT_EQ(PeriodText(MORNING, 172801.0), "February 2012");
  EXPECT_EQ(PeriodText(MORNING, 2592000.0), "February 2012");
  EXPECT_EQ(PeriodText(MORNING, 2678400.0), "2012");
}

TEST_F(Frame, StartsWithPenTitlesAndBox) {
  Draw();
  EXPECT_THAT(Recording().Slice(0, 11),
              ElementsAre("savestate", "pencolorname 'black'", "flinewidth -4.096", "linemod 'solid'",
                          "fontname 'HersheySans'", "ffontsize 88.4736", "fmove 2129.92 3953.623",
                          "alabel c b 'Load'", "fmove 2129.92 3747.185",
                          "alabel c b 'Wednesday, 22 February 2012'", "fbox 327.68 696.32 3932.16 3645.44"));
  EXPECT_THAT(Recording().Slice(Recording().calls.size() - 2, 2), ElementsAre("flushpl", "restorestate"));
}

TEST_F(Frame, TitlesRiseWithTheFontSizeThatLibplotAnswers) {
  Recording().fontScale = 2.0;
  Draw();
  EXPECT_THAT(Recording().calls, Contains("fmove 2129.92 4011.131"));
}

TEST_F(Frame, AnXTickHasALabelBelowAndMarksFromBothEdgesInward) {
  Draw();
  EXPECT_THAT(
      Recording().Slice(11, 10),
      ElementsAre("fontname 'HersheySans'", "ffontsize 88.4736", "fmove 327.68 674.2016",
                  "alabel c t '08:00'", "fline 327.68 3645.44 327.68 3615.949",
                  "fline 327.68 696.32 327.68 725.8112", "fmove 2129.92 674.2016", "alabel c t '08:05'",
                  "fline 2129.92 3645.44 2129.92 3615.949", "fline 2129.92 696.32 2129.92 725.8112"));
}

TEST_F(Frame, YTickLabelsAreMeasuredAndStandAtTheLeft) {
  Draw();
  const size_t label = Recording().Find("alabel r c '20'");
  EXPECT_THAT(
      Recording().Slice(label - 2, 5),
      ElementsAre("fmove 305.5616 1232.524", "flabelwidth '20'", "alabel r c '20'",
                  "fline 3932.16 1232.524 3902.669 1232.524", "fline 327.68 1232.524 357.1712 1232.524"));
  EXPECT_EQ(Recording().Named("flabelwidth").size(), 6U);
  // Subticks of two fifths of the length follow the last tick.
  const size_t subtick = Recording().Find("fline", Recording().Find("alabel r c '100'") + 3);
  EXPECT_EQ(Recording().calls[subtick], "fline 3932.16 696.32 3920.364 696.32");
}

TEST_F(Frame, TheYTitleStandsBeyondTheWidestLabel) {
  Draw();
  const size_t angle = Recording().Find("ftextangle 90");
  EXPECT_THAT(Recording().Slice(angle - 3, 6),
              ElementsAre("fontname 'HersheySans'", "ffontsize 88.4736", "fmove 146.3248 2170.88",
                          "ftextangle 90", "alabel c x 'Percent'", "ftextangle 0"));
}

TEST_F(Frame, ASwitchedYAxisStandsAtTheRightAndTheTitlesStay) {
  settings_.switchXAxisEnd = true;
  Draw();
  EXPECT_THAT(Recording().calls, Contains("fmove 3954.278 696.32"));
  EXPECT_THAT(Recording().calls, Contains("alabel l c '0'"));
  EXPECT_THAT(Recording().calls, Contains("alabel c b 'Load'"));
  EXPECT_THAT(Recording().calls, Contains("alabel c t '08:05'"));
  const size_t angle = Recording().Find("ftextangle 90");
  EXPECT_THAT(Recording().Slice(angle - 1, 3),
              ElementsAre("fmove 4113.515 2170.88", "ftextangle 90", "alabel c t 'Percent'"));
}

TEST_F(Frame, LimitsOfOppositeSignsHaveADottedLineAtZero) {
  Draw();
  EXPECT_THAT(Recording().Named("linemod"), ElementsAre("linemod 'solid'"));
  RecordingStart();
  limits_.y.min = -110.0;
  Draw();
  const size_t dotted = Recording().Find("linemod 'dotted'");
  EXPECT_THAT(Recording().Slice(dotted, 3),
              ElementsAre("linemod 'dotted'", "fline 327.68 2170.88 3932.16 2170.88", "linemod 'solid'"));
}

TEST_F(Frame, ABlankOutFractionOfZeroLeavesABoxWithoutArea) {
  settings_.blankOutFraction = 0.0;
  Draw(true);
  EXPECT_THAT(Recording().calls, Contains("fbox 2129.92 2170.88 2129.92 2170.88"));
}

TEST_F(Frame, FewerThanThreeLabelsAreWarnedOfOnce) {
  EXPECT_THAT(Draw(), IsEmpty());
  limits_.x.max -= 60.0;
  EXPECT_EQ(Draw(), "graph: too few labelled axis ticks, adjust tick spacing manually\n");
  EXPECT_THAT(Draw(), IsEmpty());
}

}  // namespace
}  // namespace ozmo
