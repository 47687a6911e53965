// The traces of a day as an export names them, and their points.
//
// A point has a trace's own value, as a CSV file of the tool shows it, with two decimals. Minutes without
// data have none: a store can say itself that a host was down, and a 0 would say that it idled.
#pragma once

#include <string>
#include <vector>

#include "programs/export/metrics.h"
#include "programs/report/data_day.h"

namespace ozmo::exporting {

// Texts are valid UTF-8 without control characters.
struct Trace {
  std::string item;
  std::string general;             // the item with DISK, ADAPTER or CPU-N for the name in it
  std::string subject;             // that name; empty: the item is of the whole host
  std::string label;               // without its rank and without the subject; no two of an item are equal
  std::string unit;                // the title of the y axis
  const Metric* metric = nullptr;  // null: the item has no name as a metric
  const XrtData* data = nullptr;   // of the catalog
  size_t set = 0;
};

// All traces of the catalog that have a label, in the order of its tree. `platform` is the word of its kind.
std::vector<Trace> TracesOf(GraphCatalog& catalog, std::string_view platform);

// The points that have data: an interval's, or on the line between two of them. Neither end of the span does.
std::vector<int> PointsOf(const GraphCatalog& catalog);

// The trace's own value at a point; NaN where the point is none of the trace.
double ValueAt(const Trace& trace, int point);

// Appends `value` with so many decimals at most, without zeros at their end. False, and nothing is appended,
// for what is no finite number.
bool AppendNumber(std::string& text, double value, int decimals);

}  // namespace ozmo::exporting
