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

}  // namespace
}  // namespace ozmo
