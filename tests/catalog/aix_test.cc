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

TEST(AixCpu, OverallFiguresAreSharesOfTheMachineRecord) {
  BuildFixture fixture(AIX_PLATFORM);
  SetMachine(fixture, 2, 1, 1, 4);
  fixture.AddProcessor(0, 0, 0, 1);
  fixture.Take(60);
  EXPECT_FLOAT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 1), 37.5F);
  EXPECT_THAT(fixture.Values(Graph::CPU_BY_MODE, 1), ElementsAre(12.5F, 25, 12.5F)) << "wait, user, system";
  SetMachine(fixture, 0, 0, 0, 0);
  fixture.Take(120);
  EXPECT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 2), 0.0F);
}

// ---- Partition ----

struct PartitionCase {
  const char* rule;
  int64_t ticks;
  std::vector<std::pair<size_t, double>> elements;  // over those of a partition of two processors' worth
  Graph graph;
  std::vector<float> values;
};
const PartitionCase PARTITION_CASES[] = {
    {"physical CPU is time over timebase", 100, {}, Graph::PHYSICAL_CPU, {2}},
    {"no timebase is one", 0, {}, Graph::PHYSICAL_CPU, {200}},
    {"no time is no use", 0, {{39, 0}, {40, 0}, {41, 0}, {42, 0}}, Graph::PHYSICAL_CPU, {0}},
    {"what a donating partition gave away counts",
     100,
     {{7, 1}, {44, 100}, {45, 1000}, {46, 100}, {48, 100}},
     Graph::PHYSICAL_CPU,
     {5}},
    {"the pool isn't visible", 100, {}, Graph::SHARED_POOL, {0, 6, 2}},
    {"a pool with an authority",
     100,
     {{4, 1}, {5, 1}, {6, 1}, {14, 0}, {43, 100}},
     Graph::SHARED_POOL,
     {5, 1, 2}},
    {"a capped partition is entitled to something", 100, {{4, 1}, {14, 0}}, Graph::ENTITLEMENT, {1}},
    {"an uncapped one to its share", 100, {}, Graph::ENTITLEMENT, {1.5F}},
    {"voluntary, involuntary", 100, {{34, 7}, {35, 2}, {36, 3}}, Graph::CONTEXT_SWITCHES, {3, 2}},
    {"rates gone bad stay missing", 100, {{35, 6e8}, {36, 5e8}}, Graph::CONTEXT_SWITCHES, {-1, -1}},
    {"a rate of interrupts", 100, {{34, 7}}, Graph::PHANTOM_INTERRUPTS, {7}},
    {"a rate gone bad stays missing", 100, {{34, 1e9}}, Graph::PHANTOM_INTERRUPTS, {-1}},
};

TEST(AixPartition, FiguresFollowTheElementsOfTheRecord) {
  for (const PartitionCase& test : PARTITION_CASES) {
    BuildFixture fixture(AIX_PLATFORM);
    PartitionRecord& partition = fixture.context.partition.emplace();
    partition.lparTicks = test.ticks;
    for (const size_t mode : {39, 40, 41, 42}) partition.lparValue[mode] = 50;
    partition.lparValue[14] = 1.5;
    partition.lparValue[18] = 4;
    partition.lparValue[32] = 8;
    for (const auto& [element, value] : test.elements) partition.lparValue[element] = value;
    const bool sharedMode = partition.lparValue[5] > 0;
    fixture.Take(60);
    EXPECT_EQ(fixture.Values(test.graph, 1), test.values) << test.rule;
    EXPECT_EQ(fixture.Record(Graph::PHYSICAL_CPU).yMax, 4.0F);
    EXPECT_EQ(fixture.Record(Graph::POOL_ENTITLEMENT).yMax, 8.0F);
    EXPECT_EQ(fixture.Record(Graph::ENTITLEMENT).Colour(0), sharedMode ? "Red" : "Blue");
  }
}

TEST(AixPartition, WithoutARecordNothingIsStored) {
  BuildFixture fixture(AIX_PLATFORM);
  fixture.TakeBusy(60, 50);
  EXPECT_THAT(fixture.Values(Graph::PHYSICAL_CPU, 1), Each(MISSING_POINT));
  EXPECT_THAT(fixture.Values(Graph::SHARED_POOL, 1), Each(MISSING_POINT));
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
  EXPECT_FLOAT_EQ(machine.Class(Graph::CLASS_CPU, "root", 1), 50.0F);
  EXPECT_EQ(machine.Class(Graph::CLASS_COUNT, "root", 1), 1.0F);
  EXPECT_EQ(machine.Value(Graph::OVERALL_CPU, 0, 2), -2.0F) << "missing points are scaled as well";
}

TEST(IdleProcessors, WithAllOrNoneBusyTheRatioIsOneOrInfinite) {
  FoldedMachine busy({0, 1, 2, 3});
  FinishGraphs(busy.state);
  EXPECT_EQ(busy.Sets(Graph::CPU_BY_PROCESSOR), 4);
  EXPECT_FLOAT_EQ(busy.Value(Graph::OVERALL_CPU, 0, 1), 25.0F);
  FoldedMachine idle({});
  FinishGraphs(idle.state);
  EXPECT_EQ(idle.Sets(Graph::CPU_BY_PROCESSOR), 0);
  EXPECT_TRUE(std::isinf(idle.Value(Graph::OVERALL_CPU, 0, 1)));
  FinishSeries(idle.state);
  EXPECT_EQ(idle.Value(Graph::OVERALL_CPU, 0, 2), 0.0F);
}

TEST(IdleProcessors, BusyOnceIsEnough) {
  FoldedMachine machine({0});
  machine.TakeProcessors(120, {2}, {3, 2, 1, 0});
  FinishGraphs(machine.state);
  EXPECT_THAT(machine.Labels(Graph::CPU_BY_PROCESSOR), ElementsAre("cpu0", "cpu2"));
}

TEST(IdleProcessors, OnlyThoseOfTheLastIntervalAreLookedAt) {
  FoldedMachine machine({1});
  machine.TakeProcessors(120, {1}, {1, 0});
  FinishGraphs(machine.state);
  EXPECT_THAT(machine.Labels(Graph::CPU_BY_PROCESSOR), ElementsAre("cpu1", "cpu2", "cpu3"));
}

}  // namespace
}  // namespace ozmo
