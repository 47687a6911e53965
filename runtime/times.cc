#include "runtime/times.h"

#include <array>
#include <filesystem>
#include <system_error>

namespace ozmo {
namespace {

constexpr Seconds DAYLIGHT_PART = 3600;

// Null for an unknown number.
const char* FormatOf(TimeFormatNumber number) {
  switch (number) {
    case TimeFormatNumber::UNIX_DATE:
      return "%a %b %d %X %Y";
    case TimeFormatNumber::DAY_MONTH_YEAR_TIME:
      return "%d-%b-%Y:%X";
    case TimeFormatNumber::MONTH_DAY_TIME_YEAR:
      return "%b %d %X %Y";
    case TimeFormatNumber::DAY_MONTH_YEAR_MINUTE:
      return "%d-%b-%Y:%R";
    case TimeFormatNumber::C_LIBRARY:
      return "%a %b %d %H:%M:%S %Y";
  }
  return nullptr;
}

// Of a time with a clock.
constexpr const char* TIME_FORMS[] = {"%Y-%m-%dT%H:%M:%S", "%Y-%m-%dT%H:%M", "%Y-%m-%d %H:%M:%S",
                                      "%Y-%m-%d %H:%M", "%d-%b-%Y:%H:%M:%S"};

// Times come from files and may be anything; they wrap instead of overflowing.
Seconds WrappingSubtract(Seconds a, Seconds b) {
  return static_cast<Seconds>(static_cast<uint64_t>(a) - static_cast<uint64_t>(b));
}

}  // namespace

int TimeParse(std::tm& time, const std::string& text, TimeFormatNumber format) {
  const char* pattern = FormatOf(format);
  if (pattern == nullptr || text.empty()) return 0;
  strptime(text.c_str(), pattern, &time);
  return 1;
}

std::optional<Seconds> TimeOf(const std::string& text) {
  for (const char* form : TIME_FORMS) {
    if (const std::optional<Seconds> time = TimeOf(text, form, {})) return time;
  }
  return std::nullopt;
}

std::optional<Seconds> TimeOf(const std::string& text, const char* form, std::tm time) {
  const char* end = strptime(text.c_str(), form, &time);
  if (end == nullptr || *end != '\0') return std::nullopt;
  const int day = time.tm_mday;
  time.tm_isdst = -1;
  const Seconds seconds = std::mktime(&time);
  if (time.tm_mday != day) return std::nullopt;  // a thirtieth of February
  return seconds;
}

Seconds TimeToSeconds(const std::optional<std::tm>& time) {
  if (!time) return 0;
  std::tm scratch = *time;  // mktime writes its corrections back
  return std::mktime(&scratch);
}

std::tm TimeLocal(Seconds seconds) {
  tzset();  // localtime_r alone may keep an earlier zone
  std::tm local{};
  if (localtime_r(&seconds, &local) == nullptr) {
    const time_t epoch = 0;
    localtime_r(&epoch, &local);
  }
  return local;
}

std::string TimeFormat(Seconds seconds, const char* format) {
  const std::tm local = TimeLocal(seconds);
  std::array<char, 256> buffer{};
  const size_t length = std::strftime(buffer.data(), buffer.size(), format, &local);
  return std::string(buffer.data(), length);
}

int TimeCompare(const std::tm& first, const std::tm& second) {
  const Seconds a = TimeToSeconds(first);
  const Seconds b = TimeToSeconds(second);
  return (a > b) - (a < b);
}

int32_t TimeDifference(const std::tm& first, const std::tm& second) {
  return static_cast<int32_t>(WrappingSubtract(TimeToSeconds(first), TimeToSeconds(second)));
}

std::string TimeStamp(Seconds seconds) { return TimeFormat(seconds, "%Y%b%d_%H%M"); }

std::optional<std::string> TimeStampFileName(const std::string& prefix, const std::string& extension,
                                             const std::optional<std::tm>& time) {
  if (!time) return std::nullopt;
  std::error_code error;
  const std::string directory = std::filesystem::current_path(error).string();
  const std::string head = prefix.empty() ? std::string() : prefix + "_";
  return directory + "/" + head + TimeStamp(TimeToSeconds(time)) + extension;
}

Seconds ClockOfDay(Seconds day, int hour, int minute, int second) {
  std::tm time = TimeLocal(day);
  time.tm_hour = hour;
  time.tm_min = minute;
  time.tm_sec = second;
  time.tm_isdst = -1;
  return std::mktime(&time);
}

std::vector<std::string> DayList(Seconds from, Seconds to, const char* format) {
  const Seconds end = ClockOfDay(to, 23, 59, 0);
  std::vector<std::string> days;
  for (Seconds day = ClockOfDay(from, 0, 0, 0); day < end && days.size() < DAY_LIST_LIMIT;
       day += SECONDS_PER_DAY) {
    days.push_back(TimeFormat(day, format));
  }
  return days;
}

std::vector<std::string> DayFileNames(const std::string& stem, const std::string& extension, Seconds from,
                                      Seconds to) {
  std::vector<std::string> names = DayList(from, to, "%Y%b%d");
  for (std::string& name : names) {
    name.insert(0, stem + "_");
    name += "." + extension;
  }
  return names;
}

std::optional<std::vector<std::string>> DayFileNamesFor(const std::string& path, Seconds from, Seconds to) {
  const size_t dot = path.rfind('.');
  const size_t underscore = path.rfind('_');
  if (dot == std::string::npos || dot + 1 == path.size()) return std::nullopt;
  if (underscore == std::string::npos || underscore == 0) return std::nullopt;
  return DayFileNames(path.substr(0, underscore), path.substr(dot + 1), from, to);
}

Seconds StandardOffset(Seconds time) {
  const std::tm local = TimeLocal(time);
  return local.tm_gmtoff - (local.tm_isdst > 0 ? DAYLIGHT_PART : 0);
}

Seconds FormatLocalTime(Seconds time, Seconds utcOffset) {
  return WrappingSubtract(time, WrappingSubtract(StandardOffset(time), utcOffset));
}

}  // namespace ozmo
