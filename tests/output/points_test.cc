#include "output/points.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "tests/output/plot_job.h"

namespace ozmo {
namespace {

using testing::PlotJob;

PointArray ArrayOf(const std::vector<std::pair<double, double>>& points) {
  PointArray array = PointArrayNew(1);
  for (const auto& [x, y] : points) {
    PlotPoint point = {};
    point.x = x;
    point.y = y;
    PointArrayAdd(array, point);
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
  ArrayBounds(PointArrayNew(0), x, y);
  EXPECT_EQ(x.max, 4.0);
  EXPECT_EQ(y.min, 0.0);
  EXPECT_EQ(y.max, 0.0);
}

TEST(PointReader, EachTraceStartsAtTheFirstXWithAPenUpAndTheNextLineMode) {
  PlotJob graph(2);
  graph.AddTrace("red", {1.0F, 2.0F});
  graph.AddTrace("blue", {3.0F, 4.0F});
  PlotSettings settings;
  settings.firstX = 1000.0;
  PointReader reader = PointReaderNew(settings);
  PointArray array = PointArrayNew(1);  // grows twice
  PointReadTrace(reader, graph.job, array, 0);
  PointReaderAlter(reader, settings, {});
  PointReadTrace(reader, graph.job, array, 1);

  ASSERT_EQ(array.count, 4U);
  std::vector<std::vector<double>> seen;
  for (const PlotPoint& point : array) {
    seen.push_back({point.x, point.y, point.pendown ? 1.0 : 0.0, static_cast<double>(point.lineMode)});
  }
  using Rows = std::vector<std::vector<double>>;
  EXPECT_EQ(seen, (Rows{{1000, 1, 0, 1}, {1060, 2, 1, 1}, {1000, 3, 0, 2}, {1060, 4, 1, 2}}));
}

TEST(PointReader, TheNumberBehindTheLastTraceIsTheOverlay) {
  PlotJob graph(1);
  graph.AddTrace("red", {1.0F});
  graph.SetOverlay(10.0, {9.0F});
  PointReader reader = PointReaderNew({});
  PointArray array = PointArrayNew(4);
  PointReadTrace(reader, graph.job, array, 1);
  EXPECT_EQ(array.begin()->y, 9.0);
}

}  // namespace
}  // namespace ozmo
