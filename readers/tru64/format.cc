// Tru64 collector files, little-endian. They have no name prefix: any file of no other kind comes here,
// whatever it holds.
#include <string>

#include "readers/bsd_protocol_counters.h"
#include "readers/config_decoder.h"
#include "readers/formats.h"
#include "readers/shared_decoders.h"
#include "readers/tru64/layouts.h"

namespace ozmo {
namespace {

ByteOrder Tru64ByteOrder(std::string_view /*path*/) { return ByteOrder::LITTLE; }

// --- Overall counters, types 1 and 17 ---

template <size_t Index>
constexpr FieldRule<RateRecord> OverallRate(int32_t fieldId) {
  return {fieldId, ToElement<&RateRecord::rates, Index>, Form::INT32, Per::INTERVAL, Divide::AT_LEAST_1};
}

int Tru64DecodeOverall(Decoding& decoding) {
  static const RuleTable<RateRecord> rules{
      OverallRate<0>(104),
      OverallRate<1>(105),
      OverallRate<2>(106),
      OverallRate<3>(107),
  };
  return DecodeToList(rules, decoding.context.rateItems, decoding);
}

// --- Disks, types 2 and 18 ---

using DiskRule = FieldRule<DiskRecord>;

template <auto Member>
constexpr DiskRule DiskRate(int32_t fieldId) {
  return {fieldId, To<Member>, Form::UINT64, Per::INTERVAL, Divide::AT_LEAST_1};
}

// A disk without operations has no times, whatever the file says; nor has one without an interval.
void FinishDisk(DiskRecord& disk, int32_t intervalSeconds) {
  if (static_cast<float>(intervalSeconds) * disk.ioRate > 0.0F) {
    disk.responsePerIo = disk.servicePerIo + disk.waitPerIo;
    disk.busyFraction = static_cast<float>(disk.ioRate * disk.servicePerIo / 1000.0);
    disk.queueLength = static_cast<float>(disk.ioRate * disk.responsePerIo / 1000.0);
  } else {
    disk.servicePerIo = 0.0F;
    disk.waitPerIo = 0.0F;
    disk.responsePerIo = 0.0F;
    disk.busyFraction = 0.0F;
    disk.queueLength = 0.0F;
  }
}

int Tru64DecodeDisk(Decoding& decoding) {
  static const RuleTable<DiskRecord> rules{
      {201, To<&DiskRecord::deviceName>},
      DiskRate<&DiskRecord::ioRate>(202),
      DiskRate<&DiskRecord::totalBytesRate>(203),
      {204, nullptr},  // the queue length is worked out from the others
      {205, To<&DiskRecord::waitPerIo>, Form::UINT64, Per::RECORD, Divide::AT_LEAST_1},
      {206, To<&DiskRecord::servicePerIo>, Form::UINT64, Per::RECORD, Divide::ABOVE_1},
      {207, nullptr},
  };
  auto& lists = decoding.context.disks;
  const int counted = DecodeToList(rules, lists, decoding);
  if (counted == 0) return 0;
  DiskRecord& disk = lists.Of(decoding.isTwin).head();
  FinishDisk(disk, decoding.state.intervalSeconds);
  ContextFindAlias(decoding.context, disk);
  return counted;
}

// --- Memory, types 3 and 19 ---

using MemoryRule = FieldRule<MemoryRecord>;

template <int32_t Field>
constexpr MemoryRule Unread(Form form = Form::UINT64) {
  return {Field, ToElement<&MemoryRecord::unread, Field - 300>, form};
}
template <auto Member>
constexpr MemoryRule Pages(int32_t fieldId) {
  return {fieldId, To<Member>, Form::UINT64};
}
template <auto Member>
constexpr MemoryRule Rate(int32_t fieldId) {
  return {fieldId, To<Member>, Form::UINT64, Per::INTERVAL};
}

void StorePageSize(MemoryRecord& /*memory*/, const FieldValue& field, const MemoryRule& /*rule*/,
                   Decoding& decoding) {
  const auto size = static_cast<double>(field.Uint64());
  if (decoding.context.config) decoding.context.config->pageSize = ClampTo<int32_t>(size);
}

// Sums over the records of an interval.
void AddWiredPages(MemoryRecord& memory, const FieldValue& field, const MemoryRule& /*rule*/,
                   Decoding& /*decoding*/) {
  memory.wiredPages += static_cast<float>(field.Uint64());
}

int Tru64DecodeMemory(Decoding& decoding) {
  static const RuleTable<MemoryRecord> rules{
      Unread<301>(Form::INT32),
      Unread<302>(Form::INT32),
      Unread<303>(),
      Unread<304>(),
      Unread<305>(),
      Unread<306>(),
      Unread<307>(),
      Unread<308>(),
      {309, StorePageSize},
      {310, ToRounded<&MemoryRecord::freePages>, Form::UINT64},
      Pages<&MemoryRecord::activePages>(311),
      Pages<&MemoryRecord::inactivePages>(312),
      {313, AddWiredPages},
      Rate<&MemoryRecord::kernelFaultRate>(314),
      Rate<&MemoryRecord::copyOnWriteFaultRate>(315),
      Rate<&MemoryRecord::copyOnWriteStealRate>(316),
      Rate<&MemoryRecord::zeroFillFaultRate>(317),
      Rate<&MemoryRecord::kernelZeroFillFaultRate>(318),
      Rate<&MemoryRecord::bufferCacheFaultRate>(319),
      Pages<&MemoryRecord::bufferCachePages>(325),
      {328, nullptr},
      {329, nullptr},
      {331, nullptr},
      {332, nullptr},
      Rate<&MemoryRecord::pageReadRate>(333),
      Rate<&MemoryRecord::pageWriteRate>(334),
  };
  return DecodeToSlot(rules, decoding.context.memory.Of(decoding.isTwin), decoding);
}

// --- Processes, types 4 and 21 ---

using ProcessRule = FieldRule<ProcessRecord>;

// Newer collectors count in microseconds; old ones in hundredths, which is the divisor of their layout.
template <auto Member>
void StoreCpuSeconds(ProcessRecord& process, const FieldValue& field, const ProcessRule& rule,
                     Decoding& decoding) {
  const RecordTable* table = decoding.state.activeTable;
  const bool isMicroseconds = table == &TRU64_P730 || table == &TRU64_P720;
  ProcessRule scaled = rule;
  scaled.scale = isMicroseconds ? 1000000.0 : 1.0;
  process.*Member = Convert<float>(field, scaled, decoding.state);
}

template <auto Member>
constexpr ProcessRule CpuSeconds(int32_t fieldId) {
  return {fieldId, StoreCpuSeconds<Member>, Form::UINT64, Per::RECORD, Divide::ABOVE_1, Sign::NOT_NEGATIVE};
}
template <size_t Index>
constexpr ProcessRule NeutralRate(int32_t fieldId) {
  return {fieldId,
          ToElement<&ProcessRecord::rates, Index>,
          Form::UINT64,
          Per::RECORD,
          Divide::AT_LEAST_1,
          Sign::NOT_NEGATIVE};
}

// Bytes to kilobytes.
void StoreKilobytes(ProcessRecord& process, const FieldValue& field, const ProcessRule& /*rule*/,
                    Decoding& /*decoding*/) {
  process.values[0] = static_cast<int64_t>(field.Uint64() >> 10);
}

int Tru64DecodeProcess(Decoding& decoding) {
  static const RuleTable<ProcessRecord> rules{
      {402, To<&ProcessRecord::processId>},
      {403, To<&ProcessRecord::processIdC>},
      {404, To<&ProcessRecord::processField406>},
      {405, To<&ProcessRecord::processIdB>},
      CpuSeconds<&ProcessRecord::userCpuSeconds>(407),
      CpuSeconds<&ProcessRecord::systemCpuSeconds>(408),
      NeutralRate<0>(409),
      NeutralRate<1>(410),
      {411, To<&ProcessRecord::name>},
      NeutralRate<2>(412),
      NeutralRate<3>(413),
      {414, To<&ProcessRecord::sizeVirtual>, Form::UINT64},
      {415, To<&ProcessRecord::sizeResident>, Form::UINT64},
      {416, StoreKilobytes},
      NeutralRate<4>(417),
      {418, To<&ProcessRecord::userName>},
      {419, To<&ProcessRecord::elapsedSeconds>, Form::INT32, Per::RECORD, Divide::AT_LEAST_1},
      {420, To<&ProcessRecord::priority>},
      {421, To<&ProcessRecord::extraText>},
  };
  VmrContext& context = decoding.context;
  ProcessRecord& process = ContextPushProcess(context, decoding.isTwin);
  const int counted = ApplyRules(rules, process, decoding);
  if (context.config) process.elapsedSeconds = context.config->intervalSeconds;
  if (counted == 0) context.processes.Of(decoding.isTwin).RecycleHead(context.processes.primary);
  return counted;
}

// --- Configuration, type 5 ---

void StoreMemorySize(SystemConfig& config, const FieldValue& field, const FieldRule<SystemConfig>& /*rule*/,
                     Decoding& /*decoding*/) {
  const double value = field.Int32();
  config.memoryMb = static_cast<float>(field.divisor > 0 ? value / (1000.0 * field.divisor) : value);
}

void StoreSystemRelease(SystemConfig& config, const FieldValue& field,
                        const FieldRule<SystemConfig>& /*rule*/, Decoding& /*decoding*/) {
  config.configText[1] = field.Text();
  if (config.configText[0] == "OSF1" && field.Text().starts_with("V5.0")) config.isOsf1V5 = true;
}

int Tru64DecodeConfig(Decoding& decoding) {
  static const RuleTable<SystemConfig> rules{
      {501, StoreMemorySize},
      {502, ToElement<&SystemConfig::configText, 6>},
      {503, To<&SystemConfig::cpuCount>},
      {504, To<&SystemConfig::configNode>},
      {505, To<&SystemConfig::versionText>},
      {506, ToElement<&SystemConfig::configText, 9>},
      {508, ToElement<&SystemConfig::configText, 0>},
      {509, StoreSystemRelease},
      {510, ToElement<&SystemConfig::configText, 3>},
      {513, To<&SystemConfig::intervalSeconds>, Form::INT32, Per::RECORD, Divide::AT_LEAST_1},
      {515, To<&SystemConfig::intervalMillis>},
  };
  return DecodeConfigRecord(rules, decoding);
}

// --- Names, type 6, and device aliases, type 7 ---

int Tru64DecodeNames(Decoding& decoding) {
  static const RuleTable<NameRecord> rules{
      {601, To<&NameRecord::first>},
      {602, To<&NameRecord::second>},
  };
  RecordList<NameRecord>& names = decoding.context.names;
  const int counted = ApplyRules(rules, names.Push(), decoding);
  if (counted == 0) names.PopHead();
  return counted;
}

// An alias counts from its newest record on. A broken file doesn't make the table grow beyond what any host
// has.
int Tru64DecodeAlias(Decoding& decoding) {
  constexpr size_t MAX_ALIASES = 4096;
  static const RuleTable<DeviceAlias> rules{
      {701, To<&DeviceAlias::deviceName>},
      {702, To<&DeviceAlias::displayName>},
  };
  DeviceAlias alias;
  const int counted = ApplyRules(rules, alias, decoding);
  if (counted == 0) return 0;
  auto& aliases = decoding.context.deviceAliases;
  if (aliases.size() >= MAX_ALIASES && !aliases.contains(alias.deviceName)) return 0;
  aliases.insert_or_assign(alias.deviceName, alias.displayName);
  return counted;
}

// --- Processors, types 8 and 23 ---

using CpuRule = FieldRule<ProcessorRecord>;

template <auto Member>
void StoreTicks(ProcessorRecord& cpu, const FieldValue& field, const CpuRule& /*rule*/,
                Decoding& /*decoding*/) {
  cpu.*Member = 100.0 * static_cast<double>(field.Uint64());
}

// Without its ticks per second a processor can't be told and is dropped.
int Tru64DecodeCpu(Decoding& decoding) {
  static const RuleTable<ProcessorRecord> rules{
      {801, To<&ProcessorRecord::cpuId>},
      {804, StoreTicks<&ProcessorRecord::niceTime>},
      {805, StoreTicks<&ProcessorRecord::userTime>},
      {806, StoreTicks<&ProcessorRecord::systemTime>},
      {807, StoreTicks<&ProcessorRecord::waitTime>},
      {808, StoreTicks<&ProcessorRecord::idleTime>},
      {809, To<&ProcessorRecord::clockTicks>},
  };
  RecordList<ProcessorRecord>& list = decoding.context.processors.Of(decoding.isTwin);
  ProcessorRecord& cpu = list.Push();
  const int counted = ApplyRules(rules, cpu, decoding);
  if (counted == 0 || !(cpu.clockTicks > 0.0)) {
    list.PopHead();
    return 0;
  }
  const double ticks = decoding.state.intervalSeconds * cpu.clockTicks;
  for (const auto member :
       {&ProcessorRecord::niceTime, &ProcessorRecord::userTime, &ProcessorRecord::systemTime,
        &ProcessorRecord::waitTime, &ProcessorRecord::idleTime}) {
    cpu.*member /= ticks;
  }
  return counted;
}

// --- Kernel and network counters, types 11 and 22 ---

int Tru64DecodeCounters(Decoding& decoding) {
  static constexpr CounterRange COUNTERS[] = {
      {.firstField = 1101, .lastField = 1129, .element = bsd_counters::TCP_ATTEMPTS}};
  static_assert(RangesFit(COUNTERS));
  return DecodeCounters(COUNTERS, Form::INT32, decoding.context.protocolCounters.Of(decoding.isTwin),
                        decoding);
}

// --- File systems, types 12 and 24 ---

template <auto Member>
void StoreShortText(FileSystemRecord& fileSystem, const FieldValue& field,
                    const FieldRule<FileSystemRecord>& /*rule*/, Decoding& /*decoding*/) {
  constexpr size_t LONGEST_TEXT = 32;
  fileSystem.*Member = field.Text().substr(0, LONGEST_TEXT);
}

int Tru64DecodeFileSystem(Decoding& decoding) {
  static const RuleTable<FileSystemRecord> rules{
      {1201, StoreShortText<&FileSystemRecord::mountName>},
      {1202, StoreShortText<&FileSystemRecord::deviceName>},
      {1203, To<&FileSystemRecord::blockSize>},
      {1204, To<&FileSystemRecord::totalBlocks>},
      {1205, To<&FileSystemRecord::freeBlocks>},
      {1206, To<&FileSystemRecord::availableBlocks>},
      {1207, To<&FileSystemRecord::totalFiles>},
      {1208, To<&FileSystemRecord::freeFiles>},
  };
  return DecodeToList(rules, decoding.context.fileSystems, decoding);
}

// --- LAN adapters, types 15 and 25 ---

int Tru64DecodeLan(Decoding& decoding) {
  static const RuleTable<LanRecord> rules = LanRules(Divide::NEVER);
  return DecodeToList(rules, decoding.context.lans, decoding);
}

// --- The format ---

// CPU times, names of a process.
constexpr int32_t PROCESS_FIELDS[] = {407, 408, 411, 418};

using Kind = RecordKind;
constexpr DecoderRow DECODERS[] = {
    {1, Kind::OTHERS, false, Tru64DecodeOverall},
    {17, Kind::OTHERS, true, Tru64DecodeOverall},
    {2, Kind::DISKS, false, Tru64DecodeDisk},
    {18, Kind::DISKS, true, Tru64DecodeDisk},
    {3, Kind::MEMORY, false, Tru64DecodeMemory},
    {19, Kind::MEMORY, true, Tru64DecodeMemory},
    {4, Kind::PROCESSES, false, Tru64DecodeProcess, PROCESS_FIELDS},
    {21, Kind::PROCESSES, true, Tru64DecodeProcess, PROCESS_FIELDS},
    {5, Kind::CONFIGURATION, false, Tru64DecodeConfig},
    {6, Kind::OTHERS, false, Tru64DecodeNames},
    {7, Kind::DISKS, false, Tru64DecodeAlias},
    {8, Kind::PROCESSORS, false, Tru64DecodeCpu},
    {23, Kind::PROCESSORS, true, Tru64DecodeCpu},
    {11, Kind::PROTOCOLS, false, Tru64DecodeCounters},
    {22, Kind::PROTOCOLS, true, Tru64DecodeCounters},
    {12, Kind::FILE_SYSTEMS, false, Tru64DecodeFileSystem},
    {24, Kind::FILE_SYSTEMS, true, Tru64DecodeFileSystem},
    {15, Kind::ADAPTERS, false, Tru64DecodeLan},
    {25, Kind::ADAPTERS, true, Tru64DecodeLan},
    {16, Kind::OTHERS, false, DecodeSummary},
    {26, Kind::OTHERS, true, DecodeSummary},
};

constexpr VersionRule VERSIONS[] = {
    {VersionMatch::CONTAINS, "P730", &TRU64_P730}, {VersionMatch::CONTAINS, "P720", &TRU64_P720},
    {VersionMatch::EQUALS, "P300", &TRU64_P300},   {VersionMatch::EQUALS, "V530", &TRU64_P300},
    {VersionMatch::EQUALS, "V520", &TRU64_V520},   {VersionMatch::EQUALS, "V510", &TRU64_V520},
    {VersionMatch::EQUALS, "V505", &TRU64_V520},
};

}  // namespace

const CollectorFormat TRU64_FORMAT{
    .name = "Tru64",
    .byteOrderOf = Tru64ByteOrder,
    .timeRecord = 9,
    .timeField = 901,
    .entryFields = {.version = 505, .nodeName = 504, .utcOffset = 507, .dstFlag = 511, .interval = 513},
    .intervalBelowOneIsDefault = true,
    .configuredIntervalIsDefault = false,
    .missingVersionIsUnsupported = false,
    .keepsTag = false,
    .entryTable = &TRU64_P730,
    .versions = VERSIONS,
    .versionTexts = {.notice = VersionNotice::ALWAYS,
                     .file = "Reading data file %s : ",
                     .version = "Collector Version %s\n",
                     .unknown = "\nERROR : Unrecognized Data Collector Version %s\n",
                     .unknownOnStandardError = true,
                     .unknownEndsProcess = true},
    .decoders = DECODERS,
};

}  // namespace ozmo
