#include "programs/import/day_files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "programs/host_file/collector_records.h"
#include "programs/host_file/recording_file.h"
#include "programs/import/minutes.h"
#include "runtime/times.h"
#include "runtime/whole_file.h"

namespace ozmo::import {
namespace {

constexpr mode_t MODE = 0640;  // it holds the arguments of every process

host_file::Configuration ConfigurationOf(const Sample& sample, int64_t stamp, int64_t seconds) {
  host_file::Configuration configuration;
  configuration.node = sample.node;
  configuration.utcOffset = static_cast<int32_t>(StandardOffset(stamp));
  configuration.daylightTime = TimeLocal(stamp).tm_isdst > 0;
  configuration.intervalSeconds = static_cast<int32_t>(seconds);
  configuration.memoryKilobytes = sample.figures.memory.total;
  configuration.processors = sample.figures.processors.size();
  configuration.system = "Linux";
  return configuration;
}

// How far the stamps of a file move, so that they are away from the ends of windows. Those of short samples
// may lie half a minute apart, so the first is in the second half of its window, which begins in the minute
// after the sample does.
int64_t ShiftOf(int64_t time, int64_t interval, int64_t length) {
  constexpr int64_t ENOUGH = 15;
  int64_t lowest = std::min(interval / 4, ENOUGH);
  int64_t highest = interval - lowest;
  if (interval == MINUTE && length != MINUTE) {
    highest = std::min(length, MINUTE - CLOCK_SLACK) - 1;
    lowest = std::min(std::max(length - MINUTE, HALF_MINUTE + CLOCK_SLACK), highest);
  }
  const int64_t place = time % interval;
  if (place >= lowest && place <= highest) return 0;
  const int64_t forward = (lowest - place + interval) % interval;
  const int64_t back = (place - highest + interval) % interval;
  return forward <= back ? forward : -back;
}

}  // namespace

class DayFile {
 public:
  explicit DayFile(std::string path) : path_(std::move(path)) {}
  [[nodiscard]] std::string Add(const Sample& sample);
  [[nodiscard]] std::string Finish();
  const std::string& path() const { return path_; }

 private:
  Minutes::Sink Writer() {
    return [this](const Sample& sample, int64_t interval) {
      if (stamp_ != 0) return Write(sample, sample.time + shift_);
      std::string failure = Open(sample, interval);
      stamp_ = sample.time + shift_;
      return failure;
    };
  }
  std::string Open(const Sample& sample, int64_t interval);
  std::string Write(const Sample& sample, int64_t stamp);
  void Put(const std::string& bytes) { std::fwrite(bytes.data(), 1, bytes.size(), file_.stream()); }

  std::string path_;
  WholeFile file_;
  Minutes minutes_;
  int64_t end_ = 0;  // of the last sample, as it was recorded
  int64_t shift_ = 0;
  int64_t stamp_ = 0;    // of the last sample in the file; 0: it isn't open
  int64_t seconds_ = 0;  // its length
};

std::string DayFile::Add(const Sample& sample) {
  end_ = sample.time;
  return minutes_.Add(sample, Writer());
}

// Readers' windows keep the distance from the stamps that the first one has from the first stamp. With the
// earliest stamp that the first may have, no sample of the file lies before its place; the second interval is
// longer by as much.
std::string DayFile::Open(const Sample& sample, int64_t interval) {
  std::string failure = file_.Open({.path = path_, .links = LinkRule::NEW, .mode = MODE, .onDisk = true});
  if (!failure.empty()) return failure;
  const int64_t earliest = sample.time - CLOCK_SLACK;
  shift_ = ShiftOf(earliest, interval, sample.seconds);
  const int64_t stamp = earliest + shift_;
  stamp_ = stamp - sample.seconds;
  Put(host_file::HeadRecords(ConfigurationOf(sample, stamp, interval)) + host_file::TimeRecord(stamp_));
  return Write(sample, stamp);
}

std::string DayFile::Write(const Sample& sample, int64_t stamp) {
  // After a gap the sample gets a begin of its own. Clocks are read to a second.
  const int64_t begin = stamp - sample.seconds;
  if (begin > stamp_ + 1) Put(host_file::TimeRecord(begin));
  stamp_ = stamp;
  seconds_ = sample.seconds;
  Put(host_file::SampleRecords(stamp, ConfigurationOf(sample, stamp, sample.seconds), sample.figures));
  return std::ferror(file_.stream()) != 0 ? path_ + ": " + std::strerror(errno) : "";
}

// Readers take a sample as finished when they meet a later time, so the file ends with one.
std::string DayFile::Finish() {
  if (std::string failure = minutes_.Finish(Writer()); !failure.empty()) return failure;
  Put(host_file::TimeRecord(stamp_ + seconds_) + host_file::EndMark(end_));
  return file_.Commit();
}

DayFiles::DayFiles(std::string directory) : directory_(std::move(directory)) {}
DayFiles::~DayFiles() = default;

std::string DayFiles::Add(const Sample& sample) {
  Host& host = hosts_[sample.node];
  if (sample.time <= host.last) {
    ++outOfOrder_;
    return "";
  }
  host.last = sample.time;
  const std::string date = host_file::FileDate(sample.time);
  if (host.date != date) {
    if (std::string failure = FinishDay(host); !failure.empty()) return failure;
    host.date = date;
    host.present = PresentDayOf(directory_, sample.node, date);
  }
  const PresentDay& present = host.present;
  if (!present.last.empty() && sample.time <= present.end.value_or(sample.time)) {
    ++host.leftOut;
    return "";
  }
  if (!host.added) host.added = std::make_unique<DayFile>(present.next);
  return host.added->Add(sample);
}

std::string DayFiles::FinishDay(Host& host) {
  const std::unique_ptr<DayFile> added = std::move(host.added);
  const int64_t leftOut = std::exchange(host.leftOut, 0);
  if (leftOut > 0) {
    notes_.push_back(host.present.last + " is there already, and stays as it is" +
                     (added ? "; samples left out up to its end: " + std::to_string(leftOut) : ""));
  }
  if (!added) return "";
  std::string failure = added->Finish();
  if (failure.empty()) finished_.push_back(added->path());
  return failure;
}

std::string DayFiles::FinishRecording() {
  for (auto& [node, host] : hosts_) {
    if (std::string failure = FinishDay(host); !failure.empty()) return failure;
  }
  hosts_.clear();
  return "";
}

}  // namespace ozmo::import
