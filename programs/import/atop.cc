#include "programs/import/atop.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>
#include <utility>

#include "programs/host_file/ended_processes.h"
#include "programs/import/words.h"

namespace ozmo::import {
namespace {

using host_file::HostFigures;
using host_file::TICKS_PER_SECOND;
using Words = std::vector<std::string_view>;

// Places of a line's words: those that all lines have, and those that come after.
constexpr size_t NODE = 1;
constexpr size_t EPOCH = 2;
constexpr size_t INTERVAL = 5;
constexpr size_t FIRST = 6;
constexpr uint64_t LONGEST_INTERVAL = 366UL * 86400;

// Word `place` of a line, counted as the manual counts them after the six that all lines have; empty if there
// are fewer.
std::string_view At(const Words& words, size_t place) {
  return FIRST + place < words.size() ? words[FIRST + place] : std::string_view();
}

uint64_t NumberAt(const Words& words, size_t place) { return CountOf(At(words, place)); }

// Clock ticks of a machine that has `perSecond` of them.
uint64_t TicksOf(uint64_t ticks, uint64_t perSecond) {
  return perSecond == TICKS_PER_SECOND || perSecond == 0 ? ticks : ticks * TICKS_PER_SECOND / perSecond;
}

// --- Lines of the host ---

void TakeProcessor(const Words& words, HostFigures& host) {
  const uint64_t perSecond = NumberAt(words, 0);
  const auto ticks = [&](size_t place) { return TicksOf(NumberAt(words, place), perSecond); };
  host.processors.push_back({.id = static_cast<int32_t>(NumberAt(words, 1)),
                             .user = ticks(3),
                             .nice = ticks(4),
                             .system = ticks(2) + ticks(7) + ticks(8),  // with both kinds of interrupts
                             .idle = ticks(5),
                             .wait = ticks(6)});
}

void TakeMemory(const Words& words, HostFigures& host) {
  const uint64_t pageKilobytes = NumberAt(words, 0) / 1024;
  const auto kilobytes = [&](size_t place) { return NumberAt(words, place) * pageKilobytes; };
  const uint64_t shared = kilobytes(9);
  const uint64_t cache = kilobytes(3);
  host.memory = {.total = kilobytes(1),
                 .free = kilobytes(2),
                 .shared = shared,
                 .buffers = kilobytes(4),
                 .cached = cache - std::min(cache, shared)};
}

void TakePaging(const Words& words, HostFigures& host) {
  host.paging = {.pagedIn = NumberAt(words, 10),
                 .pagedOut = NumberAt(words, 11),
                 .swappedIn = NumberAt(words, 4),
                 .swappedOut = NumberAt(words, 5)};
}

// The depth of the queue while the disk was busy, by the time it was busy, is the time of all requests. It is
// given to reads and writes by their number: only the sum is shown.
void TakeDisk(const Words& words, HostFigures& host) {
  host_file::DiskFigures& disk = host.disks.emplace_back();
  disk.name = At(words, 0);
  const uint64_t busy = NumberAt(words, 1);
  const uint64_t reads = NumberAt(words, 2);
  const uint64_t writes = NumberAt(words, 4);
  double depth = 0.0;
  const std::string_view depthText = At(words, 9);
  std::from_chars(depthText.data(), depthText.data() + depthText.size(), depth);
  const double most = 1e12;  // milliseconds: more than thirty years
  if (!std::isfinite(depth)) depth = 0.0;
  const auto all = static_cast<uint64_t>(std::clamp(depth * static_cast<double>(busy), 0.0, most));
  const uint64_t operations = reads + writes;
  const uint64_t ofReads = operations == 0
                               ? 0
                               : static_cast<uint64_t>(static_cast<double>(all) * static_cast<double>(reads) /
                                                       static_cast<double>(operations));
  disk.figures = {reads,
                  0,
                  NumberAt(words, 3),
                  ofReads,
                  writes,
                  0,
                  NumberAt(words, 5),
                  all - std::min(all, ofReads),
                  NumberAt(words, 8),
                  busy,
                  all};
}

// Places in the kernel's list of protocol counters, and in atop's line of upper layers.
struct ProtocolPlace {
  size_t kernel;
  size_t word;
};
constexpr ProtocolPlace PROTOCOLS[] = {
    {.kernel = 54, .word = 1},   // TCP segments received
    {.kernel = 55, .word = 2},   // and sent
    {.kernel = 57, .word = 3},   // UDP datagrams received
    {.kernel = 60, .word = 4},   // and sent
    {.kernel = 2, .word = 5},    // IP packets received
    {.kernel = 9, .word = 6},    // sent
    {.kernel = 8, .word = 7},    // delivered
    {.kernel = 5, .word = 8},    // forwarded
    {.kernel = 59, .word = 9},   // UDP errors
    {.kernel = 58, .word = 10},  // no port
    {.kernel = 49, .word = 11},  // TCP active opens
    {.kernel = 50, .word = 12},  // passive opens
    {.kernel = 53, .word = 13},  // connections that are established
    {.kernel = 56, .word = 14},  // segments sent again
};

void TakeNetwork(const Words& words, HostFigures& host) {
  if (At(words, 0) == "upper") {
    host.hasProtocols = true;
    for (const ProtocolPlace& place : PROTOCOLS) host.protocols[place.kernel] = NumberAt(words, place.word);
    return;
  }
  host.adapters.push_back(
      {std::string(At(words, 0)),
       {NumberAt(words, 1), NumberAt(words, 2), 0, NumberAt(words, 3), NumberAt(words, 4), 0, 0}});
}

struct HostLine {
  std::string_view label;
  void (*take)(const Words& words, HostFigures& host);
};
// Logical volumes and multiple devices are on disks, so their lines are left out.
constexpr HostLine HOST_LINES[] = {{"cpu", TakeProcessor},
                                   {"MEM", TakeMemory},
                                   {"PAG", TakePaging},
                                   {"DSK", TakeDisk},
                                   {"NET", TakeNetwork}};

// --- Lines of processes ---

// A process line, taken apart: names and commands hold blanks and parentheses.
struct ProcessLine {
  std::string_view id;
  std::string_view name;
  std::string_view rest;  // after the name
};

// The kernel's names have at most 15 letters; the last parenthesis that a blank and a state's letter follow
// ends one.
bool TakeProcessLine(std::string_view text, ProcessLine& line) {
  constexpr size_t LONGEST_NAME = 15;
  const size_t open = text.find(" (");
  if (open == std::string_view::npos) return false;
  const size_t begin = open + 2;
  size_t end = std::string_view::npos;
  for (size_t place = begin; place < text.size() && place <= begin + LONGEST_NAME; ++place) {
    const std::string_view after = text.substr(place);
    if (after.size() >= 4 && after.starts_with(") ") && after[2] != ' ' && after[3] == ' ') end = place;
  }
  if (end == std::string_view::npos) return false;
  line = {text.substr(0, open), text.substr(begin, end - begin), text.substr(end + 2)};
  return true;
}

// What PRG, PRC and PRM say of a process. The lines of a sample are in one order.
struct Task {
  bool isProcess = false;
  bool hasEnded = false;
  std::string name;
  std::string user;
  host_file::ProcessFigures figures;
};

// Words after a name.
constexpr size_t STATE = 0;
constexpr size_t REAL_USER = 1;

// Whether `words` are what follows the command: eleven numbers and the mark of a process.
constexpr size_t PARENT = 0;
constexpr size_t EFFECTIVE_USER = 4;
constexpr size_t IS_PROCESS = 11;
bool AreAfterCommand(const Words& words) {
  uint64_t number = 0;
  for (size_t place = 0; place < IS_PROCESS; ++place) {
    if (place >= words.size() || !IsCount(words[place], number)) return false;
  }
  return words.size() > IS_PROCESS && (words[IS_PROCESS] == "y" || words[IS_PROCESS] == "n");
}

// The user that a process works for. Of one that began and ended between two samples atop knows what the
// kernel's accounting has, which is the real user; its effective user is then 0.
std::string UserOf(const Task& task, std::string_view beforeCommand, std::string_view effectiveUser) {
  Words words;
  SplitWords(beforeCommand, ' ', words);
  const bool isUnknown = task.hasEnded && effectiveUser == "0" && words.size() > REAL_USER;
  return std::string(isUnknown ? words[REAL_USER] : effectiveUser);
}

// The command may hold anything, so its end is looked for from the end of the line.
bool TakeGeneral(const ProcessLine& line, Words& words, Task& task) {
  const size_t open = line.rest.find(" (");
  for (size_t close = line.rest.rfind(") "); close != std::string_view::npos && open < close;
       close = close == 0 ? std::string_view::npos : line.rest.rfind(") ", close - 1)) {
    SplitWords(line.rest.substr(close + 2), ' ', words);
    if (!AreAfterCommand(words)) continue;
    task.isProcess = words[IS_PROCESS] == "y";
    task.hasEnded = line.rest.starts_with('E');
    task.name = line.name;
    task.user = UserOf(task, line.rest.substr(0, open), words[EFFECTIVE_USER]);
    task.figures.id = static_cast<int32_t>(CountOf(line.id));
    task.figures.parent = static_cast<int32_t>(CountOf(words[PARENT]));
    task.figures.command = line.rest.substr(open + 2, close - open - 2);
    if (task.figures.command.empty()) task.figures.command = "[" + task.name + "]";
    return true;
  }
  return false;
}

bool TakeProcessor(const ProcessLine& line, Words& words, Task& task) {
  SplitWords(line.rest, ' ', words);
  if (words.size() < 4) return false;
  const uint64_t perSecond = CountOf(words[STATE + 1]);
  task.figures.own.userTicks = TicksOf(CountOf(words[STATE + 2]), perSecond);
  task.figures.own.systemTicks = TicksOf(CountOf(words[STATE + 3]), perSecond);
  return true;
}

bool TakeMemory(const ProcessLine& line, Words& words, Task& task) {
  SplitWords(line.rest, ' ', words);
  if (words.size() < 9) return false;
  task.figures.virtualBytes = CountOf(words[STATE + 2]) * 1024;
  task.figures.residentBytes = CountOf(words[STATE + 3]) * 1024;
  task.figures.own.minorFaults = CountOf(words[STATE + 7]);
  task.figures.own.majorFaults = CountOf(words[STATE + 8]);
  return true;
}

// --- Samples ---

class AtopReader {
 public:
  AtopReader(UserNames& users, const SampleSink& sink) : users_(users), sink_(sink) {}

