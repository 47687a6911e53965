// The points of a pass: every point of every trace, each with its whole appearance, so that drawing is one
// walk over an array.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

#include "output/graph_job.h"
#include "output/plot_settings.h"

namespace ozmo {

struct PlotPoint {
  double x;
  double y;
  bool pendown;  // false at the first point of a trace
  bool useColor;
  int symbol;
  int lineMode;       // selects style and colour
  double symbolSize;  // of the smaller frame side
  const char* symbolFont;
  double lineWidth;     // of the device width
  double fillFraction;  // 1.0: filled; negative: not filled
};

struct PointDeleter {
  void operator()(PlotPoint* points) const { std::free(points); }
};

// Grows by doubling. It is the one array of the tool whose size no catalog limit bounds, so storage that
// can't be had is told by perror and ends the process with status 1.
struct PointArray {
  std::unique_ptr<PlotPoint[], PointDeleter> points;
  size_t capacity = 0;
  size_t count = 0;

  const PlotPoint* begin() const { return points.get(); }
  const PlotPoint* end() const { return points.get() + count; }
};

PointArray PointArrayNew(size_t capacity);
void PointArrayAdd(PointArray& array, const PlotPoint& point);

// Turns traces into points. Its settings run on from trace to trace of a pass.
struct PointReader {
  PlotSettings settings;
  double nextX = 0.0;
  bool firstTrace = true;  // no point of the pass has been read yet
  bool needBreak = true;   // the next point starts a polyline
};

// Which settings PointReaderAlter takes over; the others run on.
struct PointReaderChanges {
  bool symbol = false;
  bool symbolSize = false;
  bool symbolFont = false;
  bool lineMode = false;
  bool lineWidth = false;
  bool fillFraction = false;
  bool useColor = false;
};

// A reader at the start of a pass.
PointReader PointReaderNew(const PlotSettings& settings);

// Sets the reader to the start of another trace of the same pass.
void PointReaderAlter(PointReader& reader, const PlotSettings& settings, const PointReaderChanges& changes);

// Appends the pointCount points of a trace and ends the trace. The number behind the last trace of the main
// layer stands for the overlay.
void PointReadTrace(PointReader& reader, const GraphJob& job, PointArray& array, size_t trace);

// Back to the first x, and on to the next line mode.
void PointReaderEndTrace(PointReader& reader);

// Finds the limits that aren't given, from the points that lie within those that are. The last point of the
// array takes no part, and neither does a point that isn't a finite number. Without any point the limits are
// 0.
void ArrayBounds(const PointArray& array, AxisLimits& x, AxisLimits& y);

}  // namespace ozmo
