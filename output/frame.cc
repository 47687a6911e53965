#include "output/frame.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "output/grapher_messages.h"
#include "output/label_text.h"
#include "output/libplot.h"

namespace ozmo {
namespace {

// An axis with fewer labels than this is hard to read.
constexpr int LABELS_MIN = 3;

struct PeriodForm {
  double spanMax;  // seconds, this one included
  const char* format;
};

constexpr std::array<PeriodForm, 3> PERIOD_FORMS = {{
    {86400.0, "%A, %d %B %Y"},
    {172800.0, "%B %Y, Week # %W"},
    {2592000.0, "%B %Y"},
}};

// Answers the size that libplot has taken.
double SetFont(double size) {
  pl_fontname(PLOT_FONT);
  return pl_ffontsize(size);
}

// Distance of a tick label from its edge.
double LabelOffset(const Grapher& grapher, const FrameBox& box) {
  return box.smallerSide * 0.75 * grapher.settings.tickSize;
}

double TickLength(const Grapher& grapher, const FrameBox& box) {
  return box.smallerSide * grapher.settings.tickSize;
}

double SubtickLength(const Grapher& grapher, const FrameBox& box) {
  return box.smallerSide * (0.4 * grapher.settings.tickSize);
}

bool HasBothSigns(const AxisMap& map) { return map.inputMin * map.inputMax < 0.0; }

// Calls `draw` with the value of each tick between the numbers that lies within the limits.
template <typename Draw>
void ForEachTick(const AxisMap& map, int first, int last, double spacing, Draw draw) {
  const double tolerance = map.inputRange * LIMIT_TOLERANCE;
  for (int64_t number = first; number <= last; ++number) {
    const double value = static_cast<double>(number) * spacing;
    if (value >= map.inputMin - tolerance && value <= map.inputMax + tolerance) draw(value);
  }
}

// Wipes an area of no size: what is drawn below a second frame has to stay.
void DrawBlankBox(const FrameBox& box) {
  const double x = 0.5 * (box.left + box.right);
  const double y = 0.5 * (box.bottom + box.top);
  pl_savestate();
  pl_colorname("white");
  pl_filltype(1);
  pl_fbox(x, y, x, y);
  pl_restorestate();
}

void DrawTitles(const Grapher& grapher, const FrameBox& box, const std::string& dateLine) {
  const PlotSettings& settings = grapher.settings;
  const double size = SetFont(box.smallerSide * settings.titleFontSize);
  const double tickRoom = 0.5 * settings.tickSize;
  const auto drawAt = [&](double height, const std::string& text) {
    pl_fmove(0.5 * (box.left + box.right),
             ((tickRoom + height) * settings.plotBoxHeight + settings.plotBoxUp) * DEVICE_SIZE + 0.65 * size);
    pl_alabel('c', 'b', text.c_str());
  };
  drawAt(1.08, LabelText(settings.title));
  drawAt(1.01, dateLine);
}

// A mark at both edges that a tick's value crosses, far edge first.
void DrawXMarks(const FrameBox& box, double x, double length) {
  pl_fline(x, box.top, x, box.top - length);
  pl_fline(x, box.bottom, x, box.bottom + length);
}

void DrawYMarks(const FrameBox& box, double y, double length) {
  pl_fline(box.right, y, box.right - length, y);
  pl_fline(box.left, y, box.left + length, y);
}

void DrawXTicks(Grapher& grapher, const FrameBox& box) {
  AxisState& axis = grapher.xAxis;
  const double offset = LabelOffset(grapher, box);
  const double length = TickLength(grapher, box);
  SetFont(box.smallerSide * grapher.settings.tickFontSize);
  ForEachTick(grapher.xMap, axis.firstTick, axis.lastTick, axis.tickSpacing, [&](double value) {
    const double x = AxisToDevice(grapher.xMap, value);
    pl_fmove(x, box.bottom - offset);
    pl_alabel('c', 't', ClockText(value).c_str());
    ++axis.labelledTicks;
    DrawXMarks(box, x, length);
  });
}

void DrawYTicks(Grapher& grapher, const FrameBox& box) {
  AxisState& axis = grapher.yAxis;
  const bool atRight = grapher.settings.yAxisAtRight;
  const double offset = LabelOffset(grapher, box);
  const double length = TickLength(grapher, box);
  SetFont(box.smallerSide * grapher.settings.tickFontSize);
  ForEachTick(grapher.yMap, axis.firstTick, axis.lastTick, axis.tickSpacing, [&](double value) {
    const double y = AxisToDevice(grapher.yMap, value);
    const std::string label = AxisValueLabel(axis, grapher.yMap, value);
    pl_fmove(atRight ? box.right + offset : box.left - offset, y);
    axis.maxLabelWidth = std::max(axis.maxLabelWidth, pl_flabelwidth(label.c_str()));
    pl_alabel(atRight ? 'l' : 'r', 'c', label.c_str());
    ++axis.labelledTicks;
    DrawYMarks(box, y, length);
  });
}

void DrawXSubticks(const Grapher& grapher, const FrameBox& box) {
  const AxisState& axis = grapher.xAxis;
  const double length = SubtickLength(grapher, box);
  ForEachTick(grapher.xMap, axis.firstSubtick, axis.lastSubtick, axis.subtickSpacing,
              [&](double value) { DrawXMarks(box, AxisToDevice(grapher.xMap, value), length); });
}

void DrawYSubticks(const Grapher& grapher, const FrameBox& box) {
  const AxisState& axis = grapher.yAxis;
  const double length = SubtickLength(grapher, box);
  ForEachTick(grapher.yMap, axis.firstSubtick, axis.lastSubtick, axis.subtickSpacing,
              [&](double value) { DrawYMarks(box, AxisToDevice(grapher.yMap, value), length); });
}

void DrawDottedLine(double x0, double y0, double x1, double y1) {
  pl_linemod("dotted");
  pl_fline(x0, y0, x1, y1);
  pl_linemod("solid");
}

void DrawXAxis(Grapher& grapher, const FrameBox& box) {
  DrawXTicks(grapher, box);
  if (grapher.xAxis.haveSubticks) DrawXSubticks(grapher, box);
  if (HasBothSigns(grapher.xMap)) {
    const double x = AxisToDevice(grapher.xMap, 0.0);
    DrawDottedLine(x, box.bottom, x, box.top);
  }
}

void DrawYAxis(Grapher& grapher, const FrameBox& box) {
  DrawYTicks(grapher, box);
  if (grapher.yAxis.haveSubticks) DrawYSubticks(grapher, box);
  if (HasBothSigns(grapher.yMap)) {
    const double y = AxisToDevice(grapher.yMap, 0.0);
    DrawDottedLine(box.left, y, box.right, y);
  }
}

void DrawYTitle(const Grapher& grapher, const FrameBox& box) {
  const PlotSettings& settings = grapher.settings;
  if (settings.yTitle.empty()) return;
  const double size = SetFont(box.smallerSide * settings.tickFontSize);
  const double offset = 0.5 * size + LabelOffset(grapher, box) + grapher.yAxis.maxLabelWidth * 1.15;
  const double middle = AxisToDevice(grapher.yMap, 0.5 * (grapher.yMap.inputMin + grapher.yMap.inputMax));
  const bool atRight = settings.yAxisAtRight;
  pl_fmove(atRight ? box.right + offset : box.left - offset, middle);
  pl_ftextangle(90.0);
  pl_alabel('c', atRight ? 't' : 'x', LabelText(settings.yTitle).c_str());
  pl_ftextangle(0.0);
}

void WarnOfFewLabels(Grapher& grapher) {
  const int labels = std::min(grapher.xAxis.labelledTicks, grapher.yAxis.labelledTicks);
  if (!grapher.tickWarningGiven && labels < LABELS_MIN) {
    GrapherWarn("too few labelled axis ticks, adjust tick spacing manually");
    grapher.tickWarningGiven = true;
  }
}

}  // namespace

FrameBox FrameBoxOf(const Grapher& grapher) {
  const auto edges = [](const AxisMap& map) {
    return std::minmax({AxisToDevice(map, map.inputMin), AxisToDevice(map, map.inputMax)});
  };
  const auto [left, right] = edges(grapher.xMap);
  const auto [bottom, top] = edges(grapher.yMap);
  const double smallerSide = std::min(grapher.xMap.outputRange, grapher.yMap.outputRange) * DEVICE_SIZE;
  return {left, right, bottom, top, smallerSide};
}

std::string PeriodText(Seconds start, double span) {
  for (const PeriodForm& form : PERIOD_FORMS) {
    if (span <= form.spanMax) return TimeFormat(start, form.format);
  }
  return TimeFormat(start, "%Y");
}

void GrapherDrawFrame(Grapher& grapher, const GraphJob& job, bool isSecond) {
  const PlotSettings& settings = grapher.settings;
  const FrameBox box = FrameBoxOf(grapher);
  pl_savestate();
  pl_pencolorname("black");
  pl_flinewidth(settings.frameLineWidth * DEVICE_SIZE);
  pl_linemod("solid");
  if (isSecond) DrawBlankBox(box);
  if (!settings.title.empty()) {
    DrawTitles(grapher, box, PeriodText(job.startTime, static_cast<double>(job.endTime - job.startTime)));
  }
  pl_fbox(box.left, box.bottom, box.right, box.top);
  DrawXAxis(grapher, box);
  DrawYAxis(grapher, box);
  DrawYTitle(grapher, box);
  pl_flushpl();
  pl_restorestate();
  WarnOfFewLabels(grapher);
}

}  // namespace ozmo
