// Limits that hosts are held against: "cpu p95 > 90".
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "programs/report/summary.h"

namespace ozmo::fleet {

struct Limit {
  std::string text;
  std::optional<report::Figure> figure;  // absent: the minutes without data
  double report::SummaryLine::*statistic = nullptr;
  bool (*isOver)(double value, double bound) = nullptr;
  double bound = 0.0;
};

inline constexpr const char* LIMIT_FORM =
    "a figure (cpu, memory, disk, response, filesystem, adapter, image), mean, p95 or peak, a comparison and "
    "a "
    "number, as \"cpu p95 > 90\", or \"missing > 60\"";

// Absent for a text that is no limit. Blanks don't matter around a comparison.
std::optional<Limit> LimitOf(const std::string& text);

// A line for each figure of the host that is over the limit: "forge, 2012-02-22: disk sda p95 is 93.10, over
// ...".
std::vector<std::string> LinesOver(const Limit& limit, const report::Summary& summary);

}  // namespace ozmo::fleet
