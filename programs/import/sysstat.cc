#include "programs/import/sysstat.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <map>
#include <utility>

#include "programs/import/sysstat_fields.h"
#include "programs/import/words.h"

namespace ozmo::import {
namespace {

using host_file::HostFigures;
using Words = std::vector<std::string_view>;

using FieldValues = std::map<size_t, double>;  // by the place of the field
using Devices = std::map<std::pair<DeviceKind, std::string>, FieldValues>;

struct Moment {
  int64_t seconds = 0;
  Devices devices;
  // In sadf's order, which is one.
  std::vector<std::string> fileSystems;
  std::vector<std::string> mountPoints;
};
using Moments = std::map<std::pair<int64_t, std::string>, Moment>;  // by time and host

double ValueOf(const FieldValues& values, size_t place) {
  const auto found = values.find(place);
  return found == values.end() ? 0.0 : found->second;
}

// A count of the interval. What is below 0 or no number counts 0, and no count is beyond what a double holds
// exactly.
uint64_t Count(double value) {
  constexpr double MOST = 9007199254740992.0;
  return value > 0.0 ? static_cast<uint64_t>(std::llround(std::min(value, MOST))) : 0;
}

void AddProcessor(const std::string& name, const FieldValues& values, double seconds, HostFigures& host) {
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

void AddHost(const std::string& /*name*/, const FieldValues& values, double seconds, HostFigures& host) {
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
  const auto protocol = [&](size_t kernel) { return ValueOf(values, FIELD_COUNT + kernel); };
  host.hasProtocols = values.contains(FIELD_COUNT + IP_RECEIVED);
  for (const ProtocolField& field : PROTOCOL_FIELDS) {
    host.protocols[field.kernel] = Count(protocol(field.kernel) * seconds);
  }
  host.protocols[ESTABLISHED] = Count(protocol(ESTABLISHED));
}

// Operations are not split in sadf's figures; they are given to reads and writes by their data, as only the
// sum is shown.
void AddDisk(const std::string& name, const FieldValues& values, double seconds, HostFigures& host) {
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

void AddAdapter(const std::string& name, const FieldValues& values, double seconds, HostFigures& host) {
  const auto counted = [&](FieldPlace place, double unit = 1.0) {
    return Count(ValueOf(values, place) * seconds * unit);
  };
  constexpr double KILOBYTE = 1024.0;
  const std::array<uint64_t, 7> figures = {
      counted(PACKETS_IN),       counted(KB_IN, KILOBYTE), counted(ERRORS_IN), counted(PACKETS_OUT),
      counted(KB_OUT, KILOBYTE), counted(ERRORS_OUT),      counted(COLLISIONS)};
  host.adapters.push_back({name, figures});
}

void AddFileSystem(const std::string& name, const FieldValues& values, double /*seconds*/,
                   HostFigures& host) {
  const double used = ValueOf(values, MB_USED);
  const double free = ValueOf(values, MB_FREE);
  // Of all there is, what an ordinary user can't have.
  const double percent = ValueOf(values, USED_PERCENT);
  const double available = percent > 0.0 ? (used + free) * (1.0 - percent / 100.0) : free;
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

struct DeviceRow {
  DeviceKind kind;
  void (*add)(const std::string& name, const FieldValues& values, double seconds, HostFigures& host);
};
constexpr DeviceRow DEVICES[] = {{DeviceKind::HOST, AddHost},
                                 {DeviceKind::PROCESSOR, AddProcessor},
                                 {DeviceKind::DISK, AddDisk},
                                 {DeviceKind::ADAPTER, AddAdapter},
                                 {DeviceKind::FILE_SYSTEM, AddFileSystem}};

bool CarriedNothing(const host_file::AdapterFigures& adapter) {
  return std::ranges::all_of(adapter.figures, [](uint64_t count) { return count == 0; });
}

// Where a file system is mounted; sadf has either its device or that.
std::string MountPointOf(const Moment& moment, const std::string& device) {
  const auto found = std::ranges::find(moment.fileSystems, device);
  const auto place = static_cast<size_t>(found - moment.fileSystems.begin());
  const bool isKnown =
      moment.fileSystems.size() == moment.mountPoints.size() && place < moment.mountPoints.size();
  return isKnown ? moment.mountPoints[place] : device;
}

Sample SampleOf(const std::string& node, int64_t time, const Moment& moment) {
  Sample sample{.node = node, .time = time, .seconds = moment.seconds, .figures = {}};
  for (const auto& [device, values] : moment.devices) {
    const auto* row = std::ranges::find(DEVICES, device.first, &DeviceRow::kind);
    row->add(device.second, values, static_cast<double>(moment.seconds), sample.figures);
  }
  std::ranges::sort(sample.figures.processors, {}, &host_file::ProcessorFigures::id);
  std::erase_if(sample.figures.adapters, CarriedNothing);
  for (host_file::FileSystemFigures& fileSystem : sample.figures.fileSystems) {
    fileSystem.mountPoint = MountPointOf(moment, fileSystem.device);
  }
  return sample;
}

// Hands on the samples up to a time, and forgets them.
std::string Deliver(Moments& moments, int64_t end, const SampleSink& sink) {
  while (!moments.empty() && moments.begin()->first.first < end) {
    const auto& [key, moment] = *moments.begin();
    if (std::string failure = sink(SampleOf(key.second, key.first, moment)); !failure.empty()) return failure;
    moments.erase(moments.begin());
  }
  return "";
}

// Words of a line.
enum Word : size_t { NODE_WORD, INTERVAL_WORD, TIME_WORD, DEVICE_WORD, FIELD_WORD, VALUE_WORD, WORD_COUNT };

// The times of a line, which is of an interval and no mark of a restart or a comment.
bool TakeTimes(const Words& words, int64_t& time, int64_t& seconds) {
  uint64_t epoch = 0;
  uint64_t interval = 0;
  if (words.size() != WORD_COUNT || !IsCount(words[TIME_WORD], epoch) ||
      !IsCount(words[INTERVAL_WORD], interval))
    return false;
  constexpr uint64_t LONGEST = 366UL * 86400;
  if (epoch == 0 || epoch > INT32_MAX || interval > LONGEST || words[NODE_WORD].empty()) return false;
  time = static_cast<int64_t>(epoch);
  seconds = std::max<int64_t>(static_cast<int64_t>(interval), 1);
  return true;
}

void TakeValue(const Words& words, size_t place, DeviceKind kind, bool namesMounts, Moment& moment) {
  const std::string device(words[DEVICE_WORD]);
  if (place == MB_FREE) (namesMounts ? moment.mountPoints : moment.fileSystems).push_back(device);
  if (kind == DeviceKind::FILE_SYSTEM && namesMounts) return;
  double value = 0.0;
  std::from_chars(words[VALUE_WORD].data(), words[VALUE_WORD].data() + words[VALUE_WORD].size(), value);
  moment.devices[{kind, device}][place] = value;
}

// One text has the times once for each activity. Texts of an activity each are read side by side, the one
// that is furthest back in time first, and a sample is complete when all are past it.
class SysstatReader {
 public:
  SysstatReader(Texts& texts, const SampleSink& sink) : texts_(texts), sink_(sink), places_(texts.size()) {}

  std::string Read() {
    while (!places_.empty()) {
      const auto last = std::ranges::min_element(places_, {}, &Place::time);
      if (last->time == END) break;
      const size_t number = static_cast<size_t>(last - places_.begin());
      if (std::string failure = ReadOn(number); !failure.empty()) return failure;
      if (places_.size() == 1) continue;
      const int64_t reached = std::ranges::min_element(places_, {}, &Place::time)->time;
      if (std::string failure = Deliver(moments_, reached, sink_); !failure.empty()) return failure;
    }
    return Deliver(moments_, END, sink_);
  }

 private:
  static constexpr int64_t END = INT64_MAX;
  struct Place {
    int64_t time = 0;
    size_t line = 0;
  };

  // Reads a text up to its next time.
  std::string ReadOn(size_t number) {
    Place& place = places_[number];
    const bool namesMounts = number > 0 && number + 1 == places_.size();
    for (std::string line; texts_[number].Next(line);) {
      ++place.line;
      SplitWords(line, '\t', words_);
      int64_t time = 0;
      int64_t seconds = 0;
      if (words_.size() < DEVICE_WORD) return "line " + std::to_string(place.line) + " isn't one of sadf's";
      if (!TakeTimes(words_, time, seconds)) continue;
      size_t field = 0;
      DeviceKind kind{};
      if (FindField(words_[FIELD_WORD], field, kind)) {
        Moment& moment = moments_[{time, std::string(words_[NODE_WORD])}];
        moment.seconds = seconds;
        TakeValue(words_, field, kind, namesMounts, moment);
      }
      if (time != std::exchange(place.time, time)) return "";
    }
    place.time = END;
    return "";
  }

  Texts& texts_;
  const SampleSink& sink_;
  std::vector<Place> places_;
  Moments moments_;
  Words words_;
};

std::string ReadSysstatText(Texts& texts, UserNames& /*users*/, const SampleSink& sink) {
  return SysstatReader(texts, sink).Read();
}

// The mark that a daily file begins with, in the byte order of the host that wrote it.
bool IsSysstatRecording(std::string_view head) {
  return head.starts_with("\x96\xd5") || head.starts_with("\xd5\x96");
}

bool IsSysstatText(std::string_view line) {
  Words words;
  SplitWords(line, '\t', words);
  uint64_t number = 0;
  return words.size() >= DEVICE_WORD && !words[NODE_WORD].empty() && IsCount(words[TIME_WORD], number) &&
         (IsCount(words[INTERVAL_WORD], number) || words[INTERVAL_WORD] == "-1");
}

// A command an activity: one for all prints the whole day for each activity in turn, so that the first sample
// is complete only at the end. The first is there in every recording, and the last has file systems by mount
// point.
std::vector<std::vector<std::string>> SysstatCommands(const std::string& path) {
  const std::vector<std::vector<std::string>> activities = {{"-u", "ALL", "-P", "ALL"},
                                                            {"-r", "ALL"},
                                                            {"-B"},
                                                            {"-W"},
                                                            {"-d"},
                                                            {"-n", "DEV"},
                                                            {"-n", "EDEV"},
                                                            {"-n", "IP"},
                                                            {"-n", "EIP"},
                                                            {"-n", "ICMP"},
                                                            {"-n", "EICMP"},
                                                            {"-n", "TCP"},
                                                            {"-n", "ETCP"},
                                                            {"-n", "SOCK"},
                                                            {"-n", "UDP"},
                                                            {"-F"},
                                                            {"-F", "MOUNT"}};
  std::vector<std::vector<std::string>> commands;
  for (const std::vector<std::string>& activity : activities) {
    std::vector<std::string>& command = commands.emplace_back();
    command = {"sadf", "-p", "-U", std::filesystem::absolute(path), "--"};
    command.insert(command.end(), activity.begin(), activity.end());
  }
  return commands;
}

std::vector<std::string> SysstatConversion(const std::string& path) {
  return {"sadf", "-c", std::filesystem::absolute(path)};
}

}  // namespace

const Source SYSSTAT = {.name = "sysstat",
                        .package = "sysstat",
                        .isRecording = IsSysstatRecording,
                        .isText = IsSysstatText,
                        .commands = SysstatCommands,
                        .conversion = SysstatConversion,
                        .readText = ReadSysstatText,
                        .readRecording = nullptr};

}  // namespace ozmo::import
