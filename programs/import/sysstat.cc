#include "programs/import/sysstat.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <map>
#include <utility>

#include "programs/import/words.h"

namespace ozmo::import {
namespace {

using host_file::HostFigures;
using Words = std::vector<std::string_view>;

// What a device of sadf's is, by the fields that it has.
enum class Kind { HOST, PROCESSOR, DISK, ADAPTER, FILE_SYSTEM };

// The fields that are of use, each at its place in the values of a device.
struct Field {
  Kind kind;
  std::string_view name;
};
enum FieldPlace : size_t {
  USER,
  NICE,
  SYSTEM,
  WAIT,
  IRQ,
  SOFT,
  GUEST,
  GUEST_NICE,
  IDLE,  // processors
  MEMORY_FREE,
  MEMORY_USED,
  BUFFERS,
  CACHED,
  SLAB,
  PAGED_IN,
  PAGED_OUT,
  SWAPPED_IN,
  SWAPPED_OUT,  // host
  IP_RECEIVED,
  IP_SENT,
  IP_DELIVERED,
  IP_FORWARDED,
  TCP_ACTIVE,
  TCP_PASSIVE,
  TCP_RECEIVED,
  TCP_SENT,  // host
  TCP_FAILED,
  TCP_RESETS,
  TCP_RETRANSMITTED,
  TCP_SOCKETS,
  UDP_RECEIVED,
  UDP_SENT,
  UDP_NO_PORT,
  UDP_ERRORS,
  OPERATIONS,
  READ_KB,
  WRITTEN_KB,
  QUEUE,
  WAIT_MS,
  BUSY,  // disks
  PACKETS_IN,
  PACKETS_OUT,
  KB_IN,
  KB_OUT,
  ERRORS_IN,
  ERRORS_OUT,
  COLLISIONS,  // adapters
  MB_FREE,
  MB_USED,
  USED_PERCENT,
  FILES_FREE,
  FILES_USED,  // file systems
  FIELD_COUNT
};
constexpr Field FIELDS[] = {
    {Kind::PROCESSOR, "%usr"},
    {Kind::PROCESSOR, "%nice"},
    {Kind::PROCESSOR, "%sys"},
    {Kind::PROCESSOR, "%iowait"},
    {Kind::PROCESSOR, "%irq"},
    {Kind::PROCESSOR, "%soft"},
    {Kind::PROCESSOR, "%guest"},
    {Kind::PROCESSOR, "%gnice"},
    {Kind::PROCESSOR, "%idle"},
    {Kind::HOST, "kbmemfree"},
    {Kind::HOST, "kbmemused"},
    {Kind::HOST, "kbbuffers"},
    {Kind::HOST, "kbcached"},
    {Kind::HOST, "kbslab"},
    {Kind::HOST, "pgpgin/s"},
    {Kind::HOST, "pgpgout/s"},
    {Kind::HOST, "pswpin/s"},
    {Kind::HOST, "pswpout/s"},
    {Kind::HOST, "irec/s"},
    {Kind::HOST, "orq/s"},
    {Kind::HOST, "idel/s"},
    {Kind::HOST, "fwddgm/s"},
    {Kind::HOST, "active/s"},
    {Kind::HOST, "passive/s"},
    {Kind::HOST, "iseg/s"},
    {Kind::HOST, "oseg/s"},
    {Kind::HOST, "atmptf/s"},
    {Kind::HOST, "estres/s"},
    {Kind::HOST, "retrans/s"},
    {Kind::HOST, "tcpsck"},
    {Kind::HOST, "idgm/s"},
    {Kind::HOST, "odgm/s"},
    {Kind::HOST, "noport/s"},
    {Kind::HOST, "idgmerr/s"},
    {Kind::DISK, "tps"},
    {Kind::DISK, "rkB/s"},
    {Kind::DISK, "wkB/s"},
    {Kind::DISK, "aqu-sz"},
    {Kind::DISK, "await"},
    {Kind::DISK, "%util"},
    {Kind::ADAPTER, "rxpck/s"},
    {Kind::ADAPTER, "txpck/s"},
    {Kind::ADAPTER, "rxkB/s"},
    {Kind::ADAPTER, "txkB/s"},
    {Kind::ADAPTER, "rxerr/s"},
    {Kind::ADAPTER, "txerr/s"},
    {Kind::ADAPTER, "coll/s"},
    {Kind::FILE_SYSTEM, "MBfsfree"},
    {Kind::FILE_SYSTEM, "MBfsused"},
    {Kind::FILE_SYSTEM, "%ufsused"},
    {Kind::FILE_SYSTEM, "Ifree"},
    {Kind::FILE_SYSTEM, "Iused"},
};
static_assert(std::size(FIELDS) == FIELD_COUNT);

using Values = std::map<size_t, double>;  // by the place of the field
using Devices = std::map<std::pair<Kind, std::string>, Values>;

struct Moment {
  int64_t seconds = 0;
  Devices devices;
};
using Moments = std::map<std::pair<std::string, int64_t>, Moment>;  // by host and time

double ValueOf(const Values& values, size_t place) {
  const auto found = values.find(place);
  return found == values.end() ? 0.0 : found->second;
}

// A count of the interval. What is below 0 or no number counts 0, and no count is beyond what a double holds
// exactly.
uint64_t Count(double value) {
  constexpr double MOST = 9007199254740992.0;
  return value > 0.0 ? static_cast<uint64_t>(std::llround(std::min(value, MOST))) : 0;
}

void AddProcessor(const std::string& name, const Values& values, double seconds, HostFigures& host) {
  constexpr std::string_view PREFIX = "cpu";
  if (!name.starts_with(PREFIX)) return;  // all processors
  // Of hundredths of a second there are as many as percent in a second.
  const auto ticks = [&](std::initializer_list<FieldPlace> modes) {
    double percent = 0.0;
    for (const FieldPlace mode : modes) percent += ValueOf(values, mode);
    return Count(percent * seconds);
  };
  host.processors.push_back(
      {.id = static_cast<int32_t>(CountOf(std::string_view(name).substr(PREFIX.size()))),
       .user = ticks({USER, GUEST}),
       .nice = ticks({NICE, GUEST_NICE}),
       .system = ticks({SYSTEM, IRQ, SOFT}),
       .idle = ticks({IDLE}),
       .wait = ticks({WAIT})});
}

// Places in the kernel's list of protocol counters.
constexpr std::pair<size_t, FieldPlace> PROTOCOLS[] = {
    {2, IP_RECEIVED},        {9, IP_SENT},       {8, IP_DELIVERED}, {5, IP_FORWARDED},  {49, TCP_ACTIVE},
    {50, TCP_PASSIVE},       {51, TCP_FAILED},   {52, TCP_RESETS},  {54, TCP_RECEIVED}, {55, TCP_SENT},
    {56, TCP_RETRANSMITTED}, {57, UDP_RECEIVED}, {58, UDP_NO_PORT}, {59, UDP_ERRORS},   {60, UDP_SENT}};
constexpr size_t ESTABLISHED = 53;

void AddHost(const std::string& /*name*/, const Values& values, double seconds, HostFigures& host) {
  const auto level = [&](FieldPlace place) { return Count(ValueOf(values, place)); };
  const auto counted = [&](FieldPlace place) { return Count(ValueOf(values, place) * seconds); };
  constexpr double PAGE_KILOBYTES = 4.0;
  const uint64_t buffers = level(BUFFERS);
  const uint64_t cached = level(CACHED);
  host.memory = {.total = level(MEMORY_FREE) + level(MEMORY_USED) + buffers + cached + level(SLAB),
                 .free = level(MEMORY_FREE),
                 .shared = 0,
                 .buffers = buffers,
                 .cached = cached};
  host.paging = {.pagedIn = Count(ValueOf(values, PAGED_IN) * seconds / PAGE_KILOBYTES),
                 .pagedOut = Count(ValueOf(values, PAGED_OUT) * seconds / PAGE_KILOBYTES),
                 .swappedIn = counted(SWAPPED_IN),
                 .swappedOut = counted(SWAPPED_OUT)};
  host.hasProtocols = values.contains(IP_RECEIVED);
  for (const auto& [kernel, place] : PROTOCOLS) host.protocols[kernel] = counted(place);
  host.protocols[ESTABLISHED] = level(TCP_SOCKETS);
}

// Operations are not split in sadf's figures; they are given to reads and writes by their data, as only the
// sum is shown.
void AddDisk(const std::string& name, const Values& values, double seconds, HostFigures& host) {
  const double readKb = ValueOf(values, READ_KB);
  const double writtenKb = ValueOf(values, WRITTEN_KB);
  const double share = readKb + writtenKb > 0.0 ? readKb / (readKb + writtenKb) : 1.0;
  const double operations = ValueOf(values, OPERATIONS) * seconds;
  const double milliseconds = ValueOf(values, WAIT_MS) * operations;
  constexpr double SECTORS = 2.0;  // of a kilobyte
  host_file::DiskFigures& disk = host.disks.emplace_back();
  disk.name = name;
  disk.figures = {Count(operations * share),
                  0,
                  Count(readKb * seconds * SECTORS),
                  Count(milliseconds * share),
                  Count(operations * (1.0 - share)),
                  0,
                  Count(writtenKb * seconds * SECTORS),
                  Count(milliseconds * (1.0 - share)),
                  0,
                  Count(ValueOf(values, BUSY) * seconds * 10.0),
                  Count(ValueOf(values, QUEUE) * seconds * 1000.0)};
}

void AddAdapter(const std::string& name, const Values& values, double seconds, HostFigures& host) {
  const auto counted = [&](FieldPlace place, double unit = 1.0) {
    return Count(ValueOf(values, place) * seconds * unit);
  };
  constexpr double KILOBYTE = 1024.0;
  const std::array<uint64_t, 7> figures = {
      counted(PACKETS_IN),       counted(KB_IN, KILOBYTE), counted(ERRORS_IN), counted(PACKETS_OUT),
      counted(KB_OUT, KILOBYTE), counted(ERRORS_OUT),      counted(COLLISIONS)};
  host.adapters.push_back({name, figures});
}

void AddFileSystem(const std::string& name, const Values& values, double /*seconds*/, HostFigures& host) {
  const double used = ValueOf(values, MB_USED);
  const double free = ValueOf(values, MB_FREE);
  const double percent = ValueOf(values, USED_PERCENT);  // of what an ordinary user can have
  const double available = percent > 0.0 ? used * (100.0 / percent - 1.0) : free;
  constexpr uint64_t MEGABYTE = 1U << 20U;
  const uint64_t files = Count(ValueOf(values, FILES_FREE));
  host.fileSystems.push_back({.device = name,
                              .mountPoint = name,
                              .blockSize = MEGABYTE,
                              .blocks = Count(used + free),
                              .freeBlocks = Count(free),
                              .availableBlocks = Count(std::min(available, free)),
                              .files = files + Count(ValueOf(values, FILES_USED)),
                              .freeFiles = files});
}

struct Group {
  Kind kind;
  void (*add)(const std::string& name, const Values& values, double seconds, HostFigures& host);
};
constexpr Group GROUPS[] = {{Kind::HOST, AddHost},
                            {Kind::PROCESSOR, AddProcessor},
                            {Kind::DISK, AddDisk},
                            {Kind::ADAPTER, AddAdapter},
                            {Kind::FILE_SYSTEM, AddFileSystem}};

bool CarriedNothing(const host_file::AdapterFigures& adapter) {
  return std::ranges::all_of(adapter.figures, [](uint64_t count) { return count == 0; });
}

// Hands the samples on in the order of time, host by host.
std::string Deliver(const Moments& moments, const SampleSink& sink) {
  for (const auto& [key, moment] : moments) {
    Sample sample{.node = key.first, .time = key.second, .seconds = moment.seconds, .figures = {}};
    for (const auto& [device, values] : moment.devices) {
      const auto* group = std::ranges::find(GROUPS, device.first, &Group::kind);
      group->add(device.second, values, static_cast<double>(moment.seconds), sample.figures);
    }
    std::ranges::sort(sample.figures.processors, {}, &host_file::ProcessorFigures::id);
    std::erase_if(sample.figures.adapters, CarriedNothing);
    if (std::string failure = sink(sample); !failure.empty()) return failure;
  }
  return "";
}

// Words of a line.
enum Place : size_t { NODE, INTERVAL, TIME, DEVICE, FIELD, VALUE, WORDS };

// The times of a line, which is of an interval and no mark of a restart or a comment.
bool TakeTimes(const Words& words, int64_t& time, int64_t& seconds) {
  uint64_t epoch = 0;
  uint64_t interval = 0;
  if (words.size() != WORDS || !IsCount(words[TIME], epoch) || !IsCount(words[INTERVAL], interval))
    return false;
  constexpr uint64_t LONGEST = 366UL * 86400;
  if (epoch == 0 || epoch > INT32_MAX || interval > LONGEST || words[NODE].empty()) return false;
  time = static_cast<int64_t>(epoch);
  seconds = std::max<int64_t>(static_cast<int64_t>(interval), 1);
  return true;
}

std::string ReadSysstatText(LineSource& lines, UserNames& /*users*/, const SampleSink& sink) {
  Moments moments;
  std::string line;
  Words words;
  for (size_t number = 1; lines.Next(line); ++number) {
    SplitWords(line, '\t', words);
    int64_t time = 0;
    int64_t seconds = 0;
    if (words.size() < DEVICE) return "line " + std::to_string(number) + " isn't one of sadf's";
    if (!TakeTimes(words, time, seconds)) continue;
    const auto* field = std::ranges::find(FIELDS, words[FIELD], &Field::name);
    if (field == std::end(FIELDS)) continue;
    double value = 0.0;
    std::from_chars(words[VALUE].data(), words[VALUE].data() + words[VALUE].size(), value);
    Moment& moment = moments[{std::string(words[NODE]), time}];
    moment.seconds = seconds;
    moment.devices[{field->kind, std::string(words[DEVICE])}][static_cast<size_t>(field - FIELDS)] = value;
  }
  return Deliver(moments, sink);
}

// The mark that a daily file begins with, in the byte order of the host that wrote it.
bool IsSysstatRecording(std::string_view head) {
  return head.starts_with("\x96\xd5") || head.starts_with("\xd5\x96");
}

bool IsSysstatText(std::string_view line) {
  Words words;
  SplitWords(line, '\t', words);
  uint64_t number = 0;
  return words.size() >= DEVICE && !words[NODE].empty() && IsCount(words[TIME], number) &&
         (IsCount(words[INTERVAL], number) || words[INTERVAL] == "-1");
}

std::vector<std::string> SysstatCommand(const std::string& path) {
  return {
      "sadf", "-p", "-U", std::filesystem::absolute(path), "--", "-u", "ALL", "-P", "ALL", "-r", "ALL", "-B",
      "-W",   "-d", "-n", "DEV,EDEV,IP,TCP,ETCP,UDP,SOCK", "-F"};
}

}  // namespace

const Source SYSSTAT = {.name = "sysstat",
                        .package = "sysstat",
                        .isRecording = IsSysstatRecording,
                        .isText = IsSysstatText,
                        .command = SysstatCommand,
                        .readText = ReadSysstatText,
                        .readRecording = nullptr,
                        .lacks = "processes (no images, users and workload classes)"};

}  // namespace ozmo::import
