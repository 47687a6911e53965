#include "programs/fleet/page.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>

#include "output/number_text.h"
#include "programs/report/page.h"
#include "programs/report/text.h"

namespace ozmo::fleet {
namespace {

using report::FigureRow;
using report::HtmlText;
using report::JsonText;
using report::Summary;
using report::SummaryLine;

// What is between the brackets of a list: `items`, each as `text` gives it.
template <class Items, class Text>
std::string ListText(const Items& items, Text text) {
  std::string list;
  for (const auto& item : items) {
    if (!list.empty()) list += ',';
    list += text(item);
  }
  return list;
}

constexpr const char* KIND_WORDS[] = {"text", "count", "number", "time"};

std::string ColumnJson(const Column& column) {
  return "{\"key\":" + JsonText(column.key) + ",\"title\":" + JsonText(column.title) +
         ",\"group\":" + JsonText(column.group) + ",\"kind\":\"" +
         KIND_WORDS[static_cast<size_t>(column.kind)] +
         "\",\"shown\":" + (column.isShown ? "true" : "false") + '}';
}

std::string CellJson(const std::string& cell, CellKind kind) {
  if (kind == CellKind::NUMBER || kind == CellKind::COUNT) return cell.empty() ? "null" : cell;
  return JsonText(cell);
}

// Three figures are as many as a colour shows.
std::string HourText(double mean) { return std::isnan(mean) ? "" : NumberText("%.3g", mean); }

// The hours of each figure's highest line.
std::string HoursJson(const Summary& summary) {
  return ListText(report::FigureRows(), [&](const FigureRow& row) {
    const SummaryLine* line = HighestLine(summary, row.figure);
    std::string hours = "\"";
    for (size_t hour = 0; line != nullptr && hour < line->hours.size(); ++hour) {
      hours += (hour > 0 ? "," : "") + HourText(line->hours[hour]);
    }
    return hours + '"';
  });
}

// A path as a link's address: what isn't a plain letter is written as its bytes.
std::string AddressOf(const std::string& path) {
  constexpr std::string_view PLAIN = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  constexpr std::string_view DIGITS = "0123456789ABCDEF";
  std::string address;
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (PLAIN.find(c) != std::string_view::npos) {
      address += c;
    } else {
      address.append({'%', DIGITS[byte / 16U], DIGITS[byte % 16U]});
    }
  }
  return address;
}

std::string LinkOf(const Host& host, const std::string& pageFile) {
  if (host.page.empty()) return "";
  const std::filesystem::path directory = std::filesystem::absolute(pageFile).parent_path();
  return AddressOf(std::filesystem::absolute(host.page).lexically_relative(directory).string());
}

// Hours by the clock, counted from the midnight before the span: that of hour `from` of the span, and of
// those after it, is so many more.
struct ClockShift {
  size_t from = 0;
  int64_t shift = 0;
};

size_t HourCount(const Summary& summary) {
  return summary.lines.empty() ? 0 : summary.lines.front().hours.size();
}

// The first is of hour 0; others follow where the clock was set.
std::vector<ClockShift> ClockOf(const Summary& summary) {
  constexpr Seconds HOUR = report::MINUTES_PER_HOUR * SECONDS_PER_MINUTE;
  constexpr size_t STRIDE = 24;  // in a day the clock is set once at most
  const std::tm begin = TimeLocal(summary.begin);
  const Seconds past = begin.tm_min * SECONDS_PER_MINUTE + begin.tm_sec;  // the hour
  const auto shiftAt = [&](size_t hour) {
    const long offset = TimeLocal(summary.begin + static_cast<Seconds>(hour) * HOUR).tm_gmtoff;
    const Seconds set = past + offset - begin.tm_gmtoff;
    return begin.tm_hour + (set < 0 ? set - HOUR + 1 : set) / HOUR;
  };
  std::vector<ClockShift> clock = {{0, shiftAt(0)}};
  for (size_t hour = 0; hour + 1 < HourCount(summary);) {
    const size_t later = std::min(hour + STRIDE, HourCount(summary) - 1);
    if (shiftAt(later) == clock.back().shift) {
      hour = later;
    } else if (const int64_t shift = shiftAt(++hour); shift != clock.back().shift) {
      clock.push_back({hour, shift});
    }
  }
  return clock;
}

std::string ClockJson(const ClockShift& clock) {
  return '[' + std::to_string(clock.from) + ',' + std::to_string(clock.shift) + ']';
}

std::string RowJson(const Host& host, const std::vector<Column>& columns, const std::string& pageFile) {
  const std::vector<std::string> cells = CellsOf(host.summary);
  std::string row = "{\"cells\":[";
  for (size_t i = 0; i < cells.size(); ++i) row += (i > 0 ? "," : "") + CellJson(cells[i], columns[i].kind);
  return row + "],\"link\":" + JsonText(LinkOf(host, pageFile)) + ",\"clock\":[" +
         ListText(ClockOf(host.summary), ClockJson) + "],\"hours\":[" + HoursJson(host.summary) + "]}\n";
}

// From the midnight before the span of each host to the last of its hours.
int64_t HoursOfMap(const std::vector<Host>& hosts) {
  int64_t hours = 1;
  for (const Host& host : hosts) {
    const auto last = static_cast<int64_t>(HourCount(host.summary)) - 1;
    hours = std::max(hours, ClockOf(host.summary).back().shift + last + 1);
  }
  return hours;
}

std::string JsonOf(const std::vector<Host>& hosts, const std::string& pageFile) {
  const std::vector<Column> columns = Columns();
  return "{\"columns\":[" + ListText(columns, ColumnJson) + "],\n\"figures\":[" +
         ListText(report::FigureRows(),
                  [](const FigureRow& row) {
                    return "{\"word\":" + JsonText(row.word) + ",\"heading\":" + JsonText(row.heading) +
                           ",\"unit\":" + JsonText(row.unit) + '}';
                  }) +
         "],\n\"hours\":" + std::to_string(HoursOfMap(hosts)) + ",\n\"rows\":[" +
         ListText(hosts, [&](const Host& host) { return RowJson(host, columns, pageFile); }) + "]}";
}

std::string ProblemsOf(const std::vector<std::string>& problems) {
  if (problems.empty()) return "";
  std::string html = "<details class=\"note\" id=\"problems\"" +
                     std::string(problems.size() <= 10 ? " open" : "") + "><summary>" +
                     report::CountText(static_cast<int>(problems.size()), "problem") +
                     " with what was to be read</summary>\n<ul>\n";
  for (const std::string& problem : problems) html += "<li>" + HtmlText(problem) + "</li>\n";
  return html + "</ul></details>\n";
}

std::string PeriodOf(const std::vector<Host>& hosts) {
  if (hosts.empty()) return "no host";
  std::set<std::string_view> names;
  Seconds begin = hosts.front().summary.begin;
  Seconds end = hosts.front().summary.end;
  for (const Host& host : hosts) {
    names.insert(host.summary.host);
    begin = std::min(begin, host.summary.begin);
    end = std::max(end, host.summary.end);
  }
  const std::string first = TimeFormat(begin, "%-d %B %Y");
  const std::string last = TimeFormat(end, "%-d %B %Y");
  return report::CountText(static_cast<int>(names.size()), "host") + ", " +
         (first == last ? first : first + " to " + last);
}

struct Slot {
  std::string_view mark;
  std::string text;
};

}  // namespace

std::string PageOf(const std::vector<Host>& hosts, const std::vector<std::string>& problems,
                   const std::string& pageFile, const std::string& versionText) {
  const Slot slots[] = {{"%%TITLE%%", HtmlText(PeriodOf(hosts))},
                        {"%%PERIOD%%", HtmlText(PeriodOf(hosts))},
                        {"%%PROBLEMS%%", ProblemsOf(problems)},
                        {"%%VERSION%%", HtmlText(versionText)},
                        {"%%DATA%%", JsonOf(hosts, pageFile)}};
  std::string page;
  std::string_view rest = PageTemplate();
  for (const Slot& slot : slots) {  // they are in this order
    const size_t place = rest.find(slot.mark);
    page += rest.substr(0, place);
    page += slot.text;
    rest.remove_prefix(place + slot.mark.size());
  }
  page += rest;
  return page;
}

}  // namespace ozmo::fleet
