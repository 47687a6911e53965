#include "programs/report/baseline.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>

#include "catalog/graph_name.h"
#include "programs/report/page.h"

namespace ozmo::report {
namespace {

constexpr int MOST_DAYS_BACK = 3660;
constexpr int DAYS_OF_WEEK = 7;

// Minutes between two samples, more or less.
int StepOf(const PageData& data) {
  return (data.lastPoint - data.firstPoint) / std::max(data.intervals - 1, 1);
}

// Minutes by the clock from the begin of the span on.
int ClockMinutes(const PageData& data, int point) {
  const auto offset = [&](int at) { return TimeLocal(data.start + at * SECONDS_PER_MINUTE).tm_gmtoff; };
  return point + static_cast<int>((offset(point) - offset(0)) / SECONDS_PER_MINUTE);
}

std::string CoveredText(const PageData& data) {
  const auto text = [&](int point) {
    return TimeFormat(data.start + point * SECONDS_PER_MINUTE, "%Y-%m-%d %H:%M");
  };
  return text(data.firstPoint) + " to " + text(data.lastPoint);
}

}  // namespace

std::optional<int> DaysBack(const std::string& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const std::string unit(end, text.data() + text.size());
  if (error != std::errc() || (unit != "d" && unit != "w")) return std::nullopt;
  const int days = unit == "w" ? DAYS_OF_WEEK : 1;
  if (number < 1 || number > MOST_DAYS_BACK / days) return std::nullopt;
  return number * days;
}

std::string BadTimeBack(const std::string& text) {
  const size_t unit = text.find_first_not_of("0123456789");
  const bool looksLikeTime = unit == std::string::npos || (unit > 0 && unit + 1 == text.size());
  if (!looksLikeTime || DaysBack(text) || access(text.c_str(), F_OK) == 0) return "";
  return "--baseline takes a data file, or a time back of days or weeks as 1d, 7d or 2w, " +
         std::to_string(MOST_DAYS_BACK) + " days at most, and not \"" + text + "\"";
}

DayRequest BaselineRequest(const std::string& what, const DayRequest& request, const DataDay& day) {
  DayRequest baseline = request;
  if (const std::optional<int> days = DaysBack(what)) {
    const Span span = DaysLater({day.begin, day.end}, -*days);
    baseline.begin = span.begin;
    baseline.end = span.end;
  } else {
    baseline.dataFile = what;
    baseline.begin = baseline.end = std::nullopt;
    baseline.like = Span{day.begin, day.end};
  }
  return baseline;
}

Baseline BaselineOf(const DataDay& day, const PageData& page) {
  std::set<std::string> known;
  for (const PageSection& section : page.sections) {
    for (const PageGraph& graph : section.graphs) known.insert(GraphNameKey(graph.heading));
  }
  Baseline baseline;
  std::vector<Section> sections = SectionsOf(*day.catalog);
  for (Section& section : sections) {
    std::erase_if(section.items, [&](const Item& item) {
      if (known.count(GraphNameKey(item.heading)) != 0) return false;
      baseline.only.push_back(item.heading);
      return true;
    });
  }
  baseline.data = PageDataOf(day, sections);
  baseline.what = TitleOf(baseline.data);
  return baseline;
}

std::string CoverageText(const PageData& baseline, const PageData& page) {
  const int slack = 2 * std::max({1, StepOf(baseline), StepOf(page)});
  const int first = ClockMinutes(page, page.firstPoint);
  const int last = ClockMinutes(page, page.lastPoint);
  const int firstBefore = ClockMinutes(baseline, baseline.firstPoint);
  const int lastBefore = ClockMinutes(baseline, baseline.lastPoint);
  if (firstBefore <= first + slack && lastBefore >= last - slack) return "";
  const bool meet = firstBefore <= last && lastBefore >= first;
  return "the baseline has data from " + CoveredText(baseline) + (meet ? " only" : "") +
         ", the report from " + CoveredText(page) + (meet ? "" : ": no minute of the day has both");
}

}  // namespace ozmo::report
