// A catalog that a test builds interval by interval, from records of its own and with the default classes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalog/build_steps.h"
#include "catalog/platforms.h"

namespace ozmo {

inline const PlatformSpec* const ALL_PLATFORMS[] = {&aix_catalog::PLATFORM,   &hpux_catalog::PLATFORM,
                                                    &linux_catalog::PLATFORM, &solaris_catalog::PLATFORM,
                                                    &tru64_catalog::PLATFORM, &vmr_catalog::PLATFORM};

using Texts = std::vector<std::string>;

class BuildFixture {
 public:
  static constexpr Seconds START = 1'330'000'200;  // on a full minute
  static constexpr float NOTHING = -99.0F;

  explicit BuildFixture(const PlatformSpec& platform, Seconds span = 3600,
                        const WantedTitles& titles = WantedTitles::All())
      : classes(DefaultClasses()),
        build(platform, classes, {START, START + span}, WithTitles(catalog, titles)) {
    SystemConfig& config = context.config.emplace();
    config.cpuCount = 2;
    config.memoryMb = 1024.0F;
    config.pageSize = 4096;
    config.intervalSeconds = 60.0F;
  }

  // Works the records in hand into the catalog, `offset` seconds past the start, and drops them.
  bool Take(Seconds offset) {
    context.periodEnd = catalog.spanStart + offset;
    context.periodStart = context.periodEnd - 60;
    const bool used = build.TakeInterval(context);
    ContextFree(context);
    return used;
  }

  // An interval of one processor that is busy by this percentage, with what else is in hand.
  bool TakeBusy(Seconds offset, double percent) {
    AddProcessor(0, percent, 0, 100 - percent);
    return Take(offset);
  }

  void Finish() {
    build.FinishGraphs();
    build.FinishSeries();
  }

  ProcessorRecord& AddProcessor(int32_t cpuId, double user, double system, double idle) {
    ProcessorRecord& record = context.processors.primary.Push();
    record.cpuId = cpuId;
    record.userTime = user;
    record.systemTime = system;
    record.idleTime = idle;
    return record;
  }

  ProcessRecord& AddProcess(const std::string& user, const std::string& name, float seconds) {
    ProcessRecord& record = ContextPushProcess(context, false);
    record = ProcessRecord{};
    record.userName = user;
    record.name = name;
    record.userCpuSeconds = seconds;
    return record;
  }

  const GraphRecord& Record(Graph graph) { return *catalog.Find(graph); }
  int Sets(Graph graph) { return Record(graph).data.nsets(); }

  float Value(Graph graph, int set, int point) {
    const Series* series = catalog.FindSeries(graph, set);
    return series != nullptr && PointInside(*series, point) ? PointAt(*series, point) : NOTHING;
  }

  // The values of all sets of a graph at a point, set 0 first.
  std::vector<float> Values(Graph graph, int point) { return ValuesOf(Record(graph), point); }

  std::vector<std::string> Labels(Graph graph) {
    std::vector<std::string> labels;
    for (int set = 0; set < Sets(graph); ++set) labels.push_back(Record(graph).Label(set).value_or("(none)"));
    return labels;
  }

  // The graph that -item finds under this title: the first one of the tree. Null if there is none.
  GraphRecord* Find(std::string_view title) {
    GraphRecord* found = nullptr;
    VisitGraphs(catalog.itemTree, [&](GraphRecord& record) {
      if (found == nullptr && record.title == title) found = &record;
    });
    return found;
  }

  std::vector<float> Values(std::string_view title, int point) {
    const GraphRecord* record = Find(title);
    return record == nullptr ? std::vector<float>() : ValuesOf(*record, point);
  }

  // A name's value at a point, of the series that a pass keeps.
  float Named(const std::vector<NamedSeries>& all, std::string_view name, int point) const {
    SampledPoints points = build.sources().points;
    for (const NamedSeries& named : all) {
      if (named.name == name) return named.series->At(points.NumberOf(point));
    }
    return NOTHING;
  }
  float Image(std::string_view name, int point) const {
    return Named(build.sources().processes.Images(), name, point);
  }
  float ShareSum(int point) const { return PointAt(build.sources().processes.shareSum(), point); }

  GraphCatalog catalog;
  WorkloadClassList classes;
  VmrContext context;
  BuildSteps build;

 private:
  static WorkloadClassList DefaultClasses() {
    WorkloadClassList list;
    WorkloadDefaults(list);
    return list;
  }
  static GraphCatalog& WithTitles(GraphCatalog& made, const WantedTitles& titles) {
    made.titles = titles;
    return made;
  }
  static std::vector<float> ValuesOf(const GraphRecord& record, int point) {
    std::vector<float> values;
    for (const Series& series : record.data.y)
      values.push_back(PointInside(series, point) ? PointAt(series, point) : NOTHING);
    return values;
  }
};

}  // namespace ozmo
