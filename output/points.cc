#include "output/points.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <utility>

#include "runtime/process_end.h"

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

PlotPoint NextPoint(PointReader& reader, float value) {
  const PlotSettings& settings = reader.settings;
  PlotPoint point;
  point.x = reader.nextX;
  point.y = static_cast<double>(value);
  point.pendown = !reader.needBreak && !reader.firstTrace;
  point.useColor = settings.useColor;
  point.symbol = settings.symbol;
  point.lineMode = settings.lineMode;
  point.symbolSize = settings.symbolSize;
  point.symbolFont = settings.symbolFont;
  point.lineWidth = settings.lineWidth;
  point.fillFraction = settings.fillFraction;
  reader.nextX += settings.pointStep;
  reader.needBreak = false;
  reader.firstTrace = false;
  return point;
}

}  // namespace

void* GrapherAllocate(size_t size) {
  void* const storage = std::malloc(std::max<size_t>(size, 1));
  if (storage == nullptr) {
    std::perror("malloc failed");
    EndProcess(1);
  }
  return storage;
}

void GrapherFree(void* storage) { std::free(storage); }

PointReader PointReaderNew(const PlotSettings& settings) {
  PointReader reader;
  reader.settings = settings;
  reader.nextX = settings.firstX;
  return reader;
}

void PointReaderAlter(PointReader& reader, const PlotSettings& settings, const PointReaderChanges& changes) {
  const auto take = [](bool changed, auto& target, const auto& source) {
    if (changed) target = source;
  };
  PlotSettings& own = reader.settings;
  own.automaticAbscissa = settings.automaticAbscissa;
  own.pointStep = settings.pointStep;
  own.firstX = settings.firstX;
  take(changes.symbol, own.symbol, settings.symbol);
  take(changes.symbolSize, own.symbolSize, settings.symbolSize);
  take(changes.symbolFont, own.symbolFont, settings.symbolFont);
  take(changes.lineMode, own.lineMode, settings.lineMode);
  take(changes.lineWidth, own.lineWidth, settings.lineWidth);
  take(changes.fillFraction, own.fillFraction, settings.fillFraction);
  take(changes.useColor, own.useColor, settings.useColor);
  reader.nextX = settings.firstX;
  reader.needBreak = true;
}

void PointReadTrace(PointReader& reader, std::span<const float> series, PointArray& array) {
  for (float value : series) array.push_back(NextPoint(reader, value));
  PointReaderEndTrace(reader);
}

void PointReaderEndTrace(PointReader& reader) {
  PlotSettings& settings = reader.settings;
  reader.needBreak = true;
  if (settings.automaticBump) settings.lineMode += settings.lineMode < 1 ? -1 : 1;
  if (settings.automaticAbscissa) reader.nextX = settings.firstX;
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
