// Solaris collector files: qtxs_ in big-endian, qtxsx_ in little-endian numbers, otherwise the same.
#include <algorithm>
#include <array>
#include <string_view>

#include "readers/config_decoder.h"
#include "readers/field_rules.h"
#include "readers/formats.h"
#include "readers/shared_decoders.h"
#include "readers/solaris/counters.h"
#include "readers/solaris/disks.h"
#include "readers/solaris/layouts.h"

namespace ozmo {
namespace {

ByteOrder SolarisByteOrder(std::string_view path) {
  const bool little = path.find("qtxsx_") != path.npos || path.find("QTXSX_") != path.npos;
  return little ? ByteOrder::LITTLE : ByteOrder::BIG;
}

// --- Overall counters, types 1 and 17 ---

using Rates = FieldRule<RateRecord>;

template <size_t Index>
constexpr Rates OverallRate(int32_t fieldId, Divide divide) {
  return {fieldId, ToElement<&RateRecord::rates, Index>, Form::UINT64, Per::INTERVAL, divide};
}
template <size_t Index>
constexpr Rates OverallPercent(int32_t fieldId) {
  return {
      fieldId, ToElement<&RateRecord::percent, Index>, Form::UINT64, Per::RECORD, Divide::NEVER, Sign::ANY,
      100.0};
}

int DecodeOverall(Decoding& decoding) {
  static const RuleTable<RateRecord> rules{
      OverallRate<0>(101, Divide::AT_LEAST_1),
      OverallRate<1>(102, Divide::AT_LEAST_1),
      OverallRate<2>(103, Divide::AT_LEAST_1),
      OverallRate<3>(104, Divide::AT_LEAST_1),
      OverallRate<4>(105, Divide::AT_LEAST_1),
      OverallRate<5>(106, Divide::AT_LEAST_1),
      OverallRate<6>(107, Divide::AT_LEAST_1),
      OverallRate<7>(108, Divide::AT_LEAST_1),
      OverallRate<8>(110, Divide::NEVER),
      OverallRate<9>(111, Divide::NEVER),
      OverallPercent<0>(112),
      OverallPercent<1>(113),
      OverallPercent<2>(114),
  };
  return DecodeToList(rules, decoding.context.rateItems, decoding);
}

// --- Memory, types 3 and 19 ---

using MemoryRule = FieldRule<MemoryRecord>;

template <int32_t Field>
constexpr MemoryRule Unread(Per per, Form form = Form::SIGNED_HALVES) {
  return {Field, ToElement<&MemoryRecord::unread, Field - 300>, form, per, Divide::AT_LEAST_1};
}
template <auto Member>
constexpr MemoryRule Rate(int32_t fieldId) {
  return {fieldId, To<Member>, Form::SIGNED_HALVES, Per::INTERVAL, Divide::AT_LEAST_1};
}

void StorePageSize(MemoryRecord& /*memory*/, const FieldValue& field, const MemoryRule& /*rule*/,
                   Decoding& decoding) {
  if (decoding.context.config) decoding.context.config->pageSize = ClampTo<int32_t>(field.SignedHalves());
}

// Both types fill the base's record: a twin ahead of its base has nowhere to go.
int DecodeMemory(Decoding& decoding) {
  static const RuleTable<MemoryRecord> rules{
      Unread<301>(Per::RECORD, Form::INT32),
      Unread<302>(Per::RECORD, Form::INT32),
      {303, StorePageSize},
      Unread<304>(Per::RECORD),
      Unread<305>(Per::RECORD),
      Unread<306>(Per::RECORD),
      Unread<307>(Per::RECORD),
      Unread<308>(Per::RECORD),
      Unread<309>(Per::RECORD),
      Rate<&MemoryRecord::pageInRate>(327),
      Rate<&MemoryRecord::pageOutRate>(328),
      Unread<329>(Per::INTERVAL),
      Unread<330>(Per::INTERVAL),
      Rate<&MemoryRecord::majorFaultRate>(331),
      Rate<&MemoryRecord::copyOnWriteFaultRate>(332),
      Rate<&MemoryRecord::protectionFaultRate>(333),
      Rate<&MemoryRecord::softLockFaultRate>(334),
      Rate<&MemoryRecord::kernelAddressFaultRate>(335),
      Rate<&MemoryRecord::zeroFillFaultRate>(336),
      Rate<&MemoryRecord::translationFaultRate>(337),
      Rate<&MemoryRecord::addressFaultRate>(338),
      Rate<&MemoryRecord::swapInRate>(339),
      Rate<&MemoryRecord::swapOutRate>(340),
      {341, To<&MemoryRecord::freePages>, Form::SIGNED_HALVES, Per::RECORD, Divide::AT_LEAST_1},
  };
  VmrContext& context = decoding.context;
  if (!decoding.isTwin) return DecodeToSlot(rules, context.memory.primary, decoding);
  if (!context.memory.primary) return 0;
  const int counted = ApplyRules(rules, *context.memory.primary, decoding);
  if (counted > 0) context.memory.twin.emplace();
  return counted;
}

// --- Processes, types 4 and 21 ---

using ProcessRule = FieldRule<ProcessRecord>;

// Process times are nanoseconds, on the oldest table seconds. The divisor counts from 2 on here.
float CpuSeconds(const FieldValue& field, const Decoding& decoding) {
  double seconds = static_cast<double>(field.Uint64());
  if (decoding.state.activeTable != &SOLARIS_P300) seconds /= 1e9;
  auto value = static_cast<float>(seconds);
  if (field.divisor > 1) value /= static_cast<float>(field.divisor);
  return value < 0.0F ? 0.0F : value;
}

template <auto... Members>
void StoreCpu(ProcessRecord& process, const FieldValue& field, const ProcessRule& /*rule*/,
              Decoding& decoding) {
  ((process.*Members = CpuSeconds(field, decoding)), ...);
}

// Pages to kilobytes.
template <auto Member>
void StorePages(ProcessRecord& process, const FieldValue& field, const ProcessRule& rule,
                Decoding& decoding) {
  int64_t pages = ValueAsInteger(field, rule.form, decoding.state);
  if (field.divisor >= 1) pages /= field.divisor;
  const auto& config = decoding.context.config;
  const uint64_t pageSize = config && config->pageSize > 0 ? static_cast<uint64_t>(config->pageSize) : 1;
  const auto bytes = static_cast<int64_t>(static_cast<uint64_t>(pages) * pageSize);
  process.*Member = field.size == FieldSize::INT8 ? bytes >> 10 : bytes / 1024;
}

template <auto Member>
constexpr ProcessRule ProcessRate(int32_t fieldId, Sign sign = Sign::NOT_NEGATIVE) {
  return {fieldId, To<Member>, Form::NATURAL, Per::INTERVAL, Divide::AT_LEAST_1, sign};
}
template <size_t Index>
constexpr ProcessRule NeutralRate(int32_t fieldId, Sign sign) {
  return {fieldId, ToElement<&ProcessRecord::rates, Index>, Form::NATURAL, Per::INTERVAL, Divide::AT_LEAST_1,
          sign};
}

int DecodeProcess(Decoding& decoding) {
  static const RuleTable<ProcessRecord> rules{
      {402, To<&ProcessRecord::processId>},
      {403, To<&ProcessRecord::processField403>},
      {404, StoreProcessIdText},
      {406, To<&ProcessRecord::processField406>},
      {407, StorePages<&ProcessRecord::sizeResident>},
      {410, StoreCpu<&ProcessRecord::userCpuSeconds>},
      // The rule of field 411 runs on into that of 412: a file without 412 shows the system time there.
      {411, StoreCpu<&ProcessRecord::systemCpuSeconds, &ProcessRecord::otherCpuSeconds>},
      {412, StoreCpu<&ProcessRecord::otherCpuSeconds>},
      ProcessRate<&ProcessRecord::ioReadsPerSecond>(413),
      ProcessRate<&ProcessRecord::ioWritesPerSecond>(414),
      {415, To<&ProcessRecord::name>},
      ProcessRate<&ProcessRecord::pageFaultsPerSecond>(416),
      NeutralRate<2>(417, Sign::NOT_NEGATIVE),
      NeutralRate<3>(418, Sign::ANY),
      NeutralRate<0>(419, Sign::ANY),
      NeutralRate<4>(420, Sign::NOT_NEGATIVE),
      {421, To<&ProcessRecord::userName>},
      {422, To<&ProcessRecord::elapsedSeconds>, Form::INT32, Per::RECORD, Divide::AT_LEAST_1},
      {423, To<&ProcessRecord::priority>},
      {424, To<&ProcessRecord::extraText>},
      {425, StorePages<&ProcessRecord::sizeResident>, Form::UINT64},
      {426, StorePages<&ProcessRecord::sizeVirtual>, Form::UINT64},
  };
  ProcessRecord& process = ContextPushProcess(decoding.context, decoding.isTwin);
  const int counted = ApplyRules(rules, process, decoding);
  if (decoding.context.config) process.elapsedSeconds = decoding.context.config->intervalSeconds;
  // An empty record is withdrawn at the other end of the list: it takes the oldest with it and stays.
  if (counted == 0) decoding.context.processes.Of(decoding.isTwin).PopLast();
  return counted;
}

// --- Configuration, type 5 ---

int DecodeConfig(Decoding& decoding) {
  static const RuleTable<SystemConfig> rules{
      {501, To<&SystemConfig::versionText>},
      {502, ToElement<&SystemConfig::configText, 9>},
      {503, StoreMemoryMb, Form::UINT64},
      {504, ToElement<&SystemConfig::configText, 6>},
      {505, To<&SystemConfig::cpuCount>},
      {506, To<&SystemConfig::configNode>},
      {508, ToElement<&SystemConfig::configText, 0>},
      {509, ToElement<&SystemConfig::configText, 1>},
      {510, ToElement<&SystemConfig::configText, 3>},
      {511, ToElement<&SystemConfig::configText, 4>},
      {514, To<&SystemConfig::intervalSeconds>, Form::INT32, Per::RECORD, Divide::AT_LEAST_1},
      {515, To<&SystemConfig::intervalMillis>},
  };
  return DecodeConfigRecord(rules, decoding);
}

// --- Processors, types 6 and 23 ---

int DecodeProcessor(Decoding& decoding) {
  static const RuleTable<ProcessorRecord> rules{
      {601, To<&ProcessorRecord::cpuId>, Form::INT32, Per::RECORD, Divide::AT_LEAST_1},
      {605, To<&ProcessorRecord::userTime>, Form::SIGNED_HALVES, Per::RECORD, Divide::AT_LEAST_1},
      {606, To<&ProcessorRecord::systemTime>, Form::SIGNED_HALVES, Per::RECORD, Divide::AT_LEAST_1},
      {607, To<&ProcessorRecord::idleTime>, Form::SIGNED_HALVES, Per::RECORD, Divide::AT_LEAST_1},
      {613, To<&ProcessorRecord::waitTime>, Form::SIGNED_HALVES, Per::RECORD, Divide::AT_LEAST_1},
      {614, nullptr},
  };
  return DecodeToList(rules, decoding.context.processors, decoding);
}

// --- Kernel counters, types 8 and 22 ---

using namespace solaris_counters;

static_assert(COUNTER_COUNT <= std::tuple_size_v<decltype(ProtocolCounters::counters)>);

// Settings and levels stand as they are; all others are rates.
bool IsLevel(size_t element) {
  constexpr Element LEVELS[] = {TCP_RTO_ALGORITHM, TCP_RTO_MIN,   TCP_RTO_MAX,   TCP_MAX_CONN,
                                TCP_CURR_ESTAB,    IP_FORWARDING, IP_DEFAULT_TTL};
  return std::find(std::begin(LEVELS), std::end(LEVELS), element) != std::end(LEVELS);
}

int DecodeKernel(Decoding& decoding) {
  constexpr int32_t FIRST_FIELD = 801;
  std::optional<ProtocolCounters>& slot = decoding.context.protocolCounters.Of(decoding.isTwin);
  const bool isNew = !slot.has_value();
  if (isNew) slot.emplace();
  int counted = 0;
  for (const FieldValue& field : decoding.fields) {
    if (field.data == nullptr) continue;
    ++counted;
    const auto index = static_cast<size_t>(field.fieldId - FIRST_FIELD);
    const int64_t interval = decoding.state.intervalSeconds;
    int64_t value = field.Int32();
    // Rates are whole numbers here, cut towards 0; without an interval there is no rate.
    if (!IsLevel(index)) value = interval != 0 ? value / interval : 0;
    slot->counters[index] = static_cast<float>(value);
  }
  if (counted == 0 && isNew) slot.reset();
  return counted;
}

// --- File systems, types 12 and 24 ---

// The numbers pass through single precision, and are divided as whole numbers.
template <auto Member>
void StoreBlocks(FileSystemRecord& fileSystem, const FieldValue& field,
                 const FieldRule<FileSystemRecord>& /*rule*/, Decoding& /*decoding*/) {
  // A number that only an unsigned one could hold is a negative one: what is available can be overdrawn.
  auto value = ClampTo<int64_t>(static_cast<float>(static_cast<int64_t>(field.Uint64())));
  if (field.divisor >= 1) value /= field.divisor;
  fileSystem.*Member = value;
}

// A twin's numbers go to the newest record of the base list: a base record must stand ahead of it.
int DecodeFileSystem(Decoding& decoding) {
  static const RuleTable<FileSystemRecord> texts{
      {1201, To<&FileSystemRecord::mountName>},
      {1202, To<&FileSystemRecord::deviceName>},
  };
  static const RuleTable<FileSystemRecord> numbers{
      {1203, StoreBlocks<&FileSystemRecord::blockSize>},
      {1204, StoreBlocks<&FileSystemRecord::totalBlocks>},
      {1205, StoreBlocks<&FileSystemRecord::freeBlocks>},
      {1206, StoreBlocks<&FileSystemRecord::availableBlocks>},
      {1207, StoreBlocks<&FileSystemRecord::totalFiles>},
      {1208, StoreBlocks<&FileSystemRecord::freeFiles>},
      {1209, StoreBlocks<&FileSystemRecord::lastField>},
  };
  auto& lists = decoding.context.fileSystems;
  auto& list = lists.Of(decoding.isTwin);
  int counted = ApplyRules(texts, list.Push(), decoding);
  if (!lists.primary.empty()) counted += ApplyRules(numbers, lists.primary.head(), decoding);
  if (counted == 0) list.PopHead();
  return counted;
}

// --- LAN adapters, types 15 and 25 ---

// Byte counters whose high half has its bit 15 set are taken as wrapped once.
template <auto Member>
void StoreBytes(LanRecord& adapter, const FieldValue& field, const FieldRule<LanRecord>& /*rule*/,
                Decoding& decoding) {
  constexpr uint32_t WRAP_MARK = 0x8000;
  double value = field.SignedHalves();
  if ((field.High() & WRAP_MARK) != 0) value += 4294967295.0;
  float rate = static_cast<float>(value) / static_cast<float>(decoding.state.intervalSeconds);
  if (field.divisor >= 1) rate /= static_cast<float>(field.divisor);
  adapter.*Member = rate;
}

template <auto Member>
constexpr FieldRule<LanRecord> LanRate(int32_t fieldId) {
  return {fieldId, To<Member>, Form::SIGNED_HALVES, Per::INTERVAL, Divide::AT_LEAST_1};
}

int DecodeLan(Decoding& decoding) {
  static const RuleTable<LanRecord> rules{
      {1501, To<&LanRecord::adapterName>},         LanRate<&LanRecord::packetsInRate>(1502),
      {1503, StoreBytes<&LanRecord::bytesInRate>}, LanRate<&LanRecord::errorsInRate>(1504),
      LanRate<&LanRecord::packetsOutRate>(1505),   {1506, StoreBytes<&LanRecord::bytesOutRate>},
      LanRate<&LanRecord::errorsOutRate>(1507),    LanRate<&LanRecord::collisionRate>(1508),
  };
  return DecodeToList(rules, decoding.context.lans, decoding);
}

// --- Load items, types 13 and 29 ---

template <size_t Index>
constexpr FieldRule<LoadItem> LoadFigure(int32_t fieldId, Per per) {
  return {fieldId, ToElement<&LoadItem::itemRates, Index>, Form::UINT64, per};
}

int DecodeItem(Decoding& decoding) {
  static const RuleTable<LoadItem> rules{
      {1, To<&LoadItem::itemName>},  LoadFigure<0>(2, Per::INTERVAL), LoadFigure<1>(3, Per::RECORD),
      LoadFigure<2>(4, Per::RECORD), LoadFigure<3>(5, Per::INTERVAL), LoadFigure<4>(6, Per::RECORD),
      LoadFigure<5>(7, Per::RECORD),
  };
  return DecodeToList(rules, decoding.context.loadItems, decoding);
}

// --- The format ---

// CPU times, names of a process.
constexpr int32_t PROCESS_FIELDS[] = {410, 411, 415, 421};

using Kind = RecordKind;
constexpr DecoderRow DECODERS[] = {
    {1, Kind::OTHERS, false, DecodeOverall},
    {17, Kind::OTHERS, true, DecodeOverall},
    {2, Kind::DISKS, false, SolarisDecodeDisk},
    {18, Kind::DISKS, true, SolarisDecodeDisk},
    {3, Kind::MEMORY, false, DecodeMemory},
    {19, Kind::MEMORY, true, DecodeMemory},
    {4, Kind::PROCESSES, false, DecodeProcess, PROCESS_FIELDS},
    {21, Kind::PROCESSES, true, DecodeProcess, PROCESS_FIELDS},
    {5, Kind::CONFIGURATION, false, DecodeConfig},
    {6, Kind::PROCESSORS, false, DecodeProcessor},
    {23, Kind::PROCESSORS, true, DecodeProcessor},
    {8, Kind::PROTOCOLS, false, DecodeKernel},
    {22, Kind::PROTOCOLS, true, DecodeKernel},
    {12, Kind::FILE_SYSTEMS, false, DecodeFileSystem},
    {24, Kind::FILE_SYSTEMS, true, DecodeFileSystem},
    {13, Kind::OTHERS, false, DecodeItem},
    {29, Kind::OTHERS, true, DecodeItem},
    {15, Kind::ADAPTERS, false, DecodeLan},
    {25, Kind::ADAPTERS, true, DecodeLan},
    {16, Kind::OTHERS, false, DecodeSummary},
    {26, Kind::OTHERS, true, DecodeSummary},
};

constexpr VersionRule VERSIONS[] = {
    {VersionMatch::CONTAINS, "P730", &SOLARIS_P730},
    {VersionMatch::CONTAINS, "P720", &SOLARIS_P720},
    {VersionMatch::CONTAINS, "P300", &SOLARIS_P300},
};

}  // namespace

const CollectorFormat SOLARIS_FORMAT{
    .name = "Solaris",
    .byteOrderOf = SolarisByteOrder,
    .timeRecord = 7,
    .timeField = 701,
    .entryFields = {.version = 501, .nodeName = 506, .utcOffset = 507, .dstFlag = 512, .interval = 514},
    .intervalBelowOneIsDefault = true,
    .configuredIntervalIsDefault = false,
    .missingVersionIsUnsupported = false,
    .keepsTag = false,
    .entryTable = &SOLARIS_P730,
    .versions = VERSIONS,
    .versionTexts = {.notice = VersionNotice::WHEN_ACCEPTED,
                     .file = "Reading data file %s : ",
                     .version = "Collector Version %s\n",
                     .unknown = "\n Unrecognized data collector version %s\n",
                     .unknownOnStandardError = true,
                     .unknownEndsProcess = true},
    .decoders = DECODERS,
};

}  // namespace ozmo
