#include "catalog/vmr/passes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "catalog/build_steps.h"
#include "catalog/memory.h"
#include "catalog/processes.h"
#include "catalog/processors.h"

namespace ozmo {
namespace {

constexpr int MAX_INTERVAL_MINUTES = 10;
constexpr float MAX_INTERVAL_SECONDS = 600.0F;
constexpr std::string_view IDLE_PROCESS = "Idle";

constexpr size_t MODE_COUNT = 4;
constexpr TraceText MODE_TRACES[MODE_COUNT] = {
    {"User", "LimeGreen"}, {"System", "LightBlue"}, {"DPC", "Purple"}, {"Interrupt", "Red"}};

// User, privileged, DPC and interrupt percent; system time includes the last two.
std::array<double, MODE_COUNT> ModesOf(const ProcessorRecord& processor) {
  return {processor.userTime, processor.systemTime - processor.dpcTime - processor.interruptTime,
          processor.dpcTime, processor.interruptTime};
}

void StoreModes(XrtData& data, int point, const std::array<double, MODE_COUNT>& modes) {
  for (size_t set = 0; set < MODE_COUNT && set < data.y.size(); ++set) {
    PointStore(data.y[set], point, static_cast<float>(modes[set]));
  }
}

std::string NameOf(const BuildState& state, int32_t cpuId) {
  return ProcessorName(state.platform.processorSpec.namePrefix, cpuId);
}

// "CPU-3 Utilization by Mode", in a new row of the group of processors.
GraphRecord& NewProcessorRecord(BuildState& state, GraphMenuEntry& group, int32_t cpuId) {
  const std::string name = NameOf(state, cpuId);
  GraphRecord& record = state.catalog.runtimeRecords.emplace_back();
  record.title = name + " Utilization by Mode";
  record.yTitle = "%CPU Utilization";
  record.yMax = 100.0F;
  record.legendFormat = "%s %.1f%% ";
  XrtSeriesCreate(state.catalog, record, MODE_COUNT);
  for (size_t set = 0; set < MODE_COUNT; ++set) {
    record.SetLabel(static_cast<int>(set), MODE_TRACES[set].label);
    record.SetColour(static_cast<int>(set), MODE_TRACES[set].colour);
  }
  group.subTable.push_back({.code = "CPU", .label = name, .record = &record, .subTable = {}});
  return record;
}

// The record of a processor; null for one that comes when all rows are taken.
GraphRecord* ProcessorModeRecord(BuildState& state, int32_t cpuId) {
  const auto known = state.processorRecords.find(cpuId);
  if (known != state.processorRecords.end()) return known->second;
  GraphMenuEntry* group = state.catalog.RuntimeRow(RowKind::PROCESSORS);
  if (group == nullptr || state.processorRecords.size() >= MAX_PROCESSOR_RECORDS) return nullptr;
  GraphRecord* record = &NewProcessorRecord(state, *group, cpuId);
  state.processorRecords.emplace(cpuId, record);
  return record;
}

void AddProcessor(BuildState& state, const ProcessorRecord& processor) {
  GraphRecord* byProcessor = state.catalog.Find(Graph::CPU_BY_PROCESSOR);
  if (byProcessor != nullptr && processor.cpuId >= 0 && processor.cpuId < byProcessor->data.nsets()) {
    byProcessor->SetLabel(processor.cpuId, NameOf(state, processor.cpuId));
    const double busy = processor.userTime + processor.systemTime;
    state.catalog.Store(Graph::CPU_BY_PROCESSOR, processor.cpuId, state.point, static_cast<float>(busy));
  }
  if (GraphRecord* record = ProcessorModeRecord(state, processor.cpuId)) {
    StoreModes(record->data, state.point, ModesOf(processor));
  }
}

// Seconds lived in intervals of the walk: 0.5 for half of one.
double LifeOf(const BuildState& state, const ProcessRecord& process) {
  return static_cast<double>(process.elapsedSeconds) / static_cast<double>(state.intervalSeconds);
}

bool Counts(const ProcessRecord& process) { return !process.name.empty() && process.name != IDLE_PROCESS; }

double WeightOf(const BuildState& state, const ProcessRecord& process) {
  return static_cast<double>(process.cpuPercent) * LifeOf(state, process);
}

}  // namespace

void MeasureVmrInterval(BuildState& state, const VmrContext& context) {
  const Seconds stamp = context.periodEnd;
  if (!state.intervalKnown) {
    state.intervalSeconds = ConfigOf(context).intervalSeconds;
    state.intervalMinutes = MinutesOf(state.intervalSeconds);
    state.intervalKnown = true;
  } else if (stamp > state.lastTimeStamp) {
    const Seconds difference = stamp - state.lastTimeStamp;
    const Seconds gapMinutes = difference / 60;
    state.intervalMinutes = std::max(state.intervalMinutes, WholeNumber(static_cast<double>(gapMinutes)));
    const float whole = static_cast<float>(WholeNumber(static_cast<double>(state.intervalSeconds)));
    state.intervalSeconds = std::max(whole, static_cast<float>(difference));
  }
  state.intervalMinutes = std::min(state.intervalMinutes, MAX_INTERVAL_MINUTES);
  state.intervalSeconds = std::min(state.intervalSeconds, MAX_INTERVAL_SECONDS);
  state.lastTimeStamp = stamp;
}

void AddVmrProcessors(BuildState& state, const VmrContext& context) {
  const RecordList<ProcessorRecord>& processors = context.processors.primary;
  if (!state.processorsMade) {
    const int count = std::min(static_cast<int>(processors.size()) - 1, MAX_SETS);
    if (GraphRecord* record = state.catalog.Find(Graph::CPU_BY_PROCESSOR)) {
      XrtSeriesCreate(state.catalog, *record, count);
    }
    state.processorsMade = true;
  }
  const std::array<double, MODE_COUNT> modes = ModesOf(processors.head());
  state.sums.overallCpu = modes[0] + modes[1] + modes[2] + modes[3];
  StoreSets(state, Graph::OVERALL_CPU, {state.sums.overallCpu});
  StoreSets(state, Graph::CPU_BY_MODE, {modes[0], modes[1], modes[2], modes[3]});
  for (auto processor = std::next(processors.begin()); processor != processors.end(); ++processor) {
    AddProcessor(state, *processor);
    ++state.sums.cpuSeen;
  }
}

void AddVmrProcesses(BuildState& state, const VmrContext& context) {
  double weightSum = 0.0;
  for (const ProcessRecord& process : context.processes.primary) {
    if (Counts(process)) weightSum += WeightOf(state, process);
  }
  double count = 0.0;
  for (const ProcessRecord& process : context.processes.primary) {
    if (!Counts(process)) continue;
    count += LifeOf(state, process);
    const double share = weightSum > 0.0 ? state.sums.overallCpu * WeightOf(state, process) / weightSum : 0.0;
    FeedShare(state, process.userName, process.name, share);
  }
  StoreSets(state, Graph::PROCESS_COUNT, {count});
}

}  // namespace ozmo
