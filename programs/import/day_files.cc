#include "programs/import/day_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "programs/host_file/collector_records.h"
#include "programs/host_file/recording_file.h"
#include "runtime/draft_file.h"
#include "runtime/stream.h"
#include "runtime/times.h"

namespace ozmo::import {
namespace {

host_file::Configuration ConfigurationOf(const Sample& sample, int64_t stamp) {
  host_file::Configuration configuration;
  configuration.node = sample.node;
  configuration.utcOffset = static_cast<int32_t>(StandardOffset(stamp));
  configuration.daylightTime = TimeLocal(stamp).tm_isdst > 0;
  configuration.intervalSeconds = static_cast<int32_t>(sample.seconds);
  configuration.memoryKilobytes = sample.figures.memory.total;
  configuration.processors = sample.figures.processors.size();
  configuration.system = "Linux";
  return configuration;
}

// How far the stamps of a file move, so that they are away from the ends of windows.
int64_t ShiftOf(int64_t time, int64_t seconds) {
  constexpr int64_t ENOUGH = 15;
  const int64_t margin = std::min(seconds / 4, ENOUGH);
  const int64_t place = time % seconds;
  if (place < margin) return margin - place;
  return place > seconds - margin ? seconds - margin - place : 0;
}

}  // namespace

class DayFile {
 public:
  std::string Open(const std::string& path, const Sample& sample);
  std::string Add(const Sample& sample);
  std::string Finish();
  const std::string& path() const { return path_; }
  bool IsAfter(const Sample& sample) const { return sample.time + shift_ <= stamp_; }

 private:
  std::string Write(const std::string& bytes);

  std::string path_;
  std::string draftPath_;
  Stream stream_;
  DraftFile draft_;
  int64_t shift_ = 0;
  int64_t stamp_ = 0;    // of the last sample
  int64_t seconds_ = 0;  // its length
};

std::string DayFile::Open(const std::string& path, const Sample& sample) {
  path_ = path;
  draftPath_ = path.substr(0, path.rfind('/') + 1) + ".ozmo-XXXXXX";
  {
    const SignalsHeld held;
    const int file = mkostemp(draftPath_.data(), O_CLOEXEC);
    if (file < 0) return path + ": " + std::strerror(errno);
    draft_.Watch(draftPath_, file);
    stream_ = StreamOf(file, "w");
  }
  if (!stream_) return path + ": " + std::strerror(errno);
  shift_ = ShiftOf(sample.time, sample.seconds);
  stamp_ = sample.time + shift_ - sample.seconds;
  return Write(host_file::HeadRecords(ConfigurationOf(sample, sample.time)) + host_file::TimeRecord(stamp_));
}

std::string DayFile::Write(const std::string& bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), stream_.get()) == bytes.size()) return "";
  return path_ + ": " + std::strerror(errno);
}

std::string DayFile::Add(const Sample& sample) {
  const int64_t stamp = sample.time + shift_;
  std::string bytes;
  // After a gap the sample gets a begin of its own. Clocks are read to a second.
  const int64_t begin = stamp - sample.seconds;
  if (begin > stamp_ + 1) bytes = host_file::TimeRecord(begin);
  stamp_ = stamp;
  seconds_ = sample.seconds;
  return Write(bytes + host_file::SampleRecords(stamp, ConfigurationOf(sample, stamp), sample.figures));
}

// Readers take a sample as finished when they meet a later time, so the file ends with one.
std::string DayFile::Finish() {
  if (std::string failure = Write(host_file::TimeRecord(stamp_ + seconds_)); !failure.empty()) return failure;
  if (std::fflush(stream_.get()) != 0 || fsync(fileno(stream_.get())) != 0)
    return path_ + ": " + std::strerror(errno);
  constexpr mode_t MODE = 0640;  // it holds the arguments of every process
  fchmod(fileno(stream_.get()), MODE);
  // A link never replaces a file that somebody has made meanwhile.
  if (link(draftPath_.c_str(), path_.c_str()) != 0) return path_ + ": " + std::strerror(errno);
  draft_.Remove();
  return "";
}

DayFiles::DayFiles(std::string directory) : directory_(std::move(directory)) {}
DayFiles::~DayFiles() = default;

std::string DayFiles::Add(const Sample& sample) {
  const std::string date = host_file::FileDate(sample.time);
  std::string& current = dates_[sample.node];
  std::unique_ptr<DayFile>& file = files_[sample.node];
  if (current != date) {
    if (std::string failure = FinishDay(sample.node); !failure.empty()) return failure;
    current = date;
    const std::string path = directory_ + "/qtxl_" + sample.node + "_" + date + ".dat_1";
    if (access(path.c_str(), F_OK) == 0 || access((path + ".zst").c_str(), F_OK) == 0) {
      leftAsTheyWere_.push_back(path);
      return "";
    }
    file = std::make_unique<DayFile>();
    if (std::string failure = file->Open(path, sample); !failure.empty()) return failure;
  }
  if (!file) return "";
  if (file->IsAfter(sample)) {
    ++outOfOrder_;
    return "";
  }
  return file->Add(sample);
}

std::string DayFiles::FinishDay(const std::string& node) {
  std::unique_ptr<DayFile>& file = files_[node];
  if (!file) return "";
  std::string failure = file->Finish();
  if (failure.empty()) finished_.push_back(file->path());
  file.reset();
  return failure;
}

std::string DayFiles::Finish() {
  for (const auto& [node, date] : dates_) {
    if (std::string failure = FinishDay(node); !failure.empty()) return failure;
  }
  return "";
}

}  // namespace ozmo::import
