#include "programs/export/formats.h"

#include <algorithm>

#include "programs/export/csv_cells.h"

namespace ozmo::exporting {
namespace {

constexpr Format FORMATS[] = {
    {.word = "openmetrics", .itemFile = "items.om", .hasProcesses = false, .write = WriteOpenMetrics},
    {.word = "csv", .itemFile = "items.csv", .hasProcesses = true, .write = WriteItemTable},
};

}  // namespace

std::span<const Format> Formats() { return FORMATS; }

const Format* FindFormat(std::string_view word) {
  const auto found = std::ranges::find(FORMATS, word, &Format::word);
  return found == std::end(FORMATS) ? nullptr : &*found;
}

std::string WriteItemTable(std::FILE* stream, const ExportedDay& exported) {
  std::fputs("ts,host,system,item,trace,unit,value\n", stream);
  std::vector<std::string> times;
  for (const int point : exported.points) {
    times.push_back(UtcText(exported.day.begin + point * SECONDS_PER_MINUTE) + ',');
  }
  const std::string host = CsvCell(exported.day.node) + ',' + CsvCell(exported.day.system) + ',';
  std::string lines;
  for (const Trace& trace : exported.traces) {
    const std::string names =
        host + CsvCell(trace.item) + ',' + CsvCell(trace.label) + ',' + CsvCell(trace.unit) + ',';
    lines.clear();
    VisitValues(exported, trace, [&](size_t i, const std::string& value) {
      (((lines += times[i]) += names) += value) += '\n';
    });
    std::fwrite(lines.data(), 1, lines.size(), stream);
  }
  return "";
}

}  // namespace ozmo::exporting
