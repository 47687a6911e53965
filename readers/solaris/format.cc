// Solaris collector files: qtxs_ in big-endian, qtxsx_ in little-endian numbers, otherwise the same.
#include <algorithm>
#include <array>
#include <string_view>

#include "readers/field_rules.h"
#include "readers/formats.h"
#include "readers/shared_decoders.h"
#include "readers/solaris/counters.h"
#include "readers/solaris/disks.h"
#include "readers/solaris/layouts.h"

namespace ozmo::solaris_files {

ByteOrder ByteOrderOf(std::string_view path) {
  const bool little = path.find("qtxsx_") != path.npos || path.find("QTXSX_") != path.npos;
  return little ? ByteOrder::LITTLE : ByteOrder::BIG;
}

// --- Overall counters, types 1 and 17 ---

constexpr FieldRule<RateRecord> OVERALL_RULES[] = {
    {.field = 101,
     .last = 108,
     .to = Detail<&RateRecord::rates, 0>(),
     .as = {.form = Form::UINT64, .per = Per::INTERVAL, .divide = Divide::AT_LEAST_1}},
    {.field = 110,
     .last = 111,
     .to = Detail<&RateRecord::rates, 8>(),
     .as = {.form = Form::UINT64, .per = Per::INTERVAL}},
    {.field = 112,
     .last = 114,
     .to = Detail<&RateRecord::percent>(),
     .as = {.form = Form::UINT64, .scale = 100.0}},
};

// --- Memory, types 3 and 19 ---

constexpr Conversion LEVEL{.form = Form::SIGNED_HALVES, .divide = Divide::AT_LEAST_1};
constexpr Conversion RATE{.form = Form::SIGNED_HALVES, .per = Per::INTERVAL, .divide = Divide::AT_LEAST_1};

constexpr FieldRule<MemoryRecord> MEMORY_RULES[] = {
    {.field = 301,
     .last = 302,
     .to = Detail<&MemoryRecord::unread, 1>(),
     .as = {.divide = Divide::AT_LEAST_1}},
    {.field = 303, .to = To<StoreMachinePageSize>(), .as = LEVEL},
    {.field = 304, .last = 309, .to = Detail<&MemoryRecord::unread, 4>(), .as = LEVEL},
    {.field = 327, .to = To<&MemoryRecord::pageInRate>(), .as = RATE},
    {.field = 328, .to = To<&MemoryRecord::pageOutRate>(), .as = RATE},
    {.field = 329, .last = 330, .to = Detail<&MemoryRecord::unread, 29>(), .as = RATE},
    {.field = 331, .to = To<&MemoryRecord::majorFaultRate>(), .as = RATE},
    {.field = 332, .to = To<&MemoryRecord::copyOnWriteFaultRate>(), .as = RATE},
    {.field = 333, .to = To<&MemoryRecord::protectionFaultRate>(), .as = RATE},
    {.field = 334, .to = To<&MemoryRecord::softLockFaultRate>(), .as = RATE},
    {.field = 335, .to = To<&MemoryRecord::kernelAddressFaultRate>(), .as = RATE},
    {.field = 336, .to = To<&MemoryRecord::zeroFillFaultRate>(), .as = RATE},
    {.field = 337, .to = To<&MemoryRecord::translationFaultRate>(), .as = RATE},
    {.field = 338, .to = To<&MemoryRecord::addressFaultRate>(), .as = RATE},
    {.field = 339, .to = To<&MemoryRecord::swapInRate>(), .as = RATE},
    {.field = 340, .to = To<&MemoryRecord::swapOutRate>(), .as = RATE},
    {.field = 341, .to = To<&MemoryRecord::freePages>(), .as = LEVEL},
};

// Both types fill the base's record: a twin that comes before its base has nowhere to go.
void DecodeMemory(Decoding& decoding) {
  auto& memory = decoding.context.memory;
  if (!decoding.isTwin) {
    FillSlot<MEMORY_RULES>(memory.primary, decoding);
  } else if (memory.primary && ApplyRules<MEMORY_RULES>(*memory.primary, decoding)) {
    memory.twin.emplace();
  }
}

// --- Processes, types 4 and 21 ---

// The divisor counts from 2 on here.
float CpuSeconds(const Source& from) {
  const int32_t divisor = from.field.divisor;
  const double units = from.decoding.state.activeTable->processTimeUnits;
  auto value = static_cast<float>(static_cast<double>(from.field.Uint64()) / units);
  if (divisor > 1) value /= static_cast<float>(divisor);
  return value < 0.0F ? 0.0F : value;
}

template <auto... Members>
void StoreCpu(ProcessRecord& process, const Source& from) {
  ((process.*Members = CpuSeconds(from)), ...);
}

// Pages to kilobytes.
template <auto Member>
void StorePages(ProcessRecord& process, const Source& from) {
  const auto pages = static_cast<uint64_t>(Convert<int64_t>(from));
  const auto bytes = static_cast<int64_t>(pages * PageSizeOf(from.decoding.context));
  process.*Member = from.field.size == FieldSize::INT8 ? bytes >> 10 : bytes / 1024;
}

constexpr Conversion NARROW_PAGES{.divide = Divide::AT_LEAST_1};
constexpr Conversion PAGES{.form = Form::UINT64, .divide = Divide::AT_LEAST_1};
constexpr Conversion SIGNED_RATE{.form = Form::NATURAL, .per = Per::INTERVAL, .divide = Divide::AT_LEAST_1};
constexpr Conversion PROCESS_RATE{
    .form = Form::NATURAL, .per = Per::INTERVAL, .divide = Divide::AT_LEAST_1, .sign = Sign::NOT_NEGATIVE};

constexpr FieldRule<ProcessRecord> PROCESS_RULES[] = {
    {.field = 402, .to = Detail<&ProcessRecord::processId>()},
    {.field = 403, .to = Detail<&ProcessRecord::processField403>()},
    {.field = 404, .to = Detail<StoreProcessIdText>()},
    {.field = 406, .to = Detail<&ProcessRecord::processField406>()},
    {.field = 407,
     .to = To<StorePages<&ProcessRecord::sizeResident>>(),
     .as = NARROW_PAGES,
     .wantedFor = RecordKind::PROCESS_SIZES},
    {.field = 410, .to = To<StoreCpu<&ProcessRecord::userCpuSeconds>>()},
    // The rule of field 411 runs on into that of 412: a file without 412 shows the system time there.
    {.field = 411, .to = To<StoreCpu<&ProcessRecord::systemCpuSeconds, &ProcessRecord::otherCpuSeconds>>()},
    {.field = 412, .to = Detail<StoreCpu<&ProcessRecord::otherCpuSeconds>>()},
    {.field = 413, .to = Detail<&ProcessRecord::ioReadsPerSecond>(), .as = PROCESS_RATE},
    {.field = 414, .to = Detail<&ProcessRecord::ioWritesPerSecond>(), .as = PROCESS_RATE},
    {.field = 415, .to = To<&ProcessRecord::name>()},
    {.field = 416,
     .to = To<&ProcessRecord::pageFaultsPerSecond>(),
     .as = PROCESS_RATE,
     .wantedFor = RecordKind::PROCESS_FAULTS},
    {.field = 417, .to = Detail<&ProcessRecord::rates, 2>(), .as = PROCESS_RATE},
    {.field = 418, .to = Detail<&ProcessRecord::rates, 3>(), .as = SIGNED_RATE},
    {.field = 419, .to = Detail<&ProcessRecord::rates, 0>(), .as = SIGNED_RATE},
    {.field = 420, .to = Detail<&ProcessRecord::rates, 4>(), .as = PROCESS_RATE},
    {.field = 421, .to = To<&ProcessRecord::userName>(), .wantedFor = RecordKind::PROCESS_USERS},
    {.field = 422, .to = Detail<&ProcessRecord::elapsedSeconds>(), .as = {.divide = Divide::AT_LEAST_1}},
    {.field = 423, .to = Detail<&ProcessRecord::priority>()},
    {.field = 424, .to = Detail<&ProcessRecord::extraText>()},
    {.field = 425,
     .to = To<StorePages<&ProcessRecord::sizeResident>>(),
     .as = PAGES,
     .wantedFor = RecordKind::PROCESS_SIZES},
    {.field = 426, .to = Detail<StorePages<&ProcessRecord::sizeVirtual>>(), .as = PAGES},
};

void DecodeProcess(Decoding& decoding) {
  VmrContext& context = decoding.context;
  ProcessRecord& process = ContextPushProcess(context, decoding.isTwin);
  const bool counts = ApplyRules<PROCESS_RULES>(process, decoding);
  if (context.config) process.elapsedSeconds = context.config->intervalSeconds;
  // An empty record is withdrawn at the other end of the list: it takes the oldest with it and stays.
  if (!counts) context.processes.Of(decoding.isTwin).PopLast();
}

// --- Configuration, type 5 ---

constexpr FieldRule<SystemConfig> CONFIG_RULES[] = {
    {.field = 501, .to = To<&SystemConfig::versionText>()},
    {.field = 502, .to = Detail<&SystemConfig::configText, 9>()},
    {.field = 503, .to = To<StoreMemoryMb<>>(), .as = {.form = Form::UINT64}},
    {.field = 504, .to = Detail<&SystemConfig::configText, 6>()},
    {.field = 505, .to = To<&SystemConfig::cpuCount>()},
    {.field = 506, .to = To<&SystemConfig::configNode>()},
    {.field = 508, .last = 509, .to = Detail<&SystemConfig::configText, 0>()},
    {.field = 510, .last = 511, .to = Detail<&SystemConfig::configText, 3>()},
    {.field = 514, .to = To<&SystemConfig::intervalSeconds>(), .as = {.divide = Divide::AT_LEAST_1}},
    {.field = 515, .to = Detail<&SystemConfig::intervalMillis>()},
};

// --- Processors, types 6 and 23 ---

constexpr FieldRule<ProcessorRecord> CPU_RULES[] = {
    {.field = 601, .to = To<&ProcessorRecord::cpuId>(), .as = {.divide = Divide::AT_LEAST_1}},
    {.field = 605, .to = To<&ProcessorRecord::userTime>(), .as = LEVEL},
    {.field = 606, .to = To<&ProcessorRecord::systemTime>(), .as = LEVEL},
    {.field = 607, .to = To<&ProcessorRecord::idleTime>(), .as = LEVEL},
    {.field = 613, .to = To<&ProcessorRecord::waitTime>(), .as = LEVEL},
    {.field = 614},
};

// --- Kernel counters, types 8 and 22 ---

using namespace solaris_counters;

static_assert(COUNTER_COUNT <= std::tuple_size_v<decltype(ProtocolCounters::counters)>);

// Settings and levels stay as they are; all others are rates.
bool IsLevel(size_t element) {
  constexpr Element LEVELS[] = {TCP_RTO_ALGORITHM, TCP_RTO_MIN,   TCP_RTO_MAX,   TCP_MAX_CONN,
                                TCP_CURR_ESTAB,    IP_FORWARDING, IP_DEFAULT_TTL};
  return std::find(std::begin(LEVELS), std::end(LEVELS), element) != std::end(LEVELS);
}

// Rates are whole numbers here, cut towards 0; without an interval there is no rate.
void StoreKernelCounter(ProtocolCounters& counters, const Source& from) {
  const int64_t interval = from.decoding.state.intervalSeconds;
  int64_t value = from.field.Int32();
  if (!IsLevel(from.place)) value = interval != 0 ? value / interval : 0;
  counters.counters[from.place] = static_cast<float>(value);
}

constexpr FieldRule<ProtocolCounters> KERNEL_RULES[] = {
    {.field = 801,
     .last = 920,
     .to = {.store = StoreKernelCounter, .room = COUNTER_COUNT, .isDetail = false}},
};

// --- File systems, types 12 and 24 ---

// The numbers pass through single precision, and are divided as whole numbers.
template <auto Member>
void StoreBlocks(FileSystemRecord& fileSystem, const Source& from) {
  // A number that only an unsigned one could hold is a negative one: what is available can be overdrawn.
  auto value = ClampTo<int64_t>(static_cast<float>(static_cast<int64_t>(from.field.Uint64())));
  if (from.field.divisor >= 1) value /= from.field.divisor;
  fileSystem.*Member = value;
}

constexpr FieldRule<FileSystemRecord> FILE_SYSTEM_NAME_RULES[] = {
    {.field = 1201, .to = To<&FileSystemRecord::mountName>()},
    {.field = 1202, .to = To<&FileSystemRecord::deviceName>()},
};
constexpr FieldRule<FileSystemRecord> FILE_SYSTEM_RULES[] = {
    {.field = 1203, .to = To<StoreBlocks<&FileSystemRecord::blockSize>>()},
    {.field = 1204, .to = To<StoreBlocks<&FileSystemRecord::totalBlocks>>()},
    {.field = 1205, .to = To<StoreBlocks<&FileSystemRecord::freeBlocks>>()},
    {.field = 1206, .to = To<StoreBlocks<&FileSystemRecord::availableBlocks>>()},
    {.field = 1207, .to = To<StoreBlocks<&FileSystemRecord::totalFiles>>()},
    {.field = 1208, .to = To<StoreBlocks<&FileSystemRecord::freeFiles>>()},
    {.field = 1209, .to = To<StoreBlocks<&FileSystemRecord::lastField>>()},
};

// A twin's numbers go to the newest record of the base list: a base record must come before it.
void DecodeFileSystem(Decoding& decoding) {
  auto& lists = decoding.context.fileSystems;
  auto& list = lists.Of(decoding.isTwin);
  bool counts = ApplyRules<FILE_SYSTEM_NAME_RULES>(list.Push(), decoding);
  if (!lists.primary.empty() && ApplyRules<FILE_SYSTEM_RULES>(lists.primary.head(), decoding)) counts = true;
  if (!counts) list.PopHead();
}

// --- LAN adapters, types 15 and 25 ---

// Byte counters whose high half has its bit 15 set are taken as wrapped once.
template <auto Member>
void StoreBytes(LanRecord& adapter, const Source& from) {
  constexpr uint32_t WRAP_MARK = 0x8000;
  double value = from.field.SignedHalves();
  if ((from.field.High() & WRAP_MARK) != 0) value += 4294967295.0;
  float rate = static_cast<float>(value) / static_cast<float>(from.decoding.state.intervalSeconds);
  if (from.field.divisor >= 1) rate /= static_cast<float>(from.field.divisor);
  adapter.*Member = rate;
}

constexpr FieldRule<LanRecord> LAN_RULES[] = {
    {.field = 1501, .to = To<&LanRecord::adapterName>()},
    {.field = 1502, .to = To<&LanRecord::packetsInRate>(), .as = RATE},
    {.field = 1503, .to = To<StoreBytes<&LanRecord::bytesInRate>>()},
    {.field = 1504, .to = To<&LanRecord::errorsInRate>(), .as = RATE},
    {.field = 1505, .to = To<&LanRecord::packetsOutRate>(), .as = RATE},
    {.field = 1506, .to = To<StoreBytes<&LanRecord::bytesOutRate>>()},
    {.field = 1507, .to = To<&LanRecord::errorsOutRate>(), .as = RATE},
    {.field = 1508, .to = To<&LanRecord::collisionRate>(), .as = RATE},
};

// --- Load items, types 13 and 29 ---

constexpr Conversion ITEM_LEVEL{.form = Form::UINT64};
constexpr Conversion ITEM_RATE{.form = Form::UINT64, .per = Per::INTERVAL};

constexpr FieldRule<LoadItem> LOAD_ITEM_RULES[] = {
    {.field = 1, .to = To<&LoadItem::itemName>()},
    {.field = 2, .to = Detail<&LoadItem::itemRates, 0>(), .as = ITEM_RATE},
    {.field = 3, .last = 4, .to = Detail<&LoadItem::itemRates, 1>(), .as = ITEM_LEVEL},
    {.field = 5, .to = Detail<&LoadItem::itemRates, 3>(), .as = ITEM_RATE},
    {.field = 6, .last = 7, .to = Detail<&LoadItem::itemRates, 4>(), .as = ITEM_LEVEL},
};

// --- The format ---

using Kind = RecordKind;
constexpr DecoderRow DECODERS[] = {
    {.type = 1,
     .twin = 17,
     .kind = Kind::OTHERS,
     .decode = DecodeToList<OVERALL_RULES, &VmrContext::rateItems>},
    {.type = 2, .twin = 18, .kind = Kind::DISKS, .decode = DecodeDisk},
    {.type = 3, .twin = 19, .kind = Kind::MEMORY, .decode = DecodeMemory},
    {.type = 4,
     .twin = 21,
     .kind = Kind::PROCESSES,
     .decode = DecodeProcess,
     .builderFields = BUILDER_FIELDS<PROCESS_RULES>},
    {.type = 5, .kind = Kind::CONFIGURATION, .decode = DecodeConfigBy<CONFIG_RULES>},
    {.type = 6,
     .twin = 23,
     .kind = Kind::PROCESSORS,
     .decode = DecodeToList<CPU_RULES, &VmrContext::processors>},
    {.type = 8,
     .twin = 22,
     .kind = Kind::PROTOCOLS,
     .decode = DecodeToSlot<KERNEL_RULES, &VmrContext::protocolCounters>},
    {.type = 12, .twin = 24, .kind = Kind::FILE_SYSTEMS, .decode = DecodeFileSystem},
    {.type = 13,
     .twin = 29,
     .kind = Kind::OTHERS,
     .decode = DecodeToList<LOAD_ITEM_RULES, &VmrContext::loadItems>},
    {.type = 15, .twin = 25, .kind = Kind::ADAPTERS, .decode = DecodeToList<LAN_RULES, &VmrContext::lans>},
    {.type = 16, .twin = 26, .kind = Kind::OTHERS, .decode = DecodeSummary},
};

constexpr CollectorFormat FORMAT{
    .byteOrderOf = ByteOrderOf,
    .timeRecord = 7,
    .timeField = 701,
    .entryFields = {.version = 501, .nodeName = 506, .utcOffset = 507, .dstFlag = 512, .interval = 514},
    .intervalBelowOneIsDefault = true,
    .configuredIntervalIsDefault = false,
    .missingVersionIsUnsupported = false,
    .keepsTag = false,
    .entryTable = &solaris_layouts::P730_TABLE,
    .versions = solaris_layouts::VERSIONS,
    .versionTexts = {.notice = VersionNotice::WHEN_ACCEPTED,
                     .file = "Reading data file %s : ",
                     .version = "Collector Version %s\n",
                     .unknown = "\n Unrecognized data collector version %s\n",
                     .unknownOnStandardError = true,
                     .unknownEndsProcess = true},
    .decoders = DECODERS,
};

}  // namespace ozmo::solaris_files
