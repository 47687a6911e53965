#include "programs/import/pcp.h"

#include <pcp/pmapi.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "programs/host_file/difference.h"
#include "programs/import/pcp_metrics.h"

namespace ozmo::import {
namespace {

using host_file::HostFigures;

std::string ErrorText(int code) {
  char text[PM_MAXERRMSGLEN] = "";
  return pmErrStr_r(code, text, sizeof text);
}

// Of a metric that has one value.
constexpr int NO_INSTANCE = static_cast<int>(PM_IN_NULL);

// The values of a metric by instance, as they were logged last.
struct Values {
  std::map<int, uint64_t> numbers;
  std::map<int, std::string> texts;
};

// What an archive has said up to some time.
class Reading {
 public:
  Values& At(size_t place) { return values_[place]; }
  uint64_t Number(Metric metric, int instance = NO_INSTANCE, size_t place = 0) const {
    const auto& numbers = values_[static_cast<size_t>(metric) + place].numbers;
    const auto found = numbers.find(instance);
    return found == numbers.end() ? 0 : found->second;
  }
  std::string Text(Metric metric, int instance = NO_INSTANCE) const {
    const auto& texts = values_[static_cast<size_t>(metric)].texts;
    const auto found = texts.find(instance);
    return found == texts.end() ? "" : found->second;
  }
  const std::map<int, uint64_t>& Instances(Metric metric) const {
    return values_[static_cast<size_t>(metric)].numbers;
  }

 private:
  std::array<Values, METRIC_COUNT> values_;
};

// --- From a reading to figures ---

// The names of instances, which an archive has apart from the values.
using InstanceNames = std::function<std::string(Metric metric, int instance)>;

constexpr uint64_t MILLISECONDS_PER_TICK = 1000 / host_file::TICKS_PER_SECOND;

void TakeProcessors(const Reading& reading, HostFigures& host) {
  for (const auto& [instance, user] : reading.Instances(Metric::USER)) {
    const auto ticks = [&, at = instance](Metric metric) {
      return reading.Number(metric, at) / MILLISECONDS_PER_TICK;
    };
    host.processors.push_back({.id = instance,
                               .user = user / MILLISECONDS_PER_TICK,
                               .nice = ticks(Metric::NICE),
                               .system = ticks(Metric::SYSTEM) + ticks(Metric::INTERRUPTS),
                               .idle = ticks(Metric::IDLE),
                               .wait = ticks(Metric::WAIT)});
  }
}

// The kernel counts what is paged in kilobytes and what is swapped in pages.
void TakeMemory(const Reading& reading, HostFigures& host) {
  constexpr uint64_t KILOBYTES_PER_PAGE = 4;
  const auto number = [&](Metric metric) { return reading.Number(metric); };
  const uint64_t shared = number(Metric::SHARED);
  const uint64_t cached = number(Metric::CACHED);
  host.memory = {.total = number(Metric::MEMORY),
                 .free = number(Metric::FREE),
                 .shared = shared,
                 .buffers = number(Metric::BUFFERS),
                 .cached = cached - std::min(cached, shared)};
  host.paging = {.pagedIn = number(Metric::PAGED_IN) / KILOBYTES_PER_PAGE,
                 .pagedOut = number(Metric::PAGED_OUT) / KILOBYTES_PER_PAGE,
                 .swappedIn = number(Metric::SWAPPED_IN),
                 .swappedOut = number(Metric::SWAPPED_OUT)};
}

// A list whose figures are metrics one after the other, the first of which says which members there are.
template <class Figures>
void TakeList(const Reading& reading, const InstanceNames& names, Metric first, std::vector<Figures>& list) {
  for (const auto& instance : reading.Instances(first)) {
    Figures figures{names(first, instance.first), {}};
    for (size_t place = 0; place < figures.figures.size(); ++place) {
      figures.figures[place] = reading.Number(first, instance.first, place);
    }
    list.push_back(std::move(figures));
  }
}

void TakeProtocols(const Reading& reading, HostFigures& host) {
  host.hasProtocols = !reading.Instances(Metric::PROTOCOLS).empty();
  for (size_t place = 0; place < host.protocols.size(); ++place) {
    host.protocols[place] = reading.Number(Metric::PROTOCOLS, NO_INSTANCE, place);
  }
}

// Those on devices of the host, as the recorder has them.
void TakeFileSystems(const Reading& reading, const InstanceNames& names, HostFigures& host) {
  constexpr uint64_t KILOBYTE = 1024;
  for (const auto& [instance, capacity] : reading.Instances(Metric::CAPACITY)) {
    const std::string device = names(Metric::CAPACITY, instance);
    if (!device.starts_with('/')) continue;
    host.fileSystems.push_back({.device = device,
                                .mountPoint = reading.Text(Metric::MOUNT_POINT, instance),
                                .blockSize = KILOBYTE,
                                .blocks = capacity,
                                .freeBlocks = reading.Number(Metric::FREE_SPACE, instance),
                                .availableBlocks = reading.Number(Metric::AVAILABLE, instance),
                                .files = reading.Number(Metric::FILES, instance),
                                .freeFiles = reading.Number(Metric::FREE_FILES, instance)});
  }
}

// As the recorder has it: a thread of the kernel loses what it has after a slash. PCP has threads of the
// kernel in parentheses, and other processes by their arguments.
std::string CommandOf(const Reading& reading, int instance) {
  std::string image = reading.Text(Metric::IMAGE, instance);
  std::string line = reading.Text(Metric::COMMAND_LINE, instance);
  if (reading.Text(Metric::STATE, instance) == "Z") return image.empty() ? line : image;
  if (!line.empty() && line != "(" + image + ")") return line;
  return "[" + image.substr(0, image.find('/')) + "]";
}

void TakeProcesses(const Reading& reading, HostFigures& host) {
  constexpr uint64_t KILOBYTE = 1024;
  for (const auto& [instance, userTime] : reading.Instances(Metric::PROCESS_USER)) {
    const auto number = [&, at = instance](Metric metric) { return reading.Number(metric, at); };
    const auto ticks = [&](Metric metric) { return number(metric) / MILLISECONDS_PER_TICK; };
    host_file::ProcessFigures& process = host.processes.emplace_back();
    process.id = instance;
    process.parent = static_cast<int32_t>(number(Metric::PARENT));
    process.start = ticks(Metric::START);
    process.own = {userTime / MILLISECONDS_PER_TICK, ticks(Metric::PROCESS_SYSTEM),
                   number(Metric::MINOR_FAULTS), number(Metric::MAJOR_FAULTS)};
    process.children = {ticks(Metric::CHILDREN_USER), ticks(Metric::CHILDREN_SYSTEM),
                        number(Metric::CHILDREN_MINOR), number(Metric::CHILDREN_MAJOR)};
    process.virtualBytes = number(Metric::VIRTUAL) * KILOBYTE;
    process.residentBytes = number(Metric::RESIDENT) * KILOBYTE;
    process.command = CommandOf(reading, instance);
    process.user = reading.Text(Metric::OWNER, instance);
  }
}

HostFigures HostOf(const Reading& reading, const InstanceNames& names) {
  HostFigures host;
  host.uptime = reading.Number(Metric::UPTIME) * host_file::TICKS_PER_SECOND;
  TakeProcessors(reading, host);
  TakeMemory(reading, host);
  TakeList(reading, names, Metric::READS, host.disks);
  TakeList(reading, names, Metric::PACKETS_IN, host.adapters);
  std::erase_if(host.adapters, [](const host_file::AdapterFigures& adapter) {
    return std::ranges::all_of(adapter.figures, [](uint64_t count) { return count == 0; });
  });
  TakeProtocols(reading, host);
  TakeFileSystems(reading, names, host);
  TakeProcesses(reading, host);
  return host;
}

// --- The archive ---

// Seconds; of an archive without processes.
constexpr int64_t SAMPLE_INTERVAL = 60;

class Archive {
 public:
  ~Archive() {
    if (context_ >= 0) pmDestroyContext(context_);
  }
  // Results are empty, or the text of a failure.
  std::string Open(const std::string& path);
  std::string Read(const SampleSink& sink);

