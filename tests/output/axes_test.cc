#include "output/axes.h"

#include <gtest/gtest.h>

#include <cmath>

#include "output/grapher.h"
#include "tests/support/environment.h"

namespace ozmo {
namespace {

using ::testing::ExitedWithCode;
using testing::ScopedVariable;

AxisLimits Limits(double min, double max) { return {.min = min, .max = max}; }
AxisLimits Limits(double min, double max, double spacing) {
  return {
      .min = min, .max = max, .minGiven = true, .maxGiven = true, .spacing = spacing, .spacingGiven = true};
}

AxisMap MapOf(double min, double max) {
  AxisMap map;
  map.inputMin = min;
  map.inputMax = max;
  map.inputRange = max - min;
  return map;
}

std::string LabelOf(double min, double max, double value) {
  return AxisValueLabel(AxisPrepare(Limits(min, max)), MapOf(min, max), value);
}

TEST(AxisTrialSpacing, WantsAboutFiveTicksAtOneTwoOrFive) {
  EXPECT_DOUBLE_EQ(AxisTrialSpacing(0.0, 110.0).spacing, 20.0);
  EXPECT_DOUBLE_EQ(AxisTrialSpacing(0.0, 1.1).spacing, 0.2);
  EXPECT_DOUBLE_EQ(AxisTrialSpacing(0.0, 7.0).spacing, 1.0);   // 1.4 is below the root of 2
  EXPECT_DOUBLE_EQ(AxisTrialSpacing(0.0, 7.2).spacing, 2.0);   // 1.44 is not
  EXPECT_DOUBLE_EQ(AxisTrialSpacing(0.0, 35.0).spacing, 5.0);  // 7.0 is below the root of 50
  EXPECT_DOUBLE_EQ(AxisTrialSpacing(0.0, 36.0).spacing, 10.0);
  EXPECT_EQ(AxisTrialSpacing(0.0, 36.0).type, SpacingType::ONE);
  EXPECT_EQ(AxisTrialSpacing(0.0, 32400.0).type, SpacingType::FIVE);
}

TEST(AxisTrialSpacing, LimitsThatAreNotApartEndTheProcess) {
  EXPECT_EXIT(AxisTrialSpacing(3.0, 3.0), ExitedWithCode(1),
              "^graph: error: bad trial inter-tick spacing 0\n$");
  EXPECT_EXIT(AxisTrialSpacing(0.0, INFINITY), ExitedWithCode(1), "bad trial inter-tick spacing inf");
}

TEST(AxisSpacingType, TellsMultiplesOfAPowerOfTenWithinATolerance) {
  EXPECT_EQ(AxisSpacingType(100.0), SpacingType::ONE);
  EXPECT_EQ(AxisSpacingType(0.002), SpacingType::TWO);
  EXPECT_EQ(AxisSpacingType(25.0), SpacingType::TWO_AND_A_HALF);
  EXPECT_EQ(AxisSpacingType(0.5000000001), SpacingType::FIVE);
  EXPECT_EQ(AxisSpacingType(0.50001), SpacingType::OTHER);
}

TEST(AxisPrepare, PlacesTicksAndSubticks) {
  const AxisState axis = AxisPrepare(Limits(0.0, 110.0));
  EXPECT_EQ(axis.firstTick, 0);
  EXPECT_EQ(axis.lastTick, 5);
  EXPECT_TRUE(axis.haveSubticks);
  EXPECT_DOUBLE_EQ(axis.subtickSpacing, 10.0);
  EXPECT_EQ(axis.lastSubtick, 11);
}

TEST(AxisPrepare, ATickJustBeyondALimitByRoundingStays) {
  const AxisState axis = AxisPrepare(Limits(0.3 + 1e-8, 0.9 - 1e-8, 0.3));
  EXPECT_EQ(axis.firstTick, 1);
  EXPECT_EQ(axis.lastTick, 3);
  EXPECT_EQ(AxisPrepare(Limits(0.3 + 1e-5, 0.9, 0.3)).firstTick, 2);
}

TEST(AxisPrepare, ThinsOutSubticksOfAPowerOfTenUntilThereAreFewerThanThirty) {
  EXPECT_DOUBLE_EQ(AxisPrepare(Limits(0.0, 2.9, 1.0)).subtickSpacing, 0.1);
  EXPECT_DOUBLE_EQ(AxisPrepare(Limits(0.0, 3.0, 1.0)).subtickSpacing, 0.2);
  EXPECT_DOUBLE_EQ(AxisPrepare(Limits(0.0, 6.0, 1.0)).subtickSpacing, 0.5);
  EXPECT_FALSE(AxisPrepare(Limits(0.0, 15.0, 1.0)).haveSubticks);
}

TEST(AxisPrepare, CountsSubticksOfASecondAtTimesOfTheClock) {
  EXPECT_DOUBLE_EQ(AxisPrepare(Limits(1329897600.0, 1329897660.0)).subtickSpacing, 5.0);
}

TEST(AxisPrepare, TickNumbersBeyondAnIntAreHeldAtItsEdge) {
  const AxisState axis = AxisPrepare(Limits(9e18, 9e18 + 1e5, 300.0));
  EXPECT_EQ(axis.firstTick, axis.lastTick);
  EXPECT_FALSE(AxisPrepare(Limits(-9e18, 9e18, 1.0)).haveSubticks);
}

TEST(AxisValueLabel, HasTheDecimalsThatTheSpacingNeeds) {
  EXPECT_EQ(LabelOf(0.0, 1.1, 0.0), "0.0");
  EXPECT_EQ(LabelOf(0.0, 1.1, 5 * 0.2), "1.0");
  EXPECT_EQ(LabelOf(0.0, 110.0, 100.0), "100");
  EXPECT_EQ(LabelOf(0.0, 0.011, 0.01), "0.010");
  EXPECT_EQ(LabelOf(0.0, 9999.0, 8000.0), "8000");
}

TEST(AxisValueLabel, ALimitOfTenThousandAndAboveMakesItScientific) {
  EXPECT_EQ(LabelOf(0.0, 110000.0, 20000.0), "2\\r6\\mu\\r8\\l810\\sp4\\ep");
  EXPECT_EQ(LabelOf(0.0, 110000.0, 100000.0), "1.0\\r6\\mu\\r8\\l810\\sp5\\ep");
  EXPECT_EQ(LabelOf(0.0, 110000.0, 0.0), "0");
  EXPECT_EQ(LabelOf(0.0, 0.0001, 0.00002), "2\\r6\\mu\\r8\\l810\\sp-5\\ep");
  EXPECT_EQ(LabelOf(-20000.0, 10.0, -10000.0), "-1.0\\r6\\mu\\r8\\l810\\sp4\\ep");
}

TEST(ClockText, ShowsLocalHoursAndMinutesOfWholeSeconds) {
  const ScopedVariable zone("TZ", "IST-5:30");
  tzset();
  EXPECT_EQ(ClockText(1329897600.0), "13:30");
  EXPECT_EQ(ClockText(1329897659.99), "13:30");
}

TEST(AxisToDevice, MapsTheLimitsToTheFrameAndTurnsAReversedAxis) {
  Grapher grapher;
  PlotLimits limits{.x = Limits(10.0, 20.0), .y = Limits(4.0, 2.0)};
  GrapherSetParameters(grapher, PlotSettings{}, limits);
  EXPECT_DOUBLE_EQ(AxisToDevice(grapher.xMap, 10.0), 0.08 * 4096);
  EXPECT_DOUBLE_EQ(AxisToDevice(grapher.xMap, 20.0), 0.96 * 4096);
  EXPECT_DOUBLE_EQ(AxisToDevice(grapher.yMap, 4.0), 0.17 * 4096);
  EXPECT_DOUBLE_EQ(AxisToDevice(grapher.yMap, 2.0), 0.89 * 4096);
}

TEST(GrapherSetParameters, MovesIdenticalLimitsApartWithALine) {
  Grapher grapher;
  ::testing::internal::CaptureStderr();
  GrapherSetParameters(grapher, PlotSettings{}, {.x = Limits(50.0, 50.0), .y = Limits(0.0, 0.0)});
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "graph: separating identical upper and lower x limits\n"
            "graph: separating identical upper and lower y limits\n");
  EXPECT_EQ(grapher.xMap.inputMin, 49.0);
  EXPECT_EQ(grapher.xMap.inputMax, 51.0);
  EXPECT_EQ(grapher.yMap.inputRange, 2.0);
}

TEST(GrapherSetParameters, LimitsTooLargeForAStepOfOneAreMovedApartAsWell) {
  Grapher grapher;
  ::testing::internal::CaptureStderr();
  GrapherSetParameters(grapher, PlotSettings{}, {.x = Limits(1e18, 1e18), .y = Limits(0.0, 1.0)});
  ::testing::internal::GetCapturedStderr();
  EXPECT_GT(grapher.xMap.inputRange, 0.0);
}

TEST(GrapherSetParameters, ASpacingLosesItsSignAndMustNotBeZero) {
  Grapher grapher;
  GrapherSetParameters(grapher, PlotSettings{}, {.x = Limits(0.0, 9.0, -3.0), .y = Limits(0.0, 1.0)});
  EXPECT_EQ(grapher.xAxis.lastTick, 3);
  EXPECT_EXIT(
      GrapherSetParameters(grapher, PlotSettings{}, {.x = Limits(0.0, 9.0, 0.0), .y = Limits(0.0, 1.0)}),
      ExitedWithCode(1), "^graph: error: zero spacing between ticks on an axis\n$");
}

}  // namespace
}  // namespace ozmo
