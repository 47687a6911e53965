#include "catalog/top_list.h"

#include <gtest/gtest.h>

#include "catalog/name_series.h"

namespace ozmo {
namespace {

// ---- Insertion ----

struct InsertCase {
  const char* rule;
  std::vector<float> added, kept;
};
const InsertCase INSERT_CASES[] = {
    {"falling ones fill nine places", {11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1}, {11, 10, 9, 8, 7, 6, 5, 4, 3}},
    {"rising ones fill ten", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}, {11, 10, 9, 8, 7, 6, 5, 4, 3, 2}},
    {"a tenth must beat the ninth", {9, 8, 7, 6, 5, 4, 3, 2, 1, 1.5F}, {9, 8, 7, 6, 5, 4, 3, 2, 1.5F, 1}},
    {"below the ninth nothing beats the tenth",
     {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 1.5F},
     {10, 9, 8, 7, 6, 5, 4, 3, 2, 1}},
    {"above it the tenth goes", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 2.5F}, {10, 9, 8, 7, 6, 5, 4, 3, 2.5F, 2}},
};

TEST(TopListInsert, KeepsNineOrTenPlaces) {
  for (const InsertCase& test : INSERT_CASES) {
    TopList list;
    for (const float weight : test.added) TopListInsert(list, {{"x", nullptr}, weight});
    std::vector<float> kept;
    for (const TopEntry& entry : list) kept.push_back(entry.weight);
    EXPECT_EQ(kept, test.kept) << test.rule;
  }
}

TEST(TopListInsert, AmongEqualsTheNewerGoesInFront) {
  TopList list;
  for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"}) {
    TopListInsert(list, {{name, nullptr}, name[0] == 'a' ? 9.0F : 5.0F});
  }
  std::string names;
  for (const TopEntry& entry : list) names += entry.named.name;
  EXPECT_EQ(names, "ajihgfedcb");
}

// ---- Weights ----

TEST(Weights, PlainSumTakesTheFirstPoints) {
  const Samples samples = {{1, 2}, {2, -3}, {3, 4}, {4, 100}};
  EXPECT_EQ(PlainSum(samples, 4), 3.0F);
  EXPECT_EQ(PlainSum(samples, -1), 0.0F);
}

TEST(Weights, NormalizedSumScalesEachShareToOverallCpu) {
  const Series overall = {50, 50, 50, 50};
  const Series shares = {100, 0, MISSING_POINT, 25};
  const CpuScale scale{overall, shares, 4};
  EXPECT_FLOAT_EQ(NormalizedSum<float>({{0, 10}, {1, 10}, {2, 10}, {3, 5}, {4, 9}}, scale), 5.0F + 10.0F);
  EXPECT_FLOAT_EQ(NormalizedSum<float>({}, scale), 0.0F);
}

TEST(Weights, NormalizedSumKeepsItsSumInTheAskedPrecision) {
  const Series ones(3, 1.0F);
  const CpuScale scale{ones, ones, 3};
  const Samples samples = {
      {0, 16777216.0F}, {1, 1.0F}, {2, 1.0F}};  // a float holds no odd number from there on
  EXPECT_EQ(NormalizedSum<float>(samples, scale), 16777216.0F);
  EXPECT_EQ(NormalizedSum<double>(samples, scale), 16777218.0);
}

TEST(NormalizeProcessSeries, ScalesOnlyWhereBothFiguresAreKnown) {
  const Series overall = {50, MISSING_POINT, 50, 50, 50};
  const Series shares = {100, 100, 0, 100, 100};
  Series series = {10, 10, 10, MISSING_POINT, 20};
  NormalizeProcessSeries(series, {overall, shares, 4});
  EXPECT_EQ(series, (Series{5, 10, 10, MISSING_POINT, 20})) << "the last point lies after the count";
}

// ---- What is ranked: series by name ----

using Points = std::vector<std::pair<int, float>>;

// A span of 1000 points, and the series of one name.
struct OneName {
  void Feed(int point, float value) { series.Feed(pages, points.NumberOf(point), value); }
  Points Values() const {
    Samples samples;
    series.Collect(points, samples);
    Points values;
    for (const Sample& sample : samples) values.emplace_back(sample.point, sample.value);
    return values;
  }
  SeriesBudget budget;
  SeriesPages pages{budget};
  SampledPoints points{999};
  NameSeries series;
};

TEST(NameSeries, HoldsWhatWasFedInTheOrderOfItsPoints) {
  OneName name;
  for (const int point : {-1, 1000, 5, 60, 60}) name.Feed(point, 1.5F);
  EXPECT_EQ(name.Values(), (Points{{5, 1.5F}, {60, 3.0F}})) << "a point is fed from zero";
  EXPECT_EQ(name.series.At(name.points.NumberOf(61)), MISSING_POINT);
}

TEST(NameSeries, ComesBackToEarlierPagesWhenTimeDoes) {
  OneName name;
  // Intervals that the name has no part in take pages between its own.
  for (int point = 500; point < 700; ++point) name.points.NumberOf(point);
  for (const auto& [point, value] : {std::pair(699, 1.0F), {500, 2.0F}, {600, 3.0F}, {500, 4.0F}, {3, 5.0F}})
    name.Feed(point, value);
  EXPECT_EQ(name.Values(), (Points{{3, 5.0F}, {500, 6.0F}, {600, 3.0F}, {699, 1.0F}}));
}

TEST(NamedOf, NamesComeInByteOrderAndOnce) {
  SeriesTable table;
  for (const char* name : {"b", "a", "B", "\xE4", "ab", "", "b"}) SeriesOf(table, name);
  std::string names;
  for (const NamedSeries& named : NamedOf(table)) names.append(named.name).append("|");
  EXPECT_EQ(names, "|B|a|ab|b|\xE4|");
}

}  // namespace
}  // namespace ozmo
