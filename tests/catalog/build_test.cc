#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include "build_fixture.h"
#include "catalog/build_steps.h"
#include "catalog/needs.h"

namespace ozmo {
namespace {

constexpr Seconds MINUTE = 120'000;  // a full one
constexpr auto INFINITE = std::numeric_limits<float>::infinity();

// ---- Points ----

TEST(PointCountOf, QuotientsDependOnTheSecondsOfTheStart) {
  struct Case {
    Seconds start, length;
    int ofDifference, ofQuotients;
  };
  for (const Case& test : {Case{MINUTE, 3600, 62, 62}, {MINUTE, 3599, 61, 61}, {MINUTE + 30, 3599, 61, 62}}) {
    const Seconds end = test.start + test.length;
    EXPECT_EQ(PointCountOf(PointCountRule::OF_DIFFERENCE, test.start, end), test.ofDifference);
    EXPECT_EQ(PointCountOf(PointCountRule::OF_QUOTIENTS, test.start, end), test.ofQuotients);
  }
}

TEST(PointOf, RoundsToTheNearestMinuteOrTruncatesByTheClock) {
  struct Case {
    Seconds start, offset;
    int nearest, truncated;
  };
  for (const Case& test :
       {Case{MINUTE, 90, 2, 1}, {MINUTE + 50, 10, 0, 1}, {MINUTE, -30, 0, -1}, {MINUTE, -31, -1, -1}}) {
    EXPECT_EQ(PointOf(PointRule::NEAREST_MINUTE, test.start, test.start + test.offset), test.nearest);
    EXPECT_EQ(PointOf(PointRule::TRUNCATED, test.start, test.start + test.offset), test.truncated);
  }
}

TEST(PointOf, StampsFarOutsideStayInRange) {
  constexpr Seconds FAR = std::numeric_limits<int32_t>::max() * Seconds{1'000'000};
  for (const PointRule rule : {PointRule::NEAREST_MINUTE, PointRule::TRUNCATED}) {
    EXPECT_GT(PointOf(rule, 0, FAR), 1'000'000'000);
    EXPECT_LT(PointOf(rule, 0, -FAR), -1'000'000'000);
  }
}

TEST(MinutesOf, TruncatesAndSurvivesAnyInterval) {
  for (const auto& [seconds, minutes] :
       {std::pair(119.0F, 1), {59.0F, 0}, {-119.0F, -1}, {std::nanf(""), 0}}) {
    EXPECT_EQ(MinutesOf(seconds), minutes) << seconds;
  }
  EXPECT_GT(MinutesOf(INFINITE), 1'000'000'000);
}

// ---- Which intervals count ----

TEST(TakeInterval, TheFirstOfTwoSamplesInOneMinuteCountsAndTheOneAtTheStartIsDropped) {
  for (const PlatformSpec* platform : {&solaris_catalog::PLATFORM, &linux_catalog::PLATFORM}) {
    BuildFixture fixture(*platform);
    EXPECT_FALSE(fixture.TakeBusy(0, 10));
    EXPECT_EQ(fixture.Value(Graph::PROCESS_COUNT, 0, 0), MISSING_POINT);
    EXPECT_TRUE(fixture.TakeBusy(300, 10));
    EXPECT_FALSE(fixture.TakeBusy(320, 70));
    EXPECT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 5), 10.0F);
  }
}

TEST(TakeInterval, WithoutProcessorsNothingIsStored) {
  for (const PlatformSpec* platform : ALL_PLATFORMS) {
    BuildFixture fixture(*platform);
    fixture.AddProcess("root", "cron", 1);
    EXPECT_TRUE(fixture.Take(300)) << "it still names the node";
    EXPECT_EQ(fixture.Value(Graph::PROCESS_COUNT, 0, 5), MISSING_POINT);
    fixture.TakeBusy(310, 10);
    EXPECT_NE(fixture.Value(Graph::OVERALL_CPU, 0, 5), MISSING_POINT) << "the minute is still free";
  }
}

TEST(TakeInterval, LinuxNeedsAConfiguration) {
  BuildFixture fixture(linux_catalog::PLATFORM);
  fixture.context.config.reset();
  fixture.TakeBusy(300, 10);
  EXPECT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 5), MISSING_POINT);
}

TEST(TakeInterval, SamplesOutsideTheSpanAreStoredNowhere) {
  for (const Seconds offset : {Seconds{-600}, Seconds{7200}}) {
    BuildFixture fixture(solaris_catalog::PLATFORM);
    fixture.AddProcess("root", "cron", 1);
    EXPECT_TRUE(fixture.TakeBusy(offset, 10));
    EXPECT_EQ(std::ranges::max(fixture.Record(Graph::OVERALL_CPU).data.y[0]), MISSING_POINT);
    EXPECT_EQ(std::ranges::max(fixture.Record(Graph::ACTIVE_CPUS).data.y[0]), MISSING_POINT);
  }
  BuildFixture fixture(linux_catalog::PLATFORM);
  fixture.TakeBusy(300, 10);
  EXPECT_FALSE(fixture.TakeBusy(3600 + 7200, 20)) << "which drops what lies beyond";
  EXPECT_TRUE(fixture.TakeBusy(360, 20)) << "and goes on";
}

// ---- The end of a build ----

TEST(FinishSeries, LinuxBridgesFiveMinutesButNotTheHoleAtTheEnd) {
  BuildFixture fixture(linux_catalog::PLATFORM);
  fixture.context.config->intervalSeconds = 300;
  for (int point = 5; point <= 60; point += 5) fixture.TakeBusy(point * 60, point);
  fixture.Finish();
  for (const auto& [point, value] : {std::pair(4, 0.0F), {7, 7.0F}, {54, 54.0F}, {57, 0.0F}, {60, 60.0F}}) {
    EXPECT_FLOAT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, point), value) << point;
  }
}

// ---- What is read ----

TEST(Needs, WhatNobodyNeedsIsNotRead) {
  using enum PassKind;
  struct Case {
    const PlatformSpec& platform;
    const char* title;
    std::set<PassKind> passes;
  };
  for (const Case& test :
       {Case{solaris_catalog::PLATFORM, "overall CPU utilization", {PROCESSORS}},
        {solaris_catalog::PLATFORM, "Memory Utilization", {MEMORY}},
        {solaris_catalog::PLATFORM, "Process Count", {PROCESSES}},
        {solaris_catalog::PLATFORM, "Top 10 Users by CPU Utilization", {PROCESSES, PROCESSORS}},
        {solaris_catalog::PLATFORM, "Utilization for sda", {DISKS, ADAPTERS}},
        {solaris_catalog::PLATFORM, "hme0", {ADAPTERS}},
        {aix_catalog::PLATFORM, "Shared Pool CPU Utilization", {PARTITION, ADAPTERS}},
        {tru64_catalog::PLATFORM, "hme0", {}},
        {vmr_catalog::PLATFORM, "CPU-1 Utilization by Mode", {PROCESSORS}}}) {
    const Needs needs = NeedsOf(test.platform, WantedTitles({test.title}), true);
    std::set<PassKind> passes;
    for (size_t pass = 0; pass < needs.passes.size(); ++pass) {
      if (needs.passes[pass]) passes.insert(static_cast<PassKind>(pass));
    }
    EXPECT_EQ(passes, test.passes) << test.title;
  }
}

}  // namespace
}  // namespace ozmo
