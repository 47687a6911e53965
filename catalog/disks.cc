#include "catalog/disks.h"

#include "catalog/name_text.h"
#include "runtime/ordered_rows.h"
#include "runtime/text.h"

namespace ozmo {
namespace {

struct SeriesRow {
  DiskSeries series;
  float DiskValues::*figure;
};
constexpr SeriesRow SERIES[] = {
    {DiskSeries::OPERATIONS, &DiskValues::operations},
    {DiskSeries::DATA, &DiskValues::totalKb},
    {DiskSeries::UTILIZATION, &DiskValues::utilization},
    {DiskSeries::QUEUE, &DiskValues::queueLength},
    {DiskSeries::SPACE, &DiskValues::space},
    {DiskSeries::RESPONSE, &DiskValues::response},
};

static_assert(RowsAreInOrder(SERIES, &SeriesRow::series, DISK_SERIES_COUNT));

constexpr double BYTES_PER_GB = 1073741824.0;

float PerOperation(float value, float operations) {
  return operations > 0.0F ? value * 1000.0F / operations : 0.0F;
}

void SetRates(DiskValues& figures, const DiskRecord& disk) {
  const float readsAndWrites = disk.readRate + disk.writeRate;
  figures.operations = disk.ioRate > 0.0F ? disk.ioRate : readsAndWrites;
  figures.readKb = disk.readBytesRate / 1024.0F;
  figures.writeKb = disk.writeBytesRate / 1024.0F;
  figures.totalKb =
      disk.totalBytesRate > 0.0F ? disk.totalBytesRate / 1024.0F : figures.readKb + figures.writeKb;
  if (readsAndWrites > 0.0F) {
    figures.reads = disk.readRate;
    figures.writes = disk.writeRate;
    return;
  }
  // Only the sum of operations is known: it is split as the data are.
  const float kbPerOperation = figures.operations > 0.0F ? figures.totalKb / figures.operations : 0.0F;
  if (kbPerOperation > 0.0F) {
    figures.reads = figures.readKb / kbPerOperation;
    figures.writes = figures.writeKb / kbPerOperation;
  }
}

void SetTimes(DiskValues& figures, const DiskRecord& disk, bool timesMeasured) {
  figures.service = timesMeasured ? disk.servicePerIo : PerOperation(disk.busyFraction, figures.operations);
  figures.response = timesMeasured ? disk.waitPerIo : PerOperation(disk.queueLength, figures.operations);
  if (figures.service > figures.response) figures.response = figures.service;
  // The plotted wait loses the service time twice.
  const float wait = figures.response - figures.service;
  figures.wait = wait > figures.service ? wait - figures.service : 0.0F;
}

void SetSpace(DiskValues& figures, const DiskRecord& disk) {
  // A whole-number quotient: 0 unless the disk is entirely free.
  const uint32_t quotient = disk.size > 0 ? disk.free / disk.size : 0;
  figures.space = static_cast<float>(quotient);
  figures.freeGb = static_cast<float>(disk.free / BYTES_PER_GB);
  const int64_t used = int64_t{disk.size} - disk.free;
  figures.usedGb = static_cast<float>(static_cast<double>(used) / BYTES_PER_GB);
}

// Figures that are summed over the disks of one interval.
constexpr float DiskValues::*SUMMED_FIGURES[] = {&DiskValues::operations, &DiskValues::reads,
                                                 &DiskValues::writes,     &DiskValues::totalKb,
                                                 &DiskValues::readKb,     &DiskValues::writeKb};

GraphRecord& MakeGraph(GraphCatalog& catalog, const DiskGraph& graph, std::string_view name) {
  GraphRecord& record = catalog.runtimeRecords.emplace_back();
  record.title = NameText(graph.titleFormat, name);
  record.yTitle = graph.yTitle;
  record.legendFormat = graph.legendFormat;
  for (const DiskTrace& trace : graph.traces) {
    record.traceLabels.emplace_back(NameText(trace.labelFormat, name));
    record.traceColours.emplace_back(trace.colour);
  }
  XrtSeriesCreate(catalog, record, static_cast<int>(graph.traces.size()));
  return record;
}

void StoreTotals(const Minute& minute, const DiskValues& totals, const PagingOperations& paging) {
  minute.Store(Graph::DISK_OPERATIONS, {totals.operations});
  minute.Store(Graph::DISK_DATA, {totals.totalKb});
  const double user = static_cast<double>(totals.operations) - paging.paging - paging.swapping;
  minute.Store(Graph::DISK_BY_TYPE, {user > 0.0 ? user : 0.0, paging.paging, paging.swapping});
  minute.Store(Graph::VMR_DISK_TRANSFER, {totals.totalKb});
  minute.Store(Graph::VMR_DISK_TRANSFER_SPLIT, {totals.readKb, totals.writeKb});
  minute.Store(Graph::VMR_DISK_OPERATIONS_SPLIT, {totals.reads, totals.writes});
}

}  // namespace

std::optional<std::string_view> DiskNameAsIs(std::string_view recordName) { return recordName; }

std::optional<std::string_view> DiskNameWithoutDirectory(std::string_view recordName) {
  constexpr std::string_view DIRECTORY = "/dev/dsk/";
  if (recordName.starts_with(DIRECTORY)) recordName.remove_prefix(DIRECTORY.size());
  return recordName;
}

DiskValues DiskValuesOf(const DiskRecord& disk, bool timesMeasured) {
  DiskValues figures;
  SetRates(figures, disk);
  figures.utilization = 100.0F * disk.busyFraction;
  figures.queueLength = disk.queueLength;
  SetTimes(figures, disk, timesMeasured);
  SetSpace(figures, disk);
  return figures;
}

// The row of a disk first seen, while there is room for one, with those of its graphs that are wanted.
void DiskPass::MakeRow(GraphCatalog& catalog, Entry& entry, std::string_view name) {
  GraphMenuEntry* disks = catalog.RuntimeRow(RowKind::DISKS);
  if (disks == nullptr || rows_ >= MAX_DISK_ROWS) return;
  ++rows_;
  GraphMenuEntry row{"NDsk", std::string(name), nullptr, {}};
  for (const DiskGraph& graph : std::span<const DiskGraph>(spec_.graphs)) {
    if (!catalog.titles.Has(NameText(graph.titleFormat, name))) continue;
    GraphRecord& record = MakeGraph(catalog, graph, name);
    row.subTable.push_back({graph.code, graph.label, &record, {}});
    entry.graphs.emplace_back(&graph, &record);
  }
  if (!row.subTable.empty()) disks->subTable.push_back(std::move(row));
}

DiskPass::Entry& DiskPass::EntryOf(GraphCatalog& catalog, std::string_view name) {
  const auto found = entries_.find(name);
  if (found != entries_.end()) return found->second;
  Entry& entry = entries_[std::string(name)];
  if (detail_.hasGraphs) MakeRow(catalog, entry, name);
  return entry;
}

void DiskPass::Store(const Minute& minute, std::string_view name, const DiskValues& figures) {
  Entry& entry = EntryOf(minute.catalog, name);
  for (size_t i = 0; i < DISK_SERIES_COUNT; ++i) {
    if (detail_.series[i]) entry.series[i].Feed(pages_, minute.sample, figures.*SERIES[i].figure);
  }
  for (const auto& [graph, record] : entry.graphs) {
    for (size_t set = 0; set < graph->traces.size(); ++set) {
      PointStore(record->data.y[set], minute.point, figures.*graph->traces[set].figure);
    }
  }
}

void DiskPass::Run(const Minute& minute, const VmrContext& interval, const PagingOperations& paging) {
  DiskValues totals;
  for (const DiskRecord& disk : interval.disks.primary) {
    if (disk.deviceName.empty()) continue;
    const std::optional<std::string_view> name = spec_.name(disk.deviceName);
    if (!name) continue;
    const DiskValues figures = DiskValuesOf(disk, spec_.timesMeasured);
    for (const auto figure : SUMMED_FIGURES) totals.*figure += figures.*figure;
    if (detail_.IsWanted()) Store(minute, TrimText(*name, " "), figures);
  }
  StoreTotals(minute, totals, paging);
}

std::vector<NamedSeries> DiskPass::Named(DiskSeries series) const {
  std::vector<NamedSeries> named;
  named.reserve(entries_.size());
  for (const auto& [name, entry] : entries_) {
    named.push_back({name, &entry.series[static_cast<size_t>(series)]});
  }
  SortByName(named);
  return named;
}

}  // namespace ozmo
