#include "catalog/model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "catalog/build_steps.h"

namespace ozmo {
namespace {

using testing::ElementsAre;
using testing::FloatEq;

constexpr float MISSING = MISSING_POINT;

// A table of one graph with the given sets.
struct OneGraph {
  explicit OneGraph(std::vector<Series> sets) {
    record.data.npoints = static_cast<int>(sets.front().size());
    record.data.y = std::move(sets);
    table.push_back({.code = "X", .label = "x", .record = &record, .subTable = {}});
  }
  const Series& Set(size_t set) const { return record.data.y[set]; }

  GraphRecord record;
  std::vector<GraphMenuEntry> table;
};

Series Bridged(Series series, int points, int maxGap) {
  OneGraph graph({std::move(series)});
  GraphBridgeGaps(graph.table, points, maxGap);
  return graph.Set(0);
}

// ---- Gaps ----

TEST(GraphBridgeGaps, DrawsAStraightLineThroughAHole) {
  EXPECT_THAT(Bridged({MISSING, 2, MISSING, MISSING, 8, 9, MISSING, MISSING}, 8, 3),
              ElementsAre(MISSING, 2, FloatEq(4), FloatEq(6), 8, 9, MISSING, MISSING));
}

TEST(GraphBridgeGaps, AHoleOfMaxGapPointsStays) {
  const Series series = {1, MISSING, MISSING, MISSING, 5, 5, 5, 5};
  EXPECT_EQ(Bridged(series, 8, 3), series);
  EXPECT_THAT(Bridged(series, 9, 4), ElementsAre(1, 2, 3, 4, 5, 5, 5, 5));
}

TEST(GraphBridgeGaps, TheLastPointsCantEndAHole) {
  const Series series = {0, 0, 0, 1, MISSING, 3};
  EXPECT_EQ(Bridged(series, 6, 2), series) << "the right end lies at the limit or beyond";
  EXPECT_THAT(Bridged(series, 8, 2), ElementsAre(0, 0, 0, 1, 2, 3));
}

TEST(GraphBridgeGaps, ValuesAtOrBelowMissingAreMissing) {
  EXPECT_THAT(Bridged({4, -2, 6, 7, 7, 7}, 6, 2), ElementsAre(4, 5, 6, 7, 7, 7));
  EXPECT_THAT(Bridged({4, -0.5F, 6, 7, 7, 7}, 6, 2), ElementsAre(4, -0.5F, 6, 7, 7, 7));
}

TEST(GraphBridgeGaps, ReachesSubTables) {
  OneGraph graph({{1, MISSING, 3, 3, 3, 3}});
  std::vector<GraphMenuEntry> root = {{.code = "G", .label = "", .record = nullptr, .subTable = graph.table}};
  GraphBridgeGaps(root, 6, 2);
  EXPECT_EQ(graph.Set(0)[1], 2.0F);
}

// ---- Stacking ----

TEST(GraphStackTraces, SetZeroHoldsTheSumOfAll) {
  OneGraph graph({{1, 10}, {2, 20}, {3, 30}});
  GraphStackTraces(graph.table);
  EXPECT_THAT(graph.Set(0), ElementsAre(6, 60));
  EXPECT_THAT(graph.Set(1), ElementsAre(5, 50));
  EXPECT_THAT(graph.Set(2), ElementsAre(3, 30));
}

TEST(GraphStackTraces, MissingAndNegativeValuesCountAsZero) {
  OneGraph graph({{1, MISSING}, {MISSING, -7}, {3, MISSING}});
  GraphStackTraces(graph.table);
  EXPECT_THAT(graph.Set(0), ElementsAre(4, 0));
  EXPECT_THAT(graph.Set(1), ElementsAre(3, 0));
  EXPECT_THAT(graph.Set(2), ElementsAre(3, 0));
}

TEST(GraphStackTraces, PointsBehindTheCountStayAsTheyAre) {
  OneGraph graph({{-3, 4, MISSING}, {1, 1, 1}});
  graph.record.data.npoints = 2;
  GraphStackTraces(graph.table);
  EXPECT_THAT(graph.Set(0), ElementsAre(1, 5, MISSING));
}

// ---- Points ----

TEST(Points, OutsideTheSeriesReadAsMissingAndStoreNothing) {
  Series series(3, MISSING);
  for (const int point : {-1, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    PointStore(series, point, 5.0F);
    PointFeed(series, point, 5.0F);
    EXPECT_EQ(PointAt(series, point), MISSING);
  }
  EXPECT_THAT(series, ElementsAre(MISSING, MISSING, MISSING));
}

TEST(Points, AMissingPointFeedsFromZero) {
  Series series(2, MISSING);
  PointFeed(series, 1, 2.0F);
  PointFeed(series, 1, 3.0F);
  EXPECT_THAT(series, ElementsAre(MISSING, 5));
}

TEST(Catalog, StoresOnlyWhatThereIsRoomFor) {
  GraphCatalog catalog;
  catalog.pointCount = 4;
  catalog.records.resize(static_cast<size_t>(Graph::COUNT));
  GraphRecord& record = catalog.records[static_cast<size_t>(Graph::OVERALL_CPU)].emplace();
  XrtSeriesCreate(catalog, record, 1);
  catalog.Store(Graph::OVERALL_CPU, 0, 4, 7.0F);
  catalog.Store(Graph::OVERALL_CPU, 0, 5, 8.0F);
  catalog.Store(Graph::OVERALL_CPU, 1, 1, 8.0F);
  catalog.Store(Graph::OVERALL_CPU, -1, 1, 8.0F);
  catalog.Store(Graph::LAN_DATA, 0, 1, 8.0F);
  EXPECT_THAT(record.data.y, ElementsAre(ElementsAre(MISSING, MISSING, MISSING, MISSING, 7)));
  EXPECT_EQ(record.data.npoints, 5);
}

// ---- Limits of a request ----

using SeriesDeathTest = testing::Test;

TEST(SeriesDeathTest, ANegativeNumberOfPointsEndsTheRunWithStatusZero) {
  GraphCatalog catalog;
  EXPECT_EXIT(SeriesRequire(catalog, 1, -5), testing::ExitedWithCode(0), "");
}

TEST(SeriesDeathTest, TwoGibibytesAreTheLimitOfOneCatalog) {
  GraphCatalog catalog;
  constexpr int64_t ALL_VALUES = (int64_t{2} << 30) / 4;
  SeriesRequire(catalog, 2, ALL_VALUES / 2);
  EXPECT_EXIT(SeriesRequire(catalog, 2, ALL_VALUES / 2 + 1), testing::ExitedWithCode(0), "");
  catalog.pointCount = 99;
  const Series series = SeriesNew(catalog);
  EXPECT_EQ(catalog.seriesBytes, 400);
  EXPECT_EXIT(SeriesRequire(catalog, 2, ALL_VALUES / 2), testing::ExitedWithCode(0), "");
}

TEST(SeriesDeathTest, ASpanFrom1970EndsBeforeAnythingIsMade) {
  for (const PlatformSpec* platform :
       {&SOLARIS_PLATFORM, &LINUX_PLATFORM, &AIX_PLATFORM, &HPUX_PLATFORM, &TRU64_PLATFORM, &VMR_PLATFORM}) {
    GraphCatalog catalog;
    WorkloadClassList classes;
    WorkloadDefaults(classes);
    BuildState state(*platform, catalog, classes);
    EXPECT_EXIT(StartCatalog(state, 0, 1'330'000'000), testing::ExitedWithCode(0), "");
  }
}

TEST(SeriesDeathTest, ASpanThatEndsWellBeforeItStartsEndsTheRun) {
  GraphCatalog catalog;
  WorkloadClassList classes;
  WorkloadDefaults(classes);
  BuildState state(SOLARIS_PLATFORM, catalog, classes);
  EXPECT_EXIT(StartCatalog(state, 6000, 0), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace ozmo
