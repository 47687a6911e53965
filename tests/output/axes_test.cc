#include "output/axes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

#include "output/grapher.h"
#include "output/points.h"
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

TEST(AxisTrialSpacing, WantsAboutFiveTicksAtOneTwoOrFive) {
  struct Case {
    double max, spacing;
    SpacingType type;
  };
  for (const Case& row : {Case{110, 20, SpacingType::TWO},
                          {1.1, 0.2, SpacingType::TWO},
                          {7.0, 1, SpacingType::ONE},  // 1.4 is below the root of 2
                          {7.2, 2, SpacingType::TWO},  // 1.44 is not
                          {35, 5, SpacingType::FIVE},  // 7.0 is below the root of 50
                          {36, 10, SpacingType::ONE},
                          {32400, 5000, SpacingType::FIVE}}) {
    EXPECT_DOUBLE_EQ(AxisTrialSpacing(0.0, row.max).spacing, row.spacing);
    EXPECT_EQ(AxisTrialSpacing(0.0, row.max).type, row.type) << row.max;
  }
}

TEST(AxisTrialSpacing, LimitsThatAreNotApartEndTheProcess) {
  EXPECT_EXIT(AxisTrialSpacing(3.0, 3.0), ExitedWithCode(1),
              "^graph: error: bad trial inter-tick spacing 0\n$");
  EXPECT_EXIT(AxisTrialSpacing(0.0, INFINITY), ExitedWithCode(1), "bad trial inter-tick spacing inf");
}

TEST(AxisSpacingType, FindsMultiplesOfAPowerOfTenWithinATolerance) {
  for (const auto& [spacing, type] : {std::pair(100.0, SpacingType::ONE),
                                      {0.002, SpacingType::TWO},
                                      {25.0, SpacingType::TWO_AND_A_HALF},
                                      {0.5000000001, SpacingType::FIVE},
                                      {0.50001, SpacingType::OTHER}}) {
    EXPECT_EQ(AxisSpacingType(spacing), type) << spacing;
  }
}

TEST(AxisPrepare, PlacesTicksAndThinsOutSubticksUntilThereAreFewerThanThirty) {
  struct Case {
    AxisLimits limits;
    int firstTick, lastTick;
    double subticks;  // their spacing; 0: none
  };
  for (const Case& row :
       {Case{Limits(0.0, 110.0), 0, 5, 10.0},
        {Limits(0.3 + 1e-8, 0.9 - 1e-8, 0.3), 1, 3, 0.0},  // just beyond a limit by rounding
        {Limits(0.3 + 1e-5, 0.9, 0.3), 2, 3, 0.0},
        {Limits(0.0, 2.9, 1.0), 0, 2, 0.1},
        {Limits(0.0, 3.0, 1.0), 0, 3, 0.2},
        {Limits(0.0, 6.0, 1.0), 0, 6, 0.5},
        {Limits(0.0, 15.0, 1.0), 0, 15, 0.0}}) {
    const AxisState axis = AxisPrepare(row.limits);
    EXPECT_EQ(axis.firstTick, row.firstTick) << row.limits.max;
    EXPECT_EQ(axis.lastTick, row.lastTick) << row.limits.max;
    EXPECT_EQ(axis.haveSubticks, row.subticks > 0.0) << row.limits.max;
    if (row.subticks > 0.0) {
      EXPECT_DOUBLE_EQ(axis.subtickSpacing, row.subticks);
      EXPECT_EQ(axis.lastSubtick, std::lround(std::floor(row.limits.max / row.subticks + 1e-6)));
    }
  }
}

TEST(AxisPrepare, CountsSubticksOfASecondAtTimesOfTheClock) {
  EXPECT_DOUBLE_EQ(AxisPrepare(Limits(1329897600.0, 1329897660.0)).subtickSpacing, 5.0);
}

TEST(AxisPrepare, TickNumbersBeyondAnIntAreHeldAtItsEdge) {
  const AxisState axis = AxisPrepare(Limits(9e18, 9e18 + 1e5, 300.0));
  EXPECT_EQ(axis.firstTick, axis.lastTick);
  EXPECT_FALSE(AxisPrepare(Limits(-9e18, 9e18, 1.0)).haveSubticks);
}

