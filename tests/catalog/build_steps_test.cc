#include "catalog/build_steps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "build_fixture.h"

namespace ozmo {
namespace {

using testing::Each;
using testing::FloatEq;

constexpr Seconds MINUTE_START = 120'000;  // a full minute

// ---- Points of a span ----

TEST(PointsOf, AnHourOnAFullMinuteHas62Points) {
  for (const PointCountRule rule : {PointCountRule::OF_DIFFERENCE, PointCountRule::OF_QUOTIENTS}) {
    EXPECT_EQ(PointsOf(rule, MINUTE_START, MINUTE_START + 3600), 62);
  }
}

TEST(PointsOf, QuotientsDependOnTheSecondsOfTheStart) {
  EXPECT_EQ(PointsOf(PointCountRule::OF_QUOTIENTS, MINUTE_START, MINUTE_START + 3599), 61);
  EXPECT_EQ(PointsOf(PointCountRule::OF_QUOTIENTS, MINUTE_START + 30, MINUTE_START + 30 + 3599), 62);
  EXPECT_EQ(PointsOf(PointCountRule::OF_DIFFERENCE, MINUTE_START + 30, MINUTE_START + 30 + 3599), 61);
}

// ---- Point of a time stamp ----

TEST(PointOf, NinetySecondsAreTwoPointsRoundedAndOneTruncated) {
  EXPECT_EQ(PointOf(PointRule::NEAREST_MINUTE, MINUTE_START, MINUTE_START + 90), 2);
  EXPECT_EQ(PointOf(PointRule::TRUNCATED, MINUTE_START, MINUTE_START + 90), 1);
}

TEST(PointOf, TruncationGoesByTheMinutesOfTheClock) {
  EXPECT_EQ(PointOf(PointRule::TRUNCATED, MINUTE_START + 50, MINUTE_START + 60), 1);
  EXPECT_EQ(PointOf(PointRule::NEAREST_MINUTE, MINUTE_START + 50, MINUTE_START + 60), 0);
}

TEST(PointOf, BeforeTheStartRoundsTowardsTheNearestMinute) {
  EXPECT_EQ(PointOf(PointRule::NEAREST_MINUTE, MINUTE_START, MINUTE_START - 30), 0);
  EXPECT_EQ(PointOf(PointRule::NEAREST_MINUTE, MINUTE_START, MINUTE_START - 31), -1);
}

TEST(PointOf, StampsFarOutsideStayInRange) {
  constexpr Seconds FAR = std::numeric_limits<int32_t>::max() * Seconds{1'000'000};
  for (const PointRule rule : {PointRule::NEAREST_MINUTE, PointRule::TRUNCATED}) {
    EXPECT_GT(PointOf(rule, 0, FAR), 1'000'000'000);
    EXPECT_LT(PointOf(rule, 0, -FAR), -1'000'000'000);
  }
}

TEST(MinutesOf, TruncatesAndSurvivesAnyInterval) {
  EXPECT_EQ(MinutesOf(119.0F), 1);
  EXPECT_EQ(MinutesOf(59.0F), 0);
  EXPECT_EQ(MinutesOf(-119.0F), -1);
  EXPECT_EQ(MinutesOf(std::nanf("")), 0);
  EXPECT_GT(MinutesOf(std::numeric_limits<float>::infinity()), 1'000'000'000);
}

// ---- Which intervals count ----

TEST(TakeInterval, TheFirstOfTwoSamplesInOneMinuteCounts) {
  BuildFixture fixture(SOLARIS_PLATFORM);
  fixture.AddProcessor(0, 10, 0, 90);
  EXPECT_TRUE(fixture.Take(300));
  fixture.AddProcessor(0, 70, 0, 30);
  EXPECT_FALSE(fixture.Take(320));
  EXPECT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 5), 10.0F);
}

TEST(TakeInterval, TheSampleAtTheStartIsDropped) {
  for (const PlatformSpec* platform : {&SOLARIS_PLATFORM, &AIX_PLATFORM}) {
    BuildFixture fixture(*platform);
    fixture.AddProcessor(0, 10, 0, 90);
    EXPECT_FALSE(fixture.Take(0));
    EXPECT_EQ(fixture.Value(Graph::PROCESS_COUNT, 0, 0), MISSING_POINT);
  }
}

TEST(TakeInterval, WithoutProcessorsNothingIsStored) {
  for (const PlatformSpec* platform : {&SOLARIS_PLATFORM, &HPUX_PLATFORM, &LINUX_PLATFORM}) {
    BuildFixture fixture(*platform);
    fixture.AddProcess("root", "cron", 1);
    EXPECT_TRUE(fixture.Take(300)) << "it still names the node";
    EXPECT_EQ(fixture.Value(Graph::PROCESS_COUNT, 0, 5), MISSING_POINT);
    fixture.AddProcessor(0, 10, 0, 90);
    EXPECT_TRUE(fixture.Take(310)) << "the minute is still free";
    EXPECT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 5), 10.0F);
  }
}

TEST(TakeInterval, LinuxNeedsAConfiguration) {
  BuildFixture fixture(LINUX_PLATFORM);
  fixture.context.config.reset();
  fixture.AddProcessor(0, 10, 0, 90);
  fixture.Take(300);
  EXPECT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 5), MISSING_POINT);
}

