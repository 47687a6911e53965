#include "output/points.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <utility>

#include "runtime/times.h"

namespace ozmo {
namespace {

// The limits that points are measured against, and those that they widen.
struct Bounds {
  const AxisLimits& limits;
  double filterMin;
  double filterMax;
  double min = std::numeric_limits<double>::max();
  double max = std::numeric_limits<double>::lowest();

  explicit Bounds(const AxisLimits& axisLimits)
      : limits(axisLimits), filterMin(axisLimits.min), filterMax(axisLimits.max) {
    if (limits.minGiven && limits.maxGiven && filterMin > filterMax) std::swap(filterMin, filterMax);
  }

  bool Holds(double value) const {
    return std::isfinite(value) && !(limits.minGiven && value < filterMin) &&
           !(limits.maxGiven && value > filterMax);
  }

  void Widen(double value) {
    min = std::min(min, value);
    max = std::max(max, value);
  }
};

void WriteBounds(AxisLimits& limits, double min, double max) {
  if (!limits.minGiven) limits.min = min;
  if (!limits.maxGiven) limits.max = max;
}

void WriteEmptyBounds(AxisLimits& limits) { WriteBounds(limits, 0.0, limits.minGiven ? limits.min : 0.0); }

}  // namespace

void* GrapherAllocate(size_t size) {
  void* const storage = std::malloc(std::max<size_t>(size, 1));
  if (storage == nullptr) {
    std::perror("malloc failed");
    std::exit(1);
  }
  return storage;
}

void GrapherFree(void* storage) { std::free(storage); }

void AddTrace(PointArray& array, int trace, double firstX, std::span<const float> series) {
  double x = firstX;
  bool isFirst = true;
  for (const float value : series) {
    array.push_back({.x = x, .y = static_cast<double>(value), .pendown = !isFirst, .trace = trace});
    x += SECONDS_PER_MINUTE;
    isFirst = false;
  }
}

void ArrayBounds(const PointArray& array, AxisLimits& x, AxisLimits& y) {
  if (array.empty()) {
    WriteEmptyBounds(x);
    WriteEmptyBounds(y);
    return;
  }
  Bounds xBounds(x);
  Bounds yBounds(y);
  bool taken = false;
  for (const PlotPoint& point : std::span(array).first(array.size() - 1)) {
    if (!xBounds.Holds(point.x) || !yBounds.Holds(point.y)) continue;
    xBounds.Widen(point.x);
    yBounds.Widen(point.y);
    taken = true;
  }
  WriteBounds(x, taken ? xBounds.min : 0.0, taken ? xBounds.max : 0.0);
  WriteBounds(y, taken ? yBounds.min : 0.0, taken ? yBounds.max : 0.0);
}

}  // namespace ozmo
