// OpenMetrics text, version 1.0, as the Prometheus project describes it in its repository OpenMetrics.
//
// The samples of a family are together, those of a series too and in the order of their times. All are
// gauges: a rate that was measured is no counter any more.

#include <algorithm>

#include "programs/export/formats.h"
#include "programs/items/descriptions.h"
#include "programs/report/text.h"

namespace ozmo::exporting {
namespace {

// What a label calls the name in an item's title.
struct SubjectLabel {
  std::string_view word;
  std::string_view label;
};
constexpr SubjectLabel SUBJECT_LABELS[] = {{"DISK", "disk"}, {"ADAPTER", "adapter"}, {"CPU-N", "cpu"}};

// Backslash, quote and line feed are escaped; a text that was cleaned has no line feed.
std::string Escaped(std::string_view text, std::string_view special) {
  std::string escaped;
  for (const char c : text) {
    if (special.find(c) != std::string_view::npos) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

std::string Label(std::string_view name, std::string_view value) {
  return std::string(name) + "=\"" + Escaped(value, "\\\"") + '"';
}

std::string HelpOf(const Metric& metric, std::string_view platform) {
  if (!metric.help.empty()) return std::string(metric.help);
  const items::Description* description = items::FindDescription(metric.item, platform);
  return std::string(description == nullptr ? metric.item : description->source);
}

void WriteHead(std::FILE* stream, const Metric& metric, std::string_view platform) {
  const std::string name = FullName(metric);
  std::fprintf(stream, "# TYPE %s gauge\n", name.c_str());
  if (!metric.unit.empty()) {
    std::fprintf(stream, "# UNIT %s %s\n", name.c_str(), std::string(metric.unit).c_str());
  }
  std::fprintf(stream, "# HELP %s %s\n", name.c_str(), Escaped(HelpOf(metric, platform), "\\\"").c_str());
}

// Name and labels of a trace's samples, and a blank.
std::string SeriesOf(const Trace& trace, const report::DataDay& day) {
  std::string series = FullName(*trace.metric) + "{" + Label("host", report::CleanText(day.node)) + "," +
                       Label("system", day.system);
  if (!trace.subject.empty()) {
    const auto row = std::ranges::find_if(SUBJECT_LABELS, [&](const SubjectLabel& subject) {
      return trace.metric->item.find(subject.word) != std::string_view::npos;
    });
    series += "," + Label(row->label, trace.subject);
  }
  return series + "," + Label("trace", trace.label) + "} ";
}

}  // namespace

std::string WriteOpenMetrics(std::FILE* stream, const ExportedDay& exported) {
  std::string leftOut;
  std::vector<const Trace*> traces;
  for (const Trace& trace : exported.traces) {
    if (trace.metric != nullptr) {
      traces.push_back(&trace);
    } else {
      leftOut = "no metric is named for the item \"" + trace.item + "\"";
    }
  }
  const auto family = [](const Trace* trace) { return FamilyOf(*trace->metric); };
  std::ranges::stable_sort(traces, {}, family);

  std::vector<std::string> times;
  for (const int point : exported.points) {
    times.push_back(' ' + std::to_string(exported.day.begin + point * SECONDS_PER_MINUTE) + '\n');
  }
  std::string lines;
  const Trace* before = nullptr;
  for (const Trace* trace : traces) {
    if (before == nullptr || family(before) != family(trace)) {
      WriteHead(stream, *trace->metric, exported.kind.word);
    }
    before = trace;
    lines.clear();
    const std::string series = SeriesOf(*trace, exported.day);
    VisitValues(exported, *trace,
                [&](size_t i, const std::string& value) { ((lines += series) += value) += times[i]; });
    std::fwrite(lines.data(), 1, lines.size(), stream);
  }
  std::fputs("# EOF\n", stream);
  return leftOut;
}

}  // namespace ozmo::exporting