  std::string Read(LineSource& lines);

 private:
  std::string TakeLine(std::string_view text);
  bool TakeHead(const Words& words);
  std::string TakeHostLine(const HostLine& line);
  std::string TakeTask(std::string_view label, std::string_view text);
  std::string End();
  void AddProcesses();
  std::string Damaged() const { return "line " + std::to_string(line_) + " isn't one of atop's"; }

  UserNames& users_;
  const SampleSink& sink_;
  size_t line_ = 0;
  Words words_;
  Sample sample_;
  bool isSinceBoot_ = false;
  std::vector<Task> tasks_;             // in the order of the PRG lines
  size_t processorLines_ = 0;           // PRC lines of this sample
  size_t memoryLines_ = 0;              // PRM lines
  std::set<std::string> usedAdapters_;  // that have carried anything
};

std::string AtopReader::Read(LineSource& lines) {
  std::string line;
  while (lines.Next(line)) {
    ++line_;
    if (std::string failure = TakeLine(line); !failure.empty()) return failure;
  }
  return "";  // what comes after the last separator isn't a whole sample
}

std::string AtopReader::TakeLine(std::string_view text) {
  if (text == "SEP") return End();
  if (text == "RESET") {
    isSinceBoot_ = true;
    return "";
  }
  const std::string_view label = text.substr(0, text.find(' '));
  if (label == "PRG" || label == "PRC" || label == "PRM") return TakeTask(label, text);
  SplitWords(text, ' ', words_);
  const auto* line = std::ranges::find(HOST_LINES, label, &HostLine::label);
  if (line != std::end(HOST_LINES)) return TakeHostLine(*line);
  // Other labels are of no use here, whatever they are.
  return words_.size() > FIRST && TakeHead(words_) ? "" : Damaged();
}

// The words that all lines have. Two hosts in one text have samples of their own.
bool AtopReader::TakeHead(const Words& words) {
  uint64_t time = 0;
  uint64_t seconds = 0;
  if (words.size() <= FIRST || !IsCount(words[EPOCH], time) || !IsCount(words[INTERVAL], seconds))
    return false;
  constexpr uint64_t LAST_TIME = INT32_MAX;  // files have times of 32 bits
  if (words[NODE].empty() || time > LAST_TIME || seconds > LONGEST_INTERVAL) return false;
  sample_.node = words[NODE];
  sample_.time = static_cast<int64_t>(time);
  sample_.seconds = std::max<int64_t>(static_cast<int64_t>(seconds), 1);
  return true;
}

std::string AtopReader::TakeHostLine(const HostLine& line) {
  if (!TakeHead(words_)) return Damaged();
  line.take(words_, sample_.figures);
  return "";
}

std::string AtopReader::TakeTask(std::string_view label, std::string_view text) {
  // The head of a line, up to the process' number; a name may look like anything.
  size_t place = 0;
  for (size_t blanks = 0; blanks < FIRST && place != std::string_view::npos; ++blanks) {
    place = text.find(' ', place + (blanks > 0 ? 1 : 0));
  }
  if (place == std::string_view::npos) return Damaged();
  SplitWords(text.substr(0, place), ' ', words_);
  words_.emplace_back();
  ProcessLine line;
  if (!TakeHead(words_) || !TakeProcessLine(text.substr(place + 1), line)) return Damaged();
  if (label == "PRG") return TakeGeneral(line, words_, tasks_.emplace_back()) ? "" : Damaged();
  size_t& next = label == "PRC" ? processorLines_ : memoryLines_;
  if (next >= tasks_.size() || CountOf(line.id) != static_cast<uint64_t>(tasks_[next].figures.id))
    return Damaged();
  Task& task = tasks_[next++];
  return (label == "PRC" ? TakeProcessor(line, words_, task) : TakeMemory(line, words_, task)) ? ""
                                                                                               : Damaged();
}

void AtopReader::AddProcesses() {
  std::vector<std::string> images;
  std::vector<host_file::EndedProcess> ended;
  std::vector<host_file::ProcessFigures>& living = sample_.figures.processes;
  for (Task& task : tasks_) {
    if (!task.isProcess) continue;
    std::string user = users_.NameOf(task.user, sample_.node);
    if (task.hasEnded) {
      ended.push_back(
          {task.figures.id, task.figures.parent, task.name, std::move(user), task.figures.own, ""});
      continue;
    }
    task.figures.user = std::move(user);
    images.push_back(task.name);
    living.push_back(std::move(task.figures));
  }
  AddEnded(living, images, ended);
}

std::string AtopReader::End() {
  for (const host_file::AdapterFigures& adapter : sample_.figures.adapters) {
    if (std::ranges::any_of(adapter.figures, [](uint64_t count) { return count > 0; })) {
      usedAdapters_.insert(adapter.name);
    }
  }
  std::string failure;
  if (!isSinceBoot_ && sample_.time > 0) {
    std::erase_if(sample_.figures.adapters, [&](const host_file::AdapterFigures& adapter) {
      return !usedAdapters_.contains(adapter.name);
    });
    AddProcesses();
    failure = sink_(sample_);
  }
  sample_ = Sample{};
  tasks_.clear();
  processorLines_ = memoryLines_ = 0;
  isSinceBoot_ = false;
  return failure;
}

std::string ReadAtopText(Texts& texts, UserNames& users, const SampleSink& sink) {
  return AtopReader(users, sink).Read(texts.front());
}

// The mark that a recording begins with, in the byte order of the host that wrote it.
bool IsAtopRecording(std::string_view head) {
  return head.starts_with("\xef\xbe\xed\xfe") || head.starts_with("\xfe\xed\xbe\xef");
}

bool IsAtopText(std::string_view line) {
  if (line == "RESET" || line == "SEP") return true;
  Words words;
  SplitWords(line, ' ', words);
  uint64_t number = 0;
  return words.size() > FIRST && IsCount(words[EPOCH], number) && words[3].size() == 10 &&
         words[3][4] == '/' && words[4].size() == 8 && IsCount(words[INTERVAL], number);
}

std::vector<std::vector<std::string>> AtopCommands(const std::string& path) {
  // A bare name may be a date to atop.
  return {{"atop", "-r", std::filesystem::absolute(path), "-P", "CPU,cpu,MEM,PAG,DSK,NET,PRG,PRC,PRM"}};
}

}  // namespace

const Source ATOP = {.name = "atop",
                     .package = "atop",
                     .isRecording = IsAtopRecording,
                     .isText = IsAtopText,
                     .commands = AtopCommands,
                     .conversion = nullptr,
                     .readText = ReadAtopText,
                     .readRecording = nullptr};

}  // namespace ozmo::import
