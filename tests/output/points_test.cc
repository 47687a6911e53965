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

TEST(ArrayBounds, AreThoseOfThePointsButTheLastWhereTheyAreNotGiven) {
  struct Case {
    const char* rule;
    std::vector<std::pair<double, double>> points;
    AxisLimits x, y;
    std::vector<double> limits;  // of x, then of y
  };
  const AxisLimits none;
  for (const Case& row :
       {Case{"the last takes no part", {{5, 2}, {6, 3}, {90, -70}}, none, none, {5, 6, 2, 3}},
        {"a given one stays",
         {{5, 2}, {7, -1}, {9, 8}, {9, 0}},
         {.max = 100, .maxGiven = true},
         none,
         {5, 100, -1, 8}},
        {"a point beyond a given one widens neither axis",
         {{5, 2}, {1, 11}, {6, 10}, {6, 0}},
         none,
         {.max = 10, .maxGiven = true},
         {5, 6, 2, 10}},
        {"nor do those of no finite numbers",
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
