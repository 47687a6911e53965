// The points of a layer: every point of every trace, so that drawing is one walk over an array.
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
  int trace;     // number of its trace in the layer, from 0: selects style and colour
};

// Storage for `size` bytes. The grapher tells for itself what it can't have: "malloc failed" by perror, and
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

// Appends a trace: its points stand a minute apart from `firstX` on, in seconds since 1970.
void AddTrace(PointArray& array, int trace, double firstX, std::span<const float> series);

// Finds the limits that aren't given, from the points that lie within those that are. The last point of the
// array takes no part, and neither does a point that isn't a finite number. Without any point the limits are
// 0.
void ArrayBounds(const PointArray& array, AxisLimits& x, AxisLimits& y);

}  // namespace ozmo
