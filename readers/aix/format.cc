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
#include "readers/config_decoder.h"
#include "readers/formats.h"
#include "readers/shared_decoders.h"

namespace ozmo {
namespace {

ByteOrder AixByteOrder(std::string_view /*path*/) { return ByteOrder::BIG; }

// --- The machine's processors as a whole, types 1 and 17 ---

using CpuRule = FieldRule<ProcessorRecord>;

template <auto Member>
constexpr CpuRule CpuRate(int32_t fieldId) {
  return {fieldId, To<Member>, Form::WIDE, Per::INTERVAL};
}
template <size_t Index>
constexpr CpuRule EventRate(int32_t fieldId) {
  return {fieldId, ToElement<&ProcessorRecord::eventRates, Index>, Form::WIDE, Per::INTERVAL};
}
template <size_t Index>
constexpr CpuRule LoadAverage(int32_t fieldId) {
  return {fieldId,       ToElement<&ProcessorRecord::loadAverage, Index>,
          Form::WIDE,    Per::RECORD,
          Divide::NEVER, Sign::ANY,
          65536.0};
}

// Unlike those of single processors these times stay what the collector counted per second.
int AixDecodeCpuOverall(Decoding& decoding) {
  static const RuleTable<ProcessorRecord> rules{
      CpuRate<&ProcessorRecord::userTime>(101),
      CpuRate<&ProcessorRecord::systemTime>(102),
      CpuRate<&ProcessorRecord::idleTime>(103),
      CpuRate<&ProcessorRecord::waitTime>(104),
      EventRate<0>(105),
      EventRate<1>(106),
      EventRate<2>(107),
      EventRate<3>(108),
      EventRate<4>(109),
      {110, To<&ProcessorRecord::extraSecondsA>, Form::WIDE, Per::RECORD, Divide::NEVER, Sign::ANY, 100.0},
      CpuRate<&ProcessorRecord::extraSecondsB>(111),
      LoadAverage<0>(112),
      LoadAverage<1>(113),
      LoadAverage<2>(114),
      EventRate<5>(115),
  };
  return DecodeToList(rules, decoding.context.overallCpu, decoding);
}

// --- Logical processors, types 8 and 23 ---

constexpr int32_t CPU_ID_FIELD = 801;

// The field that tells the processor; null unless it stands ahead of the record's other fields, which are
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

// More processors than any machine has: a file that names ever new ones must not cost a search of them all.
constexpr size_t MAX_PROCESSORS = 4096;

// The list's record of that processor, or a new one: records of one number merge. Null when the list is full.
ProcessorRecord* FindOrPush(RecordList<ProcessorRecord>& list, int32_t cpuId) {
  const auto known =
      std::find_if(list.begin(), list.end(), [&](const ProcessorRecord& cpu) { return cpu.cpuId == cpuId; });
  if (known != list.end()) return &*known;
  if (list.size() >= MAX_PROCESSORS) return nullptr;
  ProcessorRecord& cpu = list.Push();
  cpu.cpuId = cpuId;
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

int AixDecodeCpu(Decoding& decoding) {
  static const RuleTable<ProcessorRecord> rules{
      {CPU_ID_FIELD, To<&ProcessorRecord::cpuId>},
      CpuRate<&ProcessorRecord::userTime>(802),
      CpuRate<&ProcessorRecord::systemTime>(803),
      CpuRate<&ProcessorRecord::idleTime>(804),
      CpuRate<&ProcessorRecord::waitTime>(805),
      {811, To<&ProcessorRecord::coreValueA>, Form::WIDE},
      EventRate<5>(812),
      {813, To<&ProcessorRecord::coreValueB>, Form::WIDE},
  };
  const FieldValue* id = FindCpuId(decoding.fields);
  if (id == nullptr) return 0;
  ProcessorRecord* cpu = FindOrPush(decoding.context.processors.Of(decoding.isTwin), id->Int32());
  if (cpu == nullptr) return 0;
  const int counted = ApplyRules(rules, *cpu, decoding);
  NormaliseTimes(*cpu);
  return counted;
}

// --- Memory, types 3, 12 and 19 ---

using MemoryRule = FieldRule<MemoryRecord>;

template <auto Member>
constexpr MemoryRule PageRate(int32_t fieldId) {
  return {fieldId, To<Member>, Form::INT32, Per::INTERVAL};
}
template <int32_t Field>
constexpr MemoryRule UnreadRate() {
  return {Field, ToElement<&MemoryRecord::unread, Field - 300>, Form::INT32, Per::INTERVAL};
}

// Two figures that share one place in the collector's memory structure, in which the base record keeps the
// one and the record of further figures the other: what comes last tells both.
template <auto First, auto Second>
void ToSharedPlace(MemoryRecord& memory, const FieldValue& field, const MemoryRule& rule,
                   Decoding& decoding) {
  memory.*First = Convert<float>(field, rule, decoding.state);
  memory.*Second = memory.*First;
}
constexpr MemoryRule::Store TO_ZERO_FILL_OR_PROCESSES =
    ToSharedPlace<&MemoryRecord::zeroFillFaultRate, &MemoryRecord::processMb>;

// The base record and the record of further figures fill one and the same MemoryRecord, whichever comes
// first; a twin always starts a new one.
int AixDecodeMemory(Decoding& decoding) {
  static const RuleTable<MemoryRecord> rules{
      {301, To<&MemoryRecord::freePages>},
      {302, To<&MemoryRecord::processPages>},
      {303, To<&MemoryRecord::filePages>},
      PageRate<&MemoryRecord::pageInRate>(304),
      PageRate<&MemoryRecord::pageOutRate>(305),
      UnreadRate<306>(),
      PageRate<&MemoryRecord::pageFaultRate>(307),
      UnreadRate<308>(),
      UnreadRate<309>(),
      {310, StoreMachinePageSize},
      {311, TO_ZERO_FILL_OR_PROCESSES, Form::WIDE, Per::INTERVAL},
      {312, To<&MemoryRecord::execFillFaultRate>, Form::WIDE, Per::INTERVAL},
      {313, nullptr},
      {314, nullptr},
      {315, nullptr},
      {316, nullptr},
  };
  if (decoding.isTwin) decoding.context.memory.twin.reset();
  return DecodeToSlot(rules, decoding.context.memory.Of(decoding.isTwin), decoding);
}

// Pages to megabytes: value * 4096 / 1024 / 1024, whatever page size field 310 has brought.
constexpr MemoryRule Megabytes(int32_t fieldId, MemoryRule::Store store) {
  return {fieldId, store, Form::UINT64, Per::RECORD, Divide::NEVER, Sign::ANY, 256.0};
}
template <int32_t Field>
constexpr MemoryRule UnreadMegabytes() {
  return Megabytes(Field, ToElement<&MemoryRecord::unreadMore, Field>);
}
template <int32_t Field>
constexpr MemoryRule UnreadMoreRate() {
  return {Field, ToElement<&MemoryRecord::unreadMore, Field>, Form::UINT64, Per::INTERVAL};
}
template <int32_t Field>
constexpr MemoryRule UnreadMore() {
  return {Field, ToElement<&MemoryRecord::unreadMore, Field>, Form::UINT64};
}

int AixDecodeMoreMemory(Decoding& decoding) {
  static const RuleTable<MemoryRecord> rules{
      UnreadMegabytes<1>(),
      Megabytes(2,
                To<&MemoryRecord::execFillFaultRate>),  // a figure of another kind, in the place of field 312
      Megabytes(3, To<&MemoryRecord::realMb>),
      Megabytes(4, To<&MemoryRecord::freeMb>),
      UnreadMegabytes<5>(),
      UnreadMegabytes<6>(),
      Megabytes(7, TO_ZERO_FILL_OR_PROCESSES),
      Megabytes(8, To<&MemoryRecord::systemMb>),
      UnreadMegabytes<9>(),
      UnreadMoreRate<10>(),
      UnreadMoreRate<11>(),
      UnreadMoreRate<12>(),
      UnreadMoreRate<13>(),
      UnreadMoreRate<14>(),
      UnreadMoreRate<15>(),
      UnreadMoreRate<16>(),
      UnreadMoreRate<17>(),
      UnreadMoreRate<18>(),
      Megabytes(19, To<&MemoryRecord::fileMb>),
      UnreadMegabytes<20>(),
      UnreadMegabytes<21>(),
      UnreadMegabytes<22>(),
      UnreadMore<23>(),
      UnreadMore<24>(),
      UnreadMore<25>(),
      UnreadMore<26>(),
  };
  return DecodeToSlot(rules, decoding.context.memory.primary, decoding);
}

// --- Processes, types 4 and 21 ---

using ProcessRule = FieldRule<ProcessRecord>;

template <auto Member>
constexpr ProcessRule CpuSeconds(int32_t fieldId) {
  return {fieldId, To<Member>, Form::WIDE, Per::RECORD, Divide::AT_LEAST_1, Sign::NOT_NEGATIVE};
}
constexpr ProcessRule ProcessRate(int32_t fieldId, ProcessRule::Store store) {
  return {fieldId, store,        Form::WIDE, Per::INTERVAL, Divide::AT_LEAST_1, Sign::NOT_NEGATIVE,
          1.0,     COUNTER_LIMIT};
}

void StoreSize(ProcessRecord& process, const FieldValue& field, const ProcessRule& rule, Decoding& decoding) {
  process.values[1] = Convert<int64_t>(field, rule, decoding.state);
  process.sizeResident = std::max<int64_t>(process.values[1], 0);
}

int AixDecodeProcess(Decoding& decoding) {
  static const RuleTable<ProcessRecord> rules{
      {401, nullptr},
      {402, To<&ProcessRecord::processId>},
      {403, nullptr},
      {404, StoreProcessIdText},
      {405, To<&ProcessRecord::processIdB>},
      CpuSeconds<&ProcessRecord::userCpuSeconds>(407),
      CpuSeconds<&ProcessRecord::systemCpuSeconds>(408),
      ProcessRate(409, ToElement<&ProcessRecord::rates, 0>),
      ProcessRate(410, ToElement<&ProcessRecord::rates, 1>),
      ProcessRate(411, To<&ProcessRecord::minorFaults>),
      ProcessRate(412, To<&ProcessRecord::majorFaults>),
      {413, ToElement<&ProcessRecord::values, 0>, Form::WIDE},
      {414, StoreSize, Form::WIDE},
      {415, ToElement<&ProcessRecord::values, 2>, Form::WIDE},
      {416, ToElement<&ProcessRecord::rates, 2>, Form::INT32, Per::INTERVAL, Divide::AT_LEAST_1,
       Sign::NOT_NEGATIVE},
      {417, To<&ProcessRecord::elapsedSeconds>, Form::INT32, Per::RECORD, Divide::AT_LEAST_1},
      {418, ToElement<&ProcessRecord::values, 3>},
      {419, To<&ProcessRecord::userName>},
      {420, To<&ProcessRecord::name>},
  };
  ProcessRecord& process = ContextPushProcess(decoding.context, decoding.isTwin);
  const int counted = ApplyRules(rules, process, decoding);
  if (process.name == "wait") {  // the kernel's idle process consumes nothing
    process.userCpuSeconds = 0.0F;
    process.systemCpuSeconds = 0.0F;
  }
  if (decoding.context.config) process.elapsedSeconds = decoding.context.config->intervalSeconds;
  if (counted == 0) decoding.context.processes.Of(decoding.isTwin).PopHead();
  return counted;
}

// --- Configuration, type 5 ---

int AixDecodeConfig(Decoding& decoding) {
  static const RuleTable<SystemConfig> rules{
      {501, To<&SystemConfig::versionText>},
      {502, ToElement<&SystemConfig::configText, 2>},
      {503, StoreMemoryMb, Form::NATURAL},
      {504, ToElement<&SystemConfig::configText, 4>},
      {505, ToElement<&SystemConfig::configText, 5>},
      {506, To<&SystemConfig::cpuCount>},
      {507, To<&SystemConfig::configNode>},
      {509, ToElement<&SystemConfig::configText, 9>},
      {510, ToElement<&SystemConfig::configText, 10>},
      {511, ToElement<&SystemConfig::configText, 5>},  // over the text of field 505
      {514, To<&SystemConfig::intervalSeconds>, Form::INT32, Per::RECORD, Divide::AT_LEAST_1},
      {515, To<&SystemConfig::intervalMillis>},
  };
  return DecodeConfigRecord(rules, decoding);
}

// --- Protocol counters, types 7 and 22 ---

using namespace bsd_counters;

constexpr CounterRange COUNTERS[] = {
    {.firstField = 701, .lastField = 723, .element = TCP_ATTEMPTS},
    {.firstField = 724, .lastField = 730, .element = TCP_SENT_CONTROL},
    {.firstField = 731, .lastField = 731, .element = TCP_DUPLICATE},
    {.firstField = 732, .lastField = 740, .element = TCP_DUPLICATE_BYTES},
    {.firstField = 741, .lastField = 741, .element = TCP_DUPLICATE},  // over field 731
    {.firstField = 742, .lastField = 745, .element = TCP_ACKS_OF_NOTHING},
    {.firstField = 754, .lastField = 773, .element = IP_RECEIVED},
    {.firstField = 774, .lastField = 777, .element = IP_RAW_SENT},
    {.firstField = 789, .lastField = 797, .element = UDP_RECEIVED},
};
static_assert(RangesFit(COUNTERS));

int AixDecodeNetStats(Decoding& decoding) {
  return DecodeCounters(COUNTERS, Form::WIDE, decoding.context.protocolCounters.Of(decoding.isTwin),
                        decoding);
}

// --- File systems, types 9 and 24; LAN adapters, types 15 and 25 ---

int AixDecodeFileSystem(Decoding& decoding) {
  static const RuleTable<FileSystemRecord> rules = FileSystemRules(902, 901, 903);
  return DecodeToList(rules, decoding.context.fileSystems, decoding);
}

int AixDecodeLan(Decoding& decoding) {
  static const RuleTable<LanRecord> rules = LanRules(Divide::AT_LEAST_1, COUNTER_LIMIT);
  return DecodeToList(rules, decoding.context.lans, decoding);
}

// --- The format ---

// The partition's twin, type 31, has a layout and no decoder: it is read and dropped.
// CPU times, names of a process.
constexpr int32_t PROCESS_FIELDS[] = {407, 408, 419, 420};

using Kind = RecordKind;
constexpr DecoderRow DECODERS[] = {
    {1, Kind::MACHINE_CPU, false, AixDecodeCpuOverall},
    {17, Kind::MACHINE_CPU, true, AixDecodeCpuOverall},
    {2, Kind::DISKS, false, AixDecodeDisk},
    {18, Kind::DISKS, true, AixDecodeDisk},
    {3, Kind::MEMORY, false, AixDecodeMemory},
    {19, Kind::MEMORY, true, AixDecodeMemory},
    {12, Kind::MEMORY, false, AixDecodeMoreMemory},
    {4, Kind::PROCESSES, false, AixDecodeProcess, PROCESS_FIELDS},
    {21, Kind::PROCESSES, true, AixDecodeProcess, PROCESS_FIELDS},
    {5, Kind::CONFIGURATION, false, AixDecodeConfig},
    {7, Kind::PROTOCOLS, false, AixDecodeNetStats},
    {22, Kind::PROTOCOLS, true, AixDecodeNetStats},
    {8, Kind::PROCESSORS, false, AixDecodeCpu},
    {23, Kind::PROCESSORS, true, AixDecodeCpu},
    {9, Kind::FILE_SYSTEMS, false, AixDecodeFileSystem},
    {24, Kind::FILE_SYSTEMS, true, AixDecodeFileSystem},
    {13, Kind::OTHERS, false, DecodeLoadItem},
    {29, Kind::OTHERS, true, DecodeLoadItem},
    {14, Kind::PARTITION, false, AixDecodeLpar},
    {15, Kind::ADAPTERS, false, AixDecodeLan},
    {25, Kind::ADAPTERS, true, AixDecodeLan},
    {16, Kind::OTHERS, false, DecodeSummary},
    {26, Kind::OTHERS, true, DecodeSummary},
};

constexpr VersionRule VERSIONS[] = {
    {VersionMatch::EQUALS, "P910_64", &AIX_P910_64, FlagChange::SET},
    {VersionMatch::EQUALS, "P910", &AIX_P910, FlagChange::CLEAR},
    {VersionMatch::EQUALS, "P730_64", &AIX_P730_64, FlagChange::SET},
    {VersionMatch::EQUALS, "P730", &AIX_P730, FlagChange::CLEAR},
    {VersionMatch::EQUALS, "P720_64", &AIX_P720_64, FlagChange::SET},
    {VersionMatch::EQUALS, "P720", &AIX_P720, FlagChange::CLEAR},
    {VersionMatch::EQUALS, "P300_64", &AIX_P300_64, FlagChange::SET},
    {VersionMatch::EQUALS, "P300", &AIX_P300, FlagChange::CLEAR},
    {VersionMatch::EQUALS, "540", &AIX_P300, FlagChange::CLEAR},
};

}  // namespace

const CollectorFormat AIX_FORMAT{
    .name = "AIX",
    .byteOrderOf = AixByteOrder,
    .timeRecord = 6,
    .timeField = 601,
    .entryFields = {.version = 501, .nodeName = 507, .utcOffset = 508, .dstFlag = 512, .interval = 514},
    .intervalBelowOneIsDefault = true,
    .configuredIntervalIsDefault = true,
    .missingVersionIsUnsupported = true,
    .keepsTag = false,
    .entryTable = &AIX_P910,
    .versions = VERSIONS,
    .versionTexts = {.notice = VersionNotice::NONE,
                     .file = {},
                     .version = {},
                     .unknown = "\nUnrecognized data collector version %s\n",
                     .unknownOnStandardError = false,
                     .unknownEndsProcess = false},
    .decoders = DECODERS,
};

}  // namespace ozmo
