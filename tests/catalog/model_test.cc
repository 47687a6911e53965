#include "catalog/model.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

#include "build_fixture.h"

namespace ozmo {
namespace {

constexpr float MISSING = MISSING_POINT;
constexpr int MOST = std::numeric_limits<int>::max();

// A table of one group with one graph of the given sets.
struct OneGraph {
  explicit OneGraph(std::vector<Series> sets) {
    if (!sets.empty()) record.data.npoints = static_cast<int>(sets.front().size());
    record.data.y = std::move(sets);
    table.push_back({.code = "G", .label = "", .record = nullptr, .subTable = {}});
    table[0].subTable.push_back({.code = "X", .label = "x", .record = &record, .subTable = {}});
  }
  GraphRecord record;
  std::vector<GraphMenuEntry> table;
};

TEST(GraphBridgeGaps, DrawsAStraightLineThroughAHoleBelowTheLimit) {
  struct Case {
    const char* rule;
    int points, maxGap;
    Series before, after;
  };
  const Case cases[] = {
      {"a line", 8, 3, {MISSING, 2, MISSING, MISSING, 8, 9, MISSING}, {MISSING, 2, 4, 6, 8, 9, MISSING}},
      {"maxGap points stay",
       8,
       3,
       {1, MISSING, MISSING, MISSING, 5, 5},
       {1, MISSING, MISSING, MISSING, 5, 5}},
      {"and one less goes", 9, 4, {1, MISSING, MISSING, MISSING, 5, 5}, {1, 2, 3, 4, 5, 5}},
      {"the last maxGap points can't end a hole", 6, 2, {0, 0, 0, 1, MISSING, 3}, {0, 0, 0, 1, MISSING, 3}},
      {"those before them can", 8, 2, {0, 0, 0, 1, MISSING, 3}, {0, 0, 0, 1, 2, 3}},
      {"no gap", 5, 0, {1, MISSING, 3, 3, 3}, {1, MISSING, 3, 3, 3}},
      {"a negative gap", 5, -7, {1, MISSING, 3, 3, 3}, {1, MISSING, 3, 3, 3}},
      {"a gap beyond all points", 3, MOST / 2, {1, MISSING, 3}, {1, MISSING, 3}},
      {"values below missing are missing", 6, 2, {4, -2, 6, 7, 7, 7}, {4, 5, 6, 7, 7, 7}},
      {"those above are not", 6, 2, {4, -0.5F, 6, 7, 7, 7}, {4, -0.5F, 6, 7, 7, 7}},
  };
  for (const Case& test : cases) {
    OneGraph graph({test.before});
    GraphBridgeGaps(graph.table, test.points, test.maxGap);
    EXPECT_EQ(graph.record.data.y[0], test.after) << test.rule;
  }
}

TEST(GraphStackTraces, EachSetBecomesTheSumOfItselfAndTheSetsAfterIt) {
  using Sets = std::vector<Series>;
  struct Case {
    const char* rule;
    Sets before, after;
  };
  const Case cases[] = {
      {"sums", {{1, 10}, {2, 20}, {3, 30}}, {{6, 60}, {5, 50}, {3, 30}}},
      {"negatives are 0", {{1, MISSING}, {MISSING, -7}, {3, MISSING}}, {{4, 0}, {3, 0}, {3, 0}}},
      {"in one set as well", {{-3, 4, MISSING}}, {{0, 4, 0}}},
      {"no sets", {}, {}},
  };
  for (const Case& test : cases) {
    OneGraph graph(test.before);
    GraphStackTraces(graph.table);
    EXPECT_EQ(graph.record.data.y, test.after) << test.rule;
  }
  OneGraph undefined({{1, MISSING}, {std::nanf(""), 1}, {2, 1}});
  undefined.record.data.npoints = 1;
  GraphStackTraces(undefined.table);
  EXPECT_TRUE(std::isnan(undefined.record.data.y[0][0]));
  EXPECT_EQ(undefined.record.data.y[0][1], MISSING) << "points after the count stay as they are";
  EXPECT_EQ(undefined.record.data.y[2][0], 2.0F);
}

TEST(Points, OutsideTheSeriesReadAsMissingAndStoreNothing) {
  Series series(3, MISSING);
  for (const int point : {-1, 3, MOST, std::numeric_limits<int>::min()}) {
    PointStore(series, point, 5.0F);
    PointFeed(series, point, 5.0F);
    EXPECT_EQ(PointAt(series, point), MISSING);
  }
  EXPECT_EQ(series, Series(3, MISSING));
  PointFeed(series, 1, 2.0F);
  PointFeed(series, 1, 3.0F);
  EXPECT_EQ(series, (Series{MISSING, 5, MISSING})) << "a missing point feeds from zero";
}

TEST(Catalog, StoresOnlyWhatThereIsRoomFor) {
  BuildFixture fixture(vmr_catalog::PLATFORM, 120);
  fixture.catalog.Store(Graph::OVERALL_CPU, 0, 4, 7.0F);
  fixture.catalog.Store(Graph::OVERALL_CPU, 0, 5, 8.0F);
  fixture.catalog.Store(Graph::OVERALL_CPU, 1, 1, 8.0F);
  fixture.catalog.Store(Graph::OVERALL_CPU, -1, 1, 8.0F);
  fixture.catalog.Store(Graph::ENTITLEMENT, 0, 1, 8.0F);
  EXPECT_EQ(fixture.Record(Graph::OVERALL_CPU).data.y,
            (std::vector<Series>{{MISSING, MISSING, MISSING, MISSING, 7}}));
}

// ---- Limits of a request ----

using SeriesDeathTest = testing::Test;

TEST(SeriesDeathTest, TwoGibibytesAreTheLimitOfOneCatalog) {
  constexpr int64_t ALL_VALUES = (int64_t{2} << 30) / 4;
  GraphCatalog catalog;
  EXPECT_EXIT(catalog.budget.Take(2, ALL_VALUES / 2 + 1), testing::ExitedWithCode(EXIT_FAILURE), "");
  EXPECT_EXIT(catalog.budget.Take(1, -1), testing::ExitedWithCode(EXIT_FAILURE), "");
  catalog.pointCount = 99;
  SeriesNew(catalog);
  catalog.budget.Take(1, ALL_VALUES - 100);
  EXPECT_EXIT(catalog.budget.Take(1, 1), testing::ExitedWithCode(EXIT_FAILURE), "");
}

}  // namespace
}  // namespace ozmo
