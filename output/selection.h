// Finds the graph and the overlay trace that a request names, and prepares their series for drawing.
//
// The series belong to the catalog and are changed in place. The catalog has stacked them: set 0 holds the
// sum of all traces, the last set the last trace alone.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "catalog/model.h"
#include "output/graph_job.h"

namespace ozmo {

// The record of the first graph row, depth first, whose title is `name`; null when there is none.
GraphRecord* FindGraphRecord(const std::vector<GraphMenuEntry>& table, std::string_view name);

// The layer of a main graph with at least one set. Sets every trace to 0 at its first and last point, so that
// each filled band closes on the axis, and negatives of set 0 to 0.
Overlay PrepareMainOverlay(GraphRecord& record);

// The layer of a trace of another graph: its own value, taken out of the stack into the catalog's scratch
// series.
struct OverlaySelection {
  std::optional<Overlay> overlay;
  const char* failure = nullptr;  // what to report when there is none
};

// The part of an overlay's name that names the graph: all before the first "@".
std::string_view OverlayGraphName(std::string_view name);

// `name` has the form "graph name@trace label". `mainRecord` is the graph that the trace is drawn over.
OverlaySelection SelectOverlay(GraphCatalog& catalog, const GraphRecord& mainRecord, std::string_view name);

}  // namespace ozmo
