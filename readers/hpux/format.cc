// HP-UX collector files: qtxh_, big-endian.
//
// The longest version list of all. A text that contains "540", V530 and the V5xx texts leave the width of
// counters as an earlier file of the run has set it, and once a file has had old disk figures, the disk
// timing figures of those that follow aren't trusted either.
#include <string>

#include "readers/bsd_protocol_counters.h"
#include "readers/formats.h"
#include "readers/hpux/disks.h"
#include "readers/hpux/layouts.h"
#include "readers/shared_decoders.h"

namespace ozmo::hpux_files {

ByteOrder ByteOrderOf(std::string_view /*path*/) { return ByteOrder::BIG; }

// --- The machine's processors as a whole, types 1 and 17 ---

void DivideWaitTime(ProcessorRecord& cpu, const FieldValue& field) {
  if (field.divisor >= 1) cpu.waitTime /= field.divisor;
}

void StoreWaitTime(ProcessorRecord& cpu, const Source& from) {
  cpu.waitTime = Convert<double>(from);
  DivideWaitTime(cpu, from.field);
}

// The divisor of the nice time lands on the wait time, which has been stored before it.
void StoreNiceTime(ProcessorRecord& cpu, const Source& from) {
  const std::optional<SystemConfig>& config = from.decoding.context.config;
  if (!config || !hpux_layouts::HasNiceTime(config->versionText)) return;
  cpu.niceTime = Convert<double>(from);
  DivideWaitTime(cpu, from.field);
}

// In whole numbers; without an interval there is no rate.
void StoreExtraSeconds(ProcessorRecord& cpu, const Source& from) {
  const int64_t interval = from.decoding.state.intervalSeconds;
  const int64_t seconds = interval != 0 ? from.field.Int32() / interval : 0;
  cpu.extraSecondsA = static_cast<double>(seconds);
}

constexpr Conversion NARROW_RATE{.per = Per::INTERVAL};
constexpr Conversion DIVIDED_RATE{.per = Per::INTERVAL, .divide = Divide::AT_LEAST_1};

constexpr FieldRule<ProcessorRecord> OVERALL_RULES[] = {
    {.field = 101, .to = To<&ProcessorRecord::userTime>(), .as = DIVIDED_RATE},
    {.field = 102, .to = To<&ProcessorRecord::systemTime>(), .as = DIVIDED_RATE},
    {.field = 103, .to = To<&ProcessorRecord::idleTime>(), .as = DIVIDED_RATE},
    {.field = 104, .to = To<StoreWaitTime>(), .as = NARROW_RATE},
    {.field = 105, .to = To<StoreNiceTime>(), .as = NARROW_RATE},
    {.field = 106, .last = 107, .to = To<&ProcessorRecord::eventRates, 5>(), .as = DIVIDED_RATE},
    {.field = 110, .to = To<&ProcessorRecord::eventRates, 7>(), .as = DIVIDED_RATE},
    {.field = 111, .to = To<&ProcessorRecord::eventRates, 3>(), .as = DIVIDED_RATE},
    {.field = 113, .to = To<StoreExtraSeconds>()},
    {.field = 114, .last = 116, .to = To<&ProcessorRecord::loadAverage>(), .as = {.scale = 100.0}},
};

// --- Processors, types 8 and 23 ---

constexpr Conversion CPU_TIME{.divide = Divide::AT_LEAST_1};

constexpr FieldRule<ProcessorRecord> CPU_RULES[] = {
    {.field = 801, .to = To<&ProcessorRecord::cpuId>()},
    {.field = 802, .to = To<&ProcessorRecord::idleTime>(), .as = CPU_TIME},
    {.field = 803, .to = To<&ProcessorRecord::userTime>(), .as = CPU_TIME},
    {.field = 804, .to = To<&ProcessorRecord::waitTime>(), .as = CPU_TIME},
    {.field = 805, .to = To<&ProcessorRecord::systemTime>(), .as = CPU_TIME},
};
constexpr FieldRule<ProcessorRecord> CLOCK_RULES[] = {
    {.field = 812, .to = To<&ProcessorRecord::clockTicks>(), .as = CPU_TIME},
};

// Ticks become fractions of the interval by the file's own ticks per second; a record without those divides
// by 0. Twins keep their ticks.
void DivideTimes(ProcessorRecord& cpu, int32_t intervalSeconds) {
  const double ticks = intervalSeconds * cpu.clockTicks;
  cpu.idleTime /= ticks;
  cpu.userTime /= ticks;
  cpu.waitTime /= ticks;
  cpu.systemTime /= ticks;
}

void DecodeCpu(Decoding& decoding) {
  RecordList<ProcessorRecord>& list = decoding.context.processors.Of(decoding.isTwin);
  ProcessorRecord& cpu = list.Push();
  const bool counts = ApplyRules<CPU_RULES>(cpu, decoding);
  ApplyRules<CLOCK_RULES>(cpu, decoding);  // ticks per second alone make no record
  if (!decoding.isTwin) DivideTimes(cpu, decoding.state.intervalSeconds);
  if (!counts) list.PopHead();
}

// --- Memory, types 3 and 19 ---

constexpr Conversion LEVEL{.form = Form::WIDE};
constexpr Conversion RATE{.form = Form::WIDE, .per = Per::INTERVAL};

constexpr FieldRule<MemoryRecord> MEMORY_RULES[] = {
    {.field = 301, .to = To<&MemoryRecord::freePages>(), .as = {.form = Form::UINT64}},
    {.field = 303, .last = 304, .to = Detail<&MemoryRecord::unread, 3>(), .as = LEVEL},
    {.field = 305, .to = To<StoreMachinePageSize>(), .as = LEVEL},
    {.field = 306, .to = To<&MemoryRecord::pageInRate>(), .as = RATE},
    {.field = 307, .to = To<&MemoryRecord::pageOutRate>(), .as = RATE},
    {.field = 308, .last = 309, .to = Detail<&MemoryRecord::unread, 8>(), .as = RATE},
    {.field = 310, .to = To<&MemoryRecord::swapInRate>(), .as = RATE},
    {.field = 311, .to = To<&MemoryRecord::swapOutRate>(), .as = RATE},
    {.field = 313, .to = To<&MemoryRecord::majorFaultRate>(), .as = RATE},
    {.field = 322, .to = To<&MemoryRecord::activePages>(), .as = LEVEL},
    {.field = 323, .to = Detail<&MemoryRecord::unread, 23>(), .as = LEVEL},
    {.field = 326, .to = To<&MemoryRecord::copyOnWriteFaultRate>(), .as = RATE},
    {.field = 327, .to = To<&MemoryRecord::zeroFillFaultRate>(), .as = RATE},
};

// --- Processes, types 4 and 21 ---

// Pages, by the page size that a memory record has given.
void StoreResidentSize(ProcessRecord& process, const Source& from) {
  const auto pages = static_cast<uint64_t>(Convert<int64_t>(from));
  process.sizeResident = static_cast<int64_t>(pages * PageSizeOf(from.decoding.context));
}

constexpr Conversion FIGURE{.form = Form::WIDE, .divide = Divide::AT_LEAST_1, .sign = Sign::NOT_NEGATIVE};
constexpr Conversion PROCESS_RATE{
    .form = Form::WIDE, .per = Per::INTERVAL, .divide = Divide::AT_LEAST_1, .sign = Sign::NOT_NEGATIVE};

constexpr FieldRule<ProcessRecord> PROCESS_RULES[] = {
    {.field = 401},
    {.field = 402, .to = Detail<&ProcessRecord::processId>()},
    {.field = 403, .to = Detail<&ProcessRecord::processIdC>()},
    {.field = 404, .to = Detail<StoreProcessIdText>()},
    {.field = 405, .to = Detail<&ProcessRecord::processIdB>()},
    {.field = 406, .to = To<&ProcessRecord::userCpuSeconds>(), .as = FIGURE},
    {.field = 407, .to = To<&ProcessRecord::systemCpuSeconds>(), .as = FIGURE},
    {.field = 408, .to = To<StoreResidentSize>(), .as = FIGURE, .wantedFor = RecordKind::PROCESS_SIZES},
    {.field = 409,
     .to = To<&ProcessRecord::minorFaults>(),
     .as = PROCESS_RATE,
     .wantedFor = RecordKind::PROCESS_FAULTS},
    {.field = 410,
     .to = To<&ProcessRecord::majorFaults>(),
     .as = PROCESS_RATE,
     .wantedFor = RecordKind::PROCESS_FAULTS},
    {.field = 411, .to = Detail<&ProcessRecord::rates, 2>(), .as = PROCESS_RATE},
    {.field = 412, .to = Detail<&ProcessRecord::values, 0>(), .as = FIGURE},
    {.field = 413, .to = Detail<&ProcessRecord::values, 2>(), .as = FIGURE},
    {.field = 414, .to = Detail<&ProcessRecord::values, 1>(), .as = FIGURE},
    {.field = 415, .to = Detail<&ProcessRecord::elapsedSeconds>(), .as = {.divide = Divide::AT_LEAST_1}},
    {.field = 416, .to = Detail<&ProcessRecord::values, 3>()},
    {.field = 417, .to = To<&ProcessRecord::name>()},
    {.field = 418, .to = To<&ProcessRecord::userName>(), .wantedFor = RecordKind::PROCESS_USERS},
};

void DecodeProcess(Decoding& decoding) {
  ProcessRecord& process = ContextPushProcess(decoding.context, decoding.isTwin);
  const bool counts = ApplyRules<PROCESS_RULES>(process, decoding);
  if (!counts) decoding.context.processes.Of(decoding.isTwin).PopHead();
}

// --- Configuration, type 5 ---

constexpr FieldRule<SystemConfig> CONFIG_RULES[] = {
    {.field = 501, .to = To<&SystemConfig::versionText>()},
    {.field = 502, .to = Detail<&SystemConfig::configText, 2>()},
    {.field = 503, .to = To<StoreMemoryMb<>>(), .as = {.form = Form::UINT64}},
    {.field = 504, .last = 505, .to = Detail<&SystemConfig::configText, 4>()},
    {.field = 506, .to = To<&SystemConfig::cpuCount>()},
    {.field = 507, .to = To<&SystemConfig::configNode>()},
    {.field = 509, .last = 511, .to = Detail<&SystemConfig::configText, 9>()},
    {.field = 514, .to = To<&SystemConfig::intervalSeconds>(), .as = {.divide = Divide::AT_LEAST_1}},
    {.field = 515, .to = Detail<&SystemConfig::intervalMillis>()},
};

// --- Protocol counters: types 7, and 11 with its twin 22 ---

using namespace bsd_counters;

template <size_t Element>
constexpr auto Counters() {
  return To<&ProtocolCounters::counters, Element>();
}

constexpr FieldRule<ProtocolCounters> FIRST_PART_RULES[] = {
    {.field = 701, .last = 752, .to = Counters<TCP_ATTEMPTS>(), .as = NARROW_RATE},
    {.field = 755, .last = 764, .to = Counters<IP_RECEIVED>(), .as = NARROW_RATE},
};

// The second part replaces the BSD counters from the delivered IP packets on, where the graphs
// read it.
constexpr FieldRule<ProtocolCounters> SECOND_PART_RULES[] = {
    {.field = 1001, .to = Counters<IP_DELIVERED>(), .as = NARROW_RATE},
    {.field = 1002, .to = Counters<IP_GENERATED>()},  // connections: a level
    {.field = 1003, .last = 1008, .to = Counters<69>(), .as = NARROW_RATE},
    {.field = 1009, .last = 1035, .to = Counters<76>(), .as = NARROW_RATE},
    {.field = 1036, .last = 1044, .to = Counters<104>(), .as = NARROW_RATE},
    {.field = 1045, .to = Counters<115>(), .as = NARROW_RATE},
    {.field = 1046, .last = 1047, .to = Counters<117>(), .as = NARROW_RATE},
    {.field = 1048, .to = Counters<116>(), .as = NARROW_RATE},
    {.field = 1049, .last = 1056, .to = Counters<119>(), .as = NARROW_RATE},
    {.field = 1057, .last = 1061, .to = Counters<128>(), .as = NARROW_RATE},
    {.field = 1062, .last = 1067, .to = Counters<134>(), .as = NARROW_RATE},
    {.field = 1068, .last = 1080, .to = Counters<141>(), .as = NARROW_RATE},
    {.field = 1081, .last = 1083, .to = Counters<167>(), .as = NARROW_RATE},
    {.field = 1084, .last = 1085, .to = Counters<172>(), .as = NARROW_RATE},
    {.field = 1086, .last = 1098, .to = Counters<154>(), .as = NARROW_RATE},
    {.field = 1099, .last = 1100, .to = Counters<170>(), .as = NARROW_RATE},
};

// Each part makes a record of its own: the part that comes last in an interval is what counts.
void DecodeFirstPart(Decoding& decoding) {
  std::optional<ProtocolCounters>& slot = decoding.context.protocolCounters.primary;
  slot.reset();
  FillCounters<FIRST_PART_RULES>(slot, decoding);
  if (slot) slot->hasFirstPart = true;
}

void DecodeSecondPart(Decoding& decoding) {
  std::optional<ProtocolCounters>& slot = decoding.context.protocolCounters.Of(decoding.isTwin);
  slot.reset();
  FillCounters<SECOND_PART_RULES>(slot, decoding);
}

// --- File systems, types 9 and 24; LAN adapters, types 15 and 25 ---

constexpr auto FILE_SYSTEM_RULES = FileSystemRules(901, 902, 903);
constexpr auto LAN_RULES =
    LanRules({.form = Form::UINT64, .per = Per::INTERVAL, .divide = Divide::AT_LEAST_1});

// The divisor of the errors acts a second time, tested by nothing.
void DecodeLan(Decoding& decoding) {
  constexpr int32_t ERRORS_IN = 1504;
  RecordList<LanRecord>& list = decoding.context.lans.Of(decoding.isTwin);
  FillHead<LAN_RULES>(list, decoding);
  for (const FieldValue& field : decoding.fields) {
    if (field.data == nullptr || field.fieldId != ERRORS_IN) continue;
    list.head().errorsInRate /= static_cast<float>(field.divisor);
  }
}

// --- The format ---

using Kind = RecordKind;
constexpr DecoderRow DECODERS[] = {
    {.type = 1,
     .twin = 17,
     .kind = Kind::MACHINE_CPU,
     .decode = DecodeToList<OVERALL_RULES, &VmrContext::overallCpu>},
    {.type = 2, .twin = 18, .kind = Kind::DISKS, .decode = DecodeDisk},
    {.type = 3, .twin = 19, .kind = Kind::MEMORY, .decode = DecodeToSlot<MEMORY_RULES, &VmrContext::memory>},
    {.type = 4,
     .twin = 21,
     .kind = Kind::PROCESSES,
     .decode = DecodeProcess,
     .builderFields = BUILDER_FIELDS<PROCESS_RULES>},
    {.type = 5, .kind = Kind::CONFIGURATION, .decode = DecodeConfigBy<CONFIG_RULES>},
    {.type = 7, .kind = Kind::PROTOCOLS, .decode = DecodeFirstPart},
    {.type = 8, .twin = 23, .kind = Kind::PROCESSORS, .decode = DecodeCpu},
    {.type = 9,
     .twin = 24,
     .kind = Kind::FILE_SYSTEMS,
     .decode = DecodeToList<FILE_SYSTEM_RULES, &VmrContext::fileSystems>},
    {.type = 11, .twin = 22, .kind = Kind::PROTOCOLS, .decode = DecodeSecondPart},
    {.type = 13, .twin = 29, .kind = Kind::OTHERS, .decode = DecodeLoadItem},
    {.type = 15, .twin = 25, .kind = Kind::ADAPTERS, .decode = DecodeLan},
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
    .entryTable = &hpux_layouts::P730_TABLE,
    .versions = hpux_layouts::VERSIONS,
    .versionTexts = {.notice = VersionNotice::ALWAYS,
                     .file = "Reading data file:    %s  \n",
                     .version = "Reading data version: %s \n",
                     .unknown = "\nFatal, Unrecognized Data Collector Version %s",
                     .unknownOnStandardError = true,
                     .unknownEndsProcess = true},
    .decoders = DECODERS,
    .keepsWideCounters = true,
};

}  // namespace ozmo::hpux_files
