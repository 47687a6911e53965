#include "catalog/processors.h"

#include <algorithm>
#include <array>

#include "runtime/ordered_rows.h"

namespace ozmo {
namespace {

struct ModeRow {
  CpuMode mode;
  double ProcessorRecord::*time;
};
constexpr ModeRow MODES[] = {{CpuMode::USER, &ProcessorRecord::userTime},
                             {CpuMode::NICE, &ProcessorRecord::niceTime},
                             {CpuMode::SYSTEM, &ProcessorRecord::systemTime},
                             {CpuMode::IDLE, &ProcessorRecord::idleTime},
                             {CpuMode::WAIT, &ProcessorRecord::waitTime}};

static_assert(RowsAreInOrder(MODES, &ModeRow::mode, std::size(MODES)));

// The two graphs that have one set a processor.
constexpr Graph PER_PROCESSOR_GRAPHS[] = {Graph::CPU_BY_PROCESSOR, Graph::ACTIVE_CPUS};

}  // namespace

struct ProcessorPass::Totals {
  double busy = 0.0;
  std::array<double, std::size(MODES)> modes{};
};

void ProcessorPass::MakeSets(GraphCatalog& catalog, int count) {
  if (setsAreMade_) return;
  setsAreMade_ = true;
  for (const Graph graph : PER_PROCESSOR_GRAPHS) {
    GraphRecord* record = catalog.FindNeeded(graph);
    if (record != nullptr) XrtSeriesCreate(catalog, *record, std::clamp(count, 0, MAX_SETS));
  }
}

// Sets that a processor's graphs may have.
int ProcessorPass::RoomForSets(const GraphCatalog& catalog) const {
  if (!spec_.setsFromConfiguration) return MAX_SETS;
  const GraphRecord* record = catalog.Find(Graph::CPU_BY_PROCESSOR);
  return record == nullptr ? 0 : record->data.nsets();
}

// The set of a processor, made on first sight; -1 when there is no room for one.
int ProcessorPass::SetOf(GraphCatalog& catalog, int32_t cpuId) {
  const auto known = sets_.find(cpuId);
  if (known != sets_.end()) return known->second;
  const int set = static_cast<int>(sets_.size());
  if (set >= RoomForSets(catalog)) return -1;
  sets_.emplace(cpuId, set);
  for (const Graph graph : PER_PROCESSOR_GRAPHS) {
    GraphRecord* record = catalog.FindNeeded(graph);
    if (record == nullptr) continue;
    if (!spec_.setsFromConfiguration) XrtSeriesAdd(catalog, *record);
    record->SetLabel(set, NameOf(cpuId));
  }
  return set;
}

void ProcessorPass::Add(const Minute& minute, const ProcessorRecord& processor, ProcessorSums& sums,
                        Totals& totals) {
  const double nice = spec_.countsNice ? processor.niceTime : 0.0;
  const double active = processor.systemTime + processor.userTime + nice;
  double total = active + processor.idleTime + processor.waitTime;
  if (total > 0.0) {
    for (size_t mode = 0; mode < std::size(MODES); ++mode) {
      totals.modes[mode] += 100.0 * processor.*MODES[mode].time / total;
    }
  }
  if (total == 0.0) total = 1.0;
  const double busy = 100.0 * active / total;
  sums.time += total;
  totals.busy += busy;

  const int set = SetOf(minute.catalog, processor.cpuId);
  const Series* series = minute.catalog.FindSeries(Graph::CPU_BY_PROCESSOR, set);
  const float old = series == nullptr ? MISSING_POINT : PointAt(*series, minute.point);
  if (old != MISSING_POINT) {
    // A repeat replaces the processor's earlier record.
    --sums.seen;
    totals.busy -= static_cast<double>(old);
  }
  minute.Store(Graph::CPU_BY_PROCESSOR, set, static_cast<float>(busy));
  minute.Store(Graph::ACTIVE_CPUS, set, 1.0F);
  ++sums.seen;
}

ProcessorSums ProcessorPass::Run(const Minute& minute, const VmrContext& interval) {
  const int configured = ConfigOf(interval).cpuCount;
  if (spec_.setsFromConfiguration && interval.config) MakeSets(minute.catalog, configured);
  ProcessorSums sums;
  Totals totals;
  for (const ProcessorRecord& processor : interval.processors.primary) {
    Add(minute, processor, sums, totals);
    if (spec_.stopsAtConfigured && sums.seen == configured) break;
  }
  if (spec_.modes.empty()) return sums;

  if (sums.seen > 0) {
    totals.busy /= sums.seen;
    for (double& mode : totals.modes) mode /= sums.seen;
  }
  sums.overallCpu = StoreOverallCpu(minute, totals.busy);
  int set = 0;
  for (const CpuMode mode : spec_.modes) {
    minute.Store(Graph::CPU_BY_MODE, set++, static_cast<float>(totals.modes[static_cast<size_t>(mode)]));
  }
  return sums;
}

ProcessorSums AddProcessors(ProcessorPass& pass, const Minute& minute, const VmrContext& interval) {
  return pass.Run(minute, interval);
}

bool HasProcessors(const VmrContext& interval) { return !interval.processors.primary.empty(); }

double StoreOverallCpu(const Minute& minute, double percent) {
  // Comparisons, so that an undefined figure stays undefined.
  if (percent > 100.0) percent = 100.0;
  if (percent < 0.0) percent = 0.0;
  minute.Store(Graph::OVERALL_CPU, {percent});
  return percent;
}

}  // namespace ozmo
