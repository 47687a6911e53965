// The graph to write: the only thing that the writers read.
//
// Series are the arrays of the catalog, not copies. A stacked trace is cumulative: set 0 is the sum of
// all sets, and a trace's own value is the difference of two neighbours.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "runtime/run_request.h"
#include "runtime/times.h"

namespace ozmo {

// One trace of a layer. The points, at least GraphJob::pointCount of them, belong to the catalog.
struct OverlayTrace {
  // Absent for a set that was counted on and never seen: a table heads its column "(null)", a plot's key
  // shows the box without a text.
  std::optional<std::string> label;
  std::optional<std::string>
      colour;  // a libplot colour name; absent where the record has no style for the set
  const float* series = nullptr;
};

// One plotted layer: the graph of -item, or the single trace of -overlay.
struct Overlay {
  std::string title;
  std::string yTitle;
  double yMin = 0.0;
  double yMax = 0.0;  // top of the y axis
  std::vector<OverlayTrace> traces;
};

struct GraphJob {
  Overlay mainOverlay;
  std::optional<Overlay> additionalOverlay;
  GraphType graphType = GraphType::CSV;
  Seconds startTime = 0;  // of point 0
  Seconds endTime = 0;    // startTime + (pointCount - 1) * 60: points are one minute apart
  SizeUnit sizeUnit = SizeUnit::INCHES;
  int pointCount = 0;
  double width = 0.0;
  double height = 0.0;
  std::string graphFile;
  std::string hostName;
};

}  // namespace ozmo
