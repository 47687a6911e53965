#include "catalog/processors.h"

#include <algorithm>
#include <array>
#include <string>

namespace ozmo {
namespace {

constexpr size_t MODE_COUNT = 5;
constexpr double ProcessorRecord::*MODE_TIMES[MODE_COUNT] = {
    &ProcessorRecord::userTime, &ProcessorRecord::niceTime, &ProcessorRecord::systemTime,
    &ProcessorRecord::idleTime, &ProcessorRecord::waitTime};

// The two graphs that have one set a processor.
constexpr Graph PER_PROCESSOR_GRAPHS[] = {Graph::CPU_BY_PROCESSOR, Graph::ACTIVE_CPUS};

struct ProcessorTotals {
  double busySum = 0.0;
  std::array<double, MODE_COUNT> modes{};
};

void MakeConfiguredSets(BuildState& state, int count) {
  for (Graph graph : PER_PROCESSOR_GRAPHS) {
    GraphRecord* record = state.catalog.Find(graph);
    if (record != nullptr) XrtSeriesCreate(state.catalog, *record, std::clamp(count, 0, MAX_SETS));
  }
}

// Sets that a processor's graphs may have.
int RoomForSets(BuildState& state) {
  if (!state.platform.processorSpec.setsFromConfiguration) return MAX_SETS;
  const GraphRecord* record = state.catalog.Find(Graph::CPU_BY_PROCESSOR);
  return record == nullptr ? 0 : record->data.nsets();
}

// The set of a processor, made on first sight; -1 when there is no room for one.
int SetOfProcessor(BuildState& state, int32_t cpuId) {
  const auto known = state.processorSets.find(cpuId);
  if (known != state.processorSets.end()) return known->second;
  const int set = static_cast<int>(state.processorSets.size());
  if (set >= RoomForSets(state)) return -1;
  state.processorSets.emplace(cpuId, set);
  const ProcessorSpec& spec = state.platform.processorSpec;
  for (Graph graph : PER_PROCESSOR_GRAPHS) {
    GraphRecord* record = state.catalog.Find(graph);
    if (record == nullptr) continue;
    if (!spec.setsFromConfiguration) XrtSeriesAdd(state.catalog, *record);
    record->SetLabel(set, ProcessorName(spec.namePrefix, cpuId));
  }
  return set;
}

void AddProcessor(BuildState& state, const ProcessorRecord& processor, ProcessorTotals& totals) {
  const double nice = state.platform.processorSpec.countsNice ? processor.niceTime : 0.0;
  const double active = processor.systemTime + processor.userTime + nice;
  double total = active + processor.idleTime + processor.waitTime;
  if (total > 0.0) {
    for (size_t mode = 0; mode < MODE_COUNT; ++mode) {
      totals.modes[mode] += 100.0 * processor.*MODE_TIMES[mode] / total;
    }
  }
  if (total == 0.0) total = 1.0;
  const double busy = 100.0 * active / total;
  state.sums.processorTime += total;
  totals.busySum += busy;

  const int set = SetOfProcessor(state, processor.cpuId);
  const Series* series = state.catalog.FindSeries(Graph::CPU_BY_PROCESSOR, set);
  const float old = series == nullptr ? MISSING_POINT : PointAt(*series, state.point);
  if (old != MISSING_POINT) {
    // A repeat replaces the processor's earlier record.
    --state.sums.cpuSeen;
    totals.busySum -= static_cast<double>(old);
  }
  state.catalog.Store(Graph::CPU_BY_PROCESSOR, set, state.point, static_cast<float>(busy));
  state.catalog.Store(Graph::ACTIVE_CPUS, set, state.point, 1.0F);
  ++state.sums.cpuSeen;
}

void StoreMeans(BuildState& state, ProcessorTotals totals) {
  if (state.sums.cpuSeen > 0) {
    totals.busySum /= state.sums.cpuSeen;
    for (double& mode : totals.modes) mode /= state.sums.cpuSeen;
  }
  StoreOverallCpu(state, totals.busySum);
  int set = 0;
  for (CpuMode mode : state.platform.processorSpec.modes) {
    const double mean = totals.modes[static_cast<size_t>(mode)];
    state.catalog.Store(Graph::CPU_BY_MODE, set++, state.point, static_cast<float>(mean));
  }
}

}  // namespace

std::string ProcessorName(const char* prefix, int32_t cpuId) { return prefix + std::to_string(cpuId); }

bool HasProcessors(const VmrContext& context) { return !context.processors.primary.empty(); }

void StoreOverallCpu(BuildState& state, double percent) {
  // Comparisons, so that an undefined figure stays undefined.
  if (percent > 100.0) percent = 100.0;
  if (percent < 0.0) percent = 0.0;
  state.sums.overallCpu = percent;
  StoreSets(state, Graph::OVERALL_CPU, {percent});
}

void AddProcessors(BuildState& state, const VmrContext& context) {
  const ProcessorSpec& spec = state.platform.processorSpec;
  const int configured = ConfigOf(context).cpuCount;
  if (spec.setsFromConfiguration && !state.processorsMade && context.config) {
    MakeConfiguredSets(state, configured);
    state.processorsMade = true;
  }
  ProcessorTotals totals;
  for (const ProcessorRecord& processor : context.processors.primary) {
    AddProcessor(state, processor, totals);
    if (spec.stopsAtConfigured && state.sums.cpuSeen == configured) break;
  }
  if (!spec.modes.empty()) StoreMeans(state, totals);
}

}  // namespace ozmo
