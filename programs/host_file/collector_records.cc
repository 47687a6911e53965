#include "programs/host_file/collector_records.h"

#include <limits>
#include <span>
#include <string_view>

namespace ozmo::host_file {
namespace {

constexpr std::string_view VERSION = "P730_64";

enum RecordType : uint32_t {
  DISK = 2,
  MEMORY = 3,
  PROCESS = 4,
  CONFIGURATION = 5,
  PROCESSOR = 8,
  TIME = 9,
  PROTOCOLS = 11,
  FILE_SYSTEM = 14,
  ADAPTER = 15,
  MARK = 99,
};

// Fields with ids from `first` to `last`: numbers of so many bytes, or one text.
template <class Source>
struct FieldRun {
  int32_t first;
  int32_t last;
  size_t size;
  uint64_t (*number)(const Source&, size_t place) = nullptr;  // `place` counts from 0 in the run
  std::string_view (*text)(const Source&) = nullptr;
};

constexpr size_t INT4 = 4;
constexpr size_t INT8 = 8;

template <auto Member>
constexpr auto NUMBER =
    [](const auto& source, size_t /*place*/) { return static_cast<uint64_t>(source.*Member); };

template <auto Member>
constexpr auto ELEMENT = [](const auto& source, size_t place) { return (source.*Member)[place]; };

template <auto Member>
constexpr auto TEXT_OF = [](const auto& source) { return std::string_view(source.*Member); };

template <class Source>
constexpr FieldRun<Source> Text(int32_t id, std::string_view (*text)(const Source&)) {
  return {id, id, 0, nullptr, text};
}

// --- The layouts ---
//
// Of the fields that the version has, a file needs to name no more than it knows. Disks alone have all of
// theirs, in this order, as readers don't look at their list.

struct Time {
  int64_t seconds;
};
constexpr FieldRun<Time> TIME_FIELDS[] = {{901, 901, INT8, NUMBER<&Time::seconds>}};

// The memory is in kilobytes if a signed word holds them, up to 2 TB, and in megabytes beyond. The
// divisor says which.
constexpr bool HasKilobytes(const Configuration& configuration) {
  return configuration.memoryKilobytes <= std::numeric_limits<int32_t>::max();
}
constexpr int32_t MemoryDivisor(const Configuration& configuration) {
  return HasKilobytes(configuration) ? 1 : 0;
}

constexpr FieldRun<Configuration> CONFIGURATION_FIELDS[] = {
    {501, 501, INT4,
     [](const Configuration& all, size_t) {
       return HasKilobytes(all) ? all.memoryKilobytes : all.memoryKilobytes / 1024;
     }},
    {503, 503, INT4, NUMBER<&Configuration::processors>},
    Text<Configuration>(504, TEXT_OF<&Configuration::node>),
    Text<Configuration>(505, [](const Configuration&) { return VERSION; }),
    Text<Configuration>(506, TEXT_OF<&Configuration::machine>),
    {507, 507, INT4, NUMBER<&Configuration::utcOffset>},
    Text<Configuration>(508, TEXT_OF<&Configuration::system>),
    Text<Configuration>(509, TEXT_OF<&Configuration::release>),
    Text<Configuration>(510, TEXT_OF<&Configuration::version>),
    {511, 511, INT4, NUMBER<&Configuration::daylightTime>},
    {513, 513, INT4, NUMBER<&Configuration::intervalSeconds>},
};

constexpr FieldRun<ProcessorFigures> PROCESSOR_FIELDS[] = {
    {801, 801, INT4, NUMBER<&ProcessorFigures::id>},
    {802, 802, INT8, NUMBER<&ProcessorFigures::user>},
    {803, 803, INT8, NUMBER<&ProcessorFigures::nice>},
    {804, 804, INT8, NUMBER<&ProcessorFigures::system>},
    {805, 805, INT8, NUMBER<&ProcessorFigures::idle>},
    {806, 806, INT8, [](const ProcessorFigures&, size_t) { return TICKS_PER_SECOND; }},
    {807, 807, INT8, NUMBER<&ProcessorFigures::wait>},
};

// Field 206 and those after it are the kernel's own figures.
constexpr FieldRun<DiskFigures> DISK_FIELDS[] = {
    Text<DiskFigures>(201, TEXT_OF<&DiskFigures::name>),
    {206, 216, INT8, ELEMENT<&DiskFigures::figures>},
};

struct MemoryAndPaging {
  MemoryFigures memory;
  PagingFigures paging;
};
constexpr FieldRun<MemoryAndPaging> MEMORY_FIELDS[] = {
    {302, 302, INT8, [](const MemoryAndPaging& all, size_t) { return all.memory.free; }},
    {303, 303, INT8, [](const MemoryAndPaging& all, size_t) { return all.memory.shared; }},
    {304, 304, INT8, [](const MemoryAndPaging& all, size_t) { return all.memory.buffers; }},
    {305, 305, INT8, [](const MemoryAndPaging& all, size_t) { return all.memory.cached; }},
    {308, 308, INT8, [](const MemoryAndPaging& all, size_t) { return all.paging.pagedIn; }},
    {309, 309, INT8, [](const MemoryAndPaging& all, size_t) { return all.paging.pagedOut; }},
    {310, 310, INT8, [](const MemoryAndPaging& all, size_t) { return all.paging.swappedIn; }},
    {311, 311, INT8, [](const MemoryAndPaging& all, size_t) { return all.paging.swappedOut; }},
};

// Readers take resident sizes as pages of this many bytes, whatever the pages of the host.
constexpr uint64_t PAGE_BYTES = 4096;

constexpr FieldRun<ProcessFigures> PROCESS_FIELDS[] = {
    {402, 402, INT4, NUMBER<&ProcessFigures::id>},
    {405, 405, INT4, NUMBER<&ProcessFigures::parent>},
    {407, 407, INT8, [](const ProcessFigures& process, size_t) { return process.own.userTicks; }},
    {408, 408, INT8, [](const ProcessFigures& process, size_t) { return process.own.systemTicks; }},
    Text<ProcessFigures>(412, TEXT_OF<&ProcessFigures::command>),
    {414, 414, INT8, [](const ProcessFigures& process, size_t) { return process.own.minorFaults; }},
    {415, 415, INT8, [](const ProcessFigures& process, size_t) { return process.own.majorFaults; }},
    {420, 420, INT8, NUMBER<&ProcessFigures::virtualBytes>},
    {421, 421, INT8,
     [](const ProcessFigures& process, size_t) { return process.residentBytes / PAGE_BYTES; }},
    Text<ProcessFigures>(413, TEXT_OF<&ProcessFigures::user>),
};

constexpr FieldRun<ProtocolFigures> PROTOCOL_FIELDS[] = {
    {1101, 1161, INT8, [](const ProtocolFigures& figures, size_t place) { return figures[place]; }},
};

constexpr FieldRun<FileSystemFigures> FILE_SYSTEM_FIELDS[] = {
    Text<FileSystemFigures>(1401, TEXT_OF<&FileSystemFigures::device>),
    Text<FileSystemFigures>(1402, TEXT_OF<&FileSystemFigures::mountPoint>),
    {1403, 1403, INT8, NUMBER<&FileSystemFigures::blockSize>},
    {1404, 1404, INT8, NUMBER<&FileSystemFigures::blocks>},
    {1405, 1405, INT8, NUMBER<&FileSystemFigures::freeBlocks>},
    {1406, 1406, INT8, NUMBER<&FileSystemFigures::availableBlocks>},
    {1407, 1407, INT8, NUMBER<&FileSystemFigures::files>},
    {1408, 1408, INT8, NUMBER<&FileSystemFigures::freeFiles>},
};

constexpr FieldRun<AdapterFigures> ADAPTER_FIELDS[] = {
    Text<AdapterFigures>(1501, TEXT_OF<&AdapterFigures::name>),
    {1502, 1508, INT8, ELEMENT<&AdapterFigures::figures>},
};

// --- Bytes ---

void PutText(std::string& bytes, std::string_view text) {
  constexpr size_t LONGEST = 255;
  text = text.substr(0, LONGEST);
  bytes += static_cast<char>(text.size());
  bytes += text;
}

// Puts the record of `type` that `putFields` fills.
template <class PutFields>
void PutRecord(std::string& bytes, uint32_t type, PutFields putFields) {
  constexpr size_t LENGTH_SIZE = 4;
  const size_t start = bytes.size();
  PutNumber(bytes, 0, LENGTH_SIZE);
  PutNumber(bytes, type, 4);
  putFields();
  std::string length;
  PutNumber(length, bytes.size() - start, LENGTH_SIZE);
  bytes.replace(start, LENGTH_SIZE, length);
}

template <class Source>
void PutData(std::string& bytes, RecordType type, std::span<const FieldRun<Source>> runs,
             const Source& source) {
  PutRecord(bytes, type, [&] {
    for (const FieldRun<Source>& run : runs) {
      if (run.text != nullptr) PutText(bytes, run.text(source));
      if (run.number == nullptr) continue;
      for (int32_t id = run.first; id <= run.last; ++id) {
        PutNumber(bytes, run.number(source, static_cast<size_t>(id - run.first)), run.size);
      }
    }
  });
}

// Readers put each record of a list in front of the list, so the last one leads their graphs.
template <class Source>
void PutList(std::string& bytes, RecordType type, std::span<const FieldRun<Source>> runs,
             const std::vector<Source>& list) {
  for (auto source = list.rbegin(); source != list.rend(); ++source) PutData(bytes, type, runs, *source);
}

template <class Source>
void PutDefinitions(std::string& bytes, RecordType type, std::span<const FieldRun<Source>> runs,
                    int32_t firstDivisor = 1) {
  PutRecord(bytes, type * 100, [&] {
    for (const FieldRun<Source>& run : runs) {
      for (int32_t id = run.first; id <= run.last; ++id) PutNumber(bytes, static_cast<uint64_t>(id), 4);
    }
  });
  PutRecord(bytes, type * 10, [&] {
    for (const FieldRun<Source>& run : runs) {
      for (int32_t id = run.first; id <= run.last; ++id) {
        PutNumber(bytes, id == runs.front().first ? static_cast<uint64_t>(firstDivisor) : 1, 4);
      }
    }
  });
}

// The size of the configuration's field `id` at the begin of `bytes`; 0 where it isn't known or not all
// there.
size_t SizeOfField(uint32_t id, std::string_view bytes) {
  for (const FieldRun<Configuration>& run : CONFIGURATION_FIELDS) {
    if (static_cast<uint32_t>(run.first) != id || bytes.empty()) continue;
    const size_t size = run.text == nullptr ? run.size : size_t{1} + static_cast<uint8_t>(bytes[0]);
    return size <= bytes.size() ? size : 0;
  }
  return 0;
}

// The node in the payload of a configuration record whose fields are those of the payload `ids`; empty where
// it holds none, or one of another version.
std::string NodeInConfiguration(std::string_view ids, std::string_view fields) {
  constexpr uint32_t NODE_FIELD = 504;
  constexpr uint32_t VERSION_FIELD = 505;
  std::string node;
  bool isOfVersion = false;
  for (; ids.size() >= INT4; ids.remove_prefix(INT4)) {
    const uint32_t id = NumberAt(ids, 0);
    const size_t size = SizeOfField(id, fields);
    if (size == 0) return "";
    if (id == NODE_FIELD) node = fields.substr(1, size - 1);
    if (id == VERSION_FIELD) isOfVersion = fields.substr(1, size - 1) == VERSION;
    fields.remove_prefix(size);
  }
  return isOfVersion ? node : "";
}

}  // namespace

void PutNumber(std::string& bytes, uint64_t value, size_t size) {
  for (size_t i = 0; i < size; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
}

uint32_t NumberAt(std::string_view bytes, size_t place) {
  if (place > bytes.size() || bytes.size() - place < INT4) return 0;
  uint32_t number = 0;
  for (size_t i = INT4; i > 0; --i) number = number << 8U | static_cast<uint8_t>(bytes[place + i - 1]);
  return number;
}

bool CountsOutsideSpan(uint32_t type) { return type == TIME || type == MARK; }

std::string NodeInHead(std::string_view head) {
  constexpr size_t HEADER_SIZE = 8;
  std::string_view ids;
  bool isFirst = true;
  while (head.size() >= HEADER_SIZE) {
    const size_t length = NumberAt(head, 0);
    const uint32_t type = NumberAt(head, INT4);
    if (length < HEADER_SIZE || length > head.size() || (isFirst && type != MARK)) return "";
    const std::string_view payload = head.substr(HEADER_SIZE, length - HEADER_SIZE);
    if (type == CONFIGURATION * 100) ids = payload;
    if (type == CONFIGURATION) return NodeInConfiguration(ids, payload);
    head.remove_prefix(length);
    isFirst = false;
  }
  return "";
}

std::string HeadRecords(const Configuration& configuration) {
  std::string bytes;
  PutRecord(bytes, MARK, [&] { PutText(bytes, VERSION); });
  PutDefinitions<Configuration>(bytes, CONFIGURATION, CONFIGURATION_FIELDS, MemoryDivisor(configuration));
  PutDefinitions<Time>(bytes, TIME, TIME_FIELDS);
  PutDefinitions<ProcessorFigures>(bytes, PROCESSOR, PROCESSOR_FIELDS);
  PutDefinitions<MemoryAndPaging>(bytes, MEMORY, MEMORY_FIELDS);
  PutDefinitions<DiskFigures>(bytes, DISK, DISK_FIELDS);
  PutDefinitions<ProcessFigures>(bytes, PROCESS, PROCESS_FIELDS);
  PutDefinitions<ProtocolFigures>(bytes, PROTOCOLS, PROTOCOL_FIELDS);
  PutDefinitions<FileSystemFigures>(bytes, FILE_SYSTEM, FILE_SYSTEM_FIELDS);
  PutDefinitions<AdapterFigures>(bytes, ADAPTER, ADAPTER_FIELDS);
  PutData<Configuration>(bytes, CONFIGURATION, CONFIGURATION_FIELDS, configuration);
  return bytes;
}

std::string TimeRecord(int64_t time) {
  std::string bytes;
  PutData<Time>(bytes, TIME, TIME_FIELDS, {time});
  return bytes;
}

std::string EndMark(int64_t end) {
  std::string bytes;
  PutRecord(bytes, MARK, [&] {
    PutText(bytes, VERSION);
    PutNumber(bytes, static_cast<uint64_t>(end), INT8);
  });
  return bytes;
}

std::optional<int64_t> TimeInEndMark(std::string_view bytes) {
  if (bytes.size() != END_MARK_SIZE) return std::nullopt;
  const uint64_t high = NumberAt(bytes, END_MARK_SIZE - INT4);
  const auto time = static_cast<int64_t>(high << 32U | NumberAt(bytes, END_MARK_SIZE - INT8));
  if (bytes != EndMark(time)) return std::nullopt;
  return time;
}

std::string SampleRecords(int64_t time, const Configuration& configuration, const HostFigures& interval) {
  std::string bytes = TimeRecord(time);
  PutData<Configuration>(bytes, CONFIGURATION, CONFIGURATION_FIELDS, configuration);
  PutList<ProcessorFigures>(bytes, PROCESSOR, PROCESSOR_FIELDS, interval.processors);
  PutData<MemoryAndPaging>(bytes, MEMORY, MEMORY_FIELDS, {interval.memory, interval.paging});
  PutList<DiskFigures>(bytes, DISK, DISK_FIELDS, interval.disks);
  PutList<ProcessFigures>(bytes, PROCESS, PROCESS_FIELDS, interval.processes);
  if (interval.hasProtocols) {
    // Readers divide the number of established connections by the interval, as if it were counted.
    constexpr size_t ESTABLISHED = 53;
    ProtocolFigures protocols = interval.protocols;
    protocols[ESTABLISHED] *= static_cast<uint64_t>(configuration.intervalSeconds);
    PutData<ProtocolFigures>(bytes, PROTOCOLS, PROTOCOL_FIELDS, protocols);
  }
  PutList<FileSystemFigures>(bytes, FILE_SYSTEM, FILE_SYSTEM_FIELDS, interval.fileSystems);
  PutList<AdapterFigures>(bytes, ADAPTER, ADAPTER_FIELDS, interval.adapters);
  return bytes;
}

}  // namespace ozmo::host_file
