#include "programs/fleet/limit.h"

#include <charconv>
#include <cmath>
#include <functional>
#include <string_view>

#include "output/number_text.h"
#include "programs/fleet/table.h"
#include "runtime/text.h"

namespace ozmo::fleet {
namespace {

using report::FigureRow;
using report::Summary;
using report::SummaryLine;

constexpr std::string_view MISSING_WORD = "missing";

struct Comparison {
  std::string_view word;
  bool (*isOver)(double value, double bound);
};
// The longer words first: "<" begins "<=" too.
constexpr Comparison COMPARISONS[] = {
    {">=", [](double value, double bound) { return value >= bound; }},
    {"<=", [](double value, double bound) { return value <= bound; }},
    {">", [](double value, double bound) { return value > bound; }},
    {"<", [](double value, double bound) { return value < bound; }},
};

struct StatisticWord {
  std::string_view word;
  double SummaryLine::*member;
};
constexpr StatisticWord STATISTICS[] = {
    {"mean", &SummaryLine::mean}, {"p95", &SummaryLine::p95}, {"peak", &SummaryLine::peak}};

std::optional<report::Figure> FigureOfWord(std::string_view word) {
  for (const FigureRow& row : report::FigureRows()) {
    if (row.word == word) return row.figure;
  }
  return std::nullopt;
}

// Fills what is limited: "cpu p95", "missing".
bool TakeWhat(Limit& limit, std::string_view words) {
  const std::string_view first = TakeWord(words);
  const std::string_view second = TakeWord(words);
  if (!SkipBlanks(words).empty()) return false;
  if (first == MISSING_WORD) return second.empty();
  limit.figure = FigureOfWord(first);
  for (const StatisticWord& statistic : STATISTICS) {
    if (statistic.word == second) limit.statistic = statistic.member;
  }
  return limit.figure && limit.statistic != nullptr;
}

bool TakeBound(Limit& limit, std::string_view text) {
  text = TrimText(text);
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), limit.bound);
  return error == std::errc() && end == text.data() + text.size() && std::isfinite(limit.bound);
}

}  // namespace

std::string LimitForm() {
  std::string figures;
  for (const FigureRow& row : report::FigureRows()) {
    figures.append(figures.empty() ? "" : ", ").append(row.word);
  }
  return "a figure (" + figures +
         "), mean, p95 or peak, a comparison and a number, as \"cpu p95 > 90\", or \"missing > 60\"";
}

std::optional<Limit> LimitOf(const std::string& text) {
  const std::string_view whole = text;
  for (const Comparison& comparison : COMPARISONS) {
    const size_t place = whole.find(comparison.word);
    if (place == std::string_view::npos) continue;
    Limit limit;
    limit.text = text;
    limit.isOver = comparison.isOver;
    const bool isWhole = TakeWhat(limit, whole.substr(0, place)) &&
                         TakeBound(limit, whole.substr(place + comparison.word.size()));
    return isWhole ? std::optional(limit) : std::nullopt;
  }
  return std::nullopt;
}

std::vector<std::string> LinesOver(const Limit& limit, const Summary& summary) {
  std::vector<std::string> lines;
  const auto hold = [&](double value, const std::string& whose, const std::string& when) {
    if (!limit.isOver(value, limit.bound)) return;
    lines.push_back(summary.host + ", " + DayText(summary) + ": " + limit.text + ": " + whose +
                    NumberText(value, limit.figure ? 2 : 0) + when);
  };
  if (!limit.figure)
    hold(summary.missing, "", summary.missing == 1 ? " minute without data" : " minutes without data");
  for (const SummaryLine& line : summary.lines) {
    if (line.figure != limit.figure) continue;
    const std::string when = limit.statistic == &SummaryLine::peak ? "at " : "busiest from ";
    const Seconds time = limit.statistic == &SummaryLine::peak ? line.peakTime : line.busiestHour;
    hold(line.*limit.statistic, line.name.empty() ? "" : line.name + ' ',
         ' ' + std::string(RowOf(line.figure).unit) + ", " + when + TimeFormat(time, "%H:%M"));
  }
  return lines;
}

}  // namespace ozmo::fleet
