// Tru64 collector files, little-endian. They have no name prefix: any file of no other kind comes here,
// whatever it holds.
#include <string>

#include "readers/bsd_protocol_counters.h"
#include "readers/formats.h"
#include "readers/shared_decoders.h"
#include "readers/tru64/layouts.h"

namespace ozmo::tru64_files {

ByteOrder ByteOrderOf(std::string_view /*path*/) { return ByteOrder::LITTLE; }

// --- Overall counters, types 1 and 17 ---

constexpr Conversion DIVIDED_RATE{.per = Per::INTERVAL, .divide = Divide::AT_LEAST_1};

constexpr FieldRule<RateRecord> OVERALL_RULES[] = {
    {.field = 104, .last = 107, .to = Detail<&RateRecord::rates>(), .as = DIVIDED_RATE},
};

// --- Disks, types 2 and 18 ---

constexpr Conversion DISK_RATE{.form = Form::UINT64, .per = Per::INTERVAL, .divide = Divide::AT_LEAST_1};

constexpr FieldRule<DiskRecord> DISK_RULES[] = {
    {.field = 201, .to = To<&DiskRecord::deviceName>()},
    {.field = 202, .to = To<&DiskRecord::ioRate>(), .as = DISK_RATE},
    {.field = 203, .to = To<&DiskRecord::totalBytesRate>(), .as = DISK_RATE},
    {.field = 204},  // the queue length is worked out from the others
    {.field = 205,
     .to = To<&DiskRecord::waitPerIo>(),
     .as = {.form = Form::UINT64, .divide = Divide::AT_LEAST_1}},
    {.field = 206,
     .to = To<&DiskRecord::servicePerIo>(),
     .as = {.form = Form::UINT64, .divide = Divide::ABOVE_1}},
    {.field = 207},
};

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

void DecodeDisk(Decoding& decoding) {
  RecordList<DiskRecord>& list = decoding.context.disks.Of(decoding.isTwin);
  if (!FillHead<DISK_RULES>(list, decoding)) return;
  FinishDisk(list.head(), decoding.state.intervalSeconds);
  ContextFindAlias(decoding.context, list.head());
}

// --- Memory, types 3 and 19 ---

// The free pages pass through single precision, unlike those of other formats.
void StoreFreePages(MemoryRecord& memory, const Source& from) {
  memory.freePages = static_cast<double>(Convert<float>(from));
}

// Sums over the records of an interval.
void AddWiredPages(MemoryRecord& memory, const Source& from) { memory.wiredPages += Convert<float>(from); }

constexpr Conversion LEVEL{.form = Form::UINT64};
constexpr Conversion RATE{.form = Form::UINT64, .per = Per::INTERVAL};

constexpr FieldRule<MemoryRecord> MEMORY_RULES[] = {
    {.field = 301, .last = 302, .to = Detail<&MemoryRecord::unread, 1>()},
    {.field = 303, .last = 308, .to = Detail<&MemoryRecord::unread, 3>(), .as = LEVEL},
    {.field = 309, .to = To<StoreMachinePageSize>(), .as = LEVEL},
    {.field = 310, .to = To<StoreFreePages>(), .as = LEVEL},
    {.field = 311, .to = To<&MemoryRecord::activePages>(), .as = LEVEL},
    {.field = 312, .to = To<&MemoryRecord::inactivePages>(), .as = LEVEL},
    {.field = 313, .to = To<AddWiredPages>(), .as = LEVEL},
    {.field = 314, .to = To<&MemoryRecord::kernelFaultRate>(), .as = RATE},
    {.field = 315, .to = To<&MemoryRecord::copyOnWriteFaultRate>(), .as = RATE},
    {.field = 316, .to = To<&MemoryRecord::copyOnWriteStealRate>(), .as = RATE},
    {.field = 317, .to = To<&MemoryRecord::zeroFillFaultRate>(), .as = RATE},
    {.field = 318, .to = To<&MemoryRecord::kernelZeroFillFaultRate>(), .as = RATE},
    {.field = 319, .to = To<&MemoryRecord::bufferCacheFaultRate>(), .as = RATE},
    {.field = 325, .to = To<&MemoryRecord::bufferCachePages>(), .as = LEVEL},
    {.field = 328, .last = 329},
    {.field = 331, .last = 332},
    {.field = 333, .to = To<&MemoryRecord::pageReadRate>(), .as = RATE},
    {.field = 334, .to = To<&MemoryRecord::pageWriteRate>(), .as = RATE},
};

// --- Processes, types 4 and 21 ---

template <auto Member>
void StoreCpuSeconds(ProcessRecord& process, const Source& from) {
  Conversion as = from.as;
  as.scale = from.decoding.state.activeTable->processTimeUnits;
  process.*Member = Convert<float>({from.field, as, from.place, from.decoding});
}

// Bytes to kilobytes.
void StoreKilobytes(ProcessRecord& process, const Source& from) {
  process.values[0] = static_cast<int64_t>(from.field.Uint64() >> 10);
}

constexpr Conversion CPU_SECONDS{.form = Form::UINT64, .divide = Divide::ABOVE_1, .sign = Sign::NOT_NEGATIVE};
constexpr Conversion FIGURE{.form = Form::UINT64, .divide = Divide::AT_LEAST_1, .sign = Sign::NOT_NEGATIVE};

constexpr FieldRule<ProcessRecord> PROCESS_RULES[] = {
    {.field = 402, .to = Detail<&ProcessRecord::processId>()},
    {.field = 403, .to = Detail<&ProcessRecord::processIdC>()},
    {.field = 404, .to = Detail<&ProcessRecord::processField406>()},
    {.field = 405, .to = Detail<&ProcessRecord::processIdB>()},
    {.field = 407, .to = To<StoreCpuSeconds<&ProcessRecord::userCpuSeconds>>(), .as = CPU_SECONDS},
    {.field = 408, .to = To<StoreCpuSeconds<&ProcessRecord::systemCpuSeconds>>(), .as = CPU_SECONDS},
    {.field = 409, .last = 410, .to = Detail<&ProcessRecord::rates, 0>(), .as = FIGURE},
    {.field = 411, .to = To<&ProcessRecord::name>()},
    {.field = 412, .last = 413, .to = Detail<&ProcessRecord::rates, 2>(), .as = FIGURE},
    {.field = 414, .to = Detail<&ProcessRecord::sizeVirtual>(), .as = LEVEL},
    {.field = 415,
     .to = To<&ProcessRecord::sizeResident>(),
     .as = LEVEL,
     .wantedFor = RecordKind::PROCESS_SIZES},
    {.field = 416, .to = Detail<StoreKilobytes>()},
    {.field = 417, .to = Detail<&ProcessRecord::rates, 4>(), .as = FIGURE},
    {.field = 418, .to = To<&ProcessRecord::userName>(), .wantedFor = RecordKind::PROCESS_USERS},
    {.field = 419, .to = Detail<&ProcessRecord::elapsedSeconds>(), .as = {.divide = Divide::AT_LEAST_1}},
    {.field = 420, .to = Detail<&ProcessRecord::priority>()},
    {.field = 421, .to = Detail<&ProcessRecord::extraText>()},
};

void DecodeProcess(Decoding& decoding) {
  VmrContext& context = decoding.context;
  ProcessRecord& process = ContextPushProcess(context, decoding.isTwin);
  const bool counts = ApplyRules<PROCESS_RULES>(process, decoding);
  if (context.config) process.elapsedSeconds = context.config->intervalSeconds;
  if (!counts) context.processes.Of(decoding.isTwin).RecycleHead(context.processes.primary);
}

// --- Configuration, type 5 ---

void StoreSystemRelease(SystemConfig& config, const Source& from) {
  config.configText[1] = from.field.Text();
  if (tru64_layouts::IsOsf1V5(config.configText[0], config.configText[1])) config.isOsf1V5 = true;
}

constexpr FieldRule<SystemConfig> CONFIG_RULES[] = {
    {.field = 501, .to = To<StoreMemoryMb<1000>>()},
    {.field = 502, .to = Detail<&SystemConfig::configText, 6>()},
    {.field = 503, .to = To<&SystemConfig::cpuCount>()},
    {.field = 504, .to = To<&SystemConfig::configNode>()},
    {.field = 505, .to = To<&SystemConfig::versionText>()},
    {.field = 506, .to = Detail<&SystemConfig::configText, 9>()},
    {.field = 508, .to = Detail<&SystemConfig::configText, 0>()},
    {.field = 509, .to = Detail<StoreSystemRelease>()},
    {.field = 510, .to = Detail<&SystemConfig::configText, 3>()},
    {.field = 513, .to = To<&SystemConfig::intervalSeconds>(), .as = {.divide = Divide::AT_LEAST_1}},
    {.field = 515, .to = Detail<&SystemConfig::intervalMillis>()},
};

// --- Names, type 6, and device aliases, type 7 ---

constexpr FieldRule<NameRecord> NAME_RULES[] = {
    {.field = 601, .to = Detail<&NameRecord::first>()},
    {.field = 602, .to = Detail<&NameRecord::second>()},
};

void DecodeNames(Decoding& decoding) { FillHead<NAME_RULES>(decoding.context.names, decoding); }

constexpr FieldRule<DeviceAlias> ALIAS_RULES[] = {
    {.field = 701, .to = To<&DeviceAlias::deviceName>()},
    {.field = 702, .to = To<&DeviceAlias::displayName>()},
};

// An alias counts from its newest record on. A broken file doesn't make the table grow beyond what any host
// has.
void DecodeAlias(Decoding& decoding) {
  constexpr size_t MAX_ALIASES = 4096;
  DeviceAlias alias;
  if (!ApplyRules<ALIAS_RULES>(alias, decoding)) return;
  auto& aliases = decoding.context.deviceAliases;
  if (aliases.size() >= MAX_ALIASES && !aliases.contains(alias.deviceName)) return;
  aliases.insert_or_assign(alias.deviceName, alias.displayName);
}

// --- Processors, types 8 and 23 ---

template <auto Member>
void StoreTicks(ProcessorRecord& cpu, const Source& from) {
  cpu.*Member = 100.0 * static_cast<double>(from.field.Uint64());
}

constexpr FieldRule<ProcessorRecord> CPU_RULES[] = {
    {.field = 801, .to = To<&ProcessorRecord::cpuId>()},
    {.field = 804, .to = To<StoreTicks<&ProcessorRecord::niceTime>>()},
    {.field = 805, .to = To<StoreTicks<&ProcessorRecord::userTime>>()},
    {.field = 806, .to = To<StoreTicks<&ProcessorRecord::systemTime>>()},
    {.field = 807, .to = To<StoreTicks<&ProcessorRecord::waitTime>>()},
    {.field = 808, .to = To<StoreTicks<&ProcessorRecord::idleTime>>()},
    {.field = 809, .to = To<&ProcessorRecord::clockTicks>()},
};

// Without its ticks per second a processor's times can't be known, and it is dropped.
void DecodeCpu(Decoding& decoding) {
  RecordList<ProcessorRecord>& list = decoding.context.processors.Of(decoding.isTwin);
  ProcessorRecord& cpu = list.Push();
  if (!ApplyRules<CPU_RULES>(cpu, decoding) || !(cpu.clockTicks > 0.0)) {
    list.PopHead();
    return;
  }
  const double ticks = decoding.state.intervalSeconds * cpu.clockTicks;
  for (const auto member :
       {&ProcessorRecord::niceTime, &ProcessorRecord::userTime, &ProcessorRecord::systemTime,
        &ProcessorRecord::waitTime, &ProcessorRecord::idleTime}) {
    cpu.*member /= ticks;
  }
}

// --- Kernel and network counters, types 11 and 22 ---

constexpr FieldRule<ProtocolCounters> COUNTER_RULES[] = {
    {.field = 1101,
     .last = 1129,
     .to = To<&ProtocolCounters::counters, bsd_counters::TCP_ATTEMPTS>(),
     .as = {.per = Per::INTERVAL}},
};

// --- File systems, types 12 and 24 ---

template <auto Member>
void StoreShortText(FileSystemRecord& fileSystem, const Source& from) {
  constexpr size_t LONGEST_TEXT = 32;
  fileSystem.*Member = from.field.Text().substr(0, LONGEST_TEXT);
}

constexpr FieldRule<FileSystemRecord> FILE_SYSTEM_RULES[] = {
    {.field = 1201, .to = To<StoreShortText<&FileSystemRecord::mountName>>()},
    {.field = 1202, .to = To<StoreShortText<&FileSystemRecord::deviceName>>()},
    {.field = 1203, .to = To<&FileSystemRecord::blockSize>()},
    {.field = 1204, .to = To<&FileSystemRecord::totalBlocks>()},
    {.field = 1205, .to = To<&FileSystemRecord::freeBlocks>()},
    {.field = 1206, .to = To<&FileSystemRecord::availableBlocks>()},
    {.field = 1207, .to = To<&FileSystemRecord::totalFiles>()},
    {.field = 1208, .to = To<&FileSystemRecord::freeFiles>()},
};

// --- LAN adapters, types 15 and 25 ---

constexpr auto LAN_RULES = LanRules({.form = Form::UINT64, .per = Per::INTERVAL});

// --- The format ---

using Kind = RecordKind;
constexpr DecoderRow DECODERS[] = {
    {.type = 1,
     .twin = 17,
     .kind = Kind::OTHERS,
     .decode = DecodeToList<OVERALL_RULES, &VmrContext::rateItems>},
    {.type = 2, .twin = 18, .kind = Kind::DISKS, .decode = DecodeDisk},
    {.type = 3, .twin = 19, .kind = Kind::MEMORY, .decode = DecodeToSlot<MEMORY_RULES, &VmrContext::memory>},
    {.type = 4,
     .twin = 21,
     .kind = Kind::PROCESSES,
     .decode = DecodeProcess,
     .builderFields = BUILDER_FIELDS<PROCESS_RULES>},
    {.type = 5, .kind = Kind::CONFIGURATION, .decode = DecodeConfigBy<CONFIG_RULES>},
    {.type = 6, .kind = Kind::OTHERS, .decode = DecodeNames},
    {.type = 7, .kind = Kind::DISKS, .decode = DecodeAlias},
    {.type = 8, .twin = 23, .kind = Kind::PROCESSORS, .decode = DecodeCpu},
    {.type = 11, .twin = 22, .kind = Kind::PROTOCOLS, .decode = DecodeCountersBy<COUNTER_RULES>},
    {.type = 12,
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
    .intervalBelowOneIsDefault = true,
    .configuredIntervalIsDefault = false,
    .missingVersionIsUnsupported = false,
    .keepsTag = false,
    .entryTable = &tru64_layouts::P730_TABLE,
    .versions = tru64_layouts::VERSIONS,
    .versionTexts = {.notice = VersionNotice::ALWAYS,
                     .file = "Reading data file %s : ",
                     .version = "Collector Version %s\n",
                     .unknown = "\nERROR : Unrecognized Data Collector Version %s\n",
                     .unknownOnStandardError = true,
                     .unknownEndsProcess = true},
    .decoders = DECODERS,
};

}  // namespace ozmo::tru64_files
