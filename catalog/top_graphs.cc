#include "catalog/top_graphs.h"

#include <string>

namespace ozmo {
namespace {

template <DiskSeries Which>
std::vector<NamedSeries> DisksBy(const TopSources& sources) {
  return sources.disks.Named(Which);
}

// A list of disks, by one of their series.
template <DiskSeries Which>
constexpr TopListRule DiskList(Graph graph, TopListSpec TopListSpecs::*spec, Graph total = Graph::COUNT) {
  return {.graph = graph,
          .spec = spec,
          .named = DisksBy<Which>,
          .diskSeries = Which,
          .total = total,
          .isOfDetail = true};
}

constexpr TopListRule TOP_LIST_RULES[] = {
    {.graph = Graph::TOP_IMAGES,
     .spec = &TopListSpecs::images,
     .named = [](const TopSources& sources) { return sources.processes.Images(); },
     .weight = Weight::NORMALIZED_FLOAT,
     .total = Graph::OVERALL_CPU},
    {.graph = Graph::TOP_USERS,
     .spec = &TopListSpecs::users,
     .named = [](const TopSources& sources) { return sources.processes.Users(); },
     .weight = Weight::NORMALIZED_DOUBLE,
     .total = Graph::OVERALL_CPU},
    DiskList<DiskSeries::OPERATIONS>(Graph::TOP_DISK_OPERATIONS, &TopListSpecs::diskOperations,
                                     Graph::DISK_OPERATIONS),
    DiskList<DiskSeries::DATA>(Graph::TOP_DISK_DATA, &TopListSpecs::diskData, Graph::DISK_DATA),
    DiskList<DiskSeries::QUEUE>(Graph::TOP_DISK_QUEUE, &TopListSpecs::diskQueue),
    DiskList<DiskSeries::UTILIZATION>(Graph::TOP_DISK_UTILIZATION, &TopListSpecs::diskUtilization),
    DiskList<DiskSeries::SPACE>(Graph::TOP_DISK_SPACE, &TopListSpecs::diskSpace),
    {.graph = Graph::TOP_FILE_SYSTEMS,
     .spec = &TopListSpecs::fileSystems,
     .named = [](const TopSources& sources) { return sources.fileSystems.Named(); },
     .isOfDetail = true},
};

bool IsAdmitted(Weight rule, float weight) { return rule == Weight::PLAIN ? weight >= 0.0F : weight > 0.0F; }

// What the names of one list are weighed with.
struct Scales {
  const SampledPoints& points;
  int pointCount;
  std::optional<CpuScale> cpu;
};

float WeightOf(Weight rule, const Samples& samples, const Scales& scales) {
  if (rule == Weight::PLAIN) return PlainSum(samples, scales.pointCount);
  if (!scales.cpu) return 0.0F;
  if (rule == Weight::NORMALIZED_FLOAT) return NormalizedSum<float>(samples, *scales.cpu);
  return static_cast<float>(NormalizedSum<double>(samples, *scales.cpu));
}

TopList Rank(const TopListRule& rule, const TopSources& sources, const Scales& scales) {
  TopList list;
  Samples samples;
  for (const NamedSeries& named : rule.named(sources)) {
    named.series->Collect(scales.points, samples);
    const float weight = WeightOf(rule.weight, samples, scales);
    if (IsAdmitted(rule.weight, weight)) TopListInsert(list, {named, weight});
  }
  return list;
}

// One more set of the record, with the values of a name.
void AddSet(GraphCatalog& catalog, GraphRecord& record, const NameSeries& series,
            const SampledPoints& points) {
  Samples samples;
  series.Collect(points, samples);
  XrtSeriesAdd(catalog, record);
  for (const Sample& sample : samples) PointStore(record.data.y.back(), sample.point, sample.value);
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
void AddOthers(GraphCatalog& catalog, GraphRecord& record, const Series* totals) {
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
void UseResponseTimes(GraphCatalog& catalog, const TopList& list, const TopSources& sources) {
  GraphRecord* record = catalog.FindNeeded(Graph::TOP_DISK_RESPONSE);
  if (record == nullptr) return;
  for (const TopEntry& entry : list) {
    record->SetLabel(record->data.nsets(), std::string(entry.named.name));
    AddSet(catalog, *record, sources.disks.SeriesOf(entry.named.name, DiskSeries::RESPONSE), sources.points);
  }
}

void AddRank(GraphCatalog& catalog, GraphRecord& record, const TopListSpec& spec, const NamedSeries& named,
             const SampledPoints& points) {
  const int set = record.data.nsets();
  record.SetLabel(set, RankLabel(spec.labelFormat, spec.firstRank + set, named.name));
  AddSet(catalog, record, *named.series, points);
}

void UseList(GraphCatalog& catalog, GraphRecord& record, const TopList& list, const TopListRule& rule,
             const TopListSpec& spec, const Scales& scales) {
  for (const TopEntry& entry : list) {
    AddRank(catalog, record, spec, entry.named, scales.points);
    if (spec.isRescaled && scales.cpu) NormalizeProcessSeries(record.data.y.back(), *scales.cpu);
  }
  if (spec.others == OthersRule::TOTAL) AddOthers(catalog, record, catalog.FindSeries(rule.total, 0));
  if (spec.others == OthersRule::DPC_INTERRUPT) AddOthersAndInterrupts(catalog, record, rule.total);
}

}  // namespace

std::span<const TopListRule> TopListRules() { return TOP_LIST_RULES; }

std::optional<CpuScale> CpuScaleOf(const GraphCatalog& catalog, const Series& shareSum) {
  const Series* overall = catalog.FindSeries(Graph::OVERALL_CPU, 0);
  if (overall == nullptr || shareSum.empty()) return std::nullopt;
  return CpuScale{*overall, shareSum, catalog.pointCount};
}

void UseTopNames(GraphCatalog& catalog, GraphRecord& record, const TopListSpec& spec,
                 std::span<const NamedSeries> names, const TopTotals& totals) {
  TopList list;
  Samples samples;
  for (const NamedSeries& named : names) {
    named.series->Collect(totals.points, samples);
    const float weight = PlainSum(samples, catalog.pointCount);
    if (weight > 0.0F) TopListInsert(list, {named, weight});
  }
  for (const TopEntry& entry : list) AddRank(catalog, record, spec, entry.named, totals.points);
  if (!list.empty()) AddOthers(catalog, record, &totals.sums);
}

void FinishTopLists(GraphCatalog& catalog, const PlatformSpec& platform, const TopSources& sources) {
  const Scales scales{sources.points, catalog.pointCount, CpuScaleOf(catalog, sources.processes.shareSum())};
  for (const TopListRule& rule : TOP_LIST_RULES) {
    const TopListSpec& spec = platform.topLists.*rule.spec;
    GraphRecord* record = catalog.FindNeeded(rule.graph);
    const bool leads = rule.graph == Graph::TOP_DISK_OPERATIONS;
    const bool isFollowed = leads && catalog.FindNeeded(Graph::TOP_DISK_RESPONSE) != nullptr;
    if (spec.labelFormat == nullptr || (record == nullptr && !isFollowed)) continue;
    const TopList list = Rank(rule, sources, scales);
    if (record != nullptr) UseList(catalog, *record, list, rule, spec, scales);
    if (isFollowed) UseResponseTimes(catalog, list, sources);
  }
  // Each file system can add up to 100 in the stack.
  if (GraphRecord* record = catalog.FindNeeded(Graph::TOP_FILE_SYSTEMS)) {
    record->yMax = 100.0F * static_cast<float>(record->data.nsets());
  }
}

}  // namespace ozmo
