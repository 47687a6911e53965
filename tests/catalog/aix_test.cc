#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "build_fixture.h"
#include "catalog/aix_partition.h"

namespace ozmo {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::FloatEq;

void SetMachine(BuildFixture& fixture, double user, double system, double wait, double idle) {
  ProcessorRecord& machine = fixture.context.overallCpu.primary.Push();
  machine.userTime = user;
  machine.systemTime = system;
  machine.waitTime = wait;
  machine.idleTime = idle;
}

// ---- The machine as a whole ----

TEST(AixCpu, OverallFiguresAreSharesOfTheMachineRecord) {
  BuildFixture fixture(AIX_PLATFORM);
  SetMachine(fixture, 2, 1, 1, 4);
  fixture.AddProcessor(0, 0, 0, 1);
  fixture.Take(60);
  EXPECT_FLOAT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 1), 37.5F);
  EXPECT_THAT(fixture.Values(Graph::CPU_BY_MODE, 1), ElementsAre(12.5F, 25, 12.5F)) << "wait, user, system";
  EXPECT_EQ(fixture.Sets(Graph::CPU_BY_CORE), 0);
}

TEST(AixCpu, CountersOfZeroStayZero) {
  BuildFixture fixture(AIX_PLATFORM);
  SetMachine(fixture, 0, 0, 0, 0);
  fixture.Take(60);
  EXPECT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 1), 0.0F);
}

// ---- Partition ----

constexpr size_t TIMES_IN_MODE[] = {39, 40, 41, 42};
constexpr size_t SPARES[] = {44, 46, 48};

struct PartitionFixture : BuildFixture {
  PartitionFixture() : BuildFixture(AIX_PLATFORM), partition(context.partition.emplace()) {
    partition.lparTicks = 100;
    for (const size_t mode : TIMES_IN_MODE) Set(mode, 50);  // two processors' worth in all
    Set(14, 1.5);
    Set(18, 4);
    Set(32, 8);
  }
  void Set(size_t element, double value) { partition.lparValue[element] = value; }
  PartitionRecord& partition;
};

TEST(AixPartition, PhysicalCpuIsTimeOverTimebase) {
  PartitionFixture fixture;
  fixture.Take(60);
  EXPECT_EQ(fixture.Value(Graph::PHYSICAL_CPU, 0, 1), 2.0F);
  EXPECT_EQ(fixture.Record(Graph::PHYSICAL_CPU).yMax, 4.0F);
  EXPECT_EQ(fixture.Value(Graph::ENTITLEMENT, 0, 1), 1.5F);
  EXPECT_EQ(fixture.Record(Graph::ENTITLEMENT).Colour(0), "Blue");
  EXPECT_EQ(fixture.Record(Graph::POOL_ENTITLEMENT).yMax, 8.0F);
  EXPECT_THAT(fixture.Values(Graph::SHARED_POOL, 1), ElementsAre(0, 6, 2)) << "the pool isn't visible";
}

TEST(AixPartition, WhatADonatingPartitionGaveAwayCounts) {
  PartitionFixture fixture;
  fixture.Set(7, 1);
  for (const size_t spare : SPARES) fixture.Set(spare, 100);
  fixture.Set(45, 1000);
  fixture.Take(60);
  EXPECT_EQ(fixture.Value(Graph::PHYSICAL_CPU, 0, 1), 5.0F);
}

TEST(AixPartition, ACappedPartitionDonatesAndIsEntitledToSomething) {
  PartitionFixture fixture;
  fixture.Set(4, 1);
  fixture.Set(5, 1);
  fixture.Set(6, 1);
  fixture.Set(14, 0);
  fixture.Set(43, 100);
  fixture.Take(60);
  EXPECT_EQ(fixture.Value(Graph::ENTITLEMENT, 0, 1), 1.0F);
  EXPECT_EQ(fixture.Record(Graph::ENTITLEMENT).Colour(0), "Red");
  EXPECT_THAT(fixture.Values(Graph::SHARED_POOL, 1), ElementsAre(5, 1, 2));
}

TEST(AixPartition, WithoutTimeNothingIsUsedAndNoTimebaseIsOne) {
  PartitionFixture fixture;
  for (const size_t mode : TIMES_IN_MODE) fixture.Set(mode, 0);
  fixture.partition.lparTicks = 0;
  fixture.Take(60);
  EXPECT_EQ(fixture.Value(Graph::PHYSICAL_CPU, 0, 1), 0.0F);

  PartitionFixture busy;
  busy.partition.lparTicks = 0;
  busy.Take(60);
  EXPECT_EQ(busy.Value(Graph::PHYSICAL_CPU, 0, 1), 200.0F);
}

