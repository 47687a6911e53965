#include <gtest/gtest.h>

#include <cmath>

#include "build_fixture.h"
#include "catalog/vmr/passes.h"

namespace ozmo {
namespace {

struct Monitor : BuildFixture {
  Monitor() : BuildFixture(vmr_catalog::PLATFORM, 7200) {}
  // Adds a line; the last one added is the machine as a whole.
  void AddLine(int32_t cpuId, double user, double system, double dpc = 0, double interrupt = 0) {
    ProcessorRecord& record = AddProcessor(cpuId, user, system, 0);
    record.dpcTime = dpc;
    record.interruptTime = interrupt;
  }
  void AddImage(const char* name, float percent, float life) {
    ProcessRecord& process = AddProcess("", name, 0);
    process.cpuPercent = percent;
    process.elapsedSeconds = life;
  }
  const std::vector<GraphMenuEntry>& ProcessorRows() {
    return catalog.RuntimeRow(RowKind::PROCESSORS)->subTable;
  }
};

// ---- Processors ----

TEST(VmrProcessors, AListOfOneHasNoProcessors) {
  Monitor monitor;
  monitor.AddLine(0, 20, 10);
  monitor.Take(60);
  EXPECT_EQ(monitor.Value(Graph::OVERALL_CPU, 0, 1), 30.0F);
  EXPECT_EQ(monitor.Sets(Graph::CPU_BY_PROCESSOR), 0);
  EXPECT_TRUE(monitor.ProcessorRows().empty());
}

TEST(VmrProcessors, ANumberBeyondTheFirstListsCountHasNoSet) {
  Monitor monitor;
  monitor.Take(-600);  // where one file of a set ends before the span: decides nothing
  for (const int cpuId : {7, -1, 1, 0}) monitor.AddLine(cpuId, 10, 0);
  monitor.Take(60);
  EXPECT_EQ(monitor.Labels(Graph::CPU_BY_PROCESSOR), (Texts{"(none)", "CPU-1", "(none)"}));
  monitor.Take(120);  // no lines at all
  EXPECT_EQ(monitor.Value(Graph::OVERALL_CPU, 0, 2), MISSING_POINT);
}

TEST(VmrProcessors, The33rdHasNoRecordByMode) {
  Monitor monitor;
  for (int cpuId = 33; cpuId >= 0; --cpuId) monitor.AddLine(cpuId, 10, 0);
  monitor.Take(60);
  EXPECT_EQ(monitor.ProcessorRows().size(), 32U);
  EXPECT_EQ(monitor.Sets(Graph::CPU_BY_PROCESSOR), 33);
}

// ---- The collection interval ----

TEST(VmrInterval, IsTheLongestDistanceBetweenTimeStampsUpToTenMinutes) {
  struct Step {
    Seconds offset;
    int minutes;
    float seconds;
  };
  Monitor monitor;
  monitor.context.config->intervalSeconds = 90.5F;
  for (const Step& step : {Step{60, 1, 90.5F},
                           {90, 1, 90},  // a whole number from the second interval on
                           {330, 4, 240},
                           {390, 4, 240},
                           {60, 4, 240},  // time went back
                           {3660, 10, 600}}) {
    monitor.Take(step.offset);
    EXPECT_EQ(monitor.build.length().minutes, step.minutes) << step.offset;
    EXPECT_EQ(monitor.build.length().seconds, step.seconds) << step.offset;
  }
}

TEST(VmrInterval, FifteenMinutesBridgeUpToElevenPoints) {
  Monitor monitor;
  monitor.context.config->intervalSeconds = 900.0F;
  for (const int point : {15, 26, 38, 60}) {
    monitor.AddLine(0, point, 0);
    monitor.Take(point * 60);
  }
  monitor.Finish();
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
  for (const auto& [name, share] :
       {std::pair("long", 20.0F), {"short", 20.0F}, {"half", 10.0F}, {"Idle", BuildFixture::NOTHING}}) {
    EXPECT_FLOAT_EQ(monitor.Image(name, 1), share) << name;
  }
  EXPECT_FLOAT_EQ(monitor.Value(Graph::PROCESS_COUNT, 0, 1), 1.75F);
  EXPECT_FLOAT_EQ(monitor.ShareSum(1), 50.0F);
}

TEST(VmrProcesses, WithoutWeightSharesAreZeroAndAnIntervalOfNoLengthIsAFloatDivision) {
  Monitor monitor;
  monitor.context.config->intervalSeconds = 0.0F;
  monitor.AddImage("a", 0, 60);
  monitor.AddLine(0, 30, 20);
  monitor.Take(60);
  EXPECT_TRUE(std::isinf(monitor.Value(Graph::PROCESS_COUNT, 0, 1)));
  monitor.AddImage("b", 0, 60);
  monitor.AddLine(0, 30, 20);
  monitor.Take(120);
  EXPECT_EQ(monitor.Image("b", 2), 0.0F);
}

}  // namespace
}  // namespace ozmo
