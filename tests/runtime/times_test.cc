#include "runtime/times.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "tests/support/environment.h"

namespace ozmo {
namespace {

using ::testing::ElementsAre;
using testing::ScopedVariable;

constexpr Seconds NOON_22_FEB_2012_UTC = 1329912000;
constexpr Seconds NOON_1_JUL_2012_UTC = 1341144000;
constexpr Seconds DAY = 86400;

// TZ texts that need no zone files.
constexpr const char* UTC = "UTC0";
constexpr const char* EASTERN = "EST5EDT,M3.2.0,M11.1.0";
constexpr const char* MIDDLE_EUROPE = "CET-1CEST,M3.5.0,M10.5.0/3";

std::tm Parsed(const std::string& text, TimeFormatNumber format = TimeFormatNumber::DAY_MONTH_YEAR_TIME) {
  std::tm time{};
  time.tm_isdst = -1;
  TimeParse(time, text, format);
  return time;
}

TEST(TimeParse, ReadsItsFormsAsLocalTime) {
  for (const auto& [format, text] : {std::pair(TimeFormatNumber::UNIX_DATE, "Wed Feb 22 12:00:00 2012"),
                                     {TimeFormatNumber::DAY_MONTH_YEAR_TIME, "22-Feb-2012:12:00:00"},
                                     {TimeFormatNumber::MONTH_DAY_TIME_YEAR, "Feb 22 12:00:00 2012"},
                                     {TimeFormatNumber::DAY_MONTH_YEAR_MINUTE, "22-Feb-2012:12:00"},
                                     {TimeFormatNumber::C_LIBRARY, "Wed Feb 22 12:00:00 2012"}}) {
    const ScopedVariable zone("TZ", UTC);
    EXPECT_EQ(TimeToSeconds(Parsed(text, format)), NOON_22_FEB_2012_UTC) << text;
  }
  const ScopedVariable zone("TZ", EASTERN);
  EXPECT_EQ(TimeToSeconds(Parsed("22-Feb-2012:12:00:00")), NOON_22_FEB_2012_UTC + 5 * 3600);
  EXPECT_EQ(TimeToSeconds(Parsed("01-jul-2012:12:00:00")), NOON_1_JUL_2012_UTC + 4 * 3600);
  EXPECT_EQ(TimeToSeconds(Parsed("31-Feb-2012:12:00:00")), TimeToSeconds(Parsed("02-Mar-2012:12:00:00")));
  EXPECT_EQ(TimeToSeconds(std::nullopt), 0);
}

TEST(TimeParse, LeavesTheFieldsThatATextDoesNotReach) {
  std::tm time = Parsed("22-Feb-2012:12:30:15");
  EXPECT_EQ(TimeParse(time, "", TimeFormatNumber::DAY_MONTH_YEAR_TIME), 0);
  EXPECT_EQ(TimeParse(time, "5-Mar-x", TimeFormatNumber::DAY_MONTH_YEAR_TIME), 1);
  EXPECT_EQ((std::vector{time.tm_mday, time.tm_mon, time.tm_year, time.tm_min}),
            (std::vector{5, 2, 112, 30}));
}

TEST(DayList, HoldsEachDayOfTheSpanOnce) {
  const ScopedVariable zone("TZ", UTC);
  const auto list = [](Seconds from, Seconds to) { return DayList(from, to, "%Y%b%d"); };
  EXPECT_THAT(list(NOON_22_FEB_2012_UTC, NOON_22_FEB_2012_UTC), ElementsAre("2012Feb22"));
  EXPECT_THAT(list(NOON_22_FEB_2012_UTC + DAY / 2 - 1, NOON_22_FEB_2012_UTC + DAY / 2),
              ElementsAre("2012Feb22", "2012Feb23"));
  EXPECT_THAT(list(NOON_22_FEB_2012_UTC, NOON_22_FEB_2012_UTC - DAY), ElementsAre());
}

TEST(DayList, StepsBy24HoursAcrossAChangeOfTheClocks) {
  const ScopedVariable zone("TZ", MIDDLE_EUROPE);
  const Seconds octoberDay = TimeToSeconds(Parsed("28-Oct-2012:12:00:00"));  // of 25 hours
  EXPECT_THAT(DayList(octoberDay, octoberDay + DAY, "%d%H"), ElementsAre("2800", "2823", "2923"));
  const Seconds marchDay = TimeToSeconds(Parsed("25-Mar-2012:12:00:00"));  // of 23 hours
  EXPECT_THAT(DayList(marchDay, marchDay + DAY, "%d%H"), ElementsAre("2500", "2601"));
}

TEST(DayList, StaysSmallWhateverTheSpan) {
  const ScopedVariable zone("TZ", UTC);
  EXPECT_EQ(DayList(0, NOON_22_FEB_2012_UTC, "%d").size(), 15393U);
  constexpr Seconds farAway = 60'000'000'000'000'000;  // still in the calendar
  EXPECT_EQ(DayList(-farAway, farAway, "%d").size(), static_cast<size_t>(DAY_LIST_LIMIT));
  const Seconds least = std::numeric_limits<Seconds>::min();
  const Seconds most = std::numeric_limits<Seconds>::max();
  EXPECT_THAT(DayList(least, most, "%Y"), ElementsAre("1970"));
  EXPECT_EQ(TimeLocal(most).tm_year, 70) << "outside the calendar";
}

TEST(DayFileNames, DeriveStemAndExtensionFromOneFile) {
  const ScopedVariable zone("TZ", UTC);
  const auto names = [](const std::string& path) {
    return DayFileNamesFor(path, NOON_22_FEB_2012_UTC, NOON_22_FEB_2012_UTC + DAY);
  };
  EXPECT_THAT(names("d/qtxa_node_2012Jan01.dat").value(),
              ElementsAre("d/qtxa_node_2012Feb22.dat", "d/qtxa_node_2012Feb23.dat"));
  for (const char* path : {"node.dat", "_2012Jan01.dat", "node_2012Jan01", "node_2012Jan01.", ""}) {
    EXPECT_EQ(names(path), std::nullopt) << path;
  }
}

TEST(FormatLocalTime, CarriesTheWallClockOfTheCollectorOver) {
  constexpr Seconds easternOffset = -5 * 3600;
  {
    const ScopedVariable zone("TZ", EASTERN);  // the collector's own: nothing moves
    EXPECT_EQ(FormatLocalTime(NOON_22_FEB_2012_UTC, easternOffset), NOON_22_FEB_2012_UTC);
    const Seconds most = std::numeric_limits<Seconds>::max();
    EXPECT_EQ(FormatLocalTime(most, 0), std::numeric_limits<Seconds>::min() + 5 * 3600 - 1);
  }
  const ScopedVariable zone("TZ", MIDDLE_EUROPE);
  EXPECT_EQ(FormatLocalTime(NOON_22_FEB_2012_UTC, easternOffset), NOON_22_FEB_2012_UTC - 6 * 3600);
  EXPECT_EQ(FormatLocalTime(NOON_1_JUL_2012_UTC, 0), NOON_1_JUL_2012_UTC - 3600) << "without daylight time";
}

}  // namespace
}  // namespace ozmo
