#include "programs/record/retention.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "programs/host_file/compressed_recording.h"
#include "readers/file_kind.h"
#include "runtime/times.h"

namespace ozmo::record {
namespace {

struct RecordedFile {
  std::string path;
  int32_t number = 0;
  int64_t size = 0;
  bool isCompressed = false;
};
using Days = std::map<Seconds, std::vector<RecordedFile>>;

bool TakeEnd(std::string_view& text, std::string_view end) {
  if (!text.ends_with(end)) return false;
  text.remove_suffix(end.size());
  return true;
}

// Noon of the day that a file's name gives, as 2012Feb22.
std::optional<Seconds> DayOf(std::string_view date) {
  constexpr size_t YEAR_SIZE = 4;
  constexpr size_t DATE_SIZE = 9;
  if (date.size() != DATE_SIZE) return std::nullopt;
  const std::string year(date.substr(0, YEAR_SIZE));
  const std::string month(date.substr(YEAR_SIZE, 3));
  return TimeOf(std::string(date.substr(YEAR_SIZE + 3)) + "-" + month + "-" + year + ":12:00:00");
}

// The files in the directory that a recorder of this node has written, by days.
Days ListDays(const std::string& directory, const std::string& node) {
  constexpr std::string_view BEFORE_NUMBER = ".dat_";
  Days days;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(directory.c_str()), closedir);
  if (!stream) return days;
  const std::string prefix = "qtxl_" + node + "_";
  while (const dirent* entry = readdir(stream.get())) {
    std::string_view name = entry->d_name;
    RecordedFile file;
    file.path = directory + "/" + entry->d_name;
    file.isCompressed = TakeEnd(name, COMPRESSED_ENDING);
    if (!name.starts_with(prefix)) continue;
    name.remove_prefix(prefix.size());
    const size_t dateEnd = std::min(name.find(BEFORE_NUMBER), name.size());
    const std::optional<Seconds> day = DayOf(name.substr(0, dateEnd));
    if (!day || dateEnd == name.size()) continue;
    const std::string_view number = name.substr(dateEnd + BEFORE_NUMBER.size());
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), file.number);
    if (error != std::errc() || end != number.data() + number.size() || file.number < 1) continue;
    struct stat status {};
    if (lstat(file.path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) continue;
    if (host_file::NodeOfRecording(file.path) != node) continue;
    file.size = status.st_size;
    days[*day].push_back(std::move(file));
  }
  return days;
}

int64_t SizeOf(const std::vector<RecordedFile>& files) {
  int64_t size = 0;
  for (const RecordedFile& file : files) size += file.size;
  return size;
}

// The last number first, so that the ones before are found whatever stops this.
std::string RemoveDay(std::vector<RecordedFile>& files) {
  std::sort(files.begin(), files.end(),
            [](const RecordedFile& a, const RecordedFile& b) { return a.number > b.number; });
  for (const RecordedFile& file : files) {
    if (unlink(file.path.c_str()) != 0) return file.path + ": can't remove it: " + std::strerror(errno);
    PrintNotice("removed " + file.path);
  }
  return "";
}

}  // namespace

void Retention::BeginFile(const std::string& date, bool dayHasPassed) {
  date_ = date;
  if (options_.keepDays > 0) {
    const size_t more = dayHasPassed ? 0 : 1;
    RemoveDays(static_cast<size_t>(options_.keepDays) + more, std::numeric_limits<int64_t>::max());
  }
  sizeIsDue_ = options_.keepBytes > 0;
  plainPaths_.clear();
  if (!options_.compresses) return;
  if (!host_file::CanCompress()) {
    notices_.SayOnce("built without libzstd; finished days aren't compressed");
    return;
  }
  const std::optional<Seconds> today = DayOf(date_);
  for (const auto& [day, files] : ListDays(directory_, node_)) {
    for (const RecordedFile& file : files) {
      if (day != today && !file.isCompressed) plainPaths_.push_back(file.path);
    }
  }
}

void Retention::Step() {
  if (!plainPaths_.empty()) {
    const std::string failure = host_file::CompressRecording(plainPaths_.front());
    if (!failure.empty()) notices_.SayOnce(failure + "; it isn't compressed");
    plainPaths_.pop_front();
  } else if (sizeIsDue_) {
    sizeIsDue_ = false;
    RemoveDays(std::numeric_limits<size_t>::max(), options_.keepBytes);
  }
}

// Removes the days that are more than `daysKept`, and those that it takes to come down to `bytesKept`, of
// which the day being written and those after it take their part.
void Retention::RemoveDays(size_t daysKept, int64_t bytesKept) {
  Days days = ListDays(directory_, node_);
  int64_t bytes = 0;
  for (const auto& [day, files] : days) bytes += SizeOf(files);
  const std::optional<Seconds> today = DayOf(date_);
  const auto end = today ? days.lower_bound(*today) : days.begin();
  auto finished = static_cast<size_t>(std::distance(days.begin(), end));
  for (auto day = days.begin(); day != end && (finished > daysKept || bytes > bytesKept); ++day, --finished) {
    bytes -= SizeOf(day->second);
    if (const std::string failure = RemoveDay(day->second); !failure.empty()) {
      notices_.SayOnce(failure);
      return;
    }
  }
}

}  // namespace ozmo::record
