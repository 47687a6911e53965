#include "catalog/adapters.h"

#include <span>
#include <string>

#include "catalog/name_text.h"
#include "catalog/platform.h"

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
  const char* codeEnd;  // behind LAN and the adapter's number
  const char* label;
  const char* yTitle;
  const char* legendFormat;
  std::span<const AdapterTrace> traces;
};

constexpr AdapterTrace PACKET_TRACES[] = {{"Packets Received", "Green", &LanRecord::packetsInRate},
                                          {"Packets Sent", "Red", &LanRecord::packetsOutRate}};
constexpr AdapterTrace DATA_TRACES[] = {{"Data Received", "Green", &LanRecord::bytesInRate, 1000.0},
                                        {"Data Sent", "Red", &LanRecord::bytesOutRate, 1000.0}};
constexpr AdapterTrace ERROR_TRACES[] = {{"Inbound errors", "Green", &LanRecord::errorsInRate},
                                         {"Outbound errors", "Blue", &LanRecord::errorsOutRate},
                                         {"Collisions", "Orange", &LanRecord::collisionRate}};
constexpr AdapterGraph GRAPHS[] = {
    {"PKTS", "Packet Rates", "Packets per Second", "%s %.1f/s ", PACKET_TRACES},
    {"DATA", "Data Rates", "Kbytes per Second", "%s %.1f/s ", DATA_TRACES},
    {"ERROR", "Error Events", "Events per Second", "%s %.2f/s ", ERROR_TRACES}};

// The summary graphs, two sets an adapter: inbound and outbound.
struct SummaryGraph {
  Graph graph;
  std::span<const AdapterTrace> traces;
};
constexpr SummaryGraph SUMMARIES[] = {{Graph::LAN_PACKETS, PACKET_TRACES}, {Graph::LAN_DATA, DATA_TRACES}};
constexpr const char* SUMMARY_LABELS[] = {"%s Inbound", "%s Outbound"};
constexpr int SETS_PER_ADAPTER = 2;

// Adds to the point as it stands. Only the interval that makes a set puts its point to 0, so later samples
// stand on MISSING_POINT and come out 1.0 lower than delivered.
void AddToPoint(Series& series, int point, double value) {
  PointStore(series, point, static_cast<float>(PointAt(series, point) + value));
}

// One more set, which holds 0 at the interval's point. LAN graphs have one point less than others.
void AddSet(BuildState& state, GraphRecord& record) {
  const int set = XrtSeriesAdd(state.catalog, record);
  record.data.npoints = state.catalog.pointCount;
  PointStore(record.data.y[static_cast<size_t>(set)], state.point, 0.0F);
}

void MakeSummarySets(BuildState& state, int firstSet, std::string_view name) {
  for (const SummaryGraph& summary : SUMMARIES) {
    GraphRecord* record = state.catalog.Find(summary.graph);
    if (record == nullptr) continue;
    for (int i = 0; i < SETS_PER_ADAPTER; ++i) {
      record->SetLabel(firstSet + i, NameText(SUMMARY_LABELS[i], name));
      AddSet(state, *record);
    }
  }
}

// The adapter's first set in the summary graphs, made if there is none; absent when all pairs are taken. A
// label that begins with the name counts as the adapter's, so en1 shares the pair of en10.
std::optional<int> SummarySet(BuildState& state, std::string_view name) {
  const GraphRecord* packets = state.catalog.Find(Graph::LAN_PACKETS);
  if (packets == nullptr) return std::nullopt;
  for (int set = 0; set < MAX_ADAPTERS * SETS_PER_ADAPTER; set += SETS_PER_ADAPTER) {
    const std::optional<std::string>& label = packets->Label(set);
    if (!label) {
      MakeSummarySets(state, set, name);
      return set;
    }
    if (label->starts_with(name)) return set;
  }
  return std::nullopt;
}

void AddToSummary(BuildState& state, int firstSet, const LanRecord& lan) {
  for (const SummaryGraph& summary : SUMMARIES) {
    for (int i = 0; i < SETS_PER_ADAPTER; ++i) {
      Series* series = state.catalog.FindSeries(summary.graph, firstSet + i);
      if (series != nullptr)
        AddToPoint(*series, state.point, summary.traces[static_cast<size_t>(i)].Value(lan));
    }
  }
}

GraphRecord& MakeGraph(BuildState& state, const AdapterGraph& graph, std::string_view name) {
  GraphRecord& record = state.catalog.runtimeRecords.emplace_back();
  record.title = name;
  record.yTitle = graph.yTitle;
  record.legendFormat = graph.legendFormat;
  for (const AdapterTrace& trace : graph.traces) {
    record.traceLabels.emplace_back(trace.label);
    record.traceColours.emplace_back(trace.colour);
    AddSet(state, record);
  }
  return record;
}

GraphMenuEntry MakeRow(BuildState& state, size_t number, std::string_view name) {
  GraphMenuEntry row{"LAN", std::string(name), nullptr, {}};
  for (const AdapterGraph& graph : GRAPHS) {
    std::string code = "LAN" + std::to_string(number) + graph.codeEnd;
    row.subTable.push_back({std::move(code), graph.label, &MakeGraph(state, graph, name), {}});
  }
  return row;
}

// The adapter's row, by exact name; null where none is free for it.
GraphMenuEntry* AdapterRow(BuildState& state, GraphMenuEntry& lan, std::string_view name) {
  size_t adapters = 0;
  for (GraphMenuEntry& row : lan.subTable) {
    if (row.code != "LAN") continue;  // the summary stands ahead of the adapters
    if (row.label == name) return &row;
    ++adapters;
  }
  if (adapters >= size_t{MAX_ADAPTERS}) return nullptr;
  return &lan.subTable.emplace_back(MakeRow(state, adapters + 1, name));
}

void AddToRow(const GraphMenuEntry& row, int point, const LanRecord& lan) {
  for (size_t g = 0; g < std::size(GRAPHS); ++g) {
    const std::span<const AdapterTrace> traces = GRAPHS[g].traces;
    for (size_t set = 0; set < traces.size(); ++set) {
      AddToPoint(row.subTable[g].record->data.y[set], point, traces[set].Value(lan));
    }
  }
}

}  // namespace

bool AdapterIsNamed(std::string_view name) { return !name.empty(); }

bool AdapterEndsInDigit(std::string_view name) {
  return !name.empty() && name.back() >= '0' && name.back() <= '9';
}

void AddAdapters(BuildState& state, const VmrContext& context) {
  GraphMenuEntry* lanGroup = state.catalog.RuntimeRow(RowKind::ADAPTERS);
  if (lanGroup == nullptr) return;
  const auto filter = state.platform.adapterFilter;
  for (const LanRecord& lan : context.lans.primary) {
    if (filter != nullptr && !filter(lan.adapterName)) continue;
    const std::optional<int> set = SummarySet(state, lan.adapterName);
    if (!set) continue;
    AddToSummary(state, *set, lan);
    if (const GraphMenuEntry* row = AdapterRow(state, *lanGroup, lan.adapterName)) {
      AddToRow(*row, state.point, lan);
    }
  }
}

}  // namespace ozmo
