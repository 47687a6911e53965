// The catalog: what one run knows about one data file, a tree of named graphs over one time span.
//
// Every graph is a GraphRecord: fixed texts plus one float series a trace, one value a minute. Point i of a
// series is the minute spanStart + i * 60; point 0 never holds data. After the walk the traces of a record
// are stacked: set 0 holds the sum of all sets, the last set itself.
//
// A catalog may be built for some of its graphs only. The others have their place in the tree and no series.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "catalog/graph.h"
#include "catalog/graph_name.h"
#include "runtime/times.h"

namespace ozmo {

// A minute without a sample.
inline constexpr float MISSING_POINT = -1.0F;

using Series = std::vector<float>;

// The y arrays of a graph, index = set number. Every array has at least `npoints` values.
struct XrtData {
  int npoints = 0;
  std::vector<Series> y;
  int nsets() const { return static_cast<int>(y.size()); }
};

struct GraphRecord {
  std::string title;  // the item name: what -item is matched against, and the heading of the plot
  std::string yTitle;
  float yMin = 0.0F;         // no option reaches it: every axis begins at 0
  float yMax = 0.0F;         // fixed top of the y axis; 0: the top comes from the data
  std::string legendFormat;  // no option reaches it: no output has a legend of values
  // By set number; shorter than the set count where the rest has none.
  std::vector<std::optional<std::string>> traceLabels;
  std::vector<std::optional<std::string>> traceColours;
  XrtData data;
  bool isNeeded = true;  // for the graphs that the catalog is built for; else it gets no series
  bool isView = false;   // see views.h

  void SetLabel(int set, std::string label);
  void SetColour(int set, std::string colour);
  const std::optional<std::string>& Label(int set) const;   // absent beyond the end
  const std::optional<std::string>& Colour(int set) const;  // absent beyond the end
};

// One row of a tree table: a graph row (record set) or a group row (record null). Only graph rows of titles
// are keys; codes and labels are for a menu.
struct GraphMenuEntry {
  std::string code;
  std::string label;
  GraphRecord* record = nullptr;  // owned by the catalog
  std::vector<GraphMenuEntry> subTable;
};

// Colours of a record whose traces come at run time, by set number; sets from 16 on have none.
std::span<const char* const> Palette();

// Sets that a record has room for where processors make them.
inline constexpr int MAX_SETS = 128;

// What a walk found in a span: it sets an idle host apart from a file without data, and an idle minute from
// one without a sample.
struct WalkExtent {
  int intervals = 0;   // used
  int firstPoint = 0;  // the lowest that an interval fell on
  int lastPoint = 0;   // the highest
  int maxGap = 0;      // points at most so far apart had the hole between them bridged
  Series held;         // 1 at points with a value, of an interval or of a bridge; MISSING_POINT at others
};

// The storage of a catalog's series. A request for more than one can reasonably have, such as a span without
// a begin, ends the run as a failed allocation does (NOALLOC, exit status 0), without trying.
class SeriesBudget {
 public:
  // Counts `count` more series of `points` values each. The limit is 2 GiB; a negative number of points is
  // beyond it as well.
  void Take(int64_t count, int64_t points);

 private:
  int64_t bytes_ = 0;  // so far
};

struct GraphCatalog {
  Seconds spanStart = 0;
  Seconds spanEnd = 0;
  WalkExtent extent;
  int pointCount = 0;                               // minute points: the span in minutes plus 2
  std::vector<std::optional<GraphRecord>> records;  // by Graph; absent where the platform has no such graph
  std::deque<GraphRecord> runtimeRecords;           // of disks, adapters, processors: addresses are stable
  std::deque<GraphRecord> viewRecords;              // see views.h; the same
  std::vector<GraphMenuEntry> itemTree;
  // The rows whose sub-tables fill at run time, by RowKind; null where the platform has no such row.
  std::array<GraphMenuEntry*, ROW_KIND_COUNT> runtimeRows{};
  Series overlayScratch;  // selection puts the overlay trace here
  WantedTitles titles = WantedTitles::All();
  SeriesBudget budget;

  GraphCatalog() = default;
  GraphCatalog(const GraphCatalog&) = delete;  // rows point to records
  GraphCatalog& operator=(const GraphCatalog&) = delete;

  // The record of `graph`, or null where the platform has none.
  GraphRecord* Find(Graph graph);
  const GraphRecord* Find(Graph graph) const;
  // The same where somebody needs it, else null.
  GraphRecord* FindNeeded(Graph graph);
  // The row whose sub-table fills at run time (DISKS, ADAPTERS, PROCESSORS), or null.
  GraphMenuEntry* RuntimeRow(RowKind kind) { return runtimeRows[static_cast<size_t>(kind)]; }
  // Series of a set, or null where the platform lacks the graph or the record the set.
  Series* FindSeries(Graph graph, int set);
  const Series* FindSeries(Graph graph, int set) const;
  // Stores a value; nothing happens where the platform or the record lacks the graph, set or point.
  void Store(Graph graph, int set, int point, float value);
};

// Single points of a series. A time stamp outside the span gives a point outside the series: reading it
// gives MISSING_POINT, writing it does nothing.
inline bool PointInside(const Series& series, int point) {
  return point >= 0 && static_cast<size_t>(point) < series.size();
}
inline float PointAt(const Series& series, int point) {
  return PointInside(series, point) ? series[static_cast<size_t>(point)] : MISSING_POINT;
}
inline void PointStore(Series& series, int point, float value) {
  if (PointInside(series, point)) series[static_cast<size_t>(point)] = value;
}
// Adds to a sum, which counts as 0 while it is missing.
inline void FeedSum(float& sum, float value) {
  if (sum == MISSING_POINT) sum = 0.0F;
  sum += value;
}
inline void PointFeed(Series& series, int point, float value) {
  if (PointInside(series, point)) FeedSum(series[static_cast<size_t>(point)], value);
}

// A series of `pointCount` + 1 values, all MISSING_POINT, counted in the budget.
Series SeriesNew(GraphCatalog& catalog);

// Gives the record `nsets` missing series of `pointCount` + 1 values.
void XrtSeriesCreate(GraphCatalog& catalog, GraphRecord& record, int nsets);

// One more missing series; returns its set number.
int XrtSeriesAdd(GraphCatalog& catalog, GraphRecord& record);

// Fills holes of at most `maxGap` - 1 missing points by a straight line. The last `maxGap` points can't act
// as right ends.
void SeriesBridgeGaps(Series& series, int points, int maxGap);

// The same for all series of each graph row of the tree.
void GraphBridgeGaps(std::vector<GraphMenuEntry>& table, int points, int maxGap);

// For each graph row of the tree: negatives become 0 and each set becomes the sum of itself and all sets
// after it.
void GraphStackTraces(std::vector<GraphMenuEntry>& table);

// Runs `visit` on the record of each graph row, in table order, a sub-table before the next row.
template <class Visit>
void VisitGraphs(std::vector<GraphMenuEntry>& table, Visit visit) {
  for (GraphMenuEntry& row : table) {
    if (row.record != nullptr) visit(*row.record);
    VisitGraphs(row.subTable, visit);
  }
}

}  // namespace ozmo
