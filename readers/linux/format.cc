// Linux collector files: qtxl_, little-endian.
//
// Such a file carries its version twice. The version text of the configuration record chooses the record
// table and the width of counters; the text of the latest tag record chooses the generation of the processor
// decoders. A file whose two marks disagree is read with the table of the one and the decoders of the other.
#include <algorithm>
#include <string_view>

#include "readers/formats.h"
#include "readers/linux/counters.h"
#include "readers/linux/disks.h"
#include "readers/linux/layouts.h"
#include "readers/shared_decoders.h"

namespace ozmo::linux_files {

ByteOrder ByteOrderOf(std::string_view /*path*/) { return ByteOrder::LITTLE; }

bool HasNewerCpuFigures(const ReaderState& state) {
  return linux_layouts::HasNewerCpuFigures(state.collectorTag);
}

// --- The machine's processors as a whole, types 1 and 17 ---

constexpr double TICKS_PER_SECOND = 100.0;

void StoreBothExtraSeconds(ProcessorRecord& cpu, const Source& from) {
  cpu.extraSecondsA = Convert<double>(from);
  cpu.extraSecondsB = cpu.extraSecondsA;
}

// Ticks to seconds per second.
constexpr Conversion TICKS{
    .form = Form::NATURAL, .per = Per::INTERVAL, .divide = Divide::AT_LEAST_1, .scale = TICKS_PER_SECOND};
constexpr Conversion EVENT_RATE{.form = Form::NATURAL, .per = Per::INTERVAL, .divide = Divide::AT_LEAST_1};

constexpr FieldRule<ProcessorRecord> OVERALL_RULES[] = {
    {.field = 101, .to = To<&ProcessorRecord::userTime>(), .as = TICKS},
    {.field = 102, .to = To<&ProcessorRecord::niceTime>(), .as = TICKS},
    {.field = 103, .to = To<&ProcessorRecord::systemTime>(), .as = TICKS},
    {.field = 104, .to = To<&ProcessorRecord::idleTime>(), .as = TICKS},
    {.field = 105, .to = To<&ProcessorRecord::waitTime>(), .as = TICKS},
    {.field = 106, .last = 108, .to = To<&ProcessorRecord::eventRates>(), .as = EVENT_RATE},
    {.field = 109, .to = To<StoreBothExtraSeconds>(), .as = {.form = Form::NATURAL, .scale = 100.0}},
};

// The figures stay in ticks per second here.
constexpr Conversion TICK_RATE{.form = Form::WIDE, .per = Per::INTERVAL, .divide = Divide::AT_LEAST_1};

constexpr FieldRule<ProcessorRecord> OLD_OVERALL_RULES[] = {
    {.field = 101, .to = To<&ProcessorRecord::userTime>(), .as = TICK_RATE},
    {.field = 102, .to = To<&ProcessorRecord::niceTime>(), .as = TICK_RATE},
    {.field = 103, .to = To<&ProcessorRecord::systemTime>(), .as = TICK_RATE},
    {.field = 104, .to = To<&ProcessorRecord::idleTime>(), .as = TICK_RATE},
};

void DecodeCpuOverall(Decoding& decoding) {
  RecordList<ProcessorRecord>& list = decoding.context.overallCpu.Of(decoding.isTwin);
  if (!HasNewerCpuFigures(decoding.state)) {
    FillHead<OLD_OVERALL_RULES>(list, decoding);
  } else if (FillHead<OVERALL_RULES>(list, decoding)) {
    list.head().eventRateSum = list.head().eventRates[0] + list.head().eventRates[1];
  }
}

// --- Processors, types 8 and 23 ---

constexpr Conversion CPU_TIME{.form = Form::NATURAL, .divide = Divide::AT_LEAST_1};

constexpr FieldRule<ProcessorRecord> CPU_RULES[] = {
    {.field = 801, .to = To<&ProcessorRecord::cpuId>()},
    {.field = 802, .to = To<&ProcessorRecord::userTime>(), .as = CPU_TIME},
    {.field = 803, .to = To<&ProcessorRecord::niceTime>(), .as = CPU_TIME},
    {.field = 804, .to = To<&ProcessorRecord::systemTime>(), .as = CPU_TIME},
    {.field = 805, .to = To<&ProcessorRecord::idleTime>(), .as = CPU_TIME},
    {.field = 806},
    {.field = 807, .to = To<&ProcessorRecord::waitTime>(), .as = CPU_TIME},
    {.field = 808, .last = 810},
};

constexpr Conversion OLD_CPU_TIME{.form = Form::WIDE, .divide = Divide::AT_LEAST_1};

constexpr FieldRule<ProcessorRecord> OLD_CPU_RULES[] = {
    {.field = 801, .to = To<&ProcessorRecord::cpuId>()},
    {.field = 802, .to = To<&ProcessorRecord::userTime>(), .as = OLD_CPU_TIME},
    {.field = 803, .to = To<&ProcessorRecord::niceTime>(), .as = OLD_CPU_TIME},
    {.field = 804, .to = To<&ProcessorRecord::systemTime>(), .as = OLD_CPU_TIME},
    {.field = 805, .to = To<&ProcessorRecord::idleTime>(), .as = OLD_CPU_TIME},
    {.field = 806},
};

void DivideTimes(ProcessorRecord& cpu, double divisor) {
  // Field 806 gives ticks per second, but the figures are taken at 100 whatever it brings.
  cpu.clockTicks = TICKS_PER_SECOND;
  cpu.userTime /= divisor;
  cpu.niceTime /= divisor;
  cpu.systemTime /= divisor;
  cpu.idleTime /= divisor;
}

// The newer figures of a twin are seconds per second already. A record without a counted field costs the base
// list its head, also when it is a twin's.
void DecodeCpu(Decoding& decoding) {
  const bool isNewer = HasNewerCpuFigures(decoding.state);
  auto& lists = decoding.context.processors;
  ProcessorRecord& cpu = lists.Of(decoding.isTwin).Push();
  const bool counts =
      isNewer ? ApplyRules<CPU_RULES>(cpu, decoding) : ApplyRules<OLD_CPU_RULES>(cpu, decoding);
  const double interval = isNewer && decoding.isTwin ? 1.0 : decoding.state.intervalSeconds;
  const double divisor = interval * TICKS_PER_SECOND;
  DivideTimes(cpu, divisor);
  // Older figures have no wait, which stays 0 over no time too.
  if (isNewer) cpu.waitTime /= divisor;
  if (!counts) lists.primary.PopHead();
}

// --- Memory, types 3 and 19 ---

constexpr Conversion LEVEL{.form = Form::WIDE};
constexpr Conversion RATE{.form = Form::WIDE, .per = Per::INTERVAL};

constexpr FieldRule<MemoryRecord> MEMORY_RULES[] = {
    {.field = 301},
    {.field = 302, .to = To<&MemoryRecord::freeKb>(), .as = LEVEL},
    {.field = 303, .to = To<&MemoryRecord::sharedKb>(), .as = LEVEL},
    {.field = 304, .to = To<&MemoryRecord::buffersKb>(), .as = LEVEL},
    {.field = 305, .to = To<&MemoryRecord::cacheKb>(), .as = LEVEL},
    {.field = 306, .last = 307, .to = Detail<&MemoryRecord::unread, 6>(), .as = LEVEL},
    {.field = 308, .to = To<&MemoryRecord::pageInRate>(), .as = RATE},
    {.field = 309, .to = To<&MemoryRecord::pageOutRate>(), .as = RATE},
    {.field = 310, .to = To<&MemoryRecord::swapInRate>(), .as = RATE},
    {.field = 311, .to = To<&MemoryRecord::swapOutRate>(), .as = RATE},
};

// --- Processes, types 4 and 21 ---

// A size as it is in the file: unsigned where counters are wide, else not below 0.
uint64_t SizeOf(const Source& from) {
  if (from.decoding.state.wideCounters) return from.field.Uint64();
  return static_cast<uint64_t>(std::max(from.field.Int32(), 0));
}

// Bytes to kilobytes.
void StoreVirtualSize(ProcessRecord& process, const Source& from) {
  process.sizeVirtual = static_cast<int64_t>(SizeOf(from) >> 10);
}

// Pages to kilobytes.
void StoreResidentSize(ProcessRecord& process, const Source& from) {
  process.sizeResident = static_cast<int64_t>((SizeOf(from) * PageSizeOf(from.decoding.context)) >> 10);
}

constexpr Conversion CPU_SECONDS{.form = Form::WIDE, .sign = Sign::NOT_NEGATIVE, .scale = TICKS_PER_SECOND};
constexpr Conversion FAULTS{.form = Form::WIDE, .sign = Sign::NOT_NEGATIVE};

constexpr FieldRule<ProcessRecord> PROCESS_RULES[] = {
    {.field = 401},
    {.field = 402, .to = Detail<&ProcessRecord::processId>()},
    {.field = 403, .last = 404},
    {.field = 405, .to = Detail<&ProcessRecord::processIdB>()},
    {.field = 406},
    {.field = 407, .to = To<&ProcessRecord::userCpuSeconds>(), .as = CPU_SECONDS},
    {.field = 408, .to = To<&ProcessRecord::systemCpuSeconds>(), .as = CPU_SECONDS},
    {.field = 412, .to = To<&ProcessRecord::name>()},
    {.field = 413, .to = To<&ProcessRecord::userName>(), .wantedFor = RecordKind::PROCESS_USERS},
    {.field = 414,
     .to = To<&ProcessRecord::minorFaults>(),
     .as = FAULTS,
     .wantedFor = RecordKind::PROCESS_FAULTS},
    {.field = 415,
     .to = To<&ProcessRecord::majorFaults>(),
     .as = FAULTS,
     .wantedFor = RecordKind::PROCESS_FAULTS},
    {.field = 420, .to = Detail<StoreVirtualSize>()},
    {.field = 421, .to = To<StoreResidentSize>(), .wantedFor = RecordKind::PROCESS_SIZES},
    {.field = 422, .last = 428},
};

void DecodeProcess(Decoding& decoding) {
  VmrContext& context = decoding.context;
  ProcessRecord& process = ContextPushProcess(context, decoding.isTwin);
  const bool counts = ApplyRules<PROCESS_RULES>(process, decoding);
  if (context.config) process.elapsedSeconds = context.config->intervalSeconds;
  if (!counts) context.processes.Of(decoding.isTwin).PopHead();
}

// --- Configuration, type 5 ---

constexpr FieldRule<SystemConfig> CONFIG_RULES[] = {
    {.field = 501, .to = To<StoreMemoryMb<>>()},
    {.field = 502, .to = Detail<&SystemConfig::configText, 2>()},
    {.field = 503, .to = To<&SystemConfig::cpuCount>()},
    {.field = 504, .to = To<&SystemConfig::configNode>()},
    {.field = 505, .to = To<&SystemConfig::versionText>()},
    {.field = 506, .to = Detail<&SystemConfig::configText, 6>()},
    {.field = 508, .last = 510, .to = Detail<&SystemConfig::configText, 8>()},
    {.field = 513, .to = To<&SystemConfig::intervalSeconds>(), .as = {.divide = Divide::AT_LEAST_1}},
    {.field = 515, .to = Detail<&SystemConfig::intervalMillis>()},
};

void DecodeConfig(Decoding& decoding) {
  constexpr int32_t PAGE_SIZE = 4096;  // these files carry none
  DecodeConfigBy<CONFIG_RULES>(decoding);
  if (decoding.context.config) decoding.context.config->pageSize = PAGE_SIZE;
}

// --- Protocol counters, types 11 and 22 ---

using namespace linux_counters;

// A few are settings and stay as they are. The number of established connections is a level too, and is
// divided by the interval all the same.
constexpr FieldRule<ProtocolCounters> COUNTER_RULES[] = {
    {.field = 1101, .last = 1102, .to = To<&ProtocolCounters::counters, IP_FORWARDING>(), .as = LEVEL},
    {.field = 1103, .last = 1145, .to = To<&ProtocolCounters::counters, IP_IN_RECEIVES>(), .as = RATE},
    {.field = 1146, .last = 1148, .to = To<&ProtocolCounters::counters, TCP_RTO_ALGORITHM>(), .as = LEVEL},
    {.field = 1149, .last = 1161, .to = To<&ProtocolCounters::counters, TCP_MAX_CONN>(), .as = RATE},
};

// --- File systems, types 14 and 24; LAN adapters, types 15 and 25 ---

constexpr auto FILE_SYSTEM_RULES = FileSystemRules(1401, 1402, 1403);
constexpr auto LAN_RULES =
    LanRules({.form = Form::UINT64, .per = Per::INTERVAL, .divide = Divide::AT_LEAST_1});

// --- The format ---

// Type 7 has a layout and no decoder: there is nothing in it for us.
using Kind = RecordKind;
constexpr DecoderRow DECODERS[] = {
    {.type = 1, .twin = 17, .kind = Kind::MACHINE_CPU, .decode = DecodeCpuOverall},
    {.type = 2, .twin = 18, .kind = Kind::DISKS, .decode = DecodeDisk},
    {.type = 3, .twin = 19, .kind = Kind::MEMORY, .decode = DecodeToSlot<MEMORY_RULES, &VmrContext::memory>},
    {.type = 4,
     .twin = 21,
     .kind = Kind::PROCESSES,
     .decode = DecodeProcess,
     .builderFields = BUILDER_FIELDS<PROCESS_RULES>},
    {.type = 5, .kind = Kind::CONFIGURATION, .decode = DecodeConfig},
    {.type = 8, .twin = 23, .kind = Kind::PROCESSORS, .decode = DecodeCpu},
    {.type = 11, .twin = 22, .kind = Kind::PROTOCOLS, .decode = DecodeCountersBy<COUNTER_RULES>},
    {.type = 13, .twin = 29, .kind = Kind::OTHERS, .decode = DecodeLoadItem},
    {.type = 14,
     .twin = 24,
     .kind = Kind::FILE_SYSTEMS,
     .decode = DecodeToList<FILE_SYSTEM_RULES, &VmrContext::fileSystems>},
    {.type = 15, .twin = 25, .kind = Kind::ADAPTERS, .decode = DecodeToList<LAN_RULES, &VmrContext::lans>},
    {.type = 16, .twin = 26, .kind = Kind::OTHERS, .decode = DecodeSummary},
};

constexpr CollectorFormat FORMAT{
    .byteOrderOf = ByteOrderOf,
    .timeRecord = 9,
    .timeField = 901,
    .entryFields = {.version = 505, .nodeName = 504, .utcOffset = 507, .dstFlag = 511, .interval = 513},
    .intervalBelowOneIsDefault = false,
    .configuredIntervalIsDefault = false,
    .missingVersionIsUnsupported = true,
    .keepsTag = true,
    .entryTable = &linux_layouts::P730_64_TABLE,
    .versions = linux_layouts::VERSIONS,
    .versionTexts = {.notice = VersionNotice::ALWAYS,
                     .file = "Reading data file %s : ",
                     .version = "Collector Version %s\n",
                     .unknown = "\nERROR : Unrecognized data collector version: %s\n",
                     .unknownOnStandardError = false,
                     .unknownEndsProcess = true},
    .decoders = DECODERS,
};

}  // namespace ozmo::linux_files
