#include "catalog/processors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "build_fixture.h"

namespace ozmo {
namespace {

using testing::ElementsAre;

TEST(Processors, AreSetsInTheOrderOfTheirFirstSight) {
  BuildFixture fixture(SOLARIS_PLATFORM);
  fixture.AddProcessor(0, 10, 0, 90);
  fixture.AddProcessor(7, 20, 0, 80);  // the head of the list
  fixture.Take(60);
  fixture.AddProcessor(7, 30, 0, 70);
  fixture.AddProcessor(3, 40, 0, 60);
  fixture.Take(120);
  for (const Graph graph : {Graph::CPU_BY_PROCESSOR, Graph::ACTIVE_CPUS}) {
    EXPECT_THAT(fixture.Labels(graph), ElementsAre("CPU-7", "CPU-0", "CPU-3"));
  }
  EXPECT_THAT(fixture.Values(Graph::CPU_BY_PROCESSOR, 1), ElementsAre(20, 10, MISSING_POINT));
  EXPECT_THAT(fixture.Values(Graph::CPU_BY_PROCESSOR, 2), ElementsAre(30, MISSING_POINT, 40));
  EXPECT_THAT(fixture.Values(Graph::ACTIVE_CPUS, 2), ElementsAre(1, MISSING_POINT, 1));
}

TEST(Processors, The129thHasNoSeriesButCountsInTheMean) {
  BuildFixture fixture(SOLARIS_PLATFORM);
  fixture.AddProcessor(128, 100, 0, 0);
  for (int cpuId = 127; cpuId >= 0; --cpuId) fixture.AddProcessor(cpuId, 0, 0, 100);
  fixture.Take(60);
  EXPECT_EQ(fixture.Sets(Graph::CPU_BY_PROCESSOR), 128);
  EXPECT_FLOAT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 1), 100.0F / 129.0F);
}

TEST(Processors, Tru64MakesTheConfiguredSetsOnce) {
  BuildFixture fixture(TRU64_PLATFORM);
  fixture.AddProcessor(5, 10, 0, 90);
  fixture.Take(60);
  EXPECT_THAT(fixture.Labels(Graph::CPU_BY_PROCESSOR), ElementsAre("CPU-5", "(none)"));
  fixture.context.config->cpuCount = 4;
  for (const int cpuId : {8, 6, 5}) fixture.AddProcessor(cpuId, 20, 0, 80);
  fixture.Take(120);
  EXPECT_THAT(fixture.Labels(Graph::CPU_BY_PROCESSOR), ElementsAre("CPU-5", "CPU-6"));
}

TEST(Processors, Tru64SurvivesAConfigurationGoneBad) {
  for (const int count : {-1, 2'000'000'000}) {
    BuildFixture fixture(TRU64_PLATFORM);
    fixture.context.config->cpuCount = count;
    fixture.TakeBusy(60, 10);
    EXPECT_LE(fixture.Sets(Graph::CPU_BY_PROCESSOR), 128);
    EXPECT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 1), 10.0F);
  }
}

TEST(Processors, LinuxStopsAtTheConfiguredNumber) {
  BuildFixture fixture(LINUX_PLATFORM);
  for (const int cpuId : {2, 1, 0}) fixture.AddProcessor(cpuId, 10 * (cpuId + 1), 0, 100 - 10 * (cpuId + 1));
  fixture.Take(60);
  EXPECT_THAT(fixture.Labels(Graph::CPU_BY_PROCESSOR), ElementsAre("CPU-0", "CPU-1"));
  EXPECT_FLOAT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 1), 15.0F);
}

TEST(Processors, WithAllCountersZeroAProcessorIsIdle) {
  BuildFixture fixture(HPUX_PLATFORM);
  fixture.AddProcessor(1, 0, 0, 0);
  fixture.AddProcessor(0, 3, 1, 4);
  fixture.Take(60);
  EXPECT_THAT(fixture.Values(Graph::CPU_BY_PROCESSOR, 1), ElementsAre(50, 0));
  EXPECT_FLOAT_EQ(fixture.Value(Graph::OVERALL_CPU, 0, 1), 25.0F);
}

}  // namespace
}  // namespace ozmo
