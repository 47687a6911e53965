// A catalog that a test builds interval by interval, from records of its own and with the default classes.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "catalog/build_steps.h"
#include "catalog/platforms.h"

namespace ozmo {

inline const PlatformSpec* const ALL_PLATFORMS[] = {&AIX_PLATFORM,     &HPUX_PLATFORM,  &LINUX_PLATFORM,
                                                    &SOLARIS_PLATFORM, &TRU64_PLATFORM, &VMR_PLATFORM};

class BuildFixture {
 public:
  static constexpr Seconds START = 1'330'000'200;  // on a full minute
  static constexpr float NOTHING = -99.0F;

  explicit BuildFixture(const PlatformSpec& platform, Seconds span = 3600, Seconds start = START)
      : state(platform, catalog, classes) {
    WorkloadDefaults(classes);
    StartCatalog(state, start, start + span);
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
    const bool used = TakeInterval(state, context);
    ContextFree(context);
    return used;
  }

  // An interval of one processor that is busy by this percentage, with what else is in hand.
  bool TakeBusy(Seconds offset, double percent) {
    AddProcessor(0, percent, 0, 100 - percent);
    return Take(offset);
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
  std::vector<float> Values(Graph graph, int point) {
    std::vector<float> values;
    for (int set = 0; set < Sets(graph); ++set) values.push_back(Value(graph, set, point));
    return values;
  }

  std::vector<std::string> Labels(Graph graph) {
    std::vector<std::string> labels;
    for (int set = 0; set < Sets(graph); ++set) labels.push_back(Record(graph).Label(set).value_or("(none)"));
    return labels;
  }

  // A name's value at a point.
  float Named(NameTree tree, std::string_view name, int point) {
    const Series* series = state.trees[tree].Find(name);
    return series == nullptr ? NOTHING : PointAt(*series, point);
  }

  float Image(std::string_view name, int point) { return Named(NameTree::IMAGES, name, point); }

  int ClassPosition(std::string_view name) const {
    for (size_t i = 0; i < classes.classes.size(); ++i) {
      if (classes.classes[i].name == name) return static_cast<int>(i);
    }
    return -1;
  }

  // The value of a class in a graph by classes.
  float Class(Graph graph, std::string_view name, int point) {
    return Value(graph, ClassPosition(name), point);
  }

  GraphCatalog catalog;
  WorkloadClassList classes;
  VmrContext context;
  BuildState state;
};

}  // namespace ozmo