 private:
  struct Known {
    size_t place = 0;
    pmDesc description{};
  };

  bool TakeRecord(const pmResult& record);
  void TakeValues(const pmValueSet& set, const Known& known);
  std::string NameOf(Metric metric, int instance);
  std::string EndSample(const SampleSink& sink);

  int context_ = -1;
  std::string node_;
  std::map<pmID, Known> known_;
  std::array<pmInDom, METRIC_COUNT> domains_{};
  std::map<std::pair<pmInDom, int>, std::string> names_;
  int64_t processesTime_ = 0;                  // of the last record of processes
  int64_t longestInterval_ = SAMPLE_INTERVAL;  // between samples, from what is known so far
  Reading reading_;
  int64_t time_ = 0;  // of the reading
  bool isDue_ = false;
  HostFigures before_;
  int64_t timeBefore_ = 0;  // 0: there is nothing to compare with yet
};

std::string Archive::Open(const std::string& path) {
  context_ = pmNewContext(PM_CONTEXT_ARCHIVE, path.c_str());
  if (context_ < 0) return ErrorText(context_);
  // Of its label, whose members have other names in a later library.
  std::array<char, PM_MAX_HOSTNAMELEN> host{};
  node_ = pmGetContextHostName_r(context_, host.data(), static_cast<int>(host.size()));
  for (size_t place = 0; place < METRIC_COUNT; ++place) {
    const std::string name(MetricName(place));
    const char* names[] = {name.c_str()};
    pmID id = PM_ID_NULL;
    Known known{.place = place};
    domains_[place] = PM_INDOM_NULL;
    if (pmLookupName(1, names, &id) < 1 || pmLookupDesc(id, &known.description) < 0) continue;
    domains_[place] = known.description.indom;
    known_.emplace(id, known);
  }
  return known_.empty() ? "the archive has no metrics of a Linux host" : "";
}

// What was logged at one time comes in several records, so a sample ends with the first of a later second.
std::string Archive::Read(const SampleSink& sink) {
  for (;;) {
    pmResult* fetched = nullptr;
    const int code = pmFetchArchive(&fetched);
    if (code == PM_ERR_EOL) break;
    if (code < 0) return ErrorText(code);
    const std::unique_ptr<pmResult, void (*)(pmResult*)> record(fetched, pmFreeResult);
    const int64_t time = record->timestamp.tv_sec;
    const bool isMark = record->numpmid == 0;
    const bool isAnew = isMark || time < time_;  // the clock has gone back
    if (isDue_ && (isAnew || time > time_ + 1)) {
      if (std::string failure = EndSample(sink); !failure.empty()) return failure;
    }
    if (isAnew) {
      timeBefore_ = 0;
      reading_.At(static_cast<size_t>(Metric::PROCESS_USER)) = {};  // those from before may have ended
    }
    if (isMark) continue;
    const bool hasProcesses = TakeRecord(*record);
    if (hasProcesses && time > processesTime_) {
      // Where they are logged no more, samples go on without them.
      const int64_t since = processesTime_ == 0 ? SAMPLE_INTERVAL : time - processesTime_;
      longestInterval_ = 2 * std::max(since, SAMPLE_INTERVAL);
      processesTime_ = time;
    }
    time_ = time;
    isDue_ = isDue_ || hasProcesses || time >= timeBefore_ + longestInterval_;
  }
  return isDue_ ? EndSample(sink) : "";
}

bool Archive::TakeRecord(const pmResult& record) {
  bool hasProcesses = false;
  for (int i = 0; i < record.numpmid; ++i) {
    const pmValueSet& set = *record.vset[i];
    const auto known = known_.find(set.pmid);
    if (known == known_.end() || set.numval < 0) continue;
    TakeValues(set, known->second);
    hasProcesses = hasProcesses || known->second.place == static_cast<size_t>(Metric::PROCESS_USER);
  }
  return hasProcesses;
}

void Archive::TakeValues(const pmValueSet& set, const Known& known) {
  Values& values = reading_.At(known.place);
  values = {};
  for (int i = 0; i < set.numval; ++i) {
    const pmValue& value = set.vlist[i];
    pmAtomValue atom{};
    const bool isText = known.description.type == PM_TYPE_STRING;
    const int wanted = isText ? PM_TYPE_STRING : PM_TYPE_U64;
    if (pmExtractValue(set.valfmt, &value, known.description.type, &atom, wanted) < 0) continue;
    if (isText) {
      values.texts[value.inst] = atom.cp;
      std::free(atom.cp);
    } else {
      values.numbers[value.inst] = atom.ull;
    }
  }
}

std::string Archive::NameOf(Metric metric, int instance) {
  const pmInDom domain = domains_[static_cast<size_t>(metric)];
  const auto [found, isNew] = names_.try_emplace({domain, instance});
  char* name = nullptr;
  if (isNew && pmNameInDomArchive(domain, instance, &name) >= 0) {
    found->second = name;
    std::free(name);
  }
  return found->second;
}

std::string Archive::EndSample(const SampleSink& sink) {
  isDue_ = false;
  HostFigures host =
      HostOf(reading_, [this](Metric metric, int instance) { return NameOf(metric, instance); });
  std::string failure;
  if (timeBefore_ != 0 && time_ > timeBefore_) {
    const std::string node = reading_.Text(Metric::NODE);
    Sample sample{.node = node.empty() ? node_ : node,
                  .time = time_,
                  .seconds = time_ - timeBefore_,
                  .figures = host_file::DifferenceOf(before_, host)};
    failure = sink(sample);
  }
  before_ = std::move(host);
  timeBefore_ = time_;
  return failure;
}

std::string ReadArchive(const std::string& path, const SampleSink& sink) {
  Archive archive;
  if (std::string failure = archive.Open(path); !failure.empty()) return failure;
  return archive.Read(sink);
}

// Each file of an archive begins with its label: a length, and a mark with the version.
bool IsArchive(std::string_view head) {
  constexpr std::string_view MARK = "\x50\x05\x26";
  constexpr size_t PLACE = 4;
  return head.size() > PLACE + MARK.size() && head.substr(PLACE, MARK.size()) == MARK;
}

}  // namespace

const Source PCP = {.name = "pcp",
                    .package = "pcp",
                    .isRecording = IsArchive,
                    .isText = nullptr,
                    .commands = nullptr,
                    .conversion = nullptr,
                    .readText = nullptr,
                    .readRecording = ReadArchive,
                    .isInParts = true};

}  // namespace ozmo::import
