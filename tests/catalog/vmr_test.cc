#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "build_fixture.h"
#include "catalog/vmr_passes.h"

namespace ozmo {
namespace {

using testing::ElementsAre;

struct Monitor : BuildFixture {
  Monitor() : BuildFixture(VMR_PLATFORM, 7200) {}
  // Adds a line; the last one added is the machine as a whole.
  void AddLine(int32_t cpuId, double user, double system, double dpc = 0, double interrupt = 0) {
    ProcessorRecord& record = AddProcessor(cpuId, user, system, 0);
    record.dpcTime = dpc;
    record.interruptTime = interrupt;
  }
  const std::vector<GraphMenuEntry>& ProcessorRows() {
    return catalog.RuntimeRow(RowKind::PROCESSORS)->subTable;
  }
  ProcessRecord& AddImage(const char* name, float percent, float life) {
    ProcessRecord& process = AddProcess("", name, 0);
    process.cpuPercent = percent;
    process.elapsedSeconds = life;
    return process;
  }
};

// ---- Processors ----

TEST(VmrProcessors, TheHeadOfTheListIsTheMachine) {
  Monitor monitor;
  monitor.AddLine(0, 10, 5);
  monitor.AddLine(1, 30, 15);
  monitor.AddLine(0, 20, 10, 3, 2);
  monitor.Take(60);
  EXPECT_EQ(monitor.Value(Graph::OVERALL_CPU, 0, 1), 30.0F);
  EXPECT_THAT(monitor.Values(Graph::CPU_BY_MODE, 1), ElementsAre(20, 5, 3, 2));
  EXPECT_THAT(monitor.Labels(Graph::CPU_BY_PROCESSOR), ElementsAre("CPU-0", "CPU-1"));
  EXPECT_THAT(monitor.Values(Graph::CPU_BY_PROCESSOR, 1), ElementsAre(15, 45));
}

TEST(VmrProcessors, AListOfOneHasNoProcessors) {
  Monitor monitor;
  monitor.AddLine(0, 20, 10);
  monitor.Take(60);
  EXPECT_EQ(monitor.Value(Graph::OVERALL_CPU, 0, 1), 30.0F);
  EXPECT_EQ(monitor.Sets(Graph::CPU_BY_PROCESSOR), 0);
  EXPECT_TRUE(monitor.ProcessorRows().empty());
}

TEST(VmrProcessors, ANumberBeyondTheFirstIntervalsCountHasNoSet) {
  Monitor monitor;
  for (const int cpuId : {7, -1, 0}) monitor.AddLine(cpuId, 10, 0);
  monitor.Take(60);
  EXPECT_THAT(monitor.Labels(Graph::CPU_BY_PROCESSOR), ElementsAre("(none)", "(none)"));
  monitor.Take(120);  // no lines at all
  EXPECT_EQ(monitor.Value(Graph::OVERALL_CPU, 0, 2), MISSING_POINT);
}

TEST(VmrProcessors, AnEmptyIntervalAheadOfTheFirstListDecidesNothing) {
  Monitor monitor;
  monitor.Take(-600);  // where one file of a set ends ahead of the span
  for (const int cpuId : {1, 0, 0}) monitor.AddLine(cpuId, 10, 0);
  monitor.Take(60);
  EXPECT_THAT(monitor.Labels(Graph::CPU_BY_PROCESSOR), ElementsAre("CPU-0", "CPU-1"));
}

TEST(VmrProcessors, EachHasARecordByMode) {
  Monitor monitor;
  monitor.AddLine(1, 10, 9, 2, 3);
  monitor.AddLine(0, 0, 0);
  monitor.Take(60);
  ASSERT_EQ(monitor.ProcessorRows().size(), 1U);
  const GraphRecord& record = *monitor.ProcessorRows()[0].record;
  EXPECT_EQ(record.title, "CPU-1 Utilization by Mode");
  EXPECT_EQ(record.data.nsets(), 4);
  std::vector<float> values;
  for (const Series& series : record.data.y) values.push_back(PointAt(series, 1));
  EXPECT_THAT(values, ElementsAre(10, 4, 2, 3));
  EXPECT_EQ(PointAt(record.data.y[0], 2), MISSING_POINT);
}

TEST(VmrProcessors, The33rdHasNoRecordByMode) {
  Monitor monitor;
  for (int cpuId = 0; cpuId < 33; ++cpuId) monitor.AddLine(cpuId, 10, 0);
  monitor.AddLine(0, 10, 0);
  monitor.Take(60);
  EXPECT_EQ(monitor.ProcessorRows().size(), 32U);
  EXPECT_EQ(monitor.Sets(Graph::CPU_BY_PROCESSOR), 33);
}

// ---- The collection interval ----

TEST(VmrInterval, IsTheLongestDistanceBetweenTimeStamps) {
  Monitor monitor;
  monitor.context.config->intervalSeconds = 90.5F;
  monitor.Take(60);
  EXPECT_EQ(monitor.state.intervalMinutes, 1);
  EXPECT_EQ(monitor.state.intervalSeconds, 90.5F);
  monitor.Take(60 + 30);
  EXPECT_EQ(monitor.state.intervalSeconds, 90.0F) << "a whole number from the second interval on";
  monitor.Take(90 + 240);
  EXPECT_EQ(monitor.state.intervalMinutes, 4);
  EXPECT_EQ(monitor.state.intervalSeconds, 240.0F);
  monitor.Take(330 + 60);
  EXPECT_EQ(monitor.state.intervalMinutes, 4);
  monitor.Take(60);
  EXPECT_EQ(monitor.state.intervalMinutes, 4) << "time went back";
}

TEST(VmrInterval, IsAtMostTenMinutes) {
  Monitor monitor;
  monitor.context.config->intervalSeconds = 900.0F;
  monitor.Take(60);
  EXPECT_EQ(monitor.state.intervalMinutes, 10);
  EXPECT_EQ(monitor.state.intervalSeconds, 600.0F);
  monitor.Take(3660);
  EXPECT_EQ(monitor.state.intervalMinutes, 10);
}

TEST(VmrInterval, FifteenMinutesBridgeUpToElevenPoints) {
  Monitor monitor;
  monitor.context.config->intervalSeconds = 900.0F;
  for (const int point : {15, 26, 38, 60}) {
    monitor.AddLine(0, point, 0);
    monitor.Take(point * 60);
  }
  FinishGraphs(monitor.state);
  FinishSeries(monitor.state);
  EXPECT_FLOAT_EQ(monitor.Value(Graph::OVERALL_CPU, 0, 20), 20.0F);
  EXPECT_EQ(monitor.Value(Graph::OVERALL_CPU, 0, 30), 0.0F);
}

// ---- Processes ----

TEST(VmrProcesses, SharesAreWeightedByLifeAndAddUpToOverallCpu) {
  Monitor monitor;
  monitor.AddImage("long", 10, 60);
  monitor.AddImage("short", 20, 30);
  monitor.AddImage("half", 20, 15);
  monitor.AddImage("Idle", 70, 60);
  monitor.AddImage("", 70, 60);
  monitor.AddLine(0, 30, 20);
  monitor.Take(60);
  EXPECT_FLOAT_EQ(monitor.Named(NameTree::IMAGES, "long", 1), 20.0F);
  EXPECT_FLOAT_EQ(monitor.Named(NameTree::IMAGES, "short", 1), 20.0F);
  EXPECT_FLOAT_EQ(monitor.Named(NameTree::IMAGES, "half", 1), 10.0F);
  EXPECT_EQ(monitor.Named(NameTree::IMAGES, "Idle", 1), BuildFixture::NOTHING);
  EXPECT_FLOAT_EQ(monitor.Value(Graph::PROCESS_COUNT, 0, 1), 1.75F);
  EXPECT_FLOAT_EQ(PointAt(monitor.state.processCpuSum, 1), 50.0F);
  EXPECT_TRUE(monitor.state.trees[NameTree::USERS].names().empty());
}

TEST(VmrProcesses, ClassesAreNotRescaled) {
  Monitor monitor;
  monitor.AddImage("a", 5, 60);
  monitor.AddLine(0, 30, 20);
  monitor.Take(60);
  PointStore(monitor.state.processCpuSum, 1, 100.0F);
  FinishGraphs(monitor.state);
  EXPECT_FLOAT_EQ(monitor.Value(Graph::CLASS_CPU, monitor.ClassPosition("others"), 1), 50.0F);
}

}  // namespace
}  // namespace ozmo
