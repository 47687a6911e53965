#include "catalog/disks.h"

#include "catalog/name_text.h"
#include "catalog/platform.h"

namespace ozmo {
namespace {

// What feeds which Top list.
struct DiskFeed {
  NameTree tree;
  float DiskFigures::*figure;
};
constexpr std::array<DiskFeed, DISK_TREES> FEEDS = {{
    {NameTree::DISK_OPERATIONS, &DiskFigures::operations},
    {NameTree::DISK_DATA, &DiskFigures::totalKb},
    {NameTree::DISK_UTILIZATION, &DiskFigures::utilization},
    {NameTree::DISK_QUEUE, &DiskFigures::queueLength},
    {NameTree::DISK_SPACE, &DiskFigures::space},
    {NameTree::DISK_RESPONSE, &DiskFigures::response},
}};

constexpr double BYTES_PER_GB = 1073741824.0;

float PerOperation(float value, float operations) {
  return operations > 0.0F ? value * 1000.0F / operations : 0.0F;
}

void SetRates(DiskFigures& figures, const DiskRecord& disk) {
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

void SetTimes(DiskFigures& figures, const DiskRecord& disk, bool timesMeasured) {
  figures.service = timesMeasured ? disk.servicePerIo : PerOperation(disk.busyFraction, figures.operations);
  figures.response = timesMeasured ? disk.waitPerIo : PerOperation(disk.queueLength, figures.operations);
  if (figures.service > figures.response) figures.response = figures.service;
  // The plotted wait loses the service time twice.
  const float wait = figures.response - figures.service;
  figures.wait = wait > figures.service ? wait - figures.service : 0.0F;
}

void SetSpace(DiskFigures& figures, const DiskRecord& disk) {
  // A whole-number quotient: 0 unless the disk is entirely free.
  const uint32_t quotient = disk.size > 0 ? disk.free / disk.size : 0;
  figures.space = static_cast<float>(quotient);
  figures.freeGb = static_cast<float>(disk.free / BYTES_PER_GB);
  const int64_t used = int64_t{disk.size} - disk.free;
  figures.usedGb = static_cast<float>(static_cast<double>(used) / BYTES_PER_GB);
}

// Figures that are summed over the disks of one interval.
constexpr float DiskFigures::*SUMMED_FIGURES[] = {&DiskFigures::operations, &DiskFigures::reads,
                                                  &DiskFigures::writes,     &DiskFigures::totalKb,
                                                  &DiskFigures::readKb,     &DiskFigures::writeKb};

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

// The row of a disk first seen, while there is room for one.
void MakeRow(BuildState& state, DiskEntry& entry, std::string_view name) {
  GraphMenuEntry* disks = state.catalog.RuntimeRow(RowKind::DISKS);
  if (disks == nullptr || disks->subTable.size() >= MAX_DISK_ROWS) return;
  GraphMenuEntry& row = disks->subTable.emplace_back();
  row.code = "NDsk";
  row.label = name;
  for (const DiskGraph& graph : state.platform.diskSpec.graphs) {
    GraphRecord& record = MakeGraph(state.catalog, graph, name);
    row.subTable.push_back({graph.code, graph.label, &record, {}});
    entry.graphs.push_back(&record);
  }
}

DiskEntry& EntryOf(BuildState& state, std::string_view name) {
  const auto found = state.diskEntries.find(name);
  if (found != state.diskEntries.end()) return found->second;
  DiskEntry& entry = state.diskEntries[std::string(name)];
  for (size_t i = 0; i < FEEDS.size(); ++i) entry.treeSeries[i] = &state.trees.At(FEEDS[i].tree, name);
  MakeRow(state, entry, name);
  return entry;
}

void StoreDisk(BuildState& state, std::string_view name, const DiskFigures& figures) {
  DiskEntry& entry = EntryOf(state, name);
  for (size_t i = 0; i < FEEDS.size(); ++i) {
    PointFeed(*entry.treeSeries[i], state.point, figures.*FEEDS[i].figure);
  }
  for (size_t i = 0; i < entry.graphs.size(); ++i) {
    const std::span<const DiskTrace> traces = state.platform.diskSpec.graphs[i].traces;
    for (size_t set = 0; set < traces.size(); ++set) {
      PointStore(entry.graphs[i]->data.y[set], state.point, figures.*traces[set].figure);
    }
  }
}

void StoreTotals(BuildState& state, const DiskFigures& totals) {
  StoreSets(state, Graph::DISK_OPERATIONS, {totals.operations});
  StoreSets(state, Graph::DISK_DATA, {totals.totalKb});
  const double paging = state.sums.pageOperations;
  const double swapping = state.sums.swapOperations;
  const double user = static_cast<double>(totals.operations) - paging - swapping;
  StoreSets(state, Graph::DISK_BY_TYPE, {user > 0.0 ? user : 0.0, paging, swapping});
  StoreSets(state, Graph::VMR_DISK_TRANSFER, {totals.totalKb});
  StoreSets(state, Graph::VMR_DISK_TRANSFER_SPLIT, {totals.readKb, totals.writeKb});
  StoreSets(state, Graph::VMR_DISK_OPERATIONS_SPLIT, {totals.reads, totals.writes});
}

}  // namespace

DiskSpec::Name DiskNameAsIs(std::string_view recordName) { return {true, recordName}; }

DiskSpec::Name DiskNameWithoutDirectory(std::string_view recordName) {
  constexpr std::string_view DIRECTORY = "/dev/dsk/";
  if (recordName.starts_with(DIRECTORY)) recordName.remove_prefix(DIRECTORY.size());
  return {true, recordName};
}

DiskSpec::Name DiskNameLinux(std::string_view recordName) {
  const std::string_view name = TrimBlanks(recordName);
  if (name.starts_with("cciss") && name.find('p') != std::string_view::npos) return {false, name};
  const bool numbered = !name.empty() && name.back() >= '0' && name.back() <= '9';
  for (const std::string_view kind : {"sd", "hd", "fd"}) {
    if (numbered && name.starts_with(kind)) return {false, name};
  }
  return {true, name};
}

DiskFigures DiskFiguresOf(const DiskRecord& disk, bool timesMeasured) {
  DiskFigures figures;
  SetRates(figures, disk);
  figures.utilization = 100.0F * disk.busyFraction;
  figures.queueLength = disk.queueLength;
  SetTimes(figures, disk, timesMeasured);
  SetSpace(figures, disk);
  return figures;
}

void AddDisks(BuildState& state, const VmrContext& context) {
  const DiskSpec& spec = state.platform.diskSpec;
  DiskFigures totals;
  for (const DiskRecord& disk : context.disks.primary) {
    if (disk.deviceName.empty()) continue;
    const DiskSpec::Name name = spec.name(disk.deviceName);
    if (!name.isDisk) continue;
    const DiskFigures figures = DiskFiguresOf(disk, spec.timesMeasured);
    for (const auto figure : SUMMED_FIGURES) totals.*figure += figures.*figure;
    if (state.detailed) StoreDisk(state, TrimBlanks(name.name), figures);
  }
  StoreTotals(state, totals);
}

}  // namespace ozmo
