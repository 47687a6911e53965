#include "programs/report/summary.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

#include "programs/report/series.h"
#include "runtime/ordered_rows.h"
#include "runtime/text.h"

namespace ozmo::report {
namespace {

constexpr FigureRow ROWS[] = {
    {Figure::CPU, "cpu", "CPU", "%", false},
    {Figure::MEMORY, "memory", "Memory", "%", false},
    {Figure::DISK, "disk", "Disk utilization", "%", true},
    {Figure::RESPONSE, "response", "Disk response", "ms", true},
    {Figure::FILE_SYSTEM, "filesystem", "File system", "%", true},
    {Figure::ADAPTER, "adapter", "Adapter", "KB/s", true},
    {Figure::IMAGE, "image", "Image CPU", "%", true},
};

// What a trace's label says of whom it is; absent for a trace that isn't one of them, such as "Others".
// Traces of one name are added.
using Naming = std::optional<std::string> (*)(std::string_view label);

std::optional<std::string> WholeHost(std::string_view) { return ""; }

std::optional<std::string> Plain(std::string_view label) { return std::string(label); }

// Of a list's label with its rank, "#0  java" or "#1 /home": the name alone.
std::optional<std::string> Ranked(std::string_view label) {
  if (!label.starts_with('#')) return std::nullopt;
  const size_t rank = label.find_first_not_of("0123456789", 1);
  if (rank == std::string_view::npos || rank == 1) return std::nullopt;
  return std::string(SkipBlanks(label.substr(rank)));
}

// "<NoProc>" is processor time that no process accounts for.
std::optional<std::string> RankedImage(std::string_view label) {
  const std::optional<std::string> name = Ranked(label);
  return name == "<NoProc>" ? std::nullopt : name;
}

// "#1  /home on ( /dev/sda2 )": the directory alone.
std::optional<std::string> RankedDirectory(std::string_view label) {
  std::optional<std::string> name = Ranked(label);
  if (!name) return name;
  for (const std::string_view mark : {" on (", " (on "})
    name->resize(std::min(name->rfind(mark), name->size()));
  return name;
}

// "eth0 Inbound" and "eth0 Outbound" are eth0. What stays inside the host is no adapter's.
std::optional<std::string> Adapter(std::string_view label) {
  for (const std::string_view direction : {" Inbound", " Outbound"}) {
    if (!label.ends_with(direction)) continue;
    label.remove_suffix(direction.size());
    return label == "lo" || label == "lo0" ? std::nullopt : std::optional(std::string(label));
  }
  return std::nullopt;
}

struct Source {
  Figure figure;
  Graph graph;
  Naming naming;
};
constexpr Source SOURCES[] = {
    {Figure::CPU, Graph::OVERALL_CPU, WholeHost},
    {Figure::MEMORY, Graph::MEMORY_UTILIZATION, WholeHost},
    {Figure::DISK, Graph::TOP_DISK_UTILIZATION, Ranked},
    {Figure::RESPONSE, Graph::TOP_DISK_RESPONSE, Plain},
    {Figure::FILE_SYSTEM, Graph::TOP_FILE_SYSTEMS, RankedDirectory},
    {Figure::ADAPTER, Graph::LAN_DATA, Adapter},
    {Figure::IMAGE, Graph::TOP_IMAGES, RankedImage},
};

static_assert(RowsAreInOrder(ROWS, &FigureRow::figure, FIGURE_COUNT));
static_assert(RowsAreInOrder(SOURCES, &Source::figure, FIGURE_COUNT));

// The points of a span that have data.
std::vector<int> HeldPoints(const GraphCatalog& catalog) {
  std::vector<int> points;
  for (int point = 1; point < catalog.pointCount; ++point) {
    if (PointAt(catalog.extent.held, point) != MISSING_POINT) points.push_back(point);
  }
  return points;
}

// Minutes in holes that are longer than a bridge, those at the ends of the span included: the sample at its
// last point is the next day's.
int MissingMinutes(std::span<const int> held, const GraphCatalog& catalog) {
  const int longest = std::max(catalog.extent.maxGap, 1);
  const int end = catalog.pointCount - 1;
  int missing = 0;
  int last = 0;
  for (const int point : held) {
    if (point - last > longest) missing += point - last - 1;
    last = point;
  }
  return missing + (end - last > longest ? end - last : 0);
}

struct NamedSets {
  std::string name;
  std::vector<int> sets;
};

std::vector<NamedSets> NamesOf(const GraphRecord& record, Naming naming) {
  std::vector<NamedSets> names;
  for (int set = 0; set < record.data.nsets(); ++set) {
    const std::optional<std::string>& label = record.Label(set);
    std::optional<std::string> name = label ? naming(*label) : std::nullopt;
    if (!name) continue;
    const auto same = std::ranges::find(names, *name, &NamedSets::name);
    if (same != names.end()) {
      same->sets.push_back(set);
    } else {
      names.push_back({std::move(*name), {set}});
    }
  }
  return names;
}

// Own values at the points; sets are stacked.
std::vector<float> ValuesOf(const XrtData& data, std::span<const int> sets, std::span<const int> points) {
  std::vector<float> values(points.size());
  for (const int set : sets) {
    const Series& sum = data.y[static_cast<size_t>(set)];
    const Series* next = set + 1 < data.nsets() ? &data.y[static_cast<size_t>(set) + 1] : nullptr;
    for (size_t i = 0; i < points.size(); ++i) {
      values[i] += PointAt(sum, points[i]) - (next != nullptr ? PointAt(*next, points[i]) : 0.0F);
    }
  }
  return values;
}

double OfHundredths(int64_t hundredths) { return static_cast<double>(hundredths) / 100.0; }

size_t HourOf(int point) { return static_cast<size_t>((point - 1) / MINUTES_PER_HOUR); }

// Fills the means of hours and names the busiest.
void TakeHours(SummaryLine& line, std::span<const int64_t> values, std::span<const int> points,
               Seconds begin) {
  std::vector<int> counts(line.hours.size());
  std::vector<double> sums(line.hours.size());
  for (size_t i = 0; i < points.size(); ++i) {
    if (values[i] == NO_VALUE || HourOf(points[i]) >= sums.size()) continue;
    sums[HourOf(points[i])] += OfHundredths(values[i]);
    ++counts[HourOf(points[i])];
  }
  double highest = -std::numeric_limits<double>::infinity();
  for (size_t hour = 0; hour < sums.size(); ++hour) {
    if (counts[hour] == 0) continue;
    line.hours[hour] = sums[hour] / counts[hour];
    if (line.hours[hour] <= highest) continue;
    highest = line.hours[hour];
    line.busiestHour = begin + static_cast<Seconds>(hour) * MINUTES_PER_HOUR * SECONDS_PER_MINUTE;
  }
}

// Absent where no point has a value.
std::optional<SummaryLine> LineOf(Figure figure, std::string name, std::span<const float> own,
                                  std::span<const int> points, const DataDay& day) {
  const std::vector<int64_t> values = HundredthsOf(own);
  std::vector<int64_t> sorted;
  std::ranges::copy_if(values, std::back_inserter(sorted), [](int64_t value) { return value != NO_VALUE; });
  if (sorted.empty()) return std::nullopt;
  std::ranges::sort(sorted);
  SummaryLine line;
  line.figure = figure;
  line.name = std::move(name);
  const int last = static_cast<int>(values.size()) - 1;
  const TraceFigures figures = FiguresOf(values, 0, last);
  line.mean = figures.mean;
  line.p95 = OfHundredths(sorted[(sorted.size() * 95 + 99) / 100 - 1]);
  line.peak = figures.peak;
  line.peakTime = day.begin + points[static_cast<size_t>(figures.peakPoint)] * SECONDS_PER_MINUTE;
  line.hours.assign(HoursOf(day.begin, day.end), std::numeric_limits<double>::quiet_NaN());
  TakeHours(line, values, points, day.begin);
  return line;
}

// As many as a graph has a trace of.
int ProcessorsOf(const GraphCatalog& catalog) {
  int processors = 0;
  for (const Graph graph : {Graph::ACTIVE_CPUS, Graph::CPU_BY_PROCESSOR}) {
    const GraphRecord* record = catalog.Find(graph);
    if (record != nullptr) processors = std::max(processors, record->data.nsets());
  }
  return processors;
}

}  // namespace

std::span<const FigureRow> FigureRows() { return ROWS; }

const FigureRow& RowOf(Figure figure) { return ROWS[static_cast<size_t>(figure)]; }

size_t HoursOf(Seconds begin, Seconds end) {
  constexpr Seconds HOUR = MINUTES_PER_HOUR * SECONDS_PER_MINUTE;
  return end > begin ? static_cast<size_t>((end - begin + HOUR - 1) / HOUR) : 0;
}

Summary SummaryOf(const DataDay& day) {
  const GraphCatalog& catalog = *day.catalog;
  const std::vector<int> points = HeldPoints(catalog);
  Summary summary{.host = day.node,
                  .system = day.system,
                  .processors = ProcessorsOf(catalog),
                  .begin = day.begin,
                  .end = day.end,
                  .missing = MissingMinutes(points, catalog)};
  for (const Source& source : SOURCES) {
    const GraphRecord* record = catalog.Find(source.graph);
    if (record == nullptr) continue;
    for (NamedSets& name : NamesOf(*record, source.naming)) {
      const std::vector<float> values = ValuesOf(record->data, name.sets, points);
      std::optional<SummaryLine> line = LineOf(source.figure, std::move(name.name), values, points, day);
      if (line) summary.lines.push_back(std::move(*line));
    }
  }
  return summary;
}

}  // namespace ozmo::report