TEST(AixPartition, RatesGoneBadStayMissing) {
  PartitionFixture fixture;
  fixture.Set(34, 1e9);
  fixture.Set(35, 6e8);
  fixture.Set(36, 5e8);
  fixture.Take(60);
  EXPECT_THAT(fixture.Values(Graph::CONTEXT_SWITCHES, 1), Each(MISSING_POINT));
  EXPECT_THAT(fixture.Values(Graph::PHANTOM_INTERRUPTS, 1), Each(MISSING_POINT));

  PartitionFixture good;
  good.Set(34, 7);
  good.Set(35, 2);
  good.Set(36, 3);
  good.Take(60);
  EXPECT_THAT(good.Values(Graph::CONTEXT_SWITCHES, 1), ElementsAre(3, 2)) << "voluntary, involuntary";
  EXPECT_THAT(good.Values(Graph::PHANTOM_INTERRUPTS, 1), ElementsAre(7));
}

TEST(AixPartition, WithoutARecordNothingIsStored) {
  BuildFixture fixture(AIX_PLATFORM);
  fixture.AddProcessor(0, 1, 0, 1);
  fixture.Take(60);
  EXPECT_THAT(fixture.Values(Graph::PHYSICAL_CPU, 1), Each(MISSING_POINT));
  EXPECT_THAT(fixture.Values(Graph::SHARED_POOL, 1), Each(MISSING_POINT));
}

// ---- Idle processors ----

// Four processors, of which those in `busy` run, under a machine that is a quarter busy.
struct FoldedMachine : BuildFixture {
  explicit FoldedMachine(std::initializer_list<int> busy) : BuildFixture(AIX_PLATFORM) {
    SetMachine(*this, 20, 5, 5, 70);
    for (int cpuId = 3; cpuId >= 0; --cpuId) {
      const bool runs = std::find(busy.begin(), busy.end(), cpuId) != busy.end();
      AddProcessor(cpuId, runs ? 1 : 0, 0, 1);
    }
    AddProcess("root", "a", 6);
    Take(60);
  }
};

TEST(IdleProcessors, AreTakenOutAndTheFiguresScaled) {
  FoldedMachine machine({1, 3});
  FinishGraphs(machine.state);
  for (const Graph graph : {Graph::CPU_BY_PROCESSOR, Graph::ACTIVE_CPUS}) {
    EXPECT_THAT(machine.Labels(graph), ElementsAre("cpu1", "cpu3"));
  }
  EXPECT_THAT(machine.Values(Graph::CPU_BY_PROCESSOR, 1), ElementsAre(50, 50));
  EXPECT_FLOAT_EQ(machine.Value(Graph::OVERALL_CPU, 0, 1), 50.0F);
  EXPECT_THAT(machine.Values(Graph::CPU_BY_MODE, 1), ElementsAre(10, 40, 10));
  EXPECT_THAT(machine.Values(Graph::TOP_IMAGES, 1), ElementsAre(FloatEq(50), FloatEq(0)));
  EXPECT_FLOAT_EQ(machine.Value(Graph::CLASS_CPU, machine.ClassPosition("root"), 1), 50.0F);
  EXPECT_EQ(machine.Value(Graph::CLASS_COUNT, machine.ClassPosition("root"), 1), 1.0F);
  EXPECT_EQ(machine.Value(Graph::OVERALL_CPU, 0, 2), -2.0F) << "missing points are scaled as well";
}

TEST(IdleProcessors, StayWhereAllHaveRun) {
  FoldedMachine machine({0, 1, 2, 3});
  FinishGraphs(machine.state);
  EXPECT_EQ(machine.Sets(Graph::CPU_BY_PROCESSOR), 4);
  EXPECT_FLOAT_EQ(machine.Value(Graph::OVERALL_CPU, 0, 1), 25.0F);
}

TEST(IdleProcessors, WithNoneLeftTheRatioIsInfinite) {
  FoldedMachine machine({});
  FinishGraphs(machine.state);
  EXPECT_EQ(machine.Sets(Graph::CPU_BY_PROCESSOR), 0);
  EXPECT_TRUE(std::isinf(machine.Value(Graph::OVERALL_CPU, 0, 1)));
  FinishSeries(machine.state);
  EXPECT_EQ(machine.Value(Graph::OVERALL_CPU, 0, 2), 0.0F);
}

TEST(IdleProcessors, BusyOnceIsEnough) {
  FoldedMachine machine({0});
  SetMachine(machine, 1, 0, 0, 1);
  for (int cpuId = 3; cpuId >= 0; --cpuId) machine.AddProcessor(cpuId, cpuId == 2 ? 1 : 0, 0, 1);
  machine.Take(120);
  FinishGraphs(machine.state);
  EXPECT_THAT(machine.Labels(Graph::CPU_BY_PROCESSOR), ElementsAre("cpu0", "cpu2"));
}

TEST(IdleProcessors, OnlyThoseOfTheLastIntervalAreLookedAt) {
  FoldedMachine machine({1});
  SetMachine(machine, 1, 0, 0, 1);
  machine.AddProcessor(1, 1, 0, 1);
  machine.AddProcessor(0, 0, 0, 1);
  machine.Take(120);
  FinishGraphs(machine.state);
  EXPECT_THAT(machine.Labels(Graph::CPU_BY_PROCESSOR), ElementsAre("cpu1", "cpu2", "cpu3"));
}

}  // namespace
}  // namespace ozmo
