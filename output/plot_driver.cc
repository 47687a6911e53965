#include "output/plot_driver.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "output/frame.h"
#include "output/grapher.h"
#include "output/grapher_messages.h"
#include "output/jpeg.h"
#include "output/legend.h"
#include "output/libplot.h"
#include "output/plot_device.h"
#include "output/points.h"
#include "output/trace_drawing.h"

namespace ozmo {
namespace {

// Seconds between the ticks of the time axis: the first that makes fewer than TIME_TICKS_MAX parts.
constexpr std::array<double, 10> TIME_SPACINGS = {300.0,   600.0,   1800.0,  3600.0,  7200.0,
                                                  10800.0, 21600.0, 43200.0, 86400.0, 604800.0};
constexpr double TIME_TICKS_MAX = 9.0;

// A layer that is ready to be drawn.
struct PlotPass {
  PlotSettings settings;
  PlotLimits limits;
  PointArray points;
};

// The top of the y axis. One that no axis can have, from an infinite value in the data, is worked out again
// from the values that are drawn.
double TopOf(const Layer& layer) {
  if (std::isfinite(layer.yMax)) return layer.yMax;
  float peak = 0.0F;
  for (float value : layer.traces.front().series) {
    if (std::isfinite(value)) peak = std::max(peak, value);
  }
  return AxisTopOf(peak);
}

// What is known ahead of the points: where time ends, and how high the values go.
PlotLimits LimitsOf(const GraphJob& job, const Layer& layer) {
  PlotLimits limits;
  limits.x.max = static_cast<double>(job.endTime);
  limits.x.maxGiven = true;
  limits.y.min = layer.yMin;
  limits.y.max = TopOf(layer);
  limits.y.maxGiven = true;
  return limits;
}

PointArray PointsOf(const GraphJob& job, const Layer& layer) {
  PointArray points;
  points.reserve(layer.traces.size() * static_cast<size_t>(std::max(job.pointCount, 0)));
  int number = 0;
  for (const LayerTrace& trace : layer.traces) {
    AddTrace(points, number++, static_cast<double>(job.startTime), trace.series);
  }
  return points;
}

PlotPass PassOf(const GraphJob& job, const Layer& layer, PlotSettings settings) {
  return {std::move(settings), LimitsOf(job, layer), PointsOf(job, layer)};
}

// Traces are filled areas, in the colours of the table by their number.
PlotSettings MainSettings(const GraphJob& job) {
  const Layer& layer = job.mainLayer;
  PlotSettings settings;
  settings.title = layer.title;
  settings.yTitle = layer.yTitle;
  for (size_t row = 0; row < std::min(layer.traces.size(), settings.colours.size()); ++row) {
    settings.colours[row] = layer.traces[row].colour;
  }
  return settings;
}

// A line over the areas of the main layer, with an axis of its own at the right.
PlotSettings OverlaySettings(const GraphJob& job) {
  PlotSettings settings = MainSettings(job);
  settings.yAxisAtRight = true;
  settings.isFilled = false;
  settings.yTitle = job.overlay->yTitle;
  settings.colours[0] = OVERLAY_COLOUR;
  return settings;
}

double TimeSpacing(double span) {
  const auto* const found = std::find_if(TIME_SPACINGS.begin(), TIME_SPACINGS.end(),
                                         [span](double spacing) { return span / spacing < TIME_TICKS_MAX; });
  return found == TIME_SPACINGS.end() ? TIME_SPACINGS.back() : *found;
}

// From the first to the last minute of the job, with ticks at round clock times.
void SetTimeAxis(const GraphJob& job, AxisLimits& x) {
  x.min = static_cast<double>(job.startTime);
  x.max = static_cast<double>(job.endTime);
  x.minGiven = true;
  x.maxGiven = true;
  x.spacing = TimeSpacing(x.max - x.min);
  x.spacingGiven = true;
}

void DrawPass(Grapher& grapher, const GraphJob& job, const PlotPass& pass, bool isMain) {
  pl_savestate();
  pl_fconcat(1.0, 0.0, 0.0, 1.0, 0.0, 0.0);
  GrapherDrawFrame(grapher, job, !isMain);
  GrapherPlotPoints(grapher, pass.points);
  if (isMain) GrapherDrawLegend(grapher, job);
  pl_restorestate();
}

// Opens the page and draws the graph of the job with the whole key. Under an overlay the x axis is left to
// what the points say: the time axis belongs to the layer on top. False when there is no page to draw on.
bool DrawMainLayer(Grapher& grapher, PlotDevice& device, const GraphJob& job) {
  PlotPass pass = PassOf(job, job.mainLayer, MainSettings(job));
  ArrayBounds(pass.points, pass.limits.x, pass.limits.y);
  if (!job.overlay) SetTimeAxis(job, pass.limits.x);
  GrapherSetParameters(grapher, pass.settings, pass.limits);
  if (!GrapherOpen(device, job)) {
    GrapherError("couldn't open plot device");
    return false;
  }
  DrawPass(grapher, job, pass, true);
  return true;
}

void DrawOverlayLayer(Grapher& grapher, const GraphJob& job) {
  PlotPass pass = PassOf(job, *job.overlay, OverlaySettings(job));
  ArrayBounds(pass.points, pass.limits.x, pass.limits.y);
  SetTimeAxis(job, pass.limits.x);
  GrapherSetParameters(grapher, pass.settings, pass.limits);
  DrawPass(grapher, job, pass, false);
}

bool FinishPlot(PlotDevice& device, const GraphJob& job) {
  if (!GrapherClose(device)) {
    GrapherError("could not close plot device");
    return false;
  }
  if (job.graphType == GraphType::JPEG) JpegFinish(*device.map, job);
  return true;
}

}  // namespace

bool PlotGraphJob(const GraphJob& job) {
  GrapherSetBitmapSize(BitmapSizeOf(job));
  Grapher grapher;
  PlotDevice device;
  if (!DrawMainLayer(grapher, device, job)) return false;
  if (job.overlay) DrawOverlayLayer(grapher, job);
  return FinishPlot(device, job);
}

}  // namespace ozmo