TEST(AxisValueLabel, HasTheDecimalsThatTheSpacingNeedsOrIsScientific) {
  struct Case {
    double min, max, value;
    const char* label;
  };
  for (const Case& row : {Case{0, 1.1, 0, "0.0"},
                          {0, 1.1, 5 * 0.2, "1.0"},
                          {0, 110, 100, "100"},
                          {0, 0.011, 0.01, "0.010"},
                          {0, 9999, 8000, "8000"},
                          // A limit of ten thousand and above.
                          {0, 110000, 20000, "2\\r6\\mu\\r8\\l810\\sp4\\ep"},
                          {0, 110000, 100000, "1.0\\r6\\mu\\r8\\l810\\sp5\\ep"},
                          {0, 110000, 0, "0"},
                          {0, 0.0001, 0.00002, "2\\r6\\mu\\r8\\l810\\sp-5\\ep"},
                          {-20000, 10, -10000, "-1.0\\r6\\mu\\r8\\l810\\sp4\\ep"}}) {
    EXPECT_EQ(AxisValueLabel(AxisPrepare(Limits(row.min, row.max)), MapOf(row.min, row.max), row.value),
              row.label);
  }
}

TEST(ClockText, ShowsLocalHoursAndMinutesOfWholeSeconds) {
  const ScopedVariable zone("TZ", "IST-5:30");
  tzset();
  EXPECT_EQ(ClockText(1329897600.0), "13:30");
  EXPECT_EQ(ClockText(1329897659.99), "13:30");
}

TEST(GrapherSetParameters, MovesIdenticalLimitsApartWithALine) {
  Grapher grapher;
  ::testing::internal::CaptureStderr();
  GrapherSetParameters(grapher, PlotSettings{}, {.x = Limits(50.0, 50.0), .y = Limits(1e18, 1e18)});
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "graph: separating identical upper and lower x limits\n"
            "graph: separating identical upper and lower y limits\n");
  EXPECT_EQ(grapher.xMap.inputMin, 49.0);
  EXPECT_EQ(grapher.xMap.inputMax, 51.0);
  EXPECT_GT(grapher.yMap.inputRange, 0.0) << "a step of one is too small";
}

// ---- Limits that come from the points ----

PointArray ArrayOf(const std::vector<std::pair<double, double>>& points) {
  PointArray array;
  for (const auto& [x, y] : points) {
    PlotPoint& point = array.emplace_back();
    point.x = x;
    point.y = y;
  }
  return array;
}

TEST(ArrayBounds, AreThoseOfThePointsButTheLastWhereTheyAreNotGiven) {
  struct Case {
    const char* rule;
    std::vector<std::pair<double, double>> points;
    AxisLimits x, y;
    std::vector<double> limits;  // of x, then of y
  };
  const AxisLimits none;
  const auto upTo = [](double max) { return AxisLimits{.max = max, .maxGiven = true}; };
  for (const Case& row :
       {Case{"the last takes no part", {{5, 2}, {6, 3}, {90, -70}}, none, none, {5, 6, 2, 3}},
        {"a given one stays", {{5, 2}, {7, -1}, {9, 8}, {9, 0}}, upTo(100), none, {5, 100, -1, 8}},
        {"one beyond widens neither", {{5, 2}, {1, 11}, {6, 10}, {6, 0}}, none, upTo(10), {5, 6, 2, 10}},
        {"nor do odd ones",
         {{1, 2}, {2, NAN}, {3, INFINITY}, {4, -INFINITY}, {5, 3}, {6, 0}},
         none,
         none,
         {1, 5, 2, 3}},
        {"of one point", {{5, 2}}, {.min = 4, .minGiven = true}, {.min = 7, .max = 8}, {4, 0, 0, 0}},
        {"of no point", {}, {.min = 4, .minGiven = true}, {.min = 7, .max = 8}, {4, 4, 0, 0}}}) {
    AxisLimits x = row.x;
    AxisLimits y = row.y;
    ArrayBounds(ArrayOf(row.points), x, y);
    EXPECT_EQ((std::vector{x.min, x.max, y.min, y.max}), row.limits) << row.rule;
  }
}

}  // namespace
}  // namespace ozmo
