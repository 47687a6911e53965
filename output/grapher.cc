#include "output/grapher.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "output/grapher_messages.h"
#include "output/libplot.h"

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
  map.outputMax = outputMin + outputRange;
  return map;
}

AxisState MakeAxis(const PlotSettings& settings, const AxisLimits& limits) {
  AxisState axis = AxisPrepare(limits);
  axis.font = settings.tickFont;
  axis.fontSize = settings.tickFontSize;
  axis.otherAxisLow = limits.min;
  axis.otherAxisHigh = limits.max;
  return axis;
}

}  // namespace

void GrapherSetParameters(Grapher& grapher, const PlotSettings& settings, PlotLimits limits) {
  const bool xReversed = SettleLimits(limits.x, "x");
  const bool yReversed = SettleLimits(limits.y, "y");
  SettleSpacing(limits.x);
  SettleSpacing(limits.y);

  grapher.settings = settings;
  grapher.subtickSize = 0.4 * settings.tickSize;
  grapher.xAxis = MakeAxis(settings, limits.x);
  grapher.xAxis.switchAxisEnd = settings.switchXAxisEnd;
  grapher.xAxis.omitTicks = settings.omitXTicks;
  grapher.yAxis = MakeAxis(settings, limits.y);
  grapher.yAxis.title = settings.yTitle;
  grapher.yAxis.switchAxisEnd = settings.switchYAxisEnd;
  grapher.yAxis.omitTicks = settings.omitYTicks;
  grapher.xMap = MakeMap(limits.x, xReversed, settings.plotBoxRight, settings.plotBoxWidth);
  grapher.yMap = MakeMap(limits.y, yReversed, settings.plotBoxUp, settings.plotBoxHeight);

  const bool wideFrame = settings.frameLineWidth >= 0.0 && pl_havecap("WIDE_LINES") != 0;
  grapher.halfLineWidth = wideFrame ? 0.5 * settings.frameLineWidth * DEVICE_SIZE : 0.0;
  grapher.firstPointOfPolyline = true;
  grapher.lastX = 0.0;
  grapher.lastY = 0.0;
}

}  // namespace ozmo
