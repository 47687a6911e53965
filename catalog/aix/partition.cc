#include "catalog/aix/partition.h"

#include <algorithm>

namespace ozmo::aix_catalog {
namespace {

constexpr double MAX_RATE = 1e9;  // a higher rate is a counter gone bad

// Physical processors, and what of them was given away.
struct PhysicalUse {
  double used = 0.0;
  double donated = 0.0;
  double entitled = 0.0;
};

PhysicalUse PhysicalUseOf(const PartitionRecord& partition) {
  PhysicalUse use;
  use.entitled = partition.entitledProcessors;
  const auto& time = partition.timeByMode;
  const double all = time[0] + time[1] + time[2] + time[3];
  if (!(all > 0.0)) return use;
  const double timebase = partition.timeBase == 0 ? 1.0 : static_cast<double>(partition.timeBase);
  double sum = all;
  const auto& spare = partition.spareTime;
  if (partition.isDonating != 0.0) sum += spare[0] + spare[1] + spare[2];
  if (partition.isCapped != 0.0) {
    if (!(use.entitled > 0.0)) use.entitled = 1.0;
    use.donated = partition.donatedTime / timebase;
  }
  use.used = sum / timebase;
  return use;
}

void SetTop(GraphCatalog& catalog, Graph graph, double yMax) {
  if (GraphRecord* record = catalog.Find(graph)) record->yMax = static_cast<float>(yMax);
}

void StoreEntitlement(const Minute& minute, Graph graph, double entitled, double yMax, bool sharedMode) {
  minute.Store(graph, {entitled});
  SetTop(minute.catalog, graph, yMax);
  if (GraphRecord* record = minute.catalog.Find(graph)) record->SetColour(0, sharedMode ? "Red" : "Blue");
}

// Whether the processor of a set was busy at any point.
bool EverBusy(const Series& series, int points) {
  const size_t count = std::min(series.size(), static_cast<size_t>(std::max(points, 0)));
  return std::any_of(series.begin(), series.begin() + static_cast<std::ptrdiff_t>(count),
                     [](float value) { return value > 0.0F; });
}

void EraseSet(GraphRecord& record, size_t set) {
  const auto offset = static_cast<std::ptrdiff_t>(set);
  if (set < record.data.y.size()) record.data.y.erase(record.data.y.begin() + offset);
  if (set < record.traceLabels.size()) record.traceLabels.erase(record.traceLabels.begin() + offset);
}

void ScaleSets(GraphCatalog& catalog, Graph graph, float ratio) {
  GraphRecord* record = catalog.Find(graph);
  if (record == nullptr) return;
  for (Series& series : record->data.y) {
    const size_t count = std::min(series.size(), static_cast<size_t>(std::max(catalog.pointCount, 0)));
    for (size_t p = 0; p < count; ++p) series[p] *= ratio;
  }
}

}  // namespace

void AddPartition(const Minute& minute, const VmrContext& interval) {
  if (!interval.partition) return;
  const PartitionRecord& partition = *interval.partition;
  const PhysicalUse use = PhysicalUseOf(partition);
  const bool sharedMode = partition.isShared != 0.0;
  minute.Store(Graph::PHYSICAL_CPU, {use.used});
  SetTop(minute.catalog, Graph::PHYSICAL_CPU, partition.onlineProcessors);
  StoreEntitlement(minute, Graph::ENTITLEMENT, use.entitled, partition.onlineProcessors, sharedMode);
  StoreEntitlement(minute, Graph::POOL_ENTITLEMENT, use.entitled, partition.poolProcessors, sharedMode);

  const bool visible = partition.seesPool != 0.0;
  const double others = visible ? partition.poolProcessors - use.donated - use.used : 0.0;
  const double unused = visible ? use.donated : partition.poolProcessors - use.used;
  minute.Store(Graph::SHARED_POOL, {others, unused, use.used});
  SetTop(minute.catalog, Graph::SHARED_POOL, partition.poolProcessors);

  if (partition.voluntarySwitchRate + partition.involuntarySwitchRate < MAX_RATE) {
    minute.Store(Graph::CONTEXT_SWITCHES, {partition.voluntarySwitchRate, partition.involuntarySwitchRate});
  }
  if (partition.phantomInterruptRate < MAX_RATE) {
    minute.Store(Graph::PHANTOM_INTERRUPTS, {partition.phantomInterruptRate});
  }
}

void RemoveIdleProcessors(GraphCatalog& catalog, int processors) {
  GraphRecord* busy = catalog.Find(Graph::CPU_BY_PROCESSOR);
  GraphRecord* active = catalog.Find(Graph::ACTIVE_CPUS);
  if (busy == nullptr || active == nullptr) return;
  const int before = busy->data.nsets();
  // From the last set on, so that the numbers of those still to be looked at stay.
  for (int set = std::min(before, processors); set-- > 0;) {
    const size_t index = static_cast<size_t>(set);
    if (EverBusy(busy->data.y[index], catalog.pointCount)) continue;
    EraseSet(*busy, index);
    EraseSet(*active, index);
  }
  const int after = busy->data.nsets();
  if (after == before) return;
  // With no processor left this is a division by zero, and its result goes into the series.
  const float ratio = static_cast<float>(before) / static_cast<float>(after);
  for (Graph graph :
       {Graph::OVERALL_CPU, Graph::CPU_BY_MODE, Graph::TOP_IMAGES, Graph::TOP_USERS, Graph::CLASS_CPU}) {
    ScaleSets(catalog, graph, ratio);
  }
}

}  // namespace ozmo::aix_catalog
