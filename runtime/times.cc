#include "runtime/times.h"

#include <array>

namespace ozmo {
namespace {

constexpr Seconds DAYLIGHT_PART = 3600;

// Of a time with a clock.
constexpr const char* TIME_FORMS[] = {"%Y-%m-%dT%H:%M:%S", "%Y-%m-%dT%H:%M", "%Y-%m-%d %H:%M:%S",
                                      "%Y-%m-%d %H:%M", "%d-%b-%Y:%H:%M:%S"};

// Times come from files and may be anything; they wrap instead of overflowing.
Seconds WrappingSubtract(Seconds a, Seconds b) {
  return static_cast<Seconds>(static_cast<uint64_t>(a) - static_cast<uint64_t>(b));
}

}  // namespace

void TimeParse(std::tm& time, const std::string& text) { strptime(text.c_str(), "%d-%b-%Y:%X", &time); }

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

Seconds StandardOffset(Seconds time) {
  const std::tm local = TimeLocal(time);
  return local.tm_gmtoff - (local.tm_isdst > 0 ? DAYLIGHT_PART : 0);
}

Seconds FormatLocalTime(Seconds time, Seconds utcOffset) {
  return WrappingSubtract(time, WrappingSubtract(StandardOffset(time), utcOffset));
}

}  // namespace ozmo
