#include "catalog/adapters.h"

#include <algorithm>
#include <span>

#include "catalog/name_text.h"

namespace ozmo {
namespace {

// A trace and the rate it shows; bytes are shown as kilobytes of 1000.
struct AdapterTrace {
  const char* label;
  const char* colour;
  float LanRecord::*rate;
  double divisor = 1.0;
  double Value(const LanRecord& lan) const { return lan.*rate / divisor; }
};

// One graph of each adapter. Its title is the adapter's name, on all three.
struct AdapterGraph {
  const char* codeEnd;  // after LAN and the adapter's number
  const char* label;
  const char* yTitle;
  const char* legendFormat;
  std::span<const AdapterTrace> traces;
};

constexpr AdapterTrace PACKET_TRACES[] = {
    {.label = "Packets Received", .colour = "Green", .rate = &LanRecord::packetsInRate},
    {.label = "Packets Sent", .colour = "Red", .rate = &LanRecord::packetsOutRate}};
constexpr AdapterTrace DATA_TRACES[] = {
    {.label = "Data Received", .colour = "Green", .rate = &LanRecord::bytesInRate, .divisor = 1000.0},
    {.label = "Data Sent", .colour = "Red", .rate = &LanRecord::bytesOutRate, .divisor = 1000.0}};
constexpr AdapterTrace ERROR_TRACES[] = {
    {.label = "Inbound errors", .colour = "Green", .rate = &LanRecord::errorsInRate},
    {.label = "Outbound errors", .colour = "Blue", .rate = &LanRecord::errorsOutRate},
    {.label = "Collisions", .colour = "Orange", .rate = &LanRecord::collisionRate}};
constexpr std::array<AdapterGraph, ADAPTER_GRAPHS> GRAPHS = {{
    {.codeEnd = "PKTS",
     .label = "Packet Rates",
     .yTitle = "Packets per Second",
     .legendFormat = "%s %.1f/s ",
     .traces = PACKET_TRACES},
    {.codeEnd = "DATA",
     .label = "Data Rates",
     .yTitle = "Kbytes per Second",
     .legendFormat = "%s %.1f/s ",
     .traces = DATA_TRACES},
    {.codeEnd = "ERROR",
     .label = "Error Events",
     .yTitle = "Events per Second",
     .legendFormat = "%s %.2f/s ",
     .traces = ERROR_TRACES},
}};

// The summary graphs, two sets an adapter: inbound and outbound.
struct SummaryGraph {
  Graph graph;
  std::span<const AdapterTrace> traces;
};
constexpr SummaryGraph SUMMARIES[] = {{Graph::LAN_PACKETS, PACKET_TRACES}, {Graph::LAN_DATA, DATA_TRACES}};
constexpr const char* SUMMARY_LABELS[] = {"%s Inbound", "%s Outbound"};
constexpr int SETS_PER_ADAPTER = 2;

// Adds to the point as it is. Only the interval that makes a set puts its point to 0, so later samples
// start from MISSING_POINT and come out 1.0 lower than delivered.
void AddToPoint(Series& series, int point, double value) {
  PointStore(series, point, static_cast<float>(PointAt(series, point) + value));
}

// One more set, which holds 0 at the interval's point. LAN graphs have one point less than others.
void AddSet(const Minute& minute, GraphRecord& record) {
  const int set = XrtSeriesAdd(minute.catalog, record);
  record.data.npoints = minute.catalog.pointCount;
  PointStore(record.data.y[static_cast<size_t>(set)], minute.point, 0.0F);
}

void MakeSummarySets(const Minute& minute, std::string_view name) {
  for (const SummaryGraph& summary : SUMMARIES) {
    GraphRecord* record = minute.catalog.FindNeeded(summary.graph);
    if (record == nullptr) continue;
    for (const char* label : SUMMARY_LABELS) {
      record->SetLabel(record->data.nsets(), NameText(label, name));
      AddSet(minute, *record);
    }
  }
}

void AddToSummary(const Minute& minute, size_t pair, const LanRecord& lan) {
  const int firstSet = static_cast<int>(pair) * SETS_PER_ADAPTER;
  for (const SummaryGraph& summary : SUMMARIES) {
    for (int i = 0; i < SETS_PER_ADAPTER; ++i) {
      if (Series* series = minute.catalog.FindSeries(summary.graph, firstSet + i)) {
        AddToPoint(*series, minute.point, summary.traces[static_cast<size_t>(i)].Value(lan));
      }
    }
  }
}

GraphRecord& MakeGraph(const Minute& minute, const AdapterGraph& graph, std::string_view name) {
  GraphRecord& record = minute.catalog.runtimeRecords.emplace_back();
  record.title = name;
  record.yTitle = graph.yTitle;
  record.legendFormat = graph.legendFormat;
  for (const AdapterTrace& trace : graph.traces) {
    record.traceLabels.emplace_back(trace.label);
    record.traceColours.emplace_back(trace.colour);
    AddSet(minute, record);
  }
  return record;
}

// Adds the row of the adapter with this number, counted from 1, and returns its graphs.
std::array<GraphRecord*, ADAPTER_GRAPHS> MakeRow(const Minute& minute, size_t number, std::string_view name) {
  std::array<GraphRecord*, ADAPTER_GRAPHS> graphs{};
  GraphMenuEntry* group = minute.catalog.RuntimeRow(RowKind::ADAPTERS);
  if (group == nullptr) return graphs;
  GraphMenuEntry row{"LAN", std::string(name), nullptr, {}};
  for (size_t i = 0; i < GRAPHS.size(); ++i) {
    graphs[i] = &MakeGraph(minute, GRAPHS[i], name);
    row.subTable.push_back(
        {"LAN" + std::to_string(number) + GRAPHS[i].codeEnd, GRAPHS[i].label, graphs[i], {}});
  }
  group->subTable.push_back(std::move(row));
  return graphs;
}

}  // namespace

bool AdapterHasAnyName(std::string_view /*name*/) { return true; }

// The adapter's pair of sets in the summary graphs, made if there is none; false when all pairs are taken. A
// label that begins with the name counts as the adapter's, so en1 shares the pair of en10.
bool AdapterPass::FindPair(const Minute& minute, std::string_view name, size_t& pair) {
  const auto known = std::find_if(pairs_.begin(), pairs_.end(),
                                  [=](const std::string& label) { return label.starts_with(name); });
  pair = static_cast<size_t>(known - pairs_.begin());
  if (known != pairs_.end()) return true;
  if (pairs_.size() >= MAX_ADAPTERS) return false;
  pairs_.push_back(NameText(SUMMARY_LABELS[0], name));
  MakeSummarySets(minute, name);
  return true;
}

// The adapter's own graphs, by exact name; null where no row is free for it.
const AdapterPass::Entry* AdapterPass::EntryOf(const Minute& minute, std::string_view name) {
  const auto known =
      std::find_if(entries_.begin(), entries_.end(), [=](const Entry& entry) { return entry.name == name; });
  if (known != entries_.end()) return &*known;
  if (entries_.size() >= MAX_ADAPTERS) return nullptr;
  Entry& entry = entries_.emplace_back(Entry{std::string(name), {}});
  if (minute.catalog.titles.Has(name)) entry.graphs = MakeRow(minute, entries_.size(), name);
  return &entry;
}

void AdapterPass::Run(const Minute& minute, const VmrContext& interval) {
  for (const LanRecord& lan : interval.lans.primary) {
    size_t pair = 0;
    if (!hasGraphs_(lan.adapterName) || !FindPair(minute, lan.adapterName, pair)) continue;
    AddToSummary(minute, pair, lan);
    const Entry* entry = EntryOf(minute, lan.adapterName);
    if (entry == nullptr || entry->graphs[0] == nullptr) continue;
    for (size_t g = 0; g < GRAPHS.size(); ++g) {
      for (size_t set = 0; set < GRAPHS[g].traces.size(); ++set) {
        AddToPoint(entry->graphs[g]->data.y[set], minute.point, GRAPHS[g].traces[set].Value(lan));
      }
    }
  }
}

}  // namespace ozmo
