#include "output/points.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

namespace ozmo {
namespace {

PointArray ArrayOf(const std::vector<std::pair<double, double>>& points) {
  PointArray array;
  for (const auto& [x, y] : points) {
    PlotPoint& point = array.emplace_back();
    point.x = x;
    point.y = y;
  }
  return array;
}

TEST(ArrayBounds, FindsWhatIsNotGivenAndLeavesTheRest) {
  AxisLimits x{.max = 100.0, .maxGiven = true};
  AxisLimits y;
  ArrayBounds(ArrayOf({{5.0, 2.0}, {7.0, -1.0}, {9.0, 8.0}, {9.0, 0.0}}), x, y);
  EXPECT_EQ(x.min, 5.0);
  EXPECT_EQ(x.max, 100.0);
  EXPECT_EQ(y.min, -1.0);
  EXPECT_EQ(y.max, 8.0);
}

TEST(ArrayBounds, TheLastPointTakesNoPart) {
  AxisLimits x;
  AxisLimits y;
  ArrayBounds(ArrayOf({{5.0, 2.0}, {6.0, 3.0}, {90.0, -70.0}}), x, y);
  EXPECT_EQ(x.max, 6.0);
  EXPECT_EQ(y.min, 2.0);
}

TEST(ArrayBounds, APointOutsideAGivenLimitWidensNeitherAxis) {
  AxisLimits x;
  AxisLimits y{.max = 10.0, .maxGiven = true};
  ArrayBounds(ArrayOf({{5.0, 2.0}, {1.0, 11.0}, {6.0, 10.0}, {6.0, 0.0}}), x, y);
  EXPECT_EQ(x.min, 5.0);
  EXPECT_EQ(y.min, 2.0);
}

TEST(ArrayBounds, ValuesThatAreNoFiniteNumbersTakeNoPart) {
  AxisLimits x;
  AxisLimits y;
  ArrayBounds(ArrayOf({{1.0, 2.0}, {2.0, NAN}, {3.0, INFINITY}, {4.0, -INFINITY}, {5.0, 3.0}, {6.0, 0.0}}), x,
              y);
  EXPECT_EQ(x.max, 5.0);
  EXPECT_EQ(y.min, 2.0);
  EXPECT_EQ(y.max, 3.0);
}

TEST(ArrayBounds, WithoutAPointTheyAreZero) {
  AxisLimits x{.min = 4.0, .minGiven = true};
  AxisLimits y{.min = 7.0, .max = 8.0};
  ArrayBounds(ArrayOf({{5.0, 2.0}}), x, y);
  EXPECT_EQ(x.min, 4.0);
  EXPECT_EQ(x.max, 0.0);
  EXPECT_EQ(y.min, 0.0);
  EXPECT_EQ(y.max, 0.0);
}

TEST(ArrayBounds, InAnEmptyArrayAnUnsetMaximumTakesTheMinimum) {
  AxisLimits x{.min = 4.0, .minGiven = true};
  AxisLimits y{.min = 7.0, .max = 8.0};
  ArrayBounds(PointArray(), x, y);
  EXPECT_EQ(x.max, 4.0);
  EXPECT_EQ(y.min, 0.0);
  EXPECT_EQ(y.max, 0.0);
}

TEST(PointReader, EachTraceStartsAtTheFirstXWithAPenUpAndTheNextLineMode) {
  PlotSettings settings;
  settings.firstX = 1000.0;
  PointReader reader = PointReaderNew(settings);
  PointArray array;
  PointReadTrace(reader, std::vector{1.0F, 2.0F}, array);
  PointReaderAlter(reader, settings, {});
  PointReadTrace(reader, std::vector{3.0F, 4.0F}, array);

  std::vector<std::vector<double>> seen;
  for (const PlotPoint& point : array) {
    seen.push_back({point.x, point.y, point.pendown ? 1.0 : 0.0, static_cast<double>(point.lineMode)});
  }
  using Rows = std::vector<std::vector<double>>;
  EXPECT_EQ(seen, (Rows{{1000, 1, 0, 1}, {1060, 2, 1, 1}, {1000, 3, 0, 2}, {1060, 4, 1, 2}}));
}

}  // namespace
}  // namespace ozmo
