// HP-UX collector files: qtxh_, big-endian.
//
// The longest version list of all. A text that contains "540", V530 and the V5xx texts leave the width of
// counters as an earlier file of the run has set it, and once a file has had old disk figures, the disk
// timing figures of those that follow aren't trusted either.
#include <string>

#include "readers/bsd_protocol_counters.h"
#include "readers/config_decoder.h"
#include "readers/formats.h"
#include "readers/hpux/disks.h"
#include "readers/hpux/layouts.h"
#include "readers/shared_decoders.h"

namespace ozmo {
namespace {

ByteOrder HpuxByteOrder(std::string_view /*path*/) { return ByteOrder::BIG; }

// --- The machine's processors as a whole, types 1 and 17 ---

using CpuRule = FieldRule<ProcessorRecord>;

// Old versions bring time at lowered priority in field 105. Without a configuration record none is known.
bool HasNiceTime(const VmrContext& context) {
  if (!context.config) return false;
  const std::string& version = context.config->versionText;
  return version == "V525" || version == "V530" || version.find("540") != version.npos ||
         version.find("P300") != version.npos;
}

template <auto Member>
constexpr CpuRule OverallRate(int32_t fieldId) {
  return {fieldId, To<Member>, Form::INT32, Per::INTERVAL, Divide::AT_LEAST_1};
}
template <size_t Index>
constexpr CpuRule EventRate(int32_t fieldId) {
  return {fieldId, ToElement<&ProcessorRecord::eventRates, Index>, Form::INT32, Per::INTERVAL,
          Divide::AT_LEAST_1};
}
template <size_t Index>
constexpr CpuRule Load(int32_t fieldId) {
  return {fieldId,       ToElement<&ProcessorRecord::loadAverage, Index>,
          Form::INT32,   Per::RECORD,
          Divide::NEVER, Sign::ANY,
          100.0};
}

void DivideWaitTime(ProcessorRecord& cpu, const FieldValue& field) {
  if (field.divisor >= 1) cpu.waitTime /= field.divisor;
}

void StoreWaitTime(ProcessorRecord& cpu, const FieldValue& field, const CpuRule& rule, Decoding& decoding) {
  cpu.waitTime = Convert<double>(field, rule, decoding.state);
  DivideWaitTime(cpu, field);
}

// The divisor of the nice time lands on the wait time, which has been stored before it.
void StoreNiceTime(ProcessorRecord& cpu, const FieldValue& field, const CpuRule& rule, Decoding& decoding) {
  if (!HasNiceTime(decoding.context)) return;
  cpu.niceTime = Convert<double>(field, rule, decoding.state);
  DivideWaitTime(cpu, field);
}

// In whole numbers; without an interval there is no rate.
void StoreExtraSeconds(ProcessorRecord& cpu, const FieldValue& field, const CpuRule& /*rule*/,
                       Decoding& decoding) {
  const int64_t interval = decoding.state.intervalSeconds;
  const int64_t seconds = interval != 0 ? field.Int32() / interval : 0;
  cpu.extraSecondsA = static_cast<double>(seconds);
}

int HpuxDecodeCpuOverall(Decoding& decoding) {
  static const RuleTable<ProcessorRecord> rules{
      OverallRate<&ProcessorRecord::userTime>(101),
      OverallRate<&ProcessorRecord::systemTime>(102),
      OverallRate<&ProcessorRecord::idleTime>(103),
      {104, StoreWaitTime, Form::INT32, Per::INTERVAL},
      {105, StoreNiceTime, Form::INT32, Per::INTERVAL},
      EventRate<5>(106),
      EventRate<6>(107),
      EventRate<7>(110),
      EventRate<3>(111),
      {113, StoreExtraSeconds},
      Load<0>(114),
      Load<1>(115),
      Load<2>(116),
  };
  return DecodeToList(rules, decoding.context.overallCpu, decoding);
}

// --- Processors, types 8 and 23 ---

template <auto Member>
constexpr CpuRule CpuTime(int32_t fieldId) {
  return {fieldId, To<Member>, Form::INT32, Per::RECORD, Divide::AT_LEAST_1};
}

// Ticks become fractions of the interval by the file's own ticks per second; a record without those divides
// by 0. Twins keep their ticks.
void DivideTimes(ProcessorRecord& cpu, int32_t intervalSeconds) {
  const double ticks = intervalSeconds * cpu.clockTicks;
  cpu.idleTime /= ticks;
  cpu.userTime /= ticks;
  cpu.waitTime /= ticks;
  cpu.systemTime /= ticks;
}

int HpuxDecodeCpu(Decoding& decoding) {
  static const RuleTable<ProcessorRecord> rules{
      {801, To<&ProcessorRecord::cpuId>},         CpuTime<&ProcessorRecord::idleTime>(802),
      CpuTime<&ProcessorRecord::userTime>(803),   CpuTime<&ProcessorRecord::waitTime>(804),
      CpuTime<&ProcessorRecord::systemTime>(805),
  };
  static const RuleTable<ProcessorRecord> ticks{CpuTime<&ProcessorRecord::clockTicks>(812)};
  RecordList<ProcessorRecord>& list = decoding.context.processors.Of(decoding.isTwin);
  ProcessorRecord& cpu = list.Push();
  const int counted = ApplyRules(rules, cpu, decoding);
  ApplyRules(ticks, cpu, decoding);  // they don't count
  if (!decoding.isTwin) DivideTimes(cpu, decoding.state.intervalSeconds);
  if (counted == 0) list.PopHead();
  return counted;
}

// --- Memory, types 3 and 19 ---

using MemoryRule = FieldRule<MemoryRecord>;

template <auto Member>
constexpr MemoryRule PageRate(int32_t fieldId) {
  return {fieldId, To<Member>, Form::WIDE, Per::INTERVAL};
}
template <int32_t Field>
constexpr MemoryRule Unread(Per per) {
  return {Field, ToElement<&MemoryRecord::unread, Field - 300>, Form::WIDE, per};
}

int HpuxDecodeMemory(Decoding& decoding) {
  static const RuleTable<MemoryRecord> rules{
      {301, To<&MemoryRecord::freePages>, Form::UINT64},
      Unread<303>(Per::RECORD),
      Unread<304>(Per::RECORD),
      {305, StoreMachinePageSize, Form::WIDE},
      PageRate<&MemoryRecord::pageInRate>(306),
      PageRate<&MemoryRecord::pageOutRate>(307),
      Unread<308>(Per::INTERVAL),
      Unread<309>(Per::INTERVAL),
      PageRate<&MemoryRecord::swapInRate>(310),
      PageRate<&MemoryRecord::swapOutRate>(311),
      PageRate<&MemoryRecord::majorFaultRate>(313),
      {322, To<&MemoryRecord::activePages>, Form::WIDE},
      Unread<323>(Per::RECORD),
      PageRate<&MemoryRecord::copyOnWriteFaultRate>(326),
      PageRate<&MemoryRecord::zeroFillFaultRate>(327),
  };
  return DecodeToSlot(rules, decoding.context.memory.Of(decoding.isTwin), decoding);
}

// --- Processes, types 4 and 21 ---

using ProcessRule = FieldRule<ProcessRecord>;

template <auto Member>
constexpr ProcessRule CpuSeconds(int32_t fieldId) {
  return {fieldId, To<Member>, Form::WIDE, Per::RECORD, Divide::AT_LEAST_1, Sign::NOT_NEGATIVE};
}
template <auto Member>
constexpr ProcessRule ProcessRate(int32_t fieldId) {
  return {fieldId, To<Member>, Form::WIDE, Per::INTERVAL, Divide::AT_LEAST_1, Sign::NOT_NEGATIVE};
}
template <size_t Index>
constexpr ProcessRule NeutralValue(int32_t fieldId) {
  return {fieldId,
          ToElement<&ProcessRecord::values, Index>,
          Form::WIDE,
          Per::RECORD,
          Divide::AT_LEAST_1,
          Sign::NOT_NEGATIVE};
}

// Pages, by the page size that a memory record has told.
void StoreResidentSize(ProcessRecord& process, const FieldValue& field, const ProcessRule& rule,
                       Decoding& decoding) {
  const auto pages = static_cast<uint64_t>(Convert<int64_t>(field, rule, decoding.state));
  const auto& config = decoding.context.config;
  const uint64_t pageSize = config && config->pageSize > 0 ? static_cast<uint64_t>(config->pageSize) : 1;
  process.sizeResident = static_cast<int64_t>(pages * pageSize);
}

int HpuxDecodeProcess(Decoding& decoding) {
  static const RuleTable<ProcessRecord> rules{
      {401, nullptr},
      {402, To<&ProcessRecord::processId>},
      {403, To<&ProcessRecord::processIdC>},
      {404, StoreProcessIdText},
      {405, To<&ProcessRecord::processIdB>},
      CpuSeconds<&ProcessRecord::userCpuSeconds>(406),
      CpuSeconds<&ProcessRecord::systemCpuSeconds>(407),
      {408, StoreResidentSize, Form::WIDE, Per::RECORD, Divide::AT_LEAST_1, Sign::NOT_NEGATIVE},
      ProcessRate<&ProcessRecord::minorFaults>(409),
      ProcessRate<&ProcessRecord::majorFaults>(410),
      {411, ToElement<&ProcessRecord::rates, 2>, Form::WIDE, Per::INTERVAL, Divide::AT_LEAST_1,
       Sign::NOT_NEGATIVE},
      NeutralValue<0>(412),
      NeutralValue<2>(413),
      NeutralValue<1>(414),
      {415, To<&ProcessRecord::elapsedSeconds>, Form::INT32, Per::RECORD, Divide::AT_LEAST_1},
      {416, ToElement<&ProcessRecord::values, 3>},
      {417, To<&ProcessRecord::name>},
      {418, To<&ProcessRecord::userName>},
  };
  ProcessRecord& process = ContextPushProcess(decoding.context, decoding.isTwin);
  const int counted = ApplyRules(rules, process, decoding);
  if (counted == 0) decoding.context.processes.Of(decoding.isTwin).PopHead();
  return counted;
}

// --- Configuration, type 5 ---

int HpuxDecodeConfig(Decoding& decoding) {
  static const RuleTable<SystemConfig> rules{
      {501, To<&SystemConfig::versionText>},
      {502, ToElement<&SystemConfig::configText, 2>},
      {503, StoreMemoryMb, Form::UINT64},
      {504, ToElement<&SystemConfig::configText, 4>},
      {505, ToElement<&SystemConfig::configText, 5>},
      {506, To<&SystemConfig::cpuCount>},
      {507, To<&SystemConfig::configNode>},
      {509, ToElement<&SystemConfig::configText, 9>},
      {510, ToElement<&SystemConfig::configText, 10>},
      {511, ToElement<&SystemConfig::configText, 11>},
      {514, To<&SystemConfig::intervalSeconds>, Form::INT32, Per::RECORD, Divide::AT_LEAST_1},
      {515, To<&SystemConfig::intervalMillis>},
  };
  return DecodeConfigRecord(rules, decoding);
}

// --- Protocol counters: types 7, and 11 with its twin 22 ---

using namespace bsd_counters;

constexpr CounterRange FIRST_PART[] = {
    {.firstField = 701, .lastField = 752, .element = TCP_ATTEMPTS},
    {.firstField = 755, .lastField = 764, .element = IP_RECEIVED},
};
static_assert(RangesFit(FIRST_PART));

// The second part stands in the place of the BSD counters from the delivered IP packets on, where the graphs
// read it.
constexpr CounterRange SECOND_PART[] = {
    {.firstField = 1001, .lastField = 1001, .element = IP_DELIVERED},
    {.firstField = 1002,
     .lastField = 1002,
     .element = IP_GENERATED,
     .per = Per::RECORD},  // connections: a level
    {.firstField = 1003, .lastField = 1008, .element = 69},
    {.firstField = 1009, .lastField = 1035, .element = 76},
    {.firstField = 1036, .lastField = 1044, .element = 104},
    {.firstField = 1045, .lastField = 1045, .element = 115},
    {.firstField = 1046, .lastField = 1047, .element = 117},
    {.firstField = 1048, .lastField = 1048, .element = 116},
    {.firstField = 1049, .lastField = 1056, .element = 119},
    {.firstField = 1057, .lastField = 1061, .element = 128},
    {.firstField = 1062, .lastField = 1067, .element = 134},
    {.firstField = 1068, .lastField = 1080, .element = 141},
    {.firstField = 1081, .lastField = 1083, .element = 167},
    {.firstField = 1084, .lastField = 1085, .element = 172},
    {.firstField = 1086, .lastField = 1098, .element = 154},
    {.firstField = 1099, .lastField = 1100, .element = 170},
};
static_assert(RangesFit(SECOND_PART));

// Each part makes a record of its own: the part that comes last in an interval is what stands.
int HpuxDecodeNetStats(Decoding& decoding) {
  std::optional<ProtocolCounters>& slot = decoding.context.protocolCounters.primary;
  slot.reset();
  const int counted = DecodeCounters(FIRST_PART, Form::INT32, slot, decoding);
  if (slot) slot->hasFirstPart = true;
  return counted;
}

int HpuxDecodeNetStats2(Decoding& decoding) {
  std::optional<ProtocolCounters>& slot = decoding.context.protocolCounters.Of(decoding.isTwin);
  slot.reset();
  return DecodeCounters(SECOND_PART, Form::INT32, slot, decoding);
}

// --- File systems, types 9 and 24 ---

int HpuxDecodeFileSystem(Decoding& decoding) {
  static const RuleTable<FileSystemRecord> rules = FileSystemRules(901, 902, 903);
  return DecodeToList(rules, decoding.context.fileSystems, decoding);
}

// --- LAN adapters, types 15 and 25 ---

// The divisor of the errors acts a second time, tested by nothing.
int HpuxDecodeLan(Decoding& decoding) {
  constexpr int32_t ERRORS_IN = 1504;
  static const RuleTable<LanRecord> rules = LanRules();
  auto& lists = decoding.context.lans;
  const int counted = DecodeToList(rules, lists, decoding);
  for (const FieldValue& field : decoding.fields) {
    if (field.data == nullptr || field.fieldId != ERRORS_IN) continue;
    lists.Of(decoding.isTwin).head().errorsInRate /= static_cast<float>(field.divisor);
  }
  return counted;
}

// --- The format ---

// CPU times, names of a process.
constexpr int32_t PROCESS_FIELDS[] = {406, 407, 417, 418};

using Kind = RecordKind;
constexpr DecoderRow DECODERS[] = {
    {1, Kind::MACHINE_CPU, false, HpuxDecodeCpuOverall},
    {17, Kind::MACHINE_CPU, true, HpuxDecodeCpuOverall},
    {2, Kind::DISKS, false, HpuxDecodeDisk},
    {18, Kind::DISKS, true, HpuxDecodeDisk},
    {3, Kind::MEMORY, false, HpuxDecodeMemory},
    {19, Kind::MEMORY, true, HpuxDecodeMemory},
    {4, Kind::PROCESSES, false, HpuxDecodeProcess, PROCESS_FIELDS},
    {21, Kind::PROCESSES, true, HpuxDecodeProcess, PROCESS_FIELDS},
    {5, Kind::CONFIGURATION, false, HpuxDecodeConfig},
    {7, Kind::PROTOCOLS, false, HpuxDecodeNetStats},
    {8, Kind::PROCESSORS, false, HpuxDecodeCpu},
    {23, Kind::PROCESSORS, true, HpuxDecodeCpu},
    {9, Kind::FILE_SYSTEMS, false, HpuxDecodeFileSystem},
    {24, Kind::FILE_SYSTEMS, true, HpuxDecodeFileSystem},
    {11, Kind::PROTOCOLS, false, HpuxDecodeNetStats2},
    {22, Kind::PROTOCOLS, true, HpuxDecodeNetStats2},
    {13, Kind::OTHERS, false, DecodeLoadItem},
    {29, Kind::OTHERS, true, DecodeLoadItem},
    {15, Kind::ADAPTERS, false, HpuxDecodeLan},
    {25, Kind::ADAPTERS, true, HpuxDecodeLan},
    {16, Kind::OTHERS, false, DecodeSummary},
    {26, Kind::OTHERS, true, DecodeSummary},
};

constexpr VersionMatch EQUALS = VersionMatch::EQUALS;
constexpr VersionRule VERSIONS[] = {
    {EQUALS, "P730_64", &HPUX_P730_64, FlagChange::SET},
    {EQUALS, "P730", &HPUX_P730, FlagChange::CLEAR},
    {EQUALS, "P720_64", &HPUX_P720_64, FlagChange::SET},
    {EQUALS, "P720", &HPUX_P720, FlagChange::CLEAR},
    {EQUALS, "P300_64", &HPUX_P300_64, FlagChange::SET, FlagChange::SET},
    {EQUALS, "P300", &HPUX_P300, FlagChange::CLEAR, FlagChange::SET},
    {VersionMatch::CONTAINS, "540", &HPUX_P300, FlagChange::UNCHANGED, FlagChange::SET},
    {EQUALS, "V530", &HPUX_V530, FlagChange::UNCHANGED, FlagChange::SET},
    {EQUALS, "V525", &HPUX_V520, FlagChange::UNCHANGED, FlagChange::SET},
    {EQUALS, "V520", &HPUX_V520, FlagChange::UNCHANGED, FlagChange::SET},
    {EQUALS, "V510", &HPUX_V520, FlagChange::UNCHANGED, FlagChange::SET},
};

}  // namespace

const CollectorFormat HPUX_FORMAT{
    .name = "HP-UX",
    .byteOrderOf = HpuxByteOrder,
    .timeRecord = 6,
    .timeField = 601,
    .entryFields = {.version = 501, .nodeName = 507, .utcOffset = 508, .dstFlag = 512, .interval = 514},
    .intervalBelowOneIsDefault = true,
    .configuredIntervalIsDefault = true,
    .missingVersionIsUnsupported = true,
    .keepsTag = false,
    .entryTable = &HPUX_P730,
    .versions = VERSIONS,
    .versionTexts = {.notice = VersionNotice::ALWAYS,
                     .file = "Reading data file:    %s  \n",
                     .version = "Reading data version: %s \n",
                     .unknown = "\nFatal, Unrecognized Data Collector Version %s",
                     .unknownOnStandardError = true,
                     .unknownEndsProcess = true},
    .decoders = DECODERS,
    .keepsWideCounters = true,
};

}  // namespace ozmo
