#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "build_fixture.h"
#include "catalog/aix/partition.h"

namespace ozmo {
namespace {

using testing::ElementsAre;

void SetMachine(BuildFixture& fixture, double user, double system, double wait, double idle) {
  ProcessorRecord& machine = fixture.context.overallCpu.primary.Push();
  machine.userTime = user;
  machine.systemTime = system;
  machine.waitTime = wait;
  machine.idleTime = idle;
}

TEST(AixPartition, AxesAndTheEntitlementFollowThePartition) {
  for (const bool capped : {false, true}) {
    BuildFixture fixture(AIX_PLATFORM);
    PartitionRecord& partition = fixture.context.partition.emplace();
    partition.isCapped = partition.isShared = capped ? 1 : 0;  // and in shared mode
    partition.entitledProcessors = capped ? 0 : 1.5;
    partition.onlineProcessors = 4;
    partition.poolProcessors = 8;
    partition.timeBase = 100;
    partition.timeByMode[0] = 50;
    fixture.TakeBusy(60, 10);
    EXPECT_EQ(fixture.Value(Graph::PHYSICAL_CPU, 0, 1), 0.5F);
    EXPECT_EQ(fixture.Record(Graph::PHYSICAL_CPU).yMax, 4.0F);
    EXPECT_EQ(fixture.Record(Graph::POOL_ENTITLEMENT).yMax, 8.0F);
    EXPECT_EQ(fixture.Value(Graph::ENTITLEMENT, 0, 1), capped ? 1.0F : 1.5F);
    EXPECT_EQ(fixture.Record(Graph::ENTITLEMENT).Colour(0), capped ? "Red" : "Blue");
    fixture.TakeBusy(120, 10);
    EXPECT_EQ(fixture.Value(Graph::PHYSICAL_CPU, 0, 2), MISSING_POINT) << "without a record";
  }
}

// ---- Idle processors ----

// Four processors, of which those in `busy` run, under a machine that is a quarter busy.
struct FoldedMachine : BuildFixture {
  explicit FoldedMachine(std::initializer_list<int> busy) : BuildFixture(AIX_PLATFORM) {
    SetMachine(*this, 20, 5, 5, 70);
    AddProcess("root", "a", 6);
    TakeProcessors(60, busy, {3, 2, 1, 0});
  }
  void TakeProcessors(Seconds offset, std::initializer_list<int> busy, std::initializer_list<int> all) {
    for (const int cpuId : all) {
      AddProcessor(cpuId, std::find(busy.begin(), busy.end(), cpuId) != busy.end() ? 1 : 0, 0, 1);
    }
    Take(offset);
  }
};

TEST(IdleProcessors, WithAllOrNoneBusyTheRatioIsOneOrInfinite) {
  FoldedMachine busy({0, 1, 2, 3});
  busy.build.FinishGraphs();
  EXPECT_EQ(busy.Sets(Graph::CPU_BY_PROCESSOR), 4);
  EXPECT_FLOAT_EQ(busy.Value(Graph::OVERALL_CPU, 0, 1), 25.0F);
  FoldedMachine idle({});
  idle.build.FinishGraphs();
  EXPECT_EQ(idle.Sets(Graph::CPU_BY_PROCESSOR), 0);
  EXPECT_TRUE(std::isinf(idle.Value(Graph::OVERALL_CPU, 0, 1)));
  idle.build.FinishSeries();
  EXPECT_EQ(idle.Value(Graph::OVERALL_CPU, 0, 2), 0.0F);
}

TEST(IdleProcessors, OnlyThoseOfTheLastIntervalAreLookedAt) {
  FoldedMachine machine({1});
  machine.TakeProcessors(120, {1}, {1, 0});
  machine.build.FinishGraphs();
  EXPECT_THAT(machine.Labels(Graph::CPU_BY_PROCESSOR), ElementsAre("cpu1", "cpu2", "cpu3"));
}

}  // namespace
}  // namespace ozmo
