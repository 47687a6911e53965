#include "programs/report/page.h"

#include <cstdio>
#include <string_view>

#include "programs/report/text.h"
#include "runtime/times.h"

namespace ozmo::report {
namespace {

std::string PointTime(const PageData& data, int point, const char* format) {
  return TimeFormat(data.start + point * SECONDS_PER_MINUTE, format);
}

// "Wednesday, 22 February 2012, 00:01 to 23:59 UTC", or both days of a longer span.
std::string PeriodOf(const PageData& data) {
  constexpr const char* DAY = "%A, %-d %B %Y";
  const std::string firstDay = PointTime(data, data.firstPoint, DAY);
  const std::string lastDay = PointTime(data, data.lastPoint, DAY);
  const std::string firstClock = PointTime(data, data.firstPoint, "%H:%M");
  const std::string lastClock = PointTime(data, data.lastPoint, "%H:%M %Z");
  if (firstDay == lastDay) return firstDay + ", " + firstClock + " to " + lastClock;
  return firstDay + ", " + firstClock + " to " + lastDay + ", " + lastClock;
}

void AppendTableRows(std::string& html, const PageGraph& graph) {
  html += "<tbody><tr><th scope=\"rowgroup\" colspan=\"3\">" + HtmlText(graph.heading) + " <small>" +
          HtmlText(graph.unit) + "</small></th></tr>\n";
  for (const PageTrace& trace : graph.traces) {
    html += "<tr><td>" + HtmlText(trace.label) + "</td><td>" + FigureText(trace.figures.mean) + "</td><td>" +
            FigureText(trace.figures.peak) + "</td></tr>\n";
  }
  html += "</tbody>\n";
}

// What a reader without scripts sees.
std::string TablesOf(const PageData& data) {
  std::string html;
  for (const PageSection& section : data.sections) {
    const std::string level = std::to_string(section.level + 1 > 6 ? 6 : section.level + 1);
    html.append("<h").append(level).append(">").append(HtmlText(section.label));
    html.append("</h").append(level).append(">\n");
    if (section.graphs.empty()) continue;
    html += "<table><thead><tr><th>Trace</th><th>Mean</th><th>Peak</th></tr></thead>\n";
    for (const PageGraph& graph : section.graphs) AppendTableRows(html, graph);
    html += "</table>\n";
  }
  return html;
}

std::string FactsOf(const PageData& data) {
  return HtmlText(data.system + " data file " + data.file) + "<br>" +
         HtmlText(CountText(data.graphs, "graph") + " from " + CountText(data.intervals, "interval"));
}

std::string NotesOf(const PageData& data) {
  std::string html;
  for (const std::vector<std::string>* texts : {&data.problems, &data.notes}) {
    for (const std::string& text : *texts) {
      html += "<p class=\"note\" role=\"note\">" + HtmlText(text) + "</p>\n";
    }
  }
  if (data.graphsWithoutChart > 0) {
    html += "<p class=\"note\" role=\"note\">" + CountText(data.graphsWithoutChart, "graph") +
            " of the less busy disks, adapters and processors show figures only: charts take at most " +
            SizeText(LARGEST_CHARTS) +
            " of a page. A shorter span, or a page of single items, shows them.</p>\n";
  }
  return html;
}

struct Slot {
  std::string_view mark;
  std::string text;
};

}  // namespace

std::string TitleOf(const PageData& data) {
  const std::string first = PointTime(data, data.firstPoint, "%-d %B %Y");
  const std::string last = PointTime(data, data.lastPoint, "%-d %B %Y");
  return data.node + ", " + (first == last ? first : first + " to " + last);
}

std::string CountText(int count, const char* thing) {
  return std::to_string(count) + ' ' + thing + (count == 1 ? "" : "s");
}

std::string SizeText(size_t bytes) {
  char text[64];
  const auto size = static_cast<double>(bytes);
  std::snprintf(text, sizeof text, bytes < 1'000'000 ? "%.0f kB" : "%.1f MB",
                bytes < 1'000'000 ? size / 1e3 : size / 1e6);
  return text;
}

std::string PageOf(const PageData& data, const std::string& json, const std::string& versionText) {
  const Slot slots[] = {
      {"%%TITLE%%", HtmlText(TitleOf(data))},
      {"%%HOST%%", HtmlText(data.node)},
      {"%%PERIOD%%", HtmlText(PeriodOf(data))},
      {"%%FACTS%%", FactsOf(data)},
      {"%%NOTES%%", NotesOf(data)},
      {"%%TABLES%%", TablesOf(data)},
      {"%%VERSION%%", HtmlText(versionText)},
      {"%%DATA%%", json},
  };
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

}  // namespace ozmo::report
