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

// What a limit looks like, for the user.
std::string LimitForm();

// Absent for a text that is no limit. Blanks don't matter around a comparison.
std::optional<Limit> LimitOf(const std::string& text);

// A line for each figure of the host that is over the limit: "forge, 2012-02-22: disk sda p95 is 93.10, over
// ...".
std::vector<std::string> LinesOver(const Limit& limit, const report::Summary& summary);

}  // namespace ozmo::fleet
