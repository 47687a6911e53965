#include "readers/vmr/handlers.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <type_traits>

#include "runtime/numbers.h"

namespace ozmo {

struct VmrObject {
  int32_t objectId;
  RecordKind kind;
  void (*plan)(VmrRows& rows, const RecordKinds& kinds);
  void (*store)(VmrContext& context, VmrRows& rows, VmrLine& line);
};

namespace vmr_files {

constexpr float PAGE_SIZE = 4096.0F;
constexpr std::string_view TOTAL_INSTANCE = "_Total";

// One value of a data row, converted when it is asked for.
struct CounterValue {
  VmrLine& line;
  size_t field;
  int32_t samples;
  VmrRows& rows;

  float Sum() const { return line.Number(field); }
  float Mean() const { return Sum() / static_cast<float>(samples); }
};

template <class Record>
struct CounterRule {
  int32_t counter;
  void (*store)(Record& record, const CounterValue& value);
  RecordKind wantedFor = RecordKind::CONFIGURATION;  // as of a BuilderField; DETAILS: no builder reads it
};

// --- Store functions for the rules ---

template <auto Member, class Record>
void Mean(Record& record, const CounterValue& value) {
  record.*Member = value.Mean();
}

template <auto Member, class Record>
void MeanPages(Record& record, const CounterValue& value) {
  record.*Member = value.Mean() / PAGE_SIZE;
}

// In whole numbers; only for objects whose rows have at least one sample.
template <auto Member, class Record>
void WholeMean(Record& record, const CounterValue& value) {
  using Integer = std::remove_reference_t<decltype(record.*Member)>;
  record.*Member = ClampTo<Integer>(value.Sum()) / static_cast<Integer>(value.samples);
}

// The change of a running total. A total of 0 is no base for a change; one that went back gives a negative
// change.
template <auto Member, size_t Index, class Record>
void Change(Record& record, const CounterValue& value) {
  double& previous = value.rows.previousConnections[Index];
  const float total = value.Mean();
  record.*Member = previous != 0.0 ? static_cast<float>(total - previous) : 0.0F;
  previous = total;
}

// Finds the rule of each value that the counter row names, in the order of the row. The same counter may be
// named twice.
template <const auto& Rules>
void PlanCounters(VmrRows& rows, const RecordKinds& kinds) {
  rows.plan.clear();
  VmrLine row(rows.counterRow);
  const size_t count = row.FieldCount();
  for (size_t field = 1; field < count; ++field) {
    const auto* rule =
        std::ranges::find(Rules, row.Integer(field), [](const auto& candidate) { return candidate.counter; });
    if (rule == std::end(Rules) || !(kinds.Has(rule->wantedFor) || kinds.Has(RecordKind::DETAILS))) continue;
    rows.plan.push_back({field, static_cast<size_t>(rule - std::begin(Rules))});
  }
}

// The rules over the row's values. A row shorter than its counter row goes on with empty values.
template <class Record, size_t Count>
void ApplyCounters(const CounterRule<Record> (&rules)[Count], Record& record, VmrRows& rows, int32_t samples,
                   VmrLine& line) {
  for (const PlannedCounter& counter : rows.plan) {
    rules[counter.rule].store(record, {line, counter.field, samples, rows});
  }
}

// What the instance row in effect says.
struct Instance {
  explicit Instance(const VmrRows& rows)
      : row(rows.instanceRow), name(rows.hasInstance ? row.Bytes(1) : "") {}
  std::string Name() const {
    std::string text;
    CopyPrintable(name, text);
    return text;
  }
  int32_t Samples() { return row.Integer(2); }

