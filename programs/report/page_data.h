// What a page shows of a day: figures and points of every graph, as plain data.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "programs/report/data_day.h"
#include "programs/report/items.h"
#include "programs/report/series.h"

namespace ozmo::report {

// The points of all traces take at most this many bytes of a page.
inline constexpr size_t LARGEST_CHARTS = size_t{24} << 20;

struct PageTrace {
  std::string label;  // empty where the trace has none
  std::string colour;
  TraceFigures figures;
  std::string points;  // see EncodeSeries; empty in a graph without a chart
};

struct PageGraph {
  std::string heading;
  std::string unit;
  double top = 0.0;  // of the y axis; 0: it follows the data
  std::vector<PageTrace> traces;
  bool hasChart = false;  // false: the page has no room for the points, figures only
  bool named = true;      // ozmo_graph's -item finds it
  bool view = false;      // it has no such graph at all
  int scale = 100;  // the points count in such parts of 1; less than 100 only for large values of a view
};

struct PageSection {
  std::string label;
  int level = 1;
  bool runTime = false;
  std::vector<PageGraph> graphs;
};

struct PageData {
  std::string node;
  std::string system;
  std::string file;  // its name without the directory
  Seconds start = 0;
  int pointCount = 0;
  int firstPoint = 0;  // the part of the span that the file covers; figures are of its points
  int lastPoint = 0;
  int intervals = 0;
  std::vector<PageSection> sections;
  std::vector<std::string> problems;  // met while reading
  std::vector<std::string> notes;     // what else a reader should know
  int graphs = 0;
  int graphsWithoutChart = 0;
};

// Points go to the graphs of the static tree first, then to disks, adapters and processors, the busiest first
// (by the mean of their first graph), until `room` is used up.
PageData PageDataOf(const DataDay& day, const std::vector<Section>& sections, size_t room = LARGEST_CHARTS);

// A figure as a page shows it, with the two decimals of a CSV file.
std::string FigureText(double value);

}  // namespace ozmo::report
