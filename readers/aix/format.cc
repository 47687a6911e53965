// AIX collector files: qtxa_, big-endian.
//
// The version text chooses nothing but the record table and the width of counters: the decoders are the same
// for all versions, and an unknown version leaves the reader with the newest table.
#include <algorithm>
#include <functional>
#include <string_view>

#include "readers/aix/decoders.h"
#include "readers/aix/layouts.h"
#include "readers/bsd_protocol_counters.h"
#include "readers/formats.h"
#include "readers/shared_decoders.h"

namespace ozmo::aix_files {

ByteOrder ByteOrderOf(std::string_view /*path*/) { return ByteOrder::BIG; }

// --- The machine's processors as a whole, types 1 and 17 ---

constexpr Conversion LEVEL{.form = Form::WIDE};
constexpr Conversion RATE{.form = Form::WIDE, .per = Per::INTERVAL};

// Unlike those of single processors these times stay what the collector counted per second.
constexpr FieldRule<ProcessorRecord> OVERALL_RULES[] = {
    {.field = 101, .to = To<&ProcessorRecord::userTime>(), .as = RATE},
    {.field = 102, .to = To<&ProcessorRecord::systemTime>(), .as = RATE},
    {.field = 103, .to = To<&ProcessorRecord::idleTime>(), .as = RATE},
    {.field = 104, .to = To<&ProcessorRecord::waitTime>(), .as = RATE},
    {.field = 105, .last = 109, .to = To<&ProcessorRecord::eventRates>(), .as = RATE},
    {.field = 110, .to = To<&ProcessorRecord::extraSecondsA>(), .as = {.form = Form::WIDE, .scale = 100.0}},
    {.field = 111, .to = To<&ProcessorRecord::extraSecondsB>(), .as = RATE},
    {.field = 112,
     .last = 114,
     .to = To<&ProcessorRecord::loadAverage>(),
     .as = {.form = Form::WIDE, .scale = 65536.0}},
    {.field = 115, .to = To<&ProcessorRecord::eventRates, 5>(), .as = RATE},
};

// --- Logical processors, types 8 and 23 ---

constexpr int32_t CPU_ID_FIELD = 801;

// The field that gives the processor; null unless it comes before the record's other fields, which are
// lost without it.
const FieldValue* FindCpuId(std::span<const FieldValue> fields) {
  const auto id = std::find_if(fields.begin(), fields.end(), [](const FieldValue& field) {
    return field.fieldId == CPU_ID_FIELD && field.data != nullptr;
  });
  if (id == fields.end()) return nullptr;
  const bool isFirst = std::none_of(fields.begin(), fields.end(), [&](const FieldValue& field) {
    return field.data != nullptr && std::less<>{}(field.data, id->data);
  });
  return isFirst ? &*id : nullptr;
}

// More processors than any machine has: a file that names ever new ones must not fill the memory.
constexpr size_t MAX_PROCESSORS = 4096;

// The pass's record of that processor, or a new one: records of one number merge. Null when there are too
// many.
ProcessorRecord* FindOrPush(Decoding& decoding, int32_t cpuId) {
  NamedProcessors& named = decoding.state.namedProcessors.Of(decoding.isTwin);
  RecordList<ProcessorRecord>& list = decoding.context.processors.Of(decoding.isTwin);
  const uint64_t pass = decoding.state.pass;
  const auto known = named.find(cpuId);
  if (known != named.end() && known->second.pass == pass) return known->second.record;
  if (list.size() >= MAX_PROCESSORS) return nullptr;
  if (named.size() >= 2 * MAX_PROCESSORS) {
    std::erase_if(named, [&](const auto& entry) { return entry.second.pass != pass; });
  }
  ProcessorRecord& cpu = list.Push();
  cpu.cpuId = cpuId;
  named[cpuId] = {&cpu, pass};
  return &cpu;
}

// Times become fractions of what the processor did in all.
void NormaliseTimes(ProcessorRecord& cpu) {
  const double sum = cpu.userTime + cpu.systemTime + cpu.waitTime + cpu.idleTime;
  if (!(sum > 0.0)) return;
  cpu.userTime /= sum;
  cpu.systemTime /= sum;
  cpu.waitTime /= sum;
  cpu.idleTime /= sum;
}

constexpr FieldRule<ProcessorRecord> CPU_RULES[] = {
    {.field = CPU_ID_FIELD, .to = To<&ProcessorRecord::cpuId>()},
    {.field = 802, .to = To<&ProcessorRecord::userTime>(), .as = RATE},
    {.field = 803, .to = To<&ProcessorRecord::systemTime>(), .as = RATE},
    {.field = 804, .to = To<&ProcessorRecord::idleTime>(), .as = RATE},
    {.field = 805, .to = To<&ProcessorRecord::waitTime>(), .as = RATE},
    {.field = 811, .to = To<&ProcessorRecord::coreValueA>(), .as = LEVEL},
    {.field = 812, .to = To<&ProcessorRecord::eventRates, 5>(), .as = RATE},
    {.field = 813, .to = To<&ProcessorRecord::coreValueB>(), .as = LEVEL},
};

void DecodeCpu(Decoding& decoding) {
  const FieldValue* id = FindCpuId(decoding.fields);
  if (id == nullptr) return;
  ProcessorRecord* cpu = FindOrPush(decoding, id->Int32());
  if (cpu == nullptr) return;
  ApplyRules<CPU_RULES>(*cpu, decoding);
  NormaliseTimes(*cpu);
}

// --- Memory, types 3 and 19; further figures, type 12 ---

// Two figures that share one place in the collector's memory structure, in which the base record keeps the
// one and the record of further figures the other: what comes last counts for both.
void StoreZeroFillsOrProcesses(MemoryRecord& memory, const Source& from) {
  memory.zeroFillFaultRate = Convert<float>(from);
  memory.processMb = memory.zeroFillFaultRate;
}

constexpr Conversion NARROW_RATE{.form = Form::INT32, .per = Per::INTERVAL};

constexpr FieldRule<MemoryRecord> MEMORY_RULES[] = {
    {.field = 301, .to = To<&MemoryRecord::freePages>()},
    {.field = 302, .to = To<&MemoryRecord::processPages>()},
    {.field = 303, .to = To<&MemoryRecord::filePages>()},
    {.field = 304, .to = To<&MemoryRecord::pageInRate>(), .as = NARROW_RATE},
    {.field = 305, .to = To<&MemoryRecord::pageOutRate>(), .as = NARROW_RATE},
    {.field = 306, .to = Detail<&MemoryRecord::unread, 6>(), .as = NARROW_RATE},
    {.field = 307, .to = To<&MemoryRecord::pageFaultRate>(), .as = NARROW_RATE},
    {.field = 308, .last = 309, .to = Detail<&MemoryRecord::unread, 8>(), .as = NARROW_RATE},
    {.field = 310, .to = To<StoreMachinePageSize>()},
    {.field = 311, .to = To<StoreZeroFillsOrProcesses>(), .as = RATE},
    {.field = 312, .to = To<&MemoryRecord::execFillFaultRate>(), .as = RATE},
    {.field = 313, .last = 316},
};

// The base record and the record of further figures fill one and the same MemoryRecord, whichever comes
// first; a twin always starts a new one.
void DecodeMemory(Decoding& decoding) {
  if (decoding.isTwin) decoding.context.memory.twin.reset();
  DecodeToSlot<MEMORY_RULES, &VmrContext::memory>(decoding);
}

// Pages to megabytes: value * 4096 / 1024 / 1024, whatever page size field 310 has brought.
constexpr Conversion MEGABYTES{.form = Form::UINT64, .scale = 256.0};
constexpr Conversion MORE_RATE{.form = Form::UINT64, .per = Per::INTERVAL};
constexpr Conversion MORE_LEVEL{.form = Form::UINT64};

constexpr FieldRule<MemoryRecord> MORE_MEMORY_RULES[] = {
    {.field = 1, .to = Detail<&MemoryRecord::unreadMore, 1>(), .as = MEGABYTES},
    // A figure of another kind, in the place of field 312.
    {.field = 2, .to = To<&MemoryRecord::execFillFaultRate>(), .as = MEGABYTES},
    {.field = 3, .to = To<&MemoryRecord::realMb>(), .as = MEGABYTES},
    {.field = 4, .to = To<&MemoryRecord::freeMb>(), .as = MEGABYTES},
    {.field = 5, .last = 6, .to = Detail<&MemoryRecord::unreadMore, 5>(), .as = MEGABYTES},
    {.field = 7, .to = To<StoreZeroFillsOrProcesses>(), .as = MEGABYTES},
    {.field = 8, .to = To<&MemoryRecord::systemMb>(), .as = MEGABYTES},
    {.field = 9, .to = Detail<&MemoryRecord::unreadMore, 9>(), .as = MEGABYTES},
    {.field = 10, .last = 18, .to = Detail<&MemoryRecord::unreadMore, 10>(), .as = MORE_RATE},
    {.field = 19, .to = To<&MemoryRecord::fileMb>(), .as = MEGABYTES},
    {.field = 20, .last = 22, .to = Detail<&MemoryRecord::unreadMore, 20>(), .as = MEGABYTES},
    {.field = 23, .last = 26, .to = Detail<&MemoryRecord::unreadMore, 23>(), .as = MORE_LEVEL},
};

// --- Processes, types 4 and 21 ---

void StoreSize(ProcessRecord& process, const Source& from) {
  process.values[1] = Convert<int64_t>(from);
  process.sizeResident = std::max<int64_t>(process.values[1], 0);
}

constexpr Conversion CPU_SECONDS{
    .form = Form::WIDE, .divide = Divide::AT_LEAST_1, .sign = Sign::NOT_NEGATIVE};
constexpr Conversion PROCESS_RATE{.form = Form::WIDE,
                                  .per = Per::INTERVAL,
                                  .divide = Divide::AT_LEAST_1,
                                  .sign = Sign::NOT_NEGATIVE,
                                  .limit = COUNTER_LIMIT};

constexpr FieldRule<ProcessRecord> PROCESS_RULES[] = {
    {.field = 401},
    {.field = 402, .to = Detail<&ProcessRecord::processId>()},
    {.field = 403},
    {.field = 404, .to = Detail<StoreProcessIdText>()},
    {.field = 405, .to = Detail<&ProcessRecord::processIdB>()},
    {.field = 407, .to = To<&ProcessRecord::userCpuSeconds>(), .as = CPU_SECONDS},
    {.field = 408, .to = To<&ProcessRecord::systemCpuSeconds>(), .as = CPU_SECONDS},
    {.field = 409, .last = 410, .to = Detail<&ProcessRecord::rates>(), .as = PROCESS_RATE},
    {.field = 411,
     .to = To<&ProcessRecord::minorFaults>(),
     .as = PROCESS_RATE,
     .wantedFor = RecordKind::PROCESS_FAULTS},
    {.field = 412,
     .to = To<&ProcessRecord::majorFaults>(),
     .as = PROCESS_RATE,
     .wantedFor = RecordKind::PROCESS_FAULTS},
    {.field = 413, .to = Detail<&ProcessRecord::values, 0>(), .as = LEVEL},
    {.field = 414, .to = To<StoreSize>(), .as = LEVEL, .wantedFor = RecordKind::PROCESS_SIZES},
    {.field = 415, .to = Detail<&ProcessRecord::values, 2>(), .as = LEVEL},
    {.field = 416,
     .to = Detail<&ProcessRecord::rates, 2>(),
     .as = {.per = Per::INTERVAL, .divide = Divide::AT_LEAST_1, .sign = Sign::NOT_NEGATIVE}},
    {.field = 417, .to = Detail<&ProcessRecord::elapsedSeconds>(), .as = {.divide = Divide::AT_LEAST_1}},
    {.field = 418, .to = Detail<&ProcessRecord::values, 3>()},
    {.field = 419, .to = To<&ProcessRecord::userName>(), .wantedFor = RecordKind::PROCESS_USERS},
    {.field = 420, .to = To<&ProcessRecord::name>()},
};

constexpr std::string_view IDLE_PROCESS = "wait";  // the kernel's

void DecodeProcess(Decoding& decoding) {
  VmrContext& context = decoding.context;
  ProcessRecord& process = ContextPushProcess(context, decoding.isTwin);
  const bool counts = ApplyRules<PROCESS_RULES>(process, decoding);
  if (process.name == IDLE_PROCESS) {  // it consumes nothing
    process.userCpuSeconds = 0.0F;
    process.systemCpuSeconds = 0.0F;
  }
  if (context.config) process.elapsedSeconds = context.config->intervalSeconds;
  if (!counts) context.processes.Of(decoding.isTwin).PopHead();
}

// --- Configuration, type 5 ---

constexpr FieldRule<SystemConfig> CONFIG_RULES[] = {
    {.field = 501, .to = To<&SystemConfig::versionText>()},
    {.field = 502, .to = Detail<&SystemConfig::configText, 2>()},
    {.field = 503, .to = To<StoreMemoryMb<>>(), .as = {.form = Form::NATURAL}},
    {.field = 504, .last = 505, .to = Detail<&SystemConfig::configText, 4>()},
    {.field = 506, .to = To<&SystemConfig::cpuCount>()},
    {.field = 507, .to = To<&SystemConfig::configNode>()},
    {.field = 509, .last = 510, .to = Detail<&SystemConfig::configText, 9>()},
    {.field = 511, .to = Detail<&SystemConfig::configText, 5>()},  // over the text of field 505
    {.field = 514, .to = To<&SystemConfig::intervalSeconds>(), .as = {.divide = Divide::AT_LEAST_1}},
    {.field = 515, .to = Detail<&SystemConfig::intervalMillis>()},
};

// --- Protocol counters, types 7 and 22 ---

using namespace bsd_counters;

constexpr FieldRule<ProtocolCounters> COUNTER_RULES[] = {
    {.field = 701, .last = 723, .to = To<&ProtocolCounters::counters, TCP_ATTEMPTS>(), .as = RATE},
    {.field = 724, .last = 730, .to = To<&ProtocolCounters::counters, TCP_SENT_CONTROL>(), .as = RATE},
    {.field = 731, .to = To<&ProtocolCounters::counters, TCP_DUPLICATE>(), .as = RATE},
    {.field = 732, .last = 740, .to = To<&ProtocolCounters::counters, TCP_DUPLICATE_BYTES>(), .as = RATE},
    {.field = 741, .to = To<&ProtocolCounters::counters, TCP_DUPLICATE>(), .as = RATE},  // over field 731
    {.field = 742, .last = 745, .to = To<&ProtocolCounters::counters, TCP_ACKS_OF_NOTHING>(), .as = RATE},
    {.field = 754, .last = 773, .to = To<&ProtocolCounters::counters, IP_RECEIVED>(), .as = RATE},
    {.field = 774, .last = 777, .to = To<&ProtocolCounters::counters, IP_RAW_SENT>(), .as = RATE},
    {.field = 789, .last = 797, .to = To<&ProtocolCounters::counters, UDP_RECEIVED>(), .as = RATE},
};

// --- File systems, types 9 and 24; LAN adapters, types 15 and 25 ---

constexpr auto FILE_SYSTEM_RULES = FileSystemRules(902, 901, 903);
constexpr auto LAN_RULES = LanRules(
    {.form = Form::UINT64, .per = Per::INTERVAL, .divide = Divide::AT_LEAST_1, .limit = COUNTER_LIMIT});

// --- The format ---

// The partition's twin, type 31, has a layout and no decoder: it is read and dropped.
using Kind = RecordKind;
constexpr DecoderRow DECODERS[] = {
    {.type = 1,
     .twin = 17,
     .kind = Kind::MACHINE_CPU,
     .decode = DecodeToList<OVERALL_RULES, &VmrContext::overallCpu>},
    {.type = 2, .twin = 18, .kind = Kind::DISKS, .decode = DecodeDisk},
    {.type = 3, .twin = 19, .kind = Kind::MEMORY, .decode = DecodeMemory},
    {.type = 12, .kind = Kind::MEMORY, .decode = DecodeToSlot<MORE_MEMORY_RULES, &VmrContext::memory>},
    {.type = 4,
     .twin = 21,
     .kind = Kind::PROCESSES,
     .decode = DecodeProcess,
     .builderFields = BUILDER_FIELDS<PROCESS_RULES>},
    {.type = 5, .kind = Kind::CONFIGURATION, .decode = DecodeConfigBy<CONFIG_RULES>},
    {.type = 7, .twin = 22, .kind = Kind::PROTOCOLS, .decode = DecodeCountersBy<COUNTER_RULES>},
    {.type = 8, .twin = 23, .kind = Kind::PROCESSORS, .decode = DecodeCpu},
    {.type = 9,
     .twin = 24,
     .kind = Kind::FILE_SYSTEMS,
     .decode = DecodeToList<FILE_SYSTEM_RULES, &VmrContext::fileSystems>},
    {.type = 13, .twin = 29, .kind = Kind::OTHERS, .decode = DecodeLoadItem},
    {.type = 14, .kind = Kind::PARTITION, .decode = DecodePartition},
    {.type = 15, .twin = 25, .kind = Kind::ADAPTERS, .decode = DecodeToList<LAN_RULES, &VmrContext::lans>},
    {.type = 16, .twin = 26, .kind = Kind::OTHERS, .decode = DecodeSummary},
};

constexpr CollectorFormat FORMAT{
    .byteOrderOf = ByteOrderOf,
    .timeRecord = 6,
    .timeField = 601,
    .entryFields = {.version = 501, .nodeName = 507, .utcOffset = 508, .dstFlag = 512, .interval = 514},
    .intervalBelowOneIsDefault = true,
    .configuredIntervalIsDefault = true,
    .missingVersionIsUnsupported = true,
    .keepsTag = false,
    .entryTable = &aix_layouts::P910_TABLE,
    .versions = aix_layouts::VERSIONS,
    .versionTexts = {.notice = VersionNotice::NONE,
                     .file = {},
                     .version = {},
                     .unknown = "\nUnrecognized data collector version %s\n",
                     .unknownOnStandardError = false,
                     .unknownEndsProcess = false},
    .decoders = DECODERS,
};

}  // namespace ozmo::aix_files
