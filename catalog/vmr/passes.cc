#include "catalog/vmr/passes.h"

#include <algorithm>
#include <array>
#include <string>

#include "catalog/point_rules.h"

namespace ozmo::vmr_catalog {
namespace {

constexpr int MAX_INTERVAL_MINUTES = 10;
constexpr float MAX_INTERVAL_SECONDS = 600.0F;
constexpr const char* TITLE_END = " Utilization by Mode";
constexpr std::string_view IDLE_PROCESS = "Idle";

constexpr size_t MODE_COUNT = 4;
constexpr TraceText MODE_TRACES[MODE_COUNT] = {
    {"User", "LimeGreen"}, {"System", "LightBlue"}, {"DPC", "Purple"}, {"Interrupt", "Red"}};

// User, privileged, DPC and interrupt percent; system time includes the last two.
std::array<double, MODE_COUNT> ModesOf(const ProcessorRecord& processor) {
  return {processor.userTime, processor.systemTime - processor.dpcTime - processor.interruptTime,
          processor.dpcTime, processor.interruptTime};
}

void StoreModes(XrtData& data, int point, const std::array<double, MODE_COUNT>& modes) {
  for (size_t set = 0; set < MODE_COUNT && set < data.y.size(); ++set) {
    PointStore(data.y[set], point, static_cast<float>(modes[set]));
  }
}

// "CPU-3 Utilization by Mode", in a new row of the group of processors.
GraphRecord& NewModeRecord(GraphCatalog& catalog, GraphMenuEntry& group, const std::string& name) {
  GraphRecord& record = catalog.runtimeRecords.emplace_back();
  record.title = name + TITLE_END;
  record.yTitle = "%CPU Utilization";
  record.yMax = 100.0F;
  record.legendFormat = "%s %.1f%% ";
  XrtSeriesCreate(catalog, record, MODE_COUNT);
  for (size_t set = 0; set < MODE_COUNT; ++set) {
    record.SetLabel(static_cast<int>(set), MODE_TRACES[set].label);
    record.SetColour(static_cast<int>(set), MODE_TRACES[set].colour);
  }
  group.subTable.push_back({.code = "CPU", .label = name, .record = &record, .subTable = {}});
  return record;
}

// The record by mode of a processor; null for one that comes when all rows are taken, or that nobody wants.
GraphRecord* ModeRecordOf(ProcessorPass& pass, GraphCatalog& catalog, int32_t cpuId) {
  auto& records = pass.modeRecords();
  const auto known = records.find(cpuId);
  if (known != records.end()) return known->second;
  GraphMenuEntry* group = catalog.RuntimeRow(RowKind::PROCESSORS);
  if (group == nullptr || records.size() >= MAX_PROCESSOR_RECORDS) return nullptr;
  const std::string name = pass.NameOf(cpuId);
  const bool isWanted = catalog.titles.Has(name + TITLE_END);
  return records[cpuId] = isWanted ? &NewModeRecord(catalog, *group, name) : nullptr;
}

void AddProcessor(ProcessorPass& pass, const Minute& minute, const ProcessorRecord& processor) {
  GraphRecord* byProcessor = minute.catalog.FindNeeded(Graph::CPU_BY_PROCESSOR);
  if (byProcessor != nullptr && processor.cpuId >= 0 && processor.cpuId < byProcessor->data.nsets()) {
    byProcessor->SetLabel(processor.cpuId, pass.NameOf(processor.cpuId));
    const double busy = processor.userTime + processor.systemTime;
    minute.Store(Graph::CPU_BY_PROCESSOR, processor.cpuId, static_cast<float>(busy));
  }
  if (GraphRecord* record = ModeRecordOf(pass, minute.catalog, processor.cpuId)) {
    StoreModes(record->data, minute.point, ModesOf(processor));
  }
}

// Seconds lived in intervals of the walk: 0.5 for half of one.
double LifeOf(const ProcessRecord& process, const CollectionInterval& length) {
  return static_cast<double>(process.elapsedSeconds) / static_cast<double>(length.seconds);
}

// The part of its own interval that a process lived, however far apart the intervals are.
double PartLived(const ProcessRecord& process, const VmrContext& interval) {
  const double seconds = static_cast<double>(ConfigOf(interval).intervalSeconds);
  return seconds > 0.0 ? static_cast<double>(process.elapsedSeconds) / seconds : 0.0;
}

bool Counts(const ProcessRecord& process) { return !process.name.empty() && process.name != IDLE_PROCESS; }

double WeightOf(const ProcessRecord& process, double life) {
  return static_cast<double>(process.cpuPercent) * life;
}

}  // namespace

void MeasureVmrInterval(CollectionInterval& length, const VmrContext& interval) {
  const Seconds stamp = interval.periodEnd;
  if (!length.isKnown) {
    length.seconds = ConfigOf(interval).intervalSeconds;
    length.minutes = MinutesOf(length.seconds);
    length.isKnown = true;
  } else if (stamp > length.lastTimeStamp) {
    const Seconds difference = stamp - length.lastTimeStamp;
    const Seconds gapMinutes = difference / 60;
    length.minutes = std::max(length.minutes, WholeNumber(static_cast<double>(gapMinutes)));
    const float whole = static_cast<float>(WholeNumber(static_cast<double>(length.seconds)));
    length.seconds = std::max(whole, static_cast<float>(difference));
  }
  length.minutes = std::min(length.minutes, MAX_INTERVAL_MINUTES);
  length.seconds = std::min(length.seconds, MAX_INTERVAL_SECONDS);
  length.lastTimeStamp = stamp;
}

ProcessorSums AddVmrProcessors(ProcessorPass& pass, const Minute& minute, const VmrContext& interval) {
  const RecordList<ProcessorRecord>& processors = interval.processors.primary;
  // The machine's own line isn't one of the processors, of which the first interval gives the number.
  pass.MakeSets(minute.catalog, static_cast<int>(processors.size()) - 1);
  const std::array<double, MODE_COUNT> modes = ModesOf(processors.head());
  ProcessorSums sums;
  sums.overallCpu = modes[0] + modes[1] + modes[2] + modes[3];
  minute.Store(Graph::OVERALL_CPU, {sums.overallCpu});
  minute.Store(Graph::CPU_BY_MODE, {modes[0], modes[1], modes[2], modes[3]});
  for (auto processor = std::next(processors.begin()); processor != processors.end(); ++processor) {
    AddProcessor(pass, minute, *processor);
    ++sums.seen;
  }
  return sums;
}

void AddVmrProcesses(ProcessPass& pass, const Minute& minute, VmrContext& interval,
                     const ProcessorSums& processors, const CollectionInterval& length) {
  double weightSum = 0.0;
  for (const ProcessRecord& process : interval.processes.primary) {
    if (Counts(process)) weightSum += WeightOf(process, LifeOf(process, length));
  }
  const bool isWanted = pass.detail().IsWanted();
  const bool isObserved = pass.IsObserved();
  double count = 0.0;
  for (const ProcessRecord& process : interval.processes.primary) {
    if (!Counts(process)) continue;
    const double life = LifeOf(process, length);
    count += life;
    if (!isWanted) continue;
    const double weight = WeightOf(process, life);
    const double share = weightSum > 0.0 ? processors.overallCpu * weight / weightSum : 0.0;
    pass.FeedShare(minute, process, share);
    if (isObserved) pass.Observe(minute, process, share, interval, PartLived(process, interval));
  }
  minute.Store(Graph::PROCESS_COUNT, {count});
}

}  // namespace ozmo::vmr_catalog
