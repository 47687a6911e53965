#include "catalog/build_steps.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "catalog/processes.h"
#include "catalog/top_graphs.h"

namespace ozmo {
namespace {

constexpr Seconds SECONDS_PER_MINUTE = 60;

void CreateClassSeries(BuildState& state) {
  for (Graph graph : {Graph::CLASS_CPU, Graph::CLASS_COUNT}) {
    GraphRecord* record = state.catalog.Find(graph);
    if (record == nullptr) continue;
    for (const WorkloadClass& workloadClass : state.classes.classes) {
      record->SetLabel(XrtSeriesAdd(state.catalog, *record), workloadClass.name);
    }
  }
}

// All that is known ahead of the walk is counted before any of it is made: a span beyond reason, such as one
// without a begin, must end at once.
void CreateSeries(BuildState& state, int64_t points) {
  GraphCatalog& catalog = state.catalog;
  const std::span<const RecordText> records = state.platform.records();
  const int64_t classSeries = 2 * static_cast<int64_t>(state.classes.classes.size());
  SeriesRequire(catalog, FixedSeriesCount(records) + classSeries + 2, points < 0 ? points : points + 1);
  catalog.pointCount = static_cast<int>(points);
  CreateFixedSeries(catalog, records);
  CreateClassSeries(state);
  // No trace of a graph: it starts at 0, which shows where an overlay has fewer points than the main graph.
  catalog.overlayScratch = SeriesNew(catalog);
  std::fill(catalog.overlayScratch.begin(), catalog.overlayScratch.end(), 0.0F);
  state.processCpuSum = SeriesNew(catalog);
  if (!state.platform.processSpec.sumStartsMissing) {
    std::fill(state.processCpuSum.begin(), state.processCpuSum.end(), 0.0F);
  }
}

void NoteInterval(WalkExtent& extent, int point) {
  const bool first = extent.intervals++ == 0;
  extent.firstPoint = first ? point : std::min(extent.firstPoint, point);
  extent.lastPoint = first ? point : std::max(extent.lastPoint, point);
}

void RunPasses(BuildState& state, const VmrContext& context) {
  const PlatformSpec& platform = state.platform;
  const Pass passes[] = {platform.processors, platform.memory,
                         platform.disks,      state.detailed ? platform.fileSystems : nullptr,
                         platform.adapters,   platform.processes,
                         platform.network,    platform.partition};
  for (Pass pass : passes) {
    if (pass != nullptr) pass(state, context);
  }
}

}  // namespace

int64_t PointsOf(PointCountRule rule, Seconds start, Seconds end) {
  if (rule == PointCountRule::OF_DIFFERENCE) return (end - start) / SECONDS_PER_MINUTE + 2;
  return end / SECONDS_PER_MINUTE - start / SECONDS_PER_MINUTE + 2;
}

const SystemConfig& ConfigOf(const VmrContext& context) {
  static const SystemConfig NONE;
  return context.config ? *context.config : NONE;
}

int WholeNumber(double value) {
  if (std::isnan(value)) return 0;
  constexpr double LIMIT = std::numeric_limits<int>::max() / 2.0;
  return static_cast<int>(std::clamp(value, -LIMIT, LIMIT));
}

int MinutesOf(float seconds) { return WholeNumber(static_cast<double>(seconds / 60.0F)); }

int PointOf(PointRule rule, Seconds start, Seconds timeStamp) {
  if (rule == PointRule::NEAREST_MINUTE) {
    return WholeNumber(std::floor(0.5 + static_cast<double>(timeStamp - start) / 60.0));
  }
  const Seconds minutes = timeStamp / SECONDS_PER_MINUTE - start / SECONDS_PER_MINUTE;
  return WholeNumber(static_cast<double>(minutes));
}

bool TakeInterval(BuildState& state, const VmrContext& context) {
  const PlatformSpec& platform = state.platform;
  if (platform.measureInterval != nullptr) platform.measureInterval(state, context);
  if (!platform.usesInterval(context)) return true;
  const int point = PointOf(platform.pointRule, state.catalog.spanStart, context.periodEnd);
  if (point == state.lastPoint) return false;
  if (platform.dropsBeyondEnd && point > state.catalog.pointCount) return false;
  state.point = state.lastPoint = point;
  NoteInterval(state.catalog.extent, point);
  state.sums = {};
  RunPasses(state, context);
  return true;
}

void StartCatalog(BuildState& state, Seconds start, Seconds end) {
  GraphCatalog& catalog = state.catalog;
  const PlatformSpec& platform = state.platform;
  catalog.spanStart = start;
  catalog.spanEnd = end;
  state.detailed = platform.detailLimit == 0 || end - start <= platform.detailLimit;
  CatalogFromTables(catalog, platform.records(), platform.tree());
  CreateSeries(state, PointsOf(platform.pointCountRule, start, end));
}

void FinishGraphs(BuildState& state) {
  FinishTopLists(state);
  if (state.platform.processSpec.classesRescaled) RescaleClasses(state);
  if (state.platform.finish != nullptr) state.platform.finish(state);
}

void FinishSeries(BuildState& state) {
  GraphCatalog& catalog = state.catalog;
  GraphBridgeGaps(catalog.itemTree, catalog.pointCount, state.intervalMinutes + state.platform.gapExtra);
  GraphStackTraces(catalog.itemTree);
}

}  // namespace ozmo