  VmrLine row;
  std::string_view name;  // as it was read
};

// Samples of an object without instances.
int32_t ObjectSamples(const VmrRows& rows) { return rows.objectSamples < 0 ? 1 : rows.objectSamples; }

// The one record of an interval: made by the first row that needs it.
template <class Record>
Record& OneOf(std::optional<Record>& slot) {
  return slot ? *slot : slot.emplace();
}

// --- Processor, object 238 ---

void StoreIdle(ProcessorRecord& processor, const CounterValue& value) {
  processor.idleTime = 100.0 - static_cast<double>(value.Mean());
}

constexpr CounterRule<ProcessorRecord> PROCESSOR_COUNTERS[] = {
    {6, StoreIdle},
    {142, Mean<&ProcessorRecord::userTime>},
    {144, Mean<&ProcessorRecord::systemTime>},
    {696, Mean<&ProcessorRecord::dpcTime>},
    {698, Mean<&ProcessorRecord::interruptTime>},
};

// The instance of all processors reads as number 0 and stays.
void VmrStoreProcessor(VmrContext& context, VmrRows& rows, VmrLine& line) {
  Instance instance(rows);
  ProcessorRecord& processor = context.processors.primary.Push();
  processor.cpuId = VmrInteger(instance.Name());
  ApplyCounters(PROCESSOR_COUNTERS, processor, rows, instance.Samples(), line);
}

// --- Physical disk, object 234 ---

std::string DiskName(std::string instance) {
  std::erase(instance, ':');
  std::replace(instance.begin(), instance.end(), ' ', '-');
  return "DISK" + instance;
}

void StoreQueueLength(DiskRecord& disk, const CounterValue& value) {
  disk.queueLength = static_cast<float>(value.Mean() / 1e7);
}

// The counter gives the idle part.
void StoreBusyFraction(DiskRecord& disk, const CounterValue& value) {
  disk.busyFraction = static_cast<float>(1.0 - value.Mean() / 100.0);
}

constexpr CounterRule<DiskRecord> DISK_COUNTERS[] = {
    {214, Mean<&DiskRecord::readRate>},
    {216, Mean<&DiskRecord::writeRate>},
    {220, Mean<&DiskRecord::readBytesRate>},
    {222, Mean<&DiskRecord::writeBytesRate>},
    {1400, StoreQueueLength},
    {1482, StoreBusyFraction},
};

void VmrStoreDisk(VmrContext& context, VmrRows& rows, VmrLine& line) {
  constexpr float MILLISECONDS = 1000.0F;
  Instance instance(rows);
  if (instance.name == TOTAL_INSTANCE) return;
  DiskRecord& disk = context.disks.primary.Push();
  disk.deviceName = DiskName(instance.Name());
  ApplyCounters(DISK_COUNTERS, disk, rows, instance.Samples(), line);
  disk.ioRate = disk.readRate + disk.writeRate;
  disk.totalBytesRate = disk.readBytesRate + disk.writeBytesRate;
  if (disk.ioRate > 0.0F) {
    disk.servicePerIo = disk.busyFraction * MILLISECONDS / disk.ioRate;
    disk.waitPerIo = disk.queueLength * MILLISECONDS / disk.ioRate;
  }
  ContextFindAlias(context, disk);
}

// --- Process, object 230 ---

// How long the process lived of the interval, by its share of the samples; the counter's own value isn't
// used.
void StoreElapsed(ProcessRecord& process, const CounterValue& value) {
  const auto interval = static_cast<float>(value.rows.intervalSeconds);
  const float elapsed =
      static_cast<float>(value.samples) * interval / static_cast<float>(value.rows.samplesPerInterval);
  process.elapsedSeconds = elapsed < interval ? elapsed : interval;
}

constexpr CounterRule<ProcessRecord> PROCESS_COUNTERS[] = {
    {6, Mean<&ProcessRecord::cpuPercent>},
    {28, Mean<&ProcessRecord::pageFaultsPerSecond>, RecordKind::PROCESS_FAULTS},
    {142, Mean<&ProcessRecord::userCpuSeconds>, RecordKind::DETAILS},
    {144, Mean<&ProcessRecord::systemCpuSeconds>, RecordKind::DETAILS},
    {174, WholeMean<&ProcessRecord::sizeVirtual>, RecordKind::DETAILS},
    {180, WholeMean<&ProcessRecord::sizeResident>, RecordKind::PROCESS_SIZES},
    {682, WholeMean<&ProcessRecord::priority>, RecordKind::DETAILS},
    {684, StoreElapsed},
    {784, WholeMean<&ProcessRecord::processId>, RecordKind::DETAILS},
    {1412, Mean<&ProcessRecord::ioReadsPerSecond>, RecordKind::DETAILS},
    {1414, Mean<&ProcessRecord::ioWritesPerSecond>, RecordKind::DETAILS},
    {1420, Mean<&ProcessRecord::ioReadBytesPerSecond>, RecordKind::DETAILS},
    {1422, Mean<&ProcessRecord::ioWriteBytesPerSecond>, RecordKind::DETAILS},
};

void VmrStoreProcess(VmrContext& context, VmrRows& rows, VmrLine& line) {
  Instance instance(rows);
  if (instance.name == TOTAL_INSTANCE) return;
  ProcessRecord& process = ContextPushProcess(context, false);
  CopyPrintable(instance.name, process.name);
  const int32_t samples = instance.Samples();
  if (samples > 0) ApplyCounters(PROCESS_COUNTERS, process, rows, samples, line);
}

// --- Memory, object 4 ---

// Worked out by ourselves where the host doesn't give it.
void StoreCommittedPercent(MemoryRecord& memory, const CounterValue& value) {
  memory.committedPercent = value.Mean();
  if (memory.committedPercent == 0.0F && memory.commitLimitPages > 0.0F) {
    memory.committedPercent = 100.0F * memory.committedPages / memory.commitLimitPages;
  }
}

constexpr CounterRule<MemoryRecord> MEMORY_COUNTERS[] = {
    {24, MeanPages<&MemoryRecord::freePages>},
    {26, MeanPages<&MemoryRecord::committedPages>},
    {28, Mean<&MemoryRecord::pageFaultRate>},
    {30, MeanPages<&MemoryRecord::commitLimitPages>},
    {32, Mean<&MemoryRecord::copyOnWriteFaultRate>},
    {34, Mean<&MemoryRecord::transitionFaultRate>},
    {36, Mean<&MemoryRecord::cacheFaultRate>},
    {38, Mean<&MemoryRecord::demandZeroFaultRate>},
    {40, Mean<&MemoryRecord::pageRate>},
    {42, Mean<&MemoryRecord::pageReadRate>},
    {48, Mean<&MemoryRecord::pageOutRate>},
    {50, Mean<&MemoryRecord::pageWriteRate>},
    {56, MeanPages<&MemoryRecord::pagedPoolPages>},
    {58, MeanPages<&MemoryRecord::nonPagedPoolPages>},
    {66, MeanPages<&MemoryRecord::kernelPages>},
    {70, MeanPages<&MemoryRecord::kernelPart1Pages>},
    {74, MeanPages<&MemoryRecord::kernelPart2Pages>},
    {76, MeanPages<&MemoryRecord::kernelPart3Pages>},
    {818, MeanPages<&MemoryRecord::cachePages>},
    {822, Mean<&MemoryRecord::transitionRepurposedRate>},
    {1406, StoreCommittedPercent},
};

void VmrStoreMemory(VmrContext& context, VmrRows& rows, VmrLine& line) {
  MemoryRecord& memory = OneOf(context.memory.primary);
  ApplyCounters(MEMORY_COUNTERS, memory, rows, ObjectSamples(rows), line);
  memory.kernelPages += memory.kernelPart1Pages + memory.kernelPart2Pages + memory.kernelPart3Pages;
}

// --- Network protocols, objects 546, 638 and 658: one record for all ---

constexpr CounterRule<NetworkRecord> IP_COUNTERS[] = {
    {438, Mean<&NetworkRecord::ipDatagramsPerSecond>},
    {446, Mean<&NetworkRecord::ipReceivedPerSecond>},
    {552, Mean<&NetworkRecord::ipHeaderErrors>},
    {554, Mean<&NetworkRecord::ipAddressErrors>},
    {556, Mean<&NetworkRecord::ipForwardedPerSecond>},
    {558, Mean<&NetworkRecord::ipUnknownProtocol>},
    {560, Mean<&NetworkRecord::ipReceivedDiscarded>},
    {562, Mean<&NetworkRecord::ipDeliveredPerSecond>},
    {442, Mean<&NetworkRecord::ipSentPerSecond>},
    {566, Mean<&NetworkRecord::ipOutboundDiscarded>},
    {568, Mean<&NetworkRecord::ipOutboundNoRoute>},
    {570, Mean<&NetworkRecord::ipFragmentsReceivedPerSecond>},
    {572, Mean<&NetworkRecord::ipReassembledPerSecond>},
    {574, Mean<&NetworkRecord::ipReassemblyFailures>},
    {576, Mean<&NetworkRecord::ipFragmentedPerSecond>},
    {578, Mean<&NetworkRecord::ipFragmentationFailures>},
    {580, Mean<&NetworkRecord::ipFragmentsCreatedPerSecond>},
};

void VmrStoreIp(VmrContext& context, VmrRows& rows, VmrLine& line) {
  ApplyCounters(IP_COUNTERS, OneOf(context.network), rows, ObjectSamples(rows), line);
}

constexpr CounterRule<NetworkRecord> TCP_COUNTERS[] = {
    {640, Mean<&NetworkRecord::tcpSegmentsPerSecond>},
    {642, Mean<&NetworkRecord::tcpConnectionsEstablished>},
    {644, Change<&NetworkRecord::tcpConnectionsActive, 0>},
    {646, Change<&NetworkRecord::tcpConnectionsPassive, 1>},
    {648, Change<&NetworkRecord::tcpConnectionFailures, 2>},
    {650, Change<&NetworkRecord::tcpConnectionsReset, 3>},
    {652, Mean<&NetworkRecord::tcpSegmentsReceivedPerSecond>},
    {654, Mean<&NetworkRecord::tcpSegmentsSentPerSecond>},
    {656, Mean<&NetworkRecord::tcpSegmentsRetransmittedPerSecond>},
};

void VmrStoreTcp(VmrContext& context, VmrRows& rows, VmrLine& line) {
  ApplyCounters(TCP_COUNTERS, OneOf(context.network), rows, ObjectSamples(rows), line);
}

constexpr CounterRule<NetworkRecord> UDP_COUNTERS[] = {
    {438, Mean<&NetworkRecord::udpDatagramsPerSecond>}, {446, Mean<&NetworkRecord::udpReceivedPerSecond>},
    {664, Mean<&NetworkRecord::udpNoPortPerSecond>},    {666, Mean<&NetworkRecord::udpReceivedErrors>},
    {442, Mean<&NetworkRecord::udpSentPerSecond>},
};

void VmrStoreUdp(VmrContext& context, VmrRows& rows, VmrLine& line) {
  ApplyCounters(UDP_COUNTERS, OneOf(context.network), rows, ObjectSamples(rows), line);
}

// --- Objects ---

constexpr VmrObject OBJECTS[] = {
    {4, RecordKind::MEMORY, PlanCounters<MEMORY_COUNTERS>, VmrStoreMemory},
    {230, RecordKind::PROCESSES, PlanCounters<PROCESS_COUNTERS>, VmrStoreProcess},
    {234, RecordKind::DISKS, PlanCounters<DISK_COUNTERS>, VmrStoreDisk},
    {238, RecordKind::PROCESSORS, PlanCounters<PROCESSOR_COUNTERS>, VmrStoreProcessor},
    {546, RecordKind::PROTOCOLS, PlanCounters<IP_COUNTERS>, VmrStoreIp},
    {638, RecordKind::PROTOCOLS, PlanCounters<TCP_COUNTERS>, VmrStoreTcp},
    {658, RecordKind::PROTOCOLS, PlanCounters<UDP_COUNTERS>, VmrStoreUdp},
};

}  // namespace vmr_files

const VmrObject* FindVmrObject(int32_t objectId) {
  const auto* object = std::ranges::find(vmr_files::OBJECTS, objectId, &VmrObject::objectId);
  return object != std::end(vmr_files::OBJECTS) ? object : nullptr;
}

void VmrStoreRow(VmrContext& context, VmrRows& rows, VmrLine& line) {
  const VmrObject* object = rows.object;
  if (object == nullptr || !context.kinds.Has(object->kind)) return;
  if (!rows.isPlanned) object->plan(rows, context.kinds);
  rows.isPlanned = true;
  object->store(context, rows, line);
}

}  // namespace ozmo
