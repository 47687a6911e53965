#include "readers/vmr/reader.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "readers/vmr/node_files.h"
#include "runtime/process_end.h"
#include "runtime/terminal_text.h"

namespace ozmo {
namespace {

constexpr int32_t PAGE_SIZE = 4096;
constexpr std::string_view TIME_ROW = "1";

// A year or month counted from another start; far values stay in range.
int CountedFrom(int32_t value, int32_t start) {
  return static_cast<int>(std::max<int64_t>(int64_t{value} - start, std::numeric_limits<int>::min()));
}

// Memory sizes that miss what the system keeps for itself.
int32_t WholeMemorySize(int32_t megabytes) {
  if (megabytes == 1023) return 1024;
  if (megabytes == 511) return 512;
  return megabytes;
}

}  // namespace

// --- The four operations ---

std::optional<FileHead> VmrReader::EntryPass(const std::string& path) {
  if (OpenFile(path, nullptr) != ReaderResult::DONE) return std::nullopt;
  return FileHead{header_.nodeName, header_.startTime};
}

int VmrReader::Open(VmrContext& context) {
  if (!opened_) {
    opened_ = true;
    context.nodeName = header_.nodeName;
    context.dataPath = header_.filePath;
    context.utcOffset = DEFAULT_UTC_OFFSET;  // these files give none, and their times are local
    context.dstFlag = header_.dstFlag;
    file_.Close();
    rows_.previousConnections = {};
  }
  rows_.isPlanned = false;  // the context may want other records
  spanStart_ = context.periodStart / SECONDS_PER_MINUTE * SECONDS_PER_MINUTE;
  spanEnd_ = context.periodEnd / SECONDS_PER_MINUTE * SECONDS_PER_MINUTE;
  fileSet_ = VmrNodeFiles(context.dataPath, context.nodeName, context.periodStart, context.periodEnd);
  cursor_ = 0;
  return static_cast<int>(fileSet_.size());
}

ReaderResult VmrReader::Next(VmrContext& context) {
  ContextFree(context);
  if (fileSet_.empty()) return ReaderResult::END_OF_FILE;
  if (!file_.IsOpen()) {
    const ReaderResult result = OpenCurrentFile(context);
    if (result == ReaderResult::OUTSIDE_WINDOW) return result;
    if (result != ReaderResult::DONE) return MoveCursor(result);
  }
  const ReaderResult result = context.periodEnd <= spanEnd_ ? ReadSample(context) : ReaderResult::NOTHING;
  return result == ReaderResult::DONE ? result : MoveCursor(result);
}

void VmrReader::Close(VmrContext& context) {
  ContextFreeDeep(context);
  opened_ = false;
  fileSet_.clear();
}

ReaderResult VmrReader::OpenCurrentFile(VmrContext& context) {
  context.dataPath = fileSet_[cursor_];
  const ReaderResult opened = OpenFile(context.dataPath, &context);
  if (opened != ReaderResult::DONE) return opened;
  context.periodStart = header_.startTime;
  if (header_.startTime > spanEnd_) return ReaderResult::OUTSIDE_WINDOW;
  while (context.periodStart < spanStart_) {
    const ReaderResult result = SkipSample(context);
    if (result != ReaderResult::DONE) return result;
  }
  return ReaderResult::DONE;
}

ReaderResult VmrReader::MoveCursor(ReaderResult result) {
  if (cursor_ + 1 >= fileSet_.size()) return result;
  ++cursor_;
  return ReaderResult::DONE;
}

// --- The head of a file ---

ReaderResult VmrReader::OpenFile(const std::string& path, VmrContext* context) {
  file_.Open(path);
  while (file_.ReadLine()) {
    VmrLine& line = file_.line();
    if (line.Is("<HEADER>")) {
      ReadHeader(line, path);
    } else if (line.Is("<META>")) {
      if (!SkipBlock("<ENDMETA>")) return ReaderResult::END_OF_FILE;
    } else if (line.Is("<CONFIG>")) {
      if (!ReadConfigBlock(context)) return ReaderResult::END_OF_FILE;
    } else if (line.Is(TIME_ROW)) {
      if (context == nullptr) return ReaderResult::DONE;
      sampleTime_ = TimeOfRow(line);
      SetPeriod(*context, sampleTime_);
      return ReaderResult::DONE;
    }
  }
  return ReaderResult::END_OF_FILE;
}

void VmrReader::ReadHeader(VmrLine& line, const std::string& path) {
  constexpr int32_t SHORTEST_PERIOD = 1000;  // milliseconds
  const int32_t samplingPeriod = line.Integer(5);
  if (samplingPeriod < SHORTEST_PERIOD) {
    std::fprintf(stderr, "Sampling period of %d milliseconds, at least %d expected, in file %s\n",
                 samplingPeriod, SHORTEST_PERIOD, TextFor(stderr, path).c_str());
    std::fflush(nullptr);
    EndProcess(EXIT_FAILURE);
  }
  header_.nodeName = line.Text(3);
  header_.filePath = path;
  rows_.intervalSeconds = line.Integer(4);
  rows_.samplesPerInterval = rows_.intervalSeconds / (samplingPeriod / SHORTEST_PERIOD);
  header_.dstFlag = line.Integer(12);

  header_.date = {};
  header_.date.tm_year = CountedFrom(line.Integer(7), 1900);
  header_.date.tm_mon = CountedFrom(line.Integer(8), 1);
  header_.date.tm_mday = line.Integer(9);
  header_.date.tm_hour = line.Integer(10);
  header_.date.tm_min = line.Integer(11);
  header_.date.tm_isdst = header_.dstFlag;
  std::tm start = header_.date;  // mktime writes its corrections back
  header_.startTime = std::mktime(&start);
}

bool VmrReader::SkipBlock(std::string_view endMark) {
  while (file_.ReadLine()) {
    if (file_.line().Is(endMark)) return true;
  }
  return false;
}

bool VmrReader::ReadConfigBlock(VmrContext* context) {
  while (file_.ReadLine()) {
    VmrLine& line = file_.line();
    if (line.Is("<ENDCONFIG>")) return true;
    if (context != nullptr && (line.Is("7") || line.Is("<SYS>"))) ReadSystemLine(line, *context);
  }
  return false;
}

void VmrReader::ReadSystemLine(VmrLine& line, VmrContext& context) const {
  if (!context.config) context.config.emplace();
  SystemConfig& config = *context.config;
  config.configNode = line.Text(1);
  config.configText[0] = line.Text(2);
  config.configText[1] = line.Text(3);
  config.configText[6] = line.Text(6);
  config.cpuCount = line.Integer(9);
  config.memoryMb = static_cast<float>(WholeMemorySize(line.Integer(10)));
  config.intervalSeconds = static_cast<float>(rows_.intervalSeconds);
  config.pageSize = PAGE_SIZE;
}

// --- Samples ---

// The rows up to the next time row belong to the time row that was read before them.
ReaderResult VmrReader::ReadSample(VmrContext& context) {
  SetPeriod(context, sampleTime_);
  while (file_.ReadLine()) {
    if (file_.line().Is(TIME_ROW)) {
      sampleTime_ = TimeOfRow(file_.line());
      return ReaderResult::DONE;
    }
    ActOnRow(context);
  }
  return ReaderResult::END_OF_FILE;
}

ReaderResult VmrReader::SkipSample(VmrContext& context) {
  if (!SkipBlock(TIME_ROW)) return ReaderResult::END_OF_FILE;
  sampleTime_ = TimeOfRow(file_.line());
  SetPeriod(context, sampleTime_);
  return ReaderResult::DONE;
}

void VmrReader::ActOnRow(VmrContext& context) {
  VmrLine& line = file_.line();
  if (line.Is("6")) {
    VmrStoreRow(context, rows_, line);
  } else if (line.Is("4")) {
    rows_.instanceRow = line.text();
    rows_.hasInstance = true;
  } else if (line.Is("5")) {
    rows_.isPlanned = false;
    rows_.counterRow = line.text();
  } else if (line.Is("2")) {
    rows_.isPlanned = false;
    rows_.object = FindVmrObject(line.Integer(1));
    rows_.objectSamples = line.FieldCount() > 2 ? line.Integer(2) : rows_.samplesPerInterval;
  } else if (line.Is("3")) {
    rows_.object = nullptr;
    rows_.hasInstance = false;
  } else if (!line.Is("9")) {
    std::fputs("Corrupt File\n", stdout);
    std::fflush(nullptr);
    EndProcess(EXIT_FAILURE);
  }
}

Seconds VmrReader::TimeOfRow(VmrLine& line) const {
  std::tm time = header_.date;
  time.tm_hour = line.Integer(2);
  time.tm_min = line.Integer(3);
  time.tm_sec = line.Integer(4);
  return std::mktime(&time);
}

void VmrReader::SetPeriod(VmrContext& context, Seconds end) const {
  context.periodEnd = end;
  context.periodStart = end - rows_.intervalSeconds;
}

}  // namespace ozmo
