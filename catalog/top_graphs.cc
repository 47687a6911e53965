#include "catalog/top_graphs.h"

#include <string>
#include <utility>

namespace ozmo {
namespace {

enum class Weight { PLAIN, NORMALIZED_FLOAT, NORMALIZED_DOUBLE };

// One list, the same on all platforms; TopListSpec holds what differs.
struct TopListRule {
  NameTree tree;
  TopListSpec TopListSpecs::*spec;
  Graph graph;
  Weight weight;
  Graph total;    // of "Others"
  bool ofDetail;  // not kept for a span beyond the platform's limit
};

constexpr TopListRule TOP_LIST_RULES[] = {
    {NameTree::IMAGES, &TopListSpecs::images, Graph::TOP_IMAGES, Weight::NORMALIZED_FLOAT, Graph::OVERALL_CPU,
     false},
    {NameTree::USERS, &TopListSpecs::users, Graph::TOP_USERS, Weight::NORMALIZED_DOUBLE, Graph::OVERALL_CPU,
     false},
    {NameTree::DISK_OPERATIONS, &TopListSpecs::diskOperations, Graph::TOP_DISK_OPERATIONS, Weight::PLAIN,
     Graph::DISK_OPERATIONS, true},
    {NameTree::DISK_DATA, &TopListSpecs::diskData, Graph::TOP_DISK_DATA, Weight::PLAIN, Graph::DISK_DATA,
     true},
    {NameTree::DISK_QUEUE, &TopListSpecs::diskQueue, Graph::TOP_DISK_QUEUE, Weight::PLAIN, Graph::COUNT,
     true},
    {NameTree::DISK_UTILIZATION, &TopListSpecs::diskUtilization, Graph::TOP_DISK_UTILIZATION, Weight::PLAIN,
     Graph::COUNT, true},
    {NameTree::DISK_SPACE, &TopListSpecs::diskSpace, Graph::TOP_DISK_SPACE, Weight::PLAIN, Graph::COUNT,
     true},
    {NameTree::FILE_SYSTEMS, &TopListSpecs::fileSystems, Graph::TOP_FILE_SYSTEMS, Weight::PLAIN, Graph::COUNT,
     true},
};

// An image or user that did nothing isn't ranked; an idle disk is.
bool Admitted(Weight rule, float weight) { return rule == Weight::PLAIN ? weight >= 0.0F : weight > 0.0F; }

float WeightOf(Weight rule, const Series& series, const std::optional<CpuScale>& scale, int points) {
  if (rule == Weight::PLAIN) return PlainSum(series, points);
  if (!scale) return 0.0F;
  if (rule == Weight::NORMALIZED_FLOAT) return NormalizedSum<float>(series, *scale);
  return static_cast<float>(NormalizedSum<double>(series, *scale));
}

TopList Rank(BuildState& state, const TopListRule& rule) {
  const std::optional<CpuScale> scale = CpuScaleOf(state);
  TopList list;
  for (auto& [name, series] : state.trees[rule.tree].names()) {
    const float weight = WeightOf(rule.weight, series, scale, state.catalog.pointCount);
    if (Admitted(rule.weight, weight)) TopListInsert(list, {name, weight, &series});
  }
  return list;
}

std::string RankLabel(std::string_view format, int rank, std::string_view name) {
  std::string label;
  for (size_t i = 0; i < format.size(); ++i) {
    if (format[i] != '%') {
      label += format[i];
    } else if (++i < format.size()) {
      label += format[i] == 'd' ? std::to_string(rank) : std::string(name);
    }
  }
  return label;
}

// What the first `ranks` sets of a graph take of its total at a point; negative and missing values take none.
template <class Subtract>
void SubtractRanks(const XrtData& data, int ranks, size_t point, Subtract subtract) {
  for (int set = 0; set < ranks; ++set) {
    const float value = PointAt(data.y[static_cast<size_t>(set)], static_cast<int>(point));
    if (value > 0.0F) subtract(value);
  }
}

// "Others" is the total less the ranks. A total that isn't above 0 stays as it is.
void AddOthers(GraphCatalog& catalog, GraphRecord& record, Graph total) {
  const Series* totals = catalog.FindSeries(total, 0);
  const int ranks = record.data.nsets();
  const int set = XrtSeriesAdd(catalog, record);
  record.SetLabel(set, "Others");
  if (totals == nullptr) return;
  Series& others = record.data.y.back();
  for (size_t p = 0; p < static_cast<size_t>(catalog.pointCount); ++p) {
    float value = (*totals)[p];
    if (value > 0.0F) {
      SubtractRanks(record.data, ranks, p, [&](float rank) { value -= rank; });
      if (value < 0.0F) value = 0.0F;
    }
    others[p] = value;
  }
}

float PositiveAt(const Series* series, size_t point) {
  const float value = series == nullptr ? 0.0F : (*series)[point];
  return value > 0.0F ? value : 0.0F;
}

// "Others" is what ranks, DPC and interrupt time leave of overall CPU; the two times are a set of their own.
void AddOthersAndInterrupts(GraphCatalog& catalog, GraphRecord& record, Graph total) {
  const int ranks = record.data.nsets();
  record.SetLabel(XrtSeriesAdd(catalog, record), "Others");
  record.SetLabel(XrtSeriesAdd(catalog, record), "DPC+Interrupt");
  Series& others = record.data.y[static_cast<size_t>(ranks)];
  Series& interrupts = record.data.y.back();
  const Series* totals = catalog.FindSeries(total, 0);
  if (totals == nullptr) return;
  const Series* dpcTimes = catalog.FindSeries(Graph::CPU_BY_MODE, 2);
  const Series* interruptTimes = catalog.FindSeries(Graph::CPU_BY_MODE, 3);
  for (size_t p = 0; p < static_cast<size_t>(catalog.pointCount); ++p) {
    const float overall = (*totals)[p];
    if (overall < 0.0F) continue;
    const float dpc = PositiveAt(dpcTimes, p);
    const float interrupt = PositiveAt(interruptTimes, p);
    float sum = 0.0F;
    SubtractRanks(record.data, ranks, p, [&](float rank) { sum += rank; });
    const float value = overall - sum - dpc - interrupt;
    others[p] = value < 0.0F ? 0.0F : value;
    interrupts[p] = dpc + interrupt;
  }
}

// The response times of the disks that lead by operations, in the same order and without a rank.
void TakeResponseTimes(BuildState& state, const TopList& list) {
  GraphRecord* record = state.catalog.Find(Graph::TOP_DISK_RESPONSE);
  if (record == nullptr) return;
  record->data.y.clear();
  for (const TopEntry& entry : list) {
    Series* series = state.trees[NameTree::DISK_RESPONSE].Find(entry.name);
    const int set = record->data.nsets();
    record->data.y.push_back(series == nullptr ? SeriesNew(state.catalog) : std::move(*series));
    if (series != nullptr) record->SetLabel(set, std::string(entry.name));
  }
}

void UseList(BuildState& state, const TopListRule& rule, const TopListSpec& spec, GraphRecord& record) {
  const TopList list = Rank(state, rule);
  record.data.y.clear();
  int rank = spec.firstRank;
  for (const TopEntry& entry : list) {
    record.SetLabel(record.data.nsets(), RankLabel(spec.labelFormat, rank++, entry.name));
    record.data.y.push_back(std::move(*entry.series));
    if (!spec.rescaled) continue;
    if (const std::optional<CpuScale> scale = CpuScaleOf(state)) {
      NormalizeProcessSeries(record.data.y.back(), *scale);
    }
  }
  if (rule.tree == NameTree::DISK_OPERATIONS) TakeResponseTimes(state, list);
  if (spec.others == OthersRule::TOTAL) AddOthers(state.catalog, record, rule.total);
  if (spec.others == OthersRule::DPC_INTERRUPT) AddOthersAndInterrupts(state.catalog, record, rule.total);
}

}  // namespace

std::optional<CpuScale> CpuScaleOf(BuildState& state) {
  const Series* overall = state.catalog.FindSeries(Graph::OVERALL_CPU, 0);
  if (overall == nullptr) return std::nullopt;
  return CpuScale{*overall, state.processCpuSum, state.catalog.pointCount};
}

void FinishTopLists(BuildState& state) {
  for (const TopListRule& rule : TOP_LIST_RULES) {
    const TopListSpec& spec = state.platform.topLists.*rule.spec;
    GraphRecord* record = state.catalog.Find(rule.graph);
    if (spec.labelFormat == nullptr || record == nullptr) continue;
    if (rule.ofDetail && !state.detailed) continue;
    UseList(state, rule, spec, *record);
  }
  // Each file system can add up to 100 in the stack.
  if (GraphRecord* record = state.catalog.Find(Graph::TOP_FILE_SYSTEMS)) {
    record->yMax = 100.0F * static_cast<float>(record->data.nsets());
  }
}

}  // namespace ozmo
