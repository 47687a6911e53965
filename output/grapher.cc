#include "output/grapher.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "output/grapher_messages.h"

namespace ozmo {
namespace {

// Puts the limits into rising order and apart. Returns whether they came in falling order.
bool SettleLimits(AxisLimits& limits, const std::string& axisName) {
  if (limits.min > limits.max) {
    std::swap(limits.min, limits.max);
    return true;
  }
  if (limits.min == limits.max) {
    GrapherWarn("separating identical upper and lower " + axisName + " limits");
    // 1.0, or more where a double has no digit left for it.
    const double step = std::max(1.0, std::abs(limits.max) * 1e-15);
    limits.max += step;
    limits.min -= step;
  }
  return false;
}

void SettleSpacing(AxisLimits& limits) {
  if (!limits.spacingGiven) return;
  if (limits.spacing == 0.0) GrapherFail("zero spacing between ticks on an axis");
  limits.spacing = std::abs(limits.spacing);
}

AxisMap MakeMap(const AxisLimits& limits, bool reversed, double outputMin, double outputRange) {
  AxisMap map;
  map.inputMin = limits.min;
  map.inputMax = limits.max;
  map.inputRange = limits.max - limits.min;
  map.reversed = reversed;
  map.outputMin = outputMin;
  map.outputRange = outputRange;
  return map;
}

}  // namespace

void GrapherSetParameters(Grapher& grapher, const PlotSettings& settings, PlotLimits limits) {
  const bool xReversed = SettleLimits(limits.x, "x");
  const bool yReversed = SettleLimits(limits.y, "y");
  SettleSpacing(limits.x);
  SettleSpacing(limits.y);

  grapher.settings = settings;
  grapher.xAxis = AxisPrepare(limits.x);
  grapher.yAxis = AxisPrepare(limits.y);
  grapher.xMap = MakeMap(limits.x, xReversed, settings.plotBoxRight, settings.plotBoxWidth);
  grapher.yMap = MakeMap(limits.y, yReversed, settings.plotBoxUp, settings.plotBoxHeight);
  grapher.firstPointOfPolyline = true;
  grapher.lastX = 0.0;
  grapher.lastY = 0.0;
}

}  // namespace ozmo