TEST(TakeInterval, Tru64TakesAnIntervalWithoutProcessors) {
  BuildFixture fixture(TRU64_PLATFORM);
  fixture.AddProcess("root", "cron", 1);
  fixture.Take(300);
  EXPECT_EQ(fixture.Value(Graph::PROCESS_COUNT, 0, 5), 1.0F);
}

TEST(TakeInterval, LinuxDropsWhatLiesBehindTheSpanAndKeepsTheLastPoint) {
  BuildFixture fixture(LINUX_PLATFORM);
  fixture.AddProcessor(0, 10, 0, 90);
  fixture.Take(300);
  fixture.AddProcessor(0, 20, 0, 80);
  EXPECT_FALSE(fixture.Take(3600 + 7200));
  EXPECT_EQ(fixture.state.lastPoint, 5);
}

TEST(TakeInterval, SamplesOutsideTheSpanAreStoredNowhere) {
  for (const Seconds offset : {Seconds{-600}, Seconds{7200}}) {
    BuildFixture fixture(SOLARIS_PLATFORM);
    fixture.AddProcessor(0, 10, 0, 90);
    fixture.AddProcess("root", "cron", 1);
    EXPECT_TRUE(fixture.Take(offset));
    EXPECT_THAT(fixture.Record(Graph::OVERALL_CPU).data.y[0], Each(MISSING_POINT));
    EXPECT_THAT(fixture.Record(Graph::ACTIVE_CPUS).data.y[0], Each(MISSING_POINT));
  }
}

TEST(TakeInterval, HpuxKeepsDetailForTwoDaysExactly) {
  EXPECT_TRUE(BuildFixture(HPUX_PLATFORM, 172800).state.detailed);
  EXPECT_FALSE(BuildFixture(HPUX_PLATFORM, 172801).state.detailed);
  EXPECT_TRUE(BuildFixture(SOLARIS_PLATFORM, 172801).state.detailed);
}

// ---- The end of a build ----

TEST(FinishSeries, LinuxBridgesFiveMinutesButNotTheHoleAtTheEnd) {
  BuildFixture fixture(LINUX_PLATFORM);
  fixture.state.intervalMinutes = 5;
  for (int point = 5; point <= 60; point += 5) {
    fixture.AddProcessor(0, point, 0, 100 - point);
    fixture.Take(point * 60);
  }
  FinishGraphs(fixture.state);
  FinishSeries(fixture.state);
  EXPECT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 4), 0.0F);
  EXPECT_THAT(fixture.Value(Graph::OVERALL_CPU, 0, 7), FloatEq(7));
  EXPECT_THAT(fixture.Value(Graph::OVERALL_CPU, 0, 54), FloatEq(54));
  EXPECT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 57), 0.0F);
  EXPECT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 60), 60.0F);
}

TEST(FinishSeries, WithoutDataEverySeriesIsZero) {
  for (const PlatformSpec* platform :
       {&SOLARIS_PLATFORM, &LINUX_PLATFORM, &AIX_PLATFORM, &HPUX_PLATFORM, &TRU64_PLATFORM, &VMR_PLATFORM}) {
    BuildFixture fixture(*platform);
    FinishGraphs(fixture.state);
    FinishSeries(fixture.state);
    int graphs = 0;
    VisitGraphs(fixture.catalog.itemTree, [&](const GraphRecord& record) {
      for (const Series& series : record.data.y) EXPECT_THAT(series, Each(0.0F)) << record.title;
      ++graphs;
    });
    EXPECT_GT(graphs, 10);
  }
}

}  // namespace
}  // namespace ozmo
