#include "catalog/processes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "build_fixture.h"

namespace ozmo {
namespace {

using testing::ElementsAre;
using testing::Pair;

// ---- Shares by platform ----

// The share of a process of three seconds (user 2, system 1) in an interval of 60 seconds on two processors.
float ShareOn(const PlatformSpec& platform) {
  BuildFixture fixture(platform);
  fixture.AddProcessor(0, 0, 100, 0);
  fixture.AddProcessor(1, 0, 100, 0);
  fixture.AddProcess("adm", "job", 2).systemCpuSeconds = 1;
  fixture.Take(120);
  return fixture.Named(NameTree::IMAGES, "job", 2);
}

TEST(ProcessShare, FollowsThePlatform) {
  EXPECT_FLOAT_EQ(ShareOn(SOLARIS_PLATFORM), 2.5F);
  EXPECT_FLOAT_EQ(ShareOn(LINUX_PLATFORM), 2.5F);
  EXPECT_FLOAT_EQ(ShareOn(HPUX_PLATFORM), 1.5F) << "of the processors' time counters";
  EXPECT_FLOAT_EQ(ShareOn(TRU64_PLATFORM), 3.0F) << "as it stands";
  EXPECT_FLOAT_EQ(ShareOn(AIX_PLATFORM), 1.25F) << "of the time since the start of the span";
}

TEST(ProcessShare, OnlinePartitionProcessorsLimitTheDivisorOnAix) {
  for (const auto& [online, share] : {std::pair(1.0, 5.0F), {0.0, 2.5F}, {8.0, 2.5F}}) {
    BuildFixture fixture(AIX_PLATFORM);
    fixture.AddProcessor(0, 1, 0, 1);
    fixture.AddProcessor(1, 1, 0, 1);
    fixture.AddProcess("adm", "job", 3);
    fixture.context.partition.emplace().lparValue[18] = online;
    fixture.Take(60);
    EXPECT_FLOAT_EQ(fixture.Named(NameTree::IMAGES, "job", 1), share) << online;
  }
}

TEST(ProcessShare, AnIntervalOfNoLengthIsAFloatDivision) {
  BuildFixture fixture(SOLARIS_PLATFORM);
  fixture.AddProcessor(0, 50, 0, 50);
  fixture.AddProcess("adm", "job", 3);
  fixture.context.periodStart = fixture.context.periodEnd = BuildFixture::START + 60;
  TakeInterval(fixture.state, fixture.context);
  EXPECT_TRUE(std::isinf(fixture.Named(NameTree::IMAGES, "job", 1)));
}

// ---- Where a share goes ----

TEST(Processes, AShareGoesToSumClassImageAndUser) {
  BuildFixture fixture(SOLARIS_PLATFORM);
  fixture.AddProcessor(0, 50, 0, 50);
  fixture.AddProcess("root", "/usr/sbin/inetd -s", 6);
  fixture.AddProcess("root", "/sbin/init", 12);
  fixture.AddProcess(" adm ", "-ksh", 3);
  fixture.AddProcess("adm", "/usr/bin/ksh", 3);
  fixture.Take(60);
  EXPECT_FLOAT_EQ(PointAt(fixture.state.processCpuSum, 1), 40.0F);
  EXPECT_EQ(fixture.Value(Graph::PROCESS_COUNT, 0, 1), 4.0F);
  const auto classValues = [&](const char* name) {
    const int position = fixture.ClassPosition(name);
    return std::pair(fixture.Value(Graph::CLASS_CPU, position, 1),
                     fixture.Value(Graph::CLASS_COUNT, position, 1));
  };
  EXPECT_THAT(classValues("daemons"), Pair(10, 1));
  EXPECT_THAT(classValues("root"), Pair(20, 1));
  EXPECT_THAT(classValues("others"), Pair(10, 2));
  EXPECT_THAT(classValues("cde"), Pair(MISSING_POINT, MISSING_POINT));
  EXPECT_FLOAT_EQ(fixture.Named(NameTree::IMAGES, "ksh", 1), 10.0F);
  EXPECT_FLOAT_EQ(fixture.Named(NameTree::IMAGES, "inetd", 1), 10.0F);
  EXPECT_FLOAT_EQ(fixture.Named(NameTree::USERS, "adm", 1), 10.0F);
  EXPECT_FLOAT_EQ(fixture.Named(NameTree::USERS, "root", 1), 30.0F);
}

TEST(Processes, AixPassesOverWaitButCountsIt) {
  BuildFixture fixture(AIX_PLATFORM);
  fixture.AddProcessor(0, 1, 0, 1);
  fixture.AddProcess("root", "wait", 30);
  fixture.AddProcess("root", "waiter", 6);
  fixture.Take(60);
  EXPECT_EQ(fixture.Value(Graph::PROCESS_COUNT, 0, 1), 2.0F);
  EXPECT_EQ(fixture.Named(NameTree::IMAGES, "wait", 1), BuildFixture::NOTHING);
  EXPECT_FLOAT_EQ(PointAt(fixture.state.processCpuSum, 1), 10.0F);
}

// ---- The rest ----

TEST(NoProc, TakesWhatTheProcessesLeaveOfOverallCpu) {
  BuildFixture fixture(LINUX_PLATFORM);
  fixture.AddProcessor(0, 50, 0, 50);
  fixture.AddProcess("root", "cron", 6);
  fixture.Take(60);
  EXPECT_FLOAT_EQ(fixture.Named(NameTree::IMAGES, "<NoProc>", 1), 40.0F);
  EXPECT_FLOAT_EQ(fixture.Named(NameTree::USERS, "<NoProc>", 1), 40.0F);
  EXPECT_FLOAT_EQ(fixture.Value(Graph::CLASS_CPU, fixture.ClassPosition("others"), 1), 40.0F);
  EXPECT_FLOAT_EQ(PointAt(fixture.state.processCpuSum, 1), 50.0F);
  EXPECT_EQ(fixture.Value(Graph::PROCESS_COUNT, 0, 1), 1.0F) << "it is no process";
}

// ---- Classes after the walk ----

TEST(Classes, SeriesAreScaledToOverallCpu) {
  BuildFixture fixture(SOLARIS_PLATFORM);
  fixture.AddProcessor(0, 80, 0, 20);
  fixture.AddProcess("root", "a", 6);
  fixture.AddProcess("adm", "b", 18);
  fixture.Take(60);
  FinishGraphs(fixture.state);
  EXPECT_FLOAT_EQ(fixture.Value(Graph::CLASS_CPU, fixture.ClassPosition("root"), 1), 20.0F);
  EXPECT_FLOAT_EQ(fixture.Value(Graph::CLASS_CPU, fixture.ClassPosition("others"), 1), 60.0F);
  EXPECT_THAT(fixture.Labels(Graph::CLASS_COUNT), ElementsAre("daemons", "cde", "dc", "root", "others"));
}

}  // namespace
}  // namespace ozmo
