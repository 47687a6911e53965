#include "programs/sample/day_files.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <map>

namespace ozmo::sample {
namespace {

constexpr int64_t DAY_SECONDS = 86400;

int64_t StartOfDay(const std::chrono::year_month_day& date) {
  return int64_t{std::chrono::sys_days{date}.time_since_epoch().count()} * DAY_SECONDS;
}

// Adds the files of one day: the samples in as many parts of nearly one size, none of them empty.
void CutDay(const std::chrono::year_month_day& date, const std::vector<int64_t>& times, int fileCount,
            std::vector<FileOfDay>& files) {
  const size_t parts = std::min(static_cast<size_t>(fileCount), times.size());
  for (size_t part = 0; part < parts; ++part) {
    const auto from = static_cast<std::ptrdiff_t>(times.size() * part / parts);
    const auto to = static_cast<std::ptrdiff_t>(times.size() * (part + 1) / parts);
    files.push_back({date, static_cast<int>(part) + 1, {times.begin() + from, times.begin() + to}});
  }
}

}  // namespace

std::vector<FileOfDay> CutIntoFiles(const SampleOptions& options, int second) {
  const int64_t start = StartOfDay(options.date) + int64_t{options.startHour} * 3600;
  const int64_t end = start + int64_t{options.hours} * 3600;
  std::map<int64_t, std::vector<int64_t>> timesOfDays;
  for (int64_t time = start + second % options.intervalSeconds; time < end; time += options.intervalSeconds) {
    timesOfDays[time / DAY_SECONDS].push_back(time);
  }
  std::vector<FileOfDay> files;
  for (const auto& [day, times] : timesOfDays) {
    CutDay(std::chrono::sys_days{std::chrono::days{day}}, times, options.filesPerDay, files);
  }
  return files;
}

std::string FileDate(const std::chrono::year_month_day& date) {
  static constexpr std::array<const char*, 12> MONTHS = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%04d%s%02u", static_cast<int>(date.year()),
                MONTHS.at(static_cast<unsigned>(date.month()) - 1), static_cast<unsigned>(date.day()));
  return text.data();
}

}  // namespace ozmo::sample
