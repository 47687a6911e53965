#include "programs/export/traces.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <set>

#include "programs/report/text.h"
#include "runtime/text.h"

namespace ozmo::exporting {
namespace {

// A title or label with runs of blanks as one, and none at its ends.
std::string OneBlank(std::string_view text) {
  std::string result;
  while (!(text = SkipBlanks(text)).empty()) {
    if (!result.empty()) result += ' ';
    result += TakeWord(text);
  }
  return result;
}

// "#0  NAME" or "0. NAME" without the rank.
std::string_view WithoutRank(std::string_view label) {
  std::string_view rest = label;
  const bool hasSign = rest.starts_with('#');
  if (hasSign) rest.remove_prefix(1);
  const size_t digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
  rest.remove_prefix(digits);
  if (!hasSign && !rest.starts_with('.')) return label;
  if (!hasSign) rest.remove_prefix(1);
  return digits > 0 && rest.starts_with(' ') ? SkipBlanks(rest) : label;
}

// Names the traces of a catalog, row by row of its tree.
class TraceList {
 public:
  TraceList(GraphCatalog& catalog, std::string_view platform) : platform_(platform) {
    for (const GraphRecord& record : catalog.runtimeRecords) made_.insert(&record);
    AddTable(catalog.itemTree, "");
  }
  std::vector<Trace> Take() { return std::move(traces_); }

 private:
  void AddTable(const std::vector<GraphMenuEntry>& table, const std::string& parent) {
    for (const GraphMenuEntry& row : table) {
      if (row.record != nullptr) AddRecord(*row.record, row.label, parent);
      AddTable(row.subTable, row.label);
    }
  }

  void AddRecord(const GraphRecord& record, const std::string& rowLabel, const std::string& parent) {
    Trace trace;
    trace.item = report::CleanText(record.title);
    trace.general = record.title;
    trace.unit = report::CleanText(record.yTitle);
    trace.data = &record.data;
    std::string subject;
    if (made_.contains(&record)) {
      // The graphs of a disk or adapter are below a row of its name; that of a processor has the name itself.
      const bool isBelowName = record.title.find(parent) != std::string::npos;
      subject = isBelowName ? parent : rowLabel;
      const std::string_view word = !isBelowName ? "CPU-N" : record.title == parent ? "ADAPTER" : "DISK";
      const size_t at = record.title.find(subject);
      if (at != std::string::npos) trace.general.replace(at, subject.size(), word);
    }
    trace.subject = report::CleanText(subject);
    trace.metric = FindMetric(trace.general, record.yTitle, platform_);
    for (int set = 0; set < record.data.nsets(); ++set) {
      if (!record.Label(set)) continue;  // counted on, and never seen
      trace.set = static_cast<size_t>(set);
      trace.label = report::CleanText(LabelOf(*record.Label(set), subject, trace.metric));
      MakeUnique(trace);
      traces_.push_back(trace);
    }
  }

  static std::string LabelOf(std::string_view label, std::string_view subject, const Metric* metric) {
    if (metric != nullptr && metric->isRanked) label = WithoutRank(label);
    if (!subject.empty() && label.size() > subject.size() && label.starts_with(subject) &&
        label[subject.size()] == ' ') {
      label.remove_prefix(subject.size());
    }
    return OneBlank(label);
  }

  // An image may be called "Others", and two disks have names that differ by what can't be shown.
  void MakeUnique(Trace& trace) {
    const std::string plain = trace.label;
    const auto key = [&] { return trace.item + '\0' + trace.unit + '\0' + trace.label; };
    for (int number = 2; !taken_.insert(key()).second; ++number) {
      trace.label = plain + " (" + std::to_string(number) + ")";
    }
  }

  std::string_view platform_;
  std::set<const GraphRecord*> made_;  // at run time
  std::set<std::string> taken_;
  std::vector<Trace> traces_;
};

}  // namespace

std::vector<Trace> TracesOf(GraphCatalog& catalog, std::string_view platform) {
  return TraceList(catalog, platform).Take();
}

std::vector<int> PointsOf(const GraphCatalog& catalog) {
  std::vector<int> points;
  for (int point = 1; point < catalog.pointCount; ++point) {
    if (PointAt(catalog.extent.held, point) != MISSING_POINT) points.push_back(point);
  }
  return points;
}

double ValueAt(const Trace& trace, int point) {
  if (point + 1 >= trace.data->npoints) return std::numeric_limits<double>::quiet_NaN();
  const float sum = PointAt(trace.data->y[trace.set], point);
  const bool isLast = trace.set + 1 == trace.data->y.size();
  return static_cast<double>(isLast ? sum : sum - PointAt(trace.data->y[trace.set + 1], point));
}

bool AppendNumber(std::string& text, double value, int decimals) {
  if (!std::isfinite(value)) return false;
  std::array<char, 400> digits;  // the largest double has 309 before the point
  const auto [end, error] =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, decimals);
  std::string_view number(digits.data(), static_cast<size_t>(end - digits.data()));
  number = number.substr(0, number.find_last_not_of('0') + 1);
  if (number.ends_with('.')) number.remove_suffix(1);
  text += number == "-0" ? "0" : number;
  return true;
}

}  // namespace ozmo::exporting
