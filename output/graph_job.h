// The graph to write: the only thing that the writers read.
//
// Series are the arrays of the catalog, not copies. A stacked trace is cumulative: set 0 is the sum of
// all sets, and a trace's own value is the difference of two neighbours.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "runtime/file_identity.h"
#include "runtime/times.h"

namespace ozmo {

enum class GraphType { CSV = 0, POSTSCRIPT = 1, GIF = 2, JPEG = 3 };
enum class SizeUnit { INCHES = 0, CENTIMETRES = 1, PIXELS = 3 };

// One trace of a layer.
struct OverlayTrace {
  // Absent for a set that was counted on and never seen: a table heads its column "(null)", a plot's key
  // shows the box without a text.
  std::optional<std::string> label;
  // A libplot colour name; absent where the record has no style for the set.
  std::optional<std::string> colour;
  std::span<const float> series;  // GraphJob::pointCount points, which belong to the catalog
};

// One plotted layer: the graph of -item, or the single trace of -overlay.
struct Overlay {
  std::string title;
  std::string yTitle;
  double yMin = 0.0;  // always, as in GraphRecord
  double yMax = 0.0;  // top of the y axis
  std::vector<OverlayTrace> traces;
};

// A y axis goes somewhat higher than its values.
inline constexpr double AXIS_HEADROOM = 1.1;

// The top of a y axis for values up to `peak`; 1 where nothing rises above 0.
inline double AxisTopOf(float peak) { return peak > 0.0F ? AXIS_HEADROOM * static_cast<double>(peak) : 1.0; }

// The own value of a stacked trace: its sum less the next trace's. The difference is one of floats: it may
// show the rounding of the sums, as "-0.00" does.
inline float OwnValue(const Overlay& overlay, size_t set, size_t point) {
  const float sum = overlay.traces[set].series[point];
  return set + 1 == overlay.traces.size() ? sum : sum - overlay.traces[set + 1].series[point];
}

// The size of a picture that no option gives another.
inline constexpr double PAGE_WIDTH_INCHES = 11.0;
inline constexpr double PAGE_HEIGHT_INCHES = 8.5;

struct GraphJob {
  Overlay mainOverlay;
  std::optional<Overlay> additionalOverlay;
  GraphType graphType = GraphType::CSV;
  Seconds startTime = 0;  // of point 0
  Seconds endTime = 0;    // of the last point: points are one minute apart
  SizeUnit sizeUnit = SizeUnit::INCHES;
  int pointCount = 0;
  double width = 0.0;
  double height = 0.0;
  std::string graphFile;
  std::vector<FileIdentity> inputs;  // files that the run reads and must not write
  std::string hostName;
  bool hasOwnMap = false;  // a JPEG's bitmap has no name, so that several can be drawn at a time

  // Points from `start` on, which set both ends of the span.
  void SetSpan(Seconds start, int points) {
    startTime = start;
    pointCount = points;
    endTime = TimeOfPoint(points) - SECONDS_PER_MINUTE;
  }
  Seconds TimeOfPoint(int point) const { return startTime + point * SECONDS_PER_MINUTE; }
};

}  // namespace ozmo
