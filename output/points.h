// The points of a layer: every point of every trace, each with its whole appearance, so that drawing is one
// walk over an array.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

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

// Storage for `size` bytes. The grapher reports what it can't have itself: "malloc failed" by perror, and
// the process ends with status 1.
void* GrapherAllocate(size_t size);
void GrapherFree(void* storage);

template <class Value>
struct GrapherAllocator {
  using value_type = Value;

  GrapherAllocator() = default;
  template <class Other>
  explicit GrapherAllocator(const GrapherAllocator<Other>& /*other*/) {}

  Value* allocate(size_t count) { return static_cast<Value*>(GrapherAllocate(count * sizeof(Value))); }
  void deallocate(Value* values, size_t /*count*/) { GrapherFree(values); }

  bool operator==(const GrapherAllocator& /*other*/) const { return true; }
};

using PointArray = std::vector<PlotPoint, GrapherAllocator<PlotPoint>>;

// Turns traces into points. Its settings run on from trace to trace of a layer.
struct PointReader {
  PlotSettings settings;
  double nextX = 0.0;
  bool firstTrace = true;  // no point of the layer has been read yet
  bool needBreak = true;   // the next point starts a polyline
};

// Which settings PointReaderAlter takes over; the others run on. No option reaches them: all run on.
struct PointReaderChanges {
  bool symbol = false;
  bool symbolSize = false;
  bool symbolFont = false;
  bool lineMode = false;
  bool lineWidth = false;
  bool fillFraction = false;
  bool useColor = false;
};

// A reader at the start of a layer.
PointReader PointReaderNew(const PlotSettings& settings);

// Sets the reader to the start of another trace of the same layer.
void PointReaderAlter(PointReader& reader, const PlotSettings& settings, const PointReaderChanges& changes);

// Appends the points of a trace and ends the trace.
void PointReadTrace(PointReader& reader, std::span<const float> series, PointArray& array);

// Back to the first x, and on to the next line mode.
void PointReaderEndTrace(PointReader& reader);

// Finds the limits that aren't given, from the points that lie within those that are. The last point of the
// array takes no part, and neither does a point that isn't a finite number. Without any point the limits are
// 0.
void ArrayBounds(const PointArray& array, AxisLimits& x, AxisLimits& y);

}  // namespace ozmo
