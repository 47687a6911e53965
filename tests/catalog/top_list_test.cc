#include "catalog/top_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ozmo {
namespace {

using testing::ElementsAre;
using testing::FloatEq;

constexpr float MISSING = MISSING_POINT;

struct Ranked {
  void Add(std::string_view name, float weight) { TopListInsert(list, {name, weight, nullptr}); }
  std::vector<float> Weights() const {
    std::vector<float> weights;
    for (const TopEntry& entry : list) weights.push_back(entry.weight);
    return weights;
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const TopEntry& entry : list) names.emplace_back(entry.name);
    return names;
  }
  TopList list;
};

// ---- Insertion ----

TEST(TopListInsert, FallingWeightsFillNinePlaces) {
  Ranked ranked;
  for (float weight = 11; weight >= 1; --weight) ranked.Add("x", weight);
  EXPECT_THAT(ranked.Weights(), ElementsAre(11, 10, 9, 8, 7, 6, 5, 4, 3));
}

TEST(TopListInsert, RisingWeightsFillTenPlaces) {
  Ranked ranked;
  for (float weight = 1; weight <= 11; ++weight) ranked.Add("x", weight);
  EXPECT_THAT(ranked.Weights(), ElementsAre(11, 10, 9, 8, 7, 6, 5, 4, 3, 2));
}

TEST(TopListInsert, ATenthEntryMustBeatTheNinth) {
  Ranked ranked;
  for (float weight = 90; weight >= 10; weight -= 10) ranked.Add("x", weight);
  ASSERT_EQ(ranked.list.size(), 9U);
  ranked.Add("below", 9);
  EXPECT_EQ(ranked.list.size(), 9U);
  ranked.Add("above", 11);
  EXPECT_THAT(ranked.Weights(), ElementsAre(90, 80, 70, 60, 50, 40, 30, 20, 11, 10));
}

TEST(TopListInsert, TheTenthOfAFullListIsNeverBeatenFromBelowTheNinth) {
  Ranked ranked;
  for (float weight = 10; weight <= 100; weight += 10) ranked.Add("x", weight);
  ASSERT_EQ(ranked.list.size(), 10U);
  ranked.Add("between ninth and tenth", 15);
  EXPECT_EQ(ranked.list.back().weight, 10.0F);
  ranked.Add("above the ninth", 25);
  EXPECT_THAT(ranked.Weights(), ElementsAre(100, 90, 80, 70, 60, 50, 40, 30, 25, 20));
}

TEST(TopListInsert, AmongEqualsTheNewerGoesInFront) {
  Ranked ranked;
  for (const char* name : {"a", "b", "c"}) ranked.Add(name, 5);
  ranked.Add("low", 1);
  ranked.Add("high", 9);
  EXPECT_THAT(ranked.Names(), ElementsAre("high", "c", "b", "a", "low"));
}

TEST(TopListInsert, ATieWithTheNinthTakesItsPlace) {
  Ranked ranked;
  for (float weight = 9; weight >= 1; --weight) ranked.Add("old", weight);
  ranked.Add("new", 1);
  EXPECT_EQ(ranked.list.size(), 10U);
  EXPECT_EQ(ranked.list[8].name, "new");
  EXPECT_EQ(ranked.list[9].name, "old");
}

// ---- Weights ----

TEST(Weights, PlainSumPassesOverMissingPointsOnly) {
  EXPECT_EQ(PlainSum({MISSING, 2, -3, 4, 100}, 4), 3.0F);
  EXPECT_EQ(PlainSum({1, 2}, 5), 3.0F);
  EXPECT_EQ(PlainSum({1, 2}, -1), 0.0F);
}

TEST(Weights, NormalizedSumScalesEachShareToOverallCpu) {
  const Series overall = {50, 50, 50, 50};
  const Series shares = {100, 0, MISSING, 25};
  const CpuScale scale{overall, shares, 4};
  const Series series = {10, 10, 10, 5};
  EXPECT_FLOAT_EQ(NormalizedSum<float>(series, scale), 5.0F + 10.0F);
  EXPECT_DOUBLE_EQ(NormalizedSum<double>(series, scale), 15.0);
  EXPECT_FLOAT_EQ(NormalizedSum<float>({MISSING, MISSING, MISSING, MISSING}, scale), 0.0F);
}

TEST(Weights, NormalizedSumKeepsItsSumInTheAskedPrecision) {
  const Series ones(3, 1.0F);
  const CpuScale scale{ones, ones, 3};
  const Series series = {16777216.0F, 1.0F, 1.0F};  // a float holds no odd number from there on
  EXPECT_EQ(NormalizedSum<float>(series, scale), 16777216.0F);
  EXPECT_EQ(NormalizedSum<double>(series, scale), 16777218.0);
}

TEST(NormalizeProcessSeries, ScalesOnlyWhereBothFiguresAreKnown) {
  const Series overall = {50, MISSING, 50, 50, 50};
  const Series shares = {100, 100, 0, 100, 100};
  Series series = {10, 10, 10, MISSING, 20};
  NormalizeProcessSeries(series, {overall, shares, 4});
  EXPECT_THAT(series, ElementsAre(5, 10, 10, MISSING, 20)) << "the last point lies behind the count";
}

// ---- Names ----

TEST(ImageOfCommand, IsTheLastPathComponentOfTheFirstWord) {
  EXPECT_EQ(ImageOfCommand("/usr/bin/ksh -x"), "ksh");
  EXPECT_EQ(ImageOfCommand("ksh\t/etc/profile"), "ksh");
  EXPECT_EQ(ImageOfCommand("bin/"), "");
}

TEST(ImageOfCommand, LosesOneLeadingDash) {
  EXPECT_EQ(ImageOfCommand("-ksh"), "ksh");
  EXPECT_EQ(ImageOfCommand("/bin/-sh"), "sh");
  EXPECT_EQ(ImageOfCommand("--x"), "-x");
}

TEST(ImageOfCommand, KeepsLeadingBlanksOfACommandWithoutAPath) {
  EXPECT_EQ(ImageOfCommand("  ksh -x"), "  ksh");
  EXPECT_EQ(ImageOfCommand("  /bin/ksh -x"), "ksh");
  EXPECT_EQ(ImageOfCommand(" -ksh"), " -ksh");
}

TEST(ImageOfCommand, ACommandWithoutAWordIsUnknown) {
  EXPECT_EQ(ImageOfCommand(""), "<unknown>");
  EXPECT_EQ(ImageOfCommand("   "), "<unknown>");
  EXPECT_EQ(ImageOfCommand(" \t "), "<unknown>");
}

TEST(ImageOfCommand, IsCutAt255Bytes) {
  EXPECT_EQ(ImageOfCommand(std::string(255, 'a')).size(), 255U);
  EXPECT_EQ(ImageOfCommand(std::string(300, 'a')).size(), 255U);
  EXPECT_EQ(ImageOfCommand(std::string(253, 'a') + "/bc"), "b");
  EXPECT_EQ(ImageOfCommand(std::string(255, ' ') + "x"), "<unknown>");
}

}  // namespace
}  // namespace ozmo
