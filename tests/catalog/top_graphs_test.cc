#include "catalog/top_graphs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "build_fixture.h"

namespace ozmo {
namespace {

using testing::ElementsAre;
using testing::FloatEq;

// One interval at point 1 with overall CPU 80 and processes "a" (share 10) and "b" (share 30) of two users.
void TakeTwoProcesses(BuildFixture& fixture) {
  fixture.AddProcessor(0, 80, 0, 20);
  fixture.AddProcess("ann", "a", 6);
  fixture.AddProcess("bob", "b", 18);
  fixture.Take(60);
}

// ---- Others ----

TEST(TopGraphs, OthersFillUpToTheTotal) {
  BuildFixture fixture(SOLARIS_PLATFORM);
  TakeTwoProcesses(fixture);
  FinishGraphs(fixture.state);
  EXPECT_THAT(fixture.Labels(Graph::TOP_IMAGES), ElementsAre("#0  b", "#1  a", "Others"));
  EXPECT_THAT(fixture.Values(Graph::TOP_IMAGES, 1), ElementsAre(30, 10, 40));
  EXPECT_THAT(fixture.Values(Graph::TOP_IMAGES, 2), ElementsAre(MISSING_POINT, MISSING_POINT, MISSING_POINT));
  EXPECT_THAT(fixture.Labels(Graph::TOP_USERS), ElementsAre("0. bob", "1. ann", "Others"));
}

TEST(TopGraphs, ATotalOfZeroStaysAsItIs) {
  BuildFixture fixture(SOLARIS_PLATFORM);
  fixture.AddProcessor(0, 0, 0, 100);
  fixture.AddProcess("ann", "a", 6);
  fixture.Take(60);
  FinishGraphs(fixture.state);
  EXPECT_EQ(fixture.Sets(Graph::TOP_IMAGES), 1) << "no weight without overall CPU";
  EXPECT_EQ(fixture.Value(Graph::TOP_IMAGES, 0, 1), 0.0F);
}

TEST(TopGraphs, WithoutProcessesOthersAreOverallCpu) {
  BuildFixture fixture(SOLARIS_PLATFORM);
  fixture.AddProcessor(0, 80, 0, 20);
  fixture.Take(60);
  FinishGraphs(fixture.state);
  EXPECT_THAT(fixture.Labels(Graph::TOP_IMAGES), ElementsAre("Others"));
  EXPECT_EQ(fixture.Value(Graph::TOP_IMAGES, 0, 1), 80.0F);
}

TEST(TopGraphs, AnImageThatDidNothingIsNotRankedButAnIdleDiskIs) {
  BuildFixture fixture(SOLARIS_PLATFORM);
  fixture.AddProcessor(0, 80, 0, 20);
  fixture.AddProcess("ann", "sleeper", 0);
  fixture.context.disks.primary.Push().deviceName = "c0t0d0";
  fixture.Take(60);
  FinishGraphs(fixture.state);
  EXPECT_THAT(fixture.Labels(Graph::TOP_IMAGES), ElementsAre("Others"));
  EXPECT_THAT(fixture.Labels(Graph::TOP_DISK_QUEUE), ElementsAre("#0 c0t0d0"));
}

// ---- Disks ----

struct DiskDay : BuildFixture {
  explicit DiskDay(const PlatformSpec& platform, Seconds span = 3600) : BuildFixture(platform, span) {
    AddProcessor(0, 80, 0, 20);
    AddDisk("fast", 50, 0.5F);
    AddDisk("slow", 10, 2.0F);
    AddDisk("twin", 10, 1.0F);
    Take(60);
    FinishGraphs(state);
  }
  void AddDisk(const char* name, float operations, float queue) {
    DiskRecord& disk = context.disks.primary.Push();
    disk.deviceName = name;
    disk.ioRate = operations;
    disk.queueLength = queue;
    disk.totalBytesRate = operations * 1024.0F;
  }
};

TEST(TopGraphs, ResponseTimesFollowTheOperationsListWithoutRank) {
  DiskDay day(LINUX_PLATFORM);
  EXPECT_THAT(day.Labels(Graph::TOP_DISK_OPERATIONS),
              ElementsAre("#0  fast", "#1  twin", "#2  slow", "Others"));
  EXPECT_THAT(day.Labels(Graph::TOP_DISK_RESPONSE), ElementsAre("fast", "twin", "slow"));
  EXPECT_THAT(day.Values(Graph::TOP_DISK_RESPONSE, 1), ElementsAre(10, 100, 200));
  EXPECT_THAT(day.Values(Graph::TOP_DISK_OPERATIONS, 1), ElementsAre(50, 10, 10, 0));
  EXPECT_THAT(day.Values(Graph::TOP_DISK_DATA, 1), ElementsAre(50, 10, 10, 0));
  EXPECT_THAT(day.Labels(Graph::TOP_DISK_QUEUE), ElementsAre("#0 slow", "#1 twin", "#2 fast"));
}

TEST(TopGraphs, WithoutDetailDiskListsHaveNoSetsAtAll) {
  DiskDay day(HPUX_PLATFORM, 172801);
  for (const Graph graph : {Graph::TOP_DISK_OPERATIONS, Graph::TOP_DISK_DATA, Graph::TOP_DISK_QUEUE,
                            Graph::TOP_DISK_RESPONSE, Graph::TOP_FILE_SYSTEMS}) {
    EXPECT_EQ(day.Sets(graph), 0);
  }
  EXPECT_EQ(day.Value(Graph::DISK_OPERATIONS, 0, 1), 70.0F) << "the overall rates stay";
  EXPECT_EQ(day.Sets(Graph::TOP_IMAGES), 1);
}

// ---- File systems ----

TEST(TopGraphs, FileSystemsRankFromOneAndSetTheTopOfTheAxis) {
  BuildFixture fixture(AIX_PLATFORM);
  for (const char* mount : {"/", "/usr"}) {
    FileSystemRecord& record = fixture.context.fileSystems.primary.Push();
    record.mountName = mount;
    record.deviceName = "/dev/hd";
    record.totalBlocks = 100;
    record.freeBlocks = record.availableBlocks = 25;
  }
  fixture.Take(60);
  FinishGraphs(fixture.state);
  EXPECT_THAT(fixture.Labels(Graph::TOP_FILE_SYSTEMS),
              ElementsAre("#1 /usr (on /dev/hd)", "#2 / (on /dev/hd)"));
  EXPECT_EQ(fixture.Record(Graph::TOP_FILE_SYSTEMS).yMax, 200.0F);
}

// ---- Monitor text files ----

struct MonitorInterval : BuildFixture {
  explicit MonitorInterval(double user, double system, double dpc, double interrupt)
      : BuildFixture(VMR_PLATFORM) {
    ProcessorRecord& machine = AddProcessor(0, user, system, 0);
    machine.dpcTime = dpc;
    machine.interruptTime = interrupt;
  }
  void AddImage(const char* name, float percent, float life) {
    ProcessRecord& process = AddProcess("", name, 0);
    process.cpuPercent = percent;
    process.elapsedSeconds = life;
  }
};

TEST(TopGraphsVmr, DpcAndInterruptsAreASetOfTheirOwn) {
  MonitorInterval fixture(30, 20, 4, 6);
  fixture.context.config->intervalSeconds = 60.0F;
  fixture.AddImage("a", 30, 60);
  fixture.AddImage("b", 10, 60);
  fixture.Take(60);
  // The shares take all of overall CPU, so nothing is left for "Others".
  FinishGraphs(fixture.state);
  EXPECT_THAT(fixture.Labels(Graph::TOP_IMAGES), ElementsAre("#1  a", "#2  b", "Others", "DPC+Interrupt"));
  EXPECT_THAT(fixture.Values(Graph::TOP_IMAGES, 1), ElementsAre(37.5F, 12.5F, 0, 10));
}

}  // namespace
}  // namespace ozmo
