// Linux collector files: qtxl_, little-endian.
//
// Such a file carries its version twice. The version text of the configuration record chooses the record
// table and the width of counters; the text of the latest tag record chooses the generation of the processor
// decoders. A file whose two marks disagree is read with the table of the one and the decoders of the other.
#include <algorithm>
#include <string_view>

#include "readers/config_decoder.h"
#include "readers/formats.h"
#include "readers/linux/counters.h"
#include "readers/linux/disks.h"
#include "readers/linux/layouts.h"
#include "readers/shared_decoders.h"

namespace ozmo {
namespace {

ByteOrder LinuxByteOrder(std::string_view /*path*/) { return ByteOrder::LITTLE; }

// A file without a tag record has old processor figures.
bool HasNewerCpuFigures(const ReaderState& state) {
  const std::string_view tag = state.collectorTag;
  return tag.find("P720") != tag.npos || tag.find("P730") != tag.npos;
}

// --- The machine's processors as a whole, types 1 and 17 ---

using CpuRule = FieldRule<ProcessorRecord>;

constexpr double TICKS_PER_SECOND = 100.0;

// Ticks to seconds per second.
template <auto Member>
constexpr CpuRule Ticks(int32_t fieldId) {
  return {fieldId, To<Member>, Form::NATURAL, Per::INTERVAL, Divide::AT_LEAST_1, Sign::ANY, TICKS_PER_SECOND};
}
template <size_t Index>
constexpr CpuRule EventRate(int32_t fieldId) {
  return {fieldId, ToElement<&ProcessorRecord::eventRates, Index>, Form::NATURAL, Per::INTERVAL,
          Divide::AT_LEAST_1};
}

void StoreBothExtraSeconds(ProcessorRecord& cpu, const FieldValue& field, const CpuRule& rule,
                           Decoding& decoding) {
  cpu.extraSecondsA = Convert<double>(field, rule, decoding.state);
  cpu.extraSecondsB = cpu.extraSecondsA;
}

int LinuxDecodeCpuOverallNew(Decoding& decoding) {
  static const RuleTable<ProcessorRecord> rules{
      Ticks<&ProcessorRecord::userTime>(101),
      Ticks<&ProcessorRecord::niceTime>(102),
      Ticks<&ProcessorRecord::systemTime>(103),
      Ticks<&ProcessorRecord::idleTime>(104),
      Ticks<&ProcessorRecord::waitTime>(105),
      EventRate<0>(106),
      EventRate<1>(107),
      EventRate<2>(108),
      {109, StoreBothExtraSeconds, Form::NATURAL, Per::RECORD, Divide::NEVER, Sign::ANY, 100.0},
  };
  auto& lists = decoding.context.overallCpu;
  const int counted = DecodeToList(rules, lists, decoding);
  if (counted > 0) {
    ProcessorRecord& cpu = lists.Of(decoding.isTwin).head();
    cpu.eventRateSum = cpu.eventRates[0] + cpu.eventRates[1];
  }
  return counted;
}

// The figures stay in ticks per second here.
template <auto Member>
constexpr CpuRule TickRate(int32_t fieldId) {
  return {fieldId, To<Member>, Form::WIDE, Per::INTERVAL, Divide::AT_LEAST_1};
}

int LinuxDecodeCpuOverallOld(Decoding& decoding) {
  static const RuleTable<ProcessorRecord> rules{
      TickRate<&ProcessorRecord::userTime>(101),
      TickRate<&ProcessorRecord::niceTime>(102),
      TickRate<&ProcessorRecord::systemTime>(103),
      TickRate<&ProcessorRecord::idleTime>(104),
  };
  return DecodeToList(rules, decoding.context.overallCpu, decoding);
}

int LinuxDecodeCpuOverall(Decoding& decoding) {
  return HasNewerCpuFigures(decoding.state) ? LinuxDecodeCpuOverallNew(decoding)
                                            : LinuxDecodeCpuOverallOld(decoding);
}

// --- Processors, types 8 and 23 ---

template <auto Member>
constexpr CpuRule CpuTime(int32_t fieldId, Form form) {
  return {fieldId, To<Member>, form, Per::RECORD, Divide::AT_LEAST_1};
}

void DivideTimes(ProcessorRecord& cpu, double divisor) {
  // Field 806 tells ticks per second, but the figures are taken at 100 whatever it brings.
  cpu.clockTicks = TICKS_PER_SECOND;
  cpu.userTime /= divisor;
  cpu.niceTime /= divisor;
  cpu.systemTime /= divisor;
  cpu.idleTime /= divisor;
  cpu.waitTime /= divisor;
}

// A record without a counted field costs the base list its head, also when it is a twin's.
int DecodeCpuBy(const RuleTable<ProcessorRecord>& rules, double divisor, Decoding& decoding) {
  auto& lists = decoding.context.processors;
  ProcessorRecord& cpu = lists.Of(decoding.isTwin).Push();
  const int counted = ApplyRules(rules, cpu, decoding);
  DivideTimes(cpu, divisor);
  if (counted == 0) lists.primary.PopHead();
  return counted;
}

int LinuxDecodeCpuNew(Decoding& decoding) {
  static const RuleTable<ProcessorRecord> rules{
      {801, To<&ProcessorRecord::cpuId>},
      CpuTime<&ProcessorRecord::userTime>(802, Form::NATURAL),
      CpuTime<&ProcessorRecord::niceTime>(803, Form::NATURAL),
      CpuTime<&ProcessorRecord::systemTime>(804, Form::NATURAL),
      CpuTime<&ProcessorRecord::idleTime>(805, Form::NATURAL),
      {806, nullptr},
      CpuTime<&ProcessorRecord::waitTime>(807, Form::NATURAL),
      {808, nullptr},
      {809, nullptr},
      {810, nullptr},
  };
  const double interval = decoding.isTwin ? 1.0 : decoding.state.intervalSeconds;
  return DecodeCpuBy(rules, interval * TICKS_PER_SECOND, decoding);
}

int LinuxDecodeCpuOld(Decoding& decoding) {
  static const RuleTable<ProcessorRecord> rules{
      {801, To<&ProcessorRecord::cpuId>},
      CpuTime<&ProcessorRecord::userTime>(802, Form::WIDE),
      CpuTime<&ProcessorRecord::niceTime>(803, Form::WIDE),
      CpuTime<&ProcessorRecord::systemTime>(804, Form::WIDE),
      CpuTime<&ProcessorRecord::idleTime>(805, Form::WIDE),
      {806, nullptr},
  };
  return DecodeCpuBy(rules, decoding.state.intervalSeconds * TICKS_PER_SECOND, decoding);
}

int LinuxDecodeCpu(Decoding& decoding) {
  return HasNewerCpuFigures(decoding.state) ? LinuxDecodeCpuNew(decoding) : LinuxDecodeCpuOld(decoding);
}

// --- Memory, types 3 and 19 ---

template <auto Member>
constexpr FieldRule<MemoryRecord> Level(int32_t fieldId) {
  return {fieldId, To<Member>, Form::WIDE};
}
template <auto Member>
constexpr FieldRule<MemoryRecord> PageRate(int32_t fieldId) {
  return {fieldId, To<Member>, Form::WIDE, Per::INTERVAL};
}

int LinuxDecodeMemory(Decoding& decoding) {
  static const RuleTable<MemoryRecord> rules{
      {301, nullptr},
      Level<&MemoryRecord::freeKb>(302),
      Level<&MemoryRecord::sharedKb>(303),
      Level<&MemoryRecord::buffersKb>(304),
      Level<&MemoryRecord::cacheKb>(305),
      {306, ToElement<&MemoryRecord::unread, 6>, Form::WIDE},
      {307, ToElement<&MemoryRecord::unread, 7>, Form::WIDE},
      PageRate<&MemoryRecord::pageInRate>(308),
      PageRate<&MemoryRecord::pageOutRate>(309),
      PageRate<&MemoryRecord::swapInRate>(310),
      PageRate<&MemoryRecord::swapOutRate>(311),
  };
  return DecodeToSlot(rules, decoding.context.memory.Of(decoding.isTwin), decoding);
}

// --- Processes, types 4 and 21 ---

using ProcessRule = FieldRule<ProcessRecord>;

template <auto Member>
constexpr ProcessRule CpuSeconds(int32_t fieldId) {
  return {fieldId, To<Member>, Form::WIDE, Per::RECORD, Divide::NEVER, Sign::NOT_NEGATIVE, TICKS_PER_SECOND};
}
template <auto Member>
constexpr ProcessRule FaultCount(int32_t fieldId) {
  return {fieldId, To<Member>, Form::WIDE, Per::RECORD, Divide::NEVER, Sign::NOT_NEGATIVE};
}

// A size as it stands in the file: unsigned where counters are wide, else not below 0.
uint64_t SizeOf(const FieldValue& field, const Decoding& decoding) {
  if (decoding.state.wideCounters) return field.Uint64();
  return static_cast<uint64_t>(std::max(field.Int32(), 0));
}

// Bytes to kilobytes.
void StoreVirtualSize(ProcessRecord& process, const FieldValue& field, const ProcessRule& /*rule*/,
                      Decoding& decoding) {
  process.sizeVirtual = static_cast<int64_t>(SizeOf(field, decoding) >> 10);
}

// Pages to kilobytes.
void StoreResidentSize(ProcessRecord& process, const FieldValue& field, const ProcessRule& /*rule*/,
                       Decoding& decoding) {
  const auto& config = decoding.context.config;
  const uint64_t pageSize = config && config->pageSize > 0 ? static_cast<uint64_t>(config->pageSize) : 1;
  process.sizeResident = static_cast<int64_t>((SizeOf(field, decoding) * pageSize) >> 10);
}

int LinuxDecodeProcess(Decoding& decoding) {
  static const RuleTable<ProcessRecord> rules{
      {401, nullptr},
      {402, To<&ProcessRecord::processId>},
      {403, nullptr},
      {404, nullptr},
      {405, To<&ProcessRecord::processIdB>},
      {406, nullptr},
      CpuSeconds<&ProcessRecord::userCpuSeconds>(407),
      CpuSeconds<&ProcessRecord::systemCpuSeconds>(408),
      {412, To<&ProcessRecord::name>},
      {413, To<&ProcessRecord::userName>},
      FaultCount<&ProcessRecord::minorFaults>(414),
      FaultCount<&ProcessRecord::majorFaults>(415),
      {420, StoreVirtualSize},
      {421, StoreResidentSize},
      {422, nullptr},
      {423, nullptr},
      {424, nullptr},
      {425, nullptr},
      {426, nullptr},
      {427, nullptr},
      {428, nullptr},
  };
  ProcessRecord& process = ContextPushProcess(decoding.context, decoding.isTwin);
  const int counted = ApplyRules(rules, process, decoding);
  if (decoding.context.config) process.elapsedSeconds = decoding.context.config->intervalSeconds;
  if (counted == 0) decoding.context.processes.Of(decoding.isTwin).PopHead();
  return counted;
}

// --- Configuration, type 5 ---

int LinuxDecodeConfig(Decoding& decoding) {
  constexpr int32_t PAGE_SIZE = 4096;  // these files carry none
  static const RuleTable<SystemConfig> rules{
      {501, StoreMemoryMb},
      {502, ToElement<&SystemConfig::configText, 2>},
      {503, To<&SystemConfig::cpuCount>},
      {504, To<&SystemConfig::configNode>},
      {505, To<&SystemConfig::versionText>},
      {506, ToElement<&SystemConfig::configText, 6>},
      {508, ToElement<&SystemConfig::configText, 8>},
      {509, ToElement<&SystemConfig::configText, 9>},
      {510, ToElement<&SystemConfig::configText, 10>},
      {513, To<&SystemConfig::intervalSeconds>, Form::INT32, Per::RECORD, Divide::AT_LEAST_1},
      {515, To<&SystemConfig::intervalMillis>},
  };
  const int counted = DecodeConfigRecord(rules, decoding);
  if (decoding.context.config) decoding.context.config->pageSize = PAGE_SIZE;
  return counted;
}

// --- Protocol counters, types 11 and 22 ---

using namespace linux_counters;

// A few are settings and stay as they stand. The number of established connections is a level too, and is
// divided by the interval all the same.
constexpr CounterRange COUNTERS[] = {
    {.firstField = 1101, .lastField = 1102, .element = IP_FORWARDING, .per = Per::RECORD},
    {.firstField = 1103, .lastField = 1145, .element = IP_IN_RECEIVES},
    {.firstField = 1146, .lastField = 1148, .element = TCP_RTO_ALGORITHM, .per = Per::RECORD},
    {.firstField = 1149, .lastField = 1161, .element = TCP_MAX_CONN},
};
static_assert(RangesFit(COUNTERS));

int LinuxDecodeNetStats(Decoding& decoding) {
  return DecodeCounters(COUNTERS, Form::WIDE, decoding.context.protocolCounters.Of(decoding.isTwin),
                        decoding);
}

// --- File systems, types 14 and 24; LAN adapters, types 15 and 25 ---

int LinuxDecodeFileSystem(Decoding& decoding) {
  static const RuleTable<FileSystemRecord> rules = FileSystemRules(1401, 1402, 1403);
  return DecodeToList(rules, decoding.context.fileSystems, decoding);
}

int LinuxDecodeLan(Decoding& decoding) {
  static const RuleTable<LanRecord> rules = LanRules();
  return DecodeToList(rules, decoding.context.lans, decoding);
}

// --- The format ---

// Type 7 has a layout and no decoder: there is nothing in it for us.
// CPU times, names and faults of a process.
constexpr int32_t PROCESS_FIELDS[] = {407, 408, 412, 413, 414, 415};

using Kind = RecordKind;
constexpr DecoderRow DECODERS[] = {
    {1, Kind::MACHINE_CPU, false, LinuxDecodeCpuOverall},
    {17, Kind::MACHINE_CPU, true, LinuxDecodeCpuOverall},
    {2, Kind::DISKS, false, LinuxDecodeDisk},
    {18, Kind::DISKS, true, LinuxDecodeDisk},
    {3, Kind::MEMORY, false, LinuxDecodeMemory},
    {19, Kind::MEMORY, true, LinuxDecodeMemory},
    {4, Kind::PROCESSES, false, LinuxDecodeProcess, PROCESS_FIELDS},
    {21, Kind::PROCESSES, true, LinuxDecodeProcess, PROCESS_FIELDS},
    {5, Kind::CONFIGURATION, false, LinuxDecodeConfig},
    {8, Kind::PROCESSORS, false, LinuxDecodeCpu},
    {23, Kind::PROCESSORS, true, LinuxDecodeCpu},
    {11, Kind::PROTOCOLS, false, LinuxDecodeNetStats},
    {22, Kind::PROTOCOLS, true, LinuxDecodeNetStats},
    {13, Kind::OTHERS, false, DecodeLoadItem},
    {29, Kind::OTHERS, true, DecodeLoadItem},
    {14, Kind::FILE_SYSTEMS, false, LinuxDecodeFileSystem},
    {24, Kind::FILE_SYSTEMS, true, LinuxDecodeFileSystem},
    {15, Kind::ADAPTERS, false, LinuxDecodeLan},
    {25, Kind::ADAPTERS, true, LinuxDecodeLan},
    {16, Kind::OTHERS, false, DecodeSummary},
    {26, Kind::OTHERS, true, DecodeSummary},
};

constexpr VersionRule VERSIONS[] = {
    {VersionMatch::EQUALS, "P730", &LINUX_P730, FlagChange::CLEAR},
    {VersionMatch::CONTAINS, "P730_64", &LINUX_P730_64, FlagChange::SET},
    {VersionMatch::EQUALS, "P720", &LINUX_P720, FlagChange::CLEAR},
    {VersionMatch::CONTAINS, "P720_64", &LINUX_P720_64, FlagChange::SET},
    {VersionMatch::EQUALS, "P300", &LINUX_P300, FlagChange::CLEAR},
    {VersionMatch::CONTAINS, "540", &LINUX_P300, FlagChange::CLEAR},
    {VersionMatch::CONTAINS, "P300_64", &LINUX_P300_64, FlagChange::SET},
};

}  // namespace

const CollectorFormat LINUX_FORMAT{
    .name = "Linux",
    .byteOrderOf = LinuxByteOrder,
    .timeRecord = 9,
    .timeField = 901,
    .entryFields = {.version = 505, .nodeName = 504, .utcOffset = 507, .dstFlag = 511, .interval = 513},
    .intervalBelowOneIsDefault = false,
    .configuredIntervalIsDefault = false,
    .missingVersionIsUnsupported = true,
    .keepsTag = true,
    .entryTable = &LINUX_P730_64,
    .versions = VERSIONS,
    .versionTexts = {.notice = VersionNotice::ALWAYS,
                     .file = "Reading data file %s : ",
                     .version = "Collector Version %s\n",
                     .unknown = "\nERROR : Unrecognized data collector version: %s\n",
                     .unknownOnStandardError = false,
                     .unknownEndsProcess = true},
    .decoders = DECODERS,
};

}  // namespace ozmo
