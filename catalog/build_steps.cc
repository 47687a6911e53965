#include "catalog/build_steps.h"

#include <algorithm>
#include <utility>

namespace ozmo {
namespace {

// Series that a catalog has beside those of its records: the sum of the shares and the overlay's.
constexpr int64_t SERIES_BESIDE_RECORDS = 2;

void CreateClassSeries(GraphCatalog& catalog, const WorkloadClassList& classes) {
  for (const Graph graph : {Graph::CLASS_CPU, Graph::CLASS_COUNT}) {
    GraphRecord* record = catalog.FindNeeded(graph);
    if (record == nullptr) continue;
    for (const WorkloadClass& workloadClass : classes.classes) {
      record->SetLabel(record->data.nsets(), workloadClass.name);
      record->data.y.emplace_back(static_cast<size_t>(catalog.pointCount) + 1, MISSING_POINT);
    }
  }
}

// Makes what the catalog has before the walk. All of it counts, whether it is needed or not: a span beyond
// reason, such as one without a begin, must end at once, and for any graph.
Needs StartCatalog(const PlatformSpec& platform, const WorkloadClassList& classes, const Span& span,
                   GraphCatalog& catalog) {
  catalog.spanStart = span.begin;
  catalog.spanEnd = span.end;
  CatalogFromTables(catalog, platform.records, platform.tree);
  const bool isDetailed = platform.detailLimit == 0 || span.end - span.begin <= platform.detailLimit;
  const Needs needs = NeedsOf(platform, catalog.titles, isDetailed);

  const int64_t points = PointCountOf(platform.pointCountRule, span.begin, span.end);
  const int64_t classSeries = 2 * static_cast<int64_t>(classes.classes.size());
  catalog.budget.Take(FixedSeriesCount(platform.records) + classSeries + SERIES_BESIDE_RECORDS,
                      points < 0 ? points : points + 1);
  catalog.pointCount = static_cast<int>(points);
  for (size_t graph = 0; graph < GRAPH_COUNT; ++graph) {
    if (GraphRecord* record = catalog.Find(static_cast<Graph>(graph))) {
      record->isNeeded = needs.Has(static_cast<Graph>(graph));
    }
  }
  CreateFixedSeries(catalog, platform.records);
  CreateClassSeries(catalog, classes);
  return needs;
}

void NoteInterval(WalkExtent& extent, int point) {
  const bool first = extent.intervals++ == 0;
  extent.firstPoint = first ? point : std::min(extent.firstPoint, point);
  extent.lastPoint = first ? point : std::max(extent.lastPoint, point);
}

Series HeldPoints(const SampledPoints& points, int pointCount) {
  Series held(static_cast<size_t>(pointCount) + 1, MISSING_POINT);
  for (int number = 0; number < points.count(); ++number) PointStore(held, points.PointOf(number), 1.0F);
  return held;
}

// Scales the class series to overall CPU.
void RescaleClasses(GraphCatalog& catalog, const Series& shareSum) {
  GraphRecord* record = catalog.FindNeeded(Graph::CLASS_CPU);
  const std::optional<CpuScale> scale = CpuScaleOf(catalog, shareSum);
  if (record == nullptr || !scale) return;
  for (Series& series : record->data.y) NormalizeProcessSeries(series, *scale);
}

}  // namespace

BuildSteps::BuildSteps(const PlatformSpec& platform, const WorkloadClassList& classes, const Span& span,
                       GraphCatalog& catalog)
    : platform_(platform),
      catalog_(catalog),
      needs_(StartCatalog(platform, classes, span, catalog)),
      points_(catalog.pointCount),
      processors_(platform.processorSpec),
      disks_(platform.diskSpec, needs_.disks, catalog.budget),
      fileSystems_(platform.fileSystemKeyFormat, catalog.budget),
      adapters_(platform.hasAdapterGraphs),
      processes_(platform, needs_.processes, classes, catalog) {}

void BuildSteps::SetProcessSink(ProcessSink sink) {
  processSink_ = std::move(sink);
  if (!processSink_) return;
  processes_.KeepShares();
  for (const RecordKind kind : {RecordKind::PROCESS_USERS, RecordKind::PROCESS_SIZES,
                                RecordKind::PROCESS_FAULTS, RecordKind::DETAILS}) {
    needs_.records.Add(kind);
  }
}

void BuildSteps::RunPasses(const Minute& minute, VmrContext& interval) {
  ProcessorSums processors;
  PagingOperations paging;
  if (needs_.Has(PassKind::PROCESSORS)) processors = platform_.processors(processors_, minute, interval);
  if (needs_.Has(PassKind::MEMORY)) paging = platform_.memory(minute, interval);
  if (needs_.Has(PassKind::DISKS)) disks_.Run(minute, interval, paging);
  if (needs_.Has(PassKind::FILE_SYSTEMS)) fileSystems_.Run(minute, interval);
  if (needs_.Has(PassKind::ADAPTERS)) adapters_.Run(minute, interval);
  if (needs_.Has(PassKind::PROCESSES)) platform_.processes(processes_, minute, interval, processors, length_);
  if (processSink_) {
    processes_.GiveShares(minute, ConfigOf(interval), platform_.topLists.images.isRescaled, processSink_);
  }
  if (needs_.Has(PassKind::PROTOCOLS)) platform_.protocols(minute, interval);
  if (needs_.Has(PassKind::PARTITION)) platform_.partition(minute, interval);
  processorsSeenLast_ = processors.seen;
}

bool BuildSteps::UseInterval(VmrContext& interval) {
  if (!platform_.usesInterval(interval)) return true;
  const int point = PointOf(platform_.pointRule, catalog_.spanStart, interval.periodEnd);
  if (point == lastPoint_) return false;
  if (platform_.dropsBeyondEnd && point > catalog_.pointCount) return false;
  lastPoint_ = point;
  NoteInterval(catalog_.extent, point);
  RunPasses({catalog_, point, points_.NumberOf(point)}, interval);
  return true;
}

bool BuildSteps::TakeInterval(VmrContext& interval) {
  if (platform_.measureInterval != nullptr) {
    platform_.measureInterval(length_, interval);
    return UseInterval(interval);
  }
  if (!UseInterval(interval)) return false;
  if (!length_.isKnown && interval.config) {
    length_.isKnown = true;
    length_.minutes = MinutesOf(interval.config->intervalSeconds);
  }
  return true;
}

void BuildSteps::FinishGraphs() {
  FinishTopLists(catalog_, platform_, sources());
  if (processes_.views().areMade()) processes_.views().Finish(catalog_, points_);
  if (platform_.processSpec.classesAreRescaled) RescaleClasses(catalog_, processes_.shareSum());
  if (platform_.finish != nullptr) platform_.finish(catalog_, processorsSeenLast_);
}

void BuildSteps::FinishSeries() {
  WalkExtent& extent = catalog_.extent;
  extent.maxGap = length_.minutes + platform_.gapExtra;
  extent.held = HeldPoints(points_, catalog_.pointCount);
  SeriesBridgeGaps(extent.held, catalog_.pointCount, extent.maxGap);
  GraphBridgeGaps(catalog_.itemTree, catalog_.pointCount, extent.maxGap);
  GraphStackTraces(catalog_.itemTree);
}

}  // namespace ozmo
