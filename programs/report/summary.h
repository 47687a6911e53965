// The figures of a host's span by which hosts are compared: what --summary writes, and what a fleet is made
// of.
//
// Figures are of the minutes that have data, an interval's or one on the line between two of them, in the
// hundredths that a CSV file shows. A minute is named by its end, as the points of a graph are: the hour from
// 13:00 has the points 13:01 to 14:00.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "programs/report/data_day.h"
#include "runtime/times.h"

namespace ozmo::report {

enum class Figure { CPU, MEMORY, DISK, RESPONSE, FILE_SYSTEM, ADAPTER, IMAGE, COUNT };
inline constexpr size_t FIGURE_COUNT = static_cast<size_t>(Figure::COUNT);

// What the figures are called, in the order of the enumeration.
struct FigureRow {
  Figure figure;
  std::string_view word;     // in a summary and in a limit
  std::string_view heading;  // for people
  std::string_view unit;
  bool isNamed;  // a line for each disk or the like; false: one line for the host
};
std::span<const FigureRow> FigureRows();
const FigureRow& RowOf(Figure figure);

inline constexpr int MINUTES_PER_HOUR = 60;

struct SummaryLine {
  Figure figure = Figure::CPU;
  std::string name;  // of the disk, adapter, image or directory; empty for a figure of the whole host
  double mean = 0.0;
  double p95 = 0.0;  // the smallest value that 95 of 100 minutes don't exceed
  double peak = 0.0;
  Seconds peakTime = 0;       // the first minute that has the peak
  Seconds busiestHour = 0;    // the begin of the hour with the highest mean
  std::vector<double> hours;  // means, from the begin of the span on; NaN: no data
};

// A summary has at least one line, and lines of one figure are in the order of the graph that they come from.
struct Summary {
  std::string host;
  std::string system;
  int processors = 0;  // 0: unknown
  Seconds begin = 0;
  Seconds end = 0;
  int missing = 0;  // minutes of the span in holes that no graph bridges
  std::vector<SummaryLine> lines{};
};

// How many hours a span has; the last may be a part of one.
size_t HoursOf(Seconds begin, Seconds end);

// Takes the series as they are before anything was drawn of them: drawing sets both ends of a span to 0.
Summary SummaryOf(const DataDay& day);

}  // namespace ozmo::report
