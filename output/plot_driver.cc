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

struct PlotRun {
  const GraphJob& job;
  PlotSettings settings;
  PlotLimits given;    // what is known of the limits ahead of a pass
  PlotLimits working;  // those of the present pass
  PointReader reader;
  PointArray points;
  Grapher grapher;
  PlotDevice device;
  bool opened = false;

  explicit PlotRun(const GraphJob& graphJob) : job(graphJob) {}
};

// The top of the y axis. One that no axis can have, from an infinite value in the data, is worked out again
// from the values that are drawn.
double TopOf(const Overlay& overlay, int pointCount) {
  if (std::isfinite(overlay.yMax)) {
    return overlay.yMax;
  }
  float peak = 0.0F;
  for (int point = 0; point < pointCount; ++point) {
    const float value = overlay.traces.front().series[point];
    if (std::isfinite(value)) {
      peak = std::max(peak, value);
    }
  }
  return peak > 0.0F ? 1.1 * static_cast<double>(peak) : 1.0;
}

void TakeYLimits(PlotRun& run, const Overlay& overlay) {
  run.given.y.min = overlay.yMin;
  run.given.y.max = TopOf(overlay, run.job.pointCount);
  run.given.y.maxGiven = true;
}

void TakeColours(PlotRun& run) {
  const std::vector<OverlayTrace>& traces = run.job.mainOverlay.traces;
  for (size_t row = 0; row < std::min(traces.size(), run.settings.colours.size()); ++row) {
    run.settings.colours[row] = traces[row].colour;
  }
}

PlotRun StartRun(const GraphJob& job) {
  PlotRun run(job);
  run.settings.firstX = static_cast<double>(job.startTime);
  run.settings.title = job.mainOverlay.title;
  run.settings.yTitle = job.mainOverlay.yTitle;
  TakeColours(run);
  run.given.x.max = static_cast<double>(job.endTime);
  run.given.x.maxGiven = true;
  TakeYLimits(run, job.mainOverlay);
  return run;
}

void ChangeToOverlay(PlotRun& run) {
  const Overlay& overlay = *run.job.additionalOverlay;
  run.settings.blankOutFraction = 0.0;
  run.settings.switchXAxisEnd = !run.settings.switchXAxisEnd;
  run.settings.fillFraction = -1.0;
  run.settings.yTitle = overlay.yTitle;
  run.settings.symbol = 0;
  run.settings.colours[0] = "orange";
  TakeYLimits(run, overlay);
}

void StartGraph(PlotRun& run) {
  const size_t pointCount = static_cast<size_t>(std::max(run.job.pointCount, 0));
  const size_t traceCount = run.job.mainOverlay.traces.size();
  run.working = run.given;
  run.points =
      PointArrayNew(run.job.additionalOverlay ? pointCount * (traceCount + 1) : pointCount * traceCount + 1);
  run.reader = PointReaderNew(run.settings);
}

double TimeSpacing(double span) {
  const auto* const found = std::find_if(TIME_SPACINGS.begin(), TIME_SPACINGS.end(),
                                         [span](double spacing) { return span / spacing < TIME_TICKS_MAX; });
  return found == TIME_SPACINGS.end() ? TIME_SPACINGS.back() : *found;
}

// Gives the x axis of the last pass its final form.
void SetTimeAxis(PlotRun& run) {
  AxisLimits& x = run.working.x;
  ArrayBounds(run.points, x, run.working.y);
  x.min = static_cast<double>(run.job.startTime);
  x.max = static_cast<double>(run.job.endTime);
  x.minGiven = true;
  x.maxGiven = true;
  x.spacing = TimeSpacing(x.max - x.min);
  x.spacingGiven = true;
}

// Draws what has been read. Returns 0, or 1 when there is no plot to draw on.
int DrawPass(PlotRun& run, bool withLegend) {
  const bool firstPass = !run.opened;
  GrapherSetParameters(run.grapher, run.settings, run.working);
  if (firstPass) {
    if (GrapherOpen(run.device, run.job, run.settings) < 0) {
      GrapherError("couldn't open plot device");
      return 1;
    }
    run.opened = true;
  }
  pl_savestate();
  pl_fconcat(1.0, 0.0, 0.0, 1.0, 0.0, 0.0);
  GrapherDrawFrame(run.grapher, run.job, !firstPass);
  GrapherPlotPoints(run.grapher, run.points);
  if (withLegend) {
    GrapherDrawLegend(run.grapher, run.job);
  }
  run.points = {};
  pl_restorestate();
  return 0;
}

// The main graph under an overlay: its x axis is left to what the points say.
int DrawMainPass(PlotRun& run) {
  ArrayBounds(run.points, run.working.x, run.working.y);
  return DrawPass(run, true);
}

int DrawLastPass(PlotRun& run) {
  SetTimeAxis(run);
  return DrawPass(run, !run.job.additionalOverlay);
}

int FinishPlot(PlotRun& run) {
  if (GrapherClose(run.device) < 0) {
    GrapherError("could not close plot device");
    return 1;
  }
  if (run.job.graphType == GraphType::JPEG) {
    JpegFinish(run.job.graphFile);
  }
  return 0;
}

}  // namespace

int PlotGraphJob(const GraphJob& job) {
  PlotRun run = StartRun(job);
  GrapherSetBitmapSize(BitmapSizeOf(job));

  const size_t traceCount = job.mainOverlay.traces.size();
  const size_t traceTotal = traceCount + (job.additionalOverlay ? 1 : 0);
  for (size_t trace = 0; trace < traceTotal; ++trace) {
    const bool overlay = trace == traceCount;
    if (overlay) {
      if (DrawMainPass(run) != 0) {
        return 1;
      }
      ChangeToOverlay(run);
    }
    if (trace == 0 || overlay) {
      StartGraph(run);
    } else {
      PointReaderAlter(run.reader, run.settings, {});
    }
    PointReadTrace(run.reader, job, run.points, trace);
  }
  return DrawLastPass(run) != 0 ? 1 : FinishPlot(run);
}

}  // namespace ozmo
