#include "output/plot_driver.h"

#include <algorithm>
#include <cmath>

#include "output/axes.h"
#include "output/frame.h"
#include "output/grapher.h"
#include "output/grapher_messages.h"
#include "output/legend.h"
#include "output/libplot.h"
#include "output/output_type.h"
#include "output/plot_device.h"
#include "output/points.h"
#include "output/trace_drawing.h"

namespace ozmo {
namespace {

// A layer that is ready to be drawn.
struct PlotPass {
  PlotSettings settings;
  PlotLimits limits;
  PointArray points;
};

// The top of the y axis. One that no axis can have, from an infinite value in the data, is worked out again
// from the values that are drawn.
double TopOf(const Overlay& layer) {
  if (std::isfinite(layer.yMax)) return layer.yMax;
  float peak = 0.0F;
  for (float value : layer.traces.front().series) {
    if (std::isfinite(value)) peak = std::max(peak, value);
  }
  return AxisTopOf(peak);
}

// What is known before the points: where time ends, and how high the values go.
PlotLimits LimitsOf(const GraphJob& job, const Overlay& layer) {
  PlotLimits limits;
  limits.x.max = static_cast<double>(job.endTime);
  limits.x.maxGiven = true;
  limits.y.min = layer.yMin;
  limits.y.max = TopOf(layer);
  limits.y.maxGiven = true;
  return limits;
}

PointArray PointsOf(const Overlay& layer, const PlotSettings& settings, int pointCount) {
  PointArray points;
  points.reserve(layer.traces.size() * static_cast<size_t>(std::max(pointCount, 0)));
  PointReader reader = PointReaderNew(settings);
  for (const OverlayTrace& trace : layer.traces) {
    if (!points.empty()) PointReaderAlter(reader, settings, {});
    PointReadTrace(reader, trace.series, points);
  }
  return points;
}

PlotPass PassOf(const GraphJob& job, const Overlay& layer, PlotSettings settings) {
  PointArray points = PointsOf(layer, settings, job.pointCount);
  return {std::move(settings), LimitsOf(job, layer), std::move(points)};
}

// Traces are filled areas, in the colours of the table by their number.
PlotSettings MainSettings(const GraphJob& job) {
  const Overlay& layer = job.mainOverlay;
  PlotSettings settings;
  settings.firstX = static_cast<double>(job.startTime);
  settings.title = layer.title;
  settings.yTitle = layer.yTitle;
  for (size_t row = 0; row < std::min(layer.traces.size(), settings.colours.size()); ++row) {
    settings.colours[row] = layer.traces[row].colour;
  }
  return settings;
}

// A line over the areas of the main layer, which must not be wiped out, with an axis of its own at the right.
PlotSettings OverlaySettings(const GraphJob& job) {
  PlotSettings settings = MainSettings(job);
  settings.blankOutFraction = 0.0;
  settings.switchXAxisEnd = !settings.switchXAxisEnd;
  settings.fillFraction = -1.0;
  settings.yTitle = job.additionalOverlay->yTitle;
  settings.symbol = 0;
  settings.colours[0] = OVERLAY_COLOUR;
  return settings;
}

// From the first to the last minute of the job, with ticks at round clock times.
void SetTimeAxis(const GraphJob& job, AxisLimits& x) {
  x.min = static_cast<double>(job.startTime);
  x.max = static_cast<double>(job.endTime);
  x.minGiven = true;
  x.maxGiven = true;
  x.spacing = AxisTimeSpacing(x.max - x.min);
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
// what the points say: the time axis belongs to the layer on top. Returns 0, or 1 when there is no page to
// draw on.
int DrawMainLayer(Grapher& grapher, PlotDevice& device, const GraphJob& job) {
  PlotPass pass = PassOf(job, job.mainOverlay, MainSettings(job));
  ArrayBounds(pass.points, pass.limits.x, pass.limits.y);
  if (!job.additionalOverlay) SetTimeAxis(job, pass.limits.x);
  GrapherSetParameters(grapher, pass.settings, pass.limits);
  if (GrapherOpen(device, job, pass.settings) < 0) {
    GrapherError("couldn't open plot device");
    return 1;
  }
  DrawPass(grapher, job, pass, true);
  return 0;
}

void DrawOverlayLayer(Grapher& grapher, const GraphJob& job) {
  PlotPass pass = PassOf(job, *job.additionalOverlay, OverlaySettings(job));
  ArrayBounds(pass.points, pass.limits.x, pass.limits.y);
  SetTimeAxis(job, pass.limits.x);
  GrapherSetParameters(grapher, pass.settings, pass.limits);
  DrawPass(grapher, job, pass, false);
}

int FinishPlot(PlotDevice& device, const GraphJob& job) {
  if (GrapherClose(device) < 0) {
    GrapherError("could not close plot device");
    return 1;
  }
  if (device.map) OutputTypeOf(job.graphType).finishMap(*device.map, job);
  return 0;
}

}  // namespace

int PlotGraphJob(const GraphJob& job) {
  GrapherSetBitmapSize(BitmapSizeOf(job));
  Grapher grapher;
  PlotDevice device;
  if (DrawMainLayer(grapher, device, job) != 0) return 1;
  if (job.additionalOverlay) DrawOverlayLayer(grapher, job);
  return FinishPlot(device, job);
}

}  // namespace ozmo
