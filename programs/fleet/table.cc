#include "programs/fleet/table.h"

#include <algorithm>
#include <iterator>

#include "output/number_text.h"
#include "programs/report/summary_text.h"

namespace ozmo::fleet {
namespace {

using report::Figure;
using report::FigureRow;
using report::Summary;
using report::SummaryLine;

std::string NumberCell(double value) { return NumberText(value, 2); }
std::string TimeCell(Seconds time) { return TimeFormat(time, "%Y-%m-%dT%H:%M"); }

// Columns of the host itself.
struct HostColumn {
  const char* key;
  const char* title;
  CellKind kind;
  std::string (*cell)(const Summary& summary);
};
constexpr HostColumn HOST_COLUMNS[] = {
    {"host", "Host", CellKind::TEXT, [](const Summary& summary) { return summary.host; }},
    {"day", "Day", CellKind::TEXT, DayText},
    {"system", "System", CellKind::TEXT, [](const Summary& summary) { return summary.system; }},
    {"processors", "Processors", CellKind::COUNT,
     [](const Summary& summary) { return summary.processors > 0 ? std::to_string(summary.processors) : ""; }},
    {"missing", "Minutes missing", CellKind::COUNT,
     [](const Summary& summary) { return std::to_string(summary.missing); }},
};

// Columns of each figure.
struct LineColumn {
  const char* key;
  const char* title;
  CellKind kind;
  bool ofNamedOnly;
  std::string (*cell)(const SummaryLine& line);
};
constexpr LineColumn LINE_COLUMNS[] = {
    {"name", "which", CellKind::TEXT, true, [](const SummaryLine& line) { return line.name; }},
    {"mean", "mean", CellKind::NUMBER, false, [](const SummaryLine& line) { return NumberCell(line.mean); }},
    {"p95", "p95", CellKind::NUMBER, false, [](const SummaryLine& line) { return NumberCell(line.p95); }},
    {"peak", "peak", CellKind::NUMBER, false, [](const SummaryLine& line) { return NumberCell(line.peak); }},
    {"peak_time", "peak at", CellKind::TIME, false,
     [](const SummaryLine& line) { return TimeCell(line.peakTime); }},
    {"busiest_hour", "busiest hour", CellKind::TIME, false,
     [](const SummaryLine& line) { return TimeCell(line.busiestHour); }},
};

constexpr std::string_view SHOWN[] = {"cpu_mean",     "cpu_p95",         "cpu_peak",        "cpu_peak_time",
                                      "memory_p95",   "disk_name",       "disk_p95",        "response_name",
                                      "response_p95", "filesystem_name", "filesystem_peak", "adapter_name",
                                      "adapter_p95",  "image_name",      "image_mean"};

// What makes one of several lines the highest: the fullest a file system ever was, the mean of all others.
double SummaryLine::*WeightOf(Figure figure) {
  return figure == Figure::FILE_SYSTEM ? &SummaryLine::peak : &SummaryLine::mean;
}

// Runs `visit` on each pair of a figure and a column of it.
template <class Visit>
void VisitLineColumns(Visit visit) {
  for (const FigureRow& row : report::FigureRows()) {
    for (const LineColumn& column : LINE_COLUMNS) {
      if (row.isNamed || !column.ofNamedOnly) visit(row, column);
    }
  }
}

}  // namespace

std::vector<Column> Columns() {
  std::vector<Column> columns;
  for (const HostColumn& column : HOST_COLUMNS)
    columns.push_back({column.key, column.title, "", column.kind, true});
  VisitLineColumns([&](const FigureRow& row, const LineColumn& column) {
    const std::string key = std::string(row.word) + '_' + column.key;
    columns.push_back({key, column.title, std::string(row.heading) + ", " + std::string(row.unit),
                       column.kind, std::ranges::find(SHOWN, key) != std::end(SHOWN)});
  });
  return columns;
}

std::vector<std::string> CellsOf(const Summary& summary) {
  std::vector<std::string> cells;
  for (const HostColumn& column : HOST_COLUMNS) cells.push_back(column.cell(summary));
  VisitLineColumns([&](const FigureRow& row, const LineColumn& column) {
    const SummaryLine* line = HighestLine(summary, row.figure);
    cells.push_back(line != nullptr ? column.cell(*line) : "");
  });
  return cells;
}

const SummaryLine* HighestLine(const Summary& summary, Figure figure) {
  double SummaryLine::*const weight = WeightOf(figure);
  const SummaryLine* highest = nullptr;
  for (const SummaryLine& line : summary.lines) {
    if (line.figure != figure) continue;
    if (highest == nullptr || line.*weight > highest->*weight) highest = &line;
  }
  return highest;
}

std::string DayText(const Summary& summary) {
  const std::string first = TimeFormat(summary.begin, "%Y-%m-%d");
  const std::string last = TimeFormat(summary.end, "%Y-%m-%d");
  return first == last ? first : first + '/' + last;
}

std::string TableText(const std::vector<Host>& hosts) {
  std::string text;
  for (const Column& column : Columns()) text += (text.empty() ? "" : "\t") + column.key;
  text += '\n';
  for (const Host& host : hosts) {
    const char* tab = "";
    for (const std::string& cell : CellsOf(host.summary)) {
      text += tab + report::EscapedName(cell);
      tab = "\t";
    }
    text += '\n';
  }
  return text;
}

}  // namespace ozmo::fleet
