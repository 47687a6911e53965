// Times, their texts and broken-down forms, and the date-stamped names of collector files. All times are the
// C library's tm and time_t in local time; month and day names are those of the C locale. The zone is looked
// up at each conversion, so a change of TZ acts at once.
//
// Nothing here reports a bad time: a wrong text leads to a wrong span, and not to a message.
#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

namespace ozmo {

using Seconds = int64_t;  // since 1970, or of a span

inline constexpr Seconds SECONDS_PER_MINUTE = 60;
inline constexpr Seconds SECONDS_PER_DAY = 86400;

// What is asked for of a file's data.
struct Span {
  Seconds begin = 0;
  Seconds end = 0;
};

// strptime formats by number: the form of -begin and -end is DAY_MONTH_YEAR_TIME, 22-Feb-2012:14:30:00.
enum class TimeFormatNumber {
  UNIX_DATE = 0,  // no option reaches this or those below the next
  DAY_MONTH_YEAR_TIME = 1,
  MONTH_DAY_TIME_YEAR = 2,
  DAY_MONTH_YEAR_MINUTE = 3,
  C_LIBRARY = 5
};

// Fills the fields of `time` that `text` gives; a text that doesn't fit leaves the others as they were.
// Returns 1 if it ran, 0 for an empty text or an unknown format.
int TimeParse(std::tm& time, const std::string& text, TimeFormatNumber format);

// A time as the other programs take it: 2012-02-22T14:30, with seconds or without, a blank in place of the T,
// or 22-Feb-2012:14:30:00. Absent for any other text, and for a day that isn't in the calendar.
std::optional<Seconds> TimeOf(const std::string& text);

// The same of a text in one form of strptime; what the form doesn't give is as in `time`.
std::optional<Seconds> TimeOf(const std::string& text, const char* form, std::tm time);

// mktime of the record; 0 for an absent one.
Seconds TimeToSeconds(const std::optional<std::tm>& time);

// Local broken-down time of `seconds`; a time outside the calendar gives the epoch.
std::tm TimeLocal(Seconds seconds);

// strftime in local time.
std::string TimeFormat(Seconds seconds, const char* format);

// No option reaches this: -1, 0 or 1 as `first` is before, at or after `second`.
int TimeCompare(const std::tm& first, const std::tm& second);

// No option reaches this: seconds of `first` less seconds of `second`, in 32 bits.
int32_t TimeDifference(const std::tm& first, const std::tm& second);

// The stamp of a file name, such as 2012Feb22_1430, in local time.
std::string TimeStamp(Seconds seconds);

// "<current directory>/<prefix>_<stamp><extension>"; without a prefix its "_" goes too. Absent for an absent
// time. No option reaches this.
std::optional<std::string> TimeStampFileName(const std::string& prefix, const std::string& extension,
                                             const std::optional<std::tm>& time);

// The time of a clock time on the day of `day`, in local time.
Seconds ClockOfDay(Seconds day, int hour, int minute, int second);

// One text by `format` for each day from the date of `from` to the date of `to`, in steps of 86400 seconds;
// a daylight-saving change isn't allowed for. Ends after DAY_LIST_LIMIT days.
std::vector<std::string> DayList(Seconds from, Seconds to, const char* format);

// About a thousand years: no catalog can hold the minutes of a longer span, so a longer list only comes of a
// broken time.
inline constexpr int DAY_LIST_LIMIT = 400'000;

// The day names "<stem>_<date>.<extension>" of a series of collector files, one for each day of DayList.
std::vector<std::string> DayFileNames(const std::string& stem, const std::string& extension, Seconds from,
                                      Seconds to);

// The day names of the series that the file `path` belongs to. Absent if `path` isn't such a name. No option
// reaches this: the readers have rules of their own for the parts of a name.
std::optional<std::vector<std::string>> DayFileNamesFor(const std::string& path, Seconds from, Seconds to);

// The offset of local standard time from UTC, the daylight part of `time` taken out; positive to the east.
Seconds StandardOffset(Seconds time);

// The collector's wall clock carried over to the reader's zone, so that hours read the same on both
// machines: `time` less the difference between the reader's own standard offset from UTC and the collector's
// `utcOffset`.
Seconds FormatLocalTime(Seconds time, Seconds utcOffset);

}  // namespace ozmo
