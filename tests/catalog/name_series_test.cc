#include "catalog/name_series.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ozmo {
namespace {

using testing::ElementsAre;
using testing::Pair;

// A span of 1000 points, and the series of one name.
struct OneName {
  void Feed(int point, float value) { series.Feed(pages, points.NumberOf(point), value); }
  std::vector<std::pair<int, float>> Values() const {
    Samples samples;
    series.Collect(points, samples);
    std::vector<std::pair<int, float>> values;
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
  EXPECT_THAT(name.Values(), ElementsAre(Pair(5, 1.5F), Pair(60, 3.0F))) << "a point is fed from zero";
  EXPECT_EQ(name.series.At(name.points.NumberOf(61)), MISSING_POINT);
}

TEST(NameSeries, ComesBackToEarlierPagesWhenTimeDoes) {
  OneName name;
  // Intervals that the name has no part in take pages between its own.
  for (int point = 500; point < 700; ++point) name.points.NumberOf(point);
  for (const auto& [point, value] : {std::pair(699, 1.0F), {500, 2.0F}, {600, 3.0F}, {500, 4.0F}, {3, 5.0F}})
    name.Feed(point, value);
  EXPECT_THAT(name.Values(), ElementsAre(Pair(3, 5.0F), Pair(500, 6.0F), Pair(600, 3.0F), Pair(699, 1.0F)));
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
