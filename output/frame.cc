#include "output/frame.h"

#include <algorithm>
#include <array>
#include <cmath>
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

// Returns the size that libplot has taken.
double SetFont(const std::string& font, double size) {
  pl_fontname(font.c_str());
  return pl_ffontsize(size);
}

// Distance of a tick label from its edge. A tick that points outward is in the label's way.
double LabelOffset(const Grapher& grapher, const FrameBox& box) {
  const double tickSize = grapher.settings.tickSize;
  const double factor = tickSize < 0.0 ? 1.75 : 0.75;
  return box.smallerSide * factor * std::abs(tickSize) + grapher.halfLineWidth;
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

void DrawBlankBox(const Grapher& grapher, const FrameBox& box) {
  const PlotSettings& settings = grapher.settings;
  const bool ownBackground = settings.backgroundColour && pl_havecap("SETTABLE_BACKGROUND") != 0;
  const double middleX = 0.5 * (box.left + box.right);
  const double middleY = 0.5 * (box.bottom + box.top);
  const double halfWidth = 0.5 * (box.right - box.left) * settings.blankOutFraction;
  const double halfHeight = 0.5 * (box.top - box.bottom) * settings.blankOutFraction;
  pl_savestate();
  pl_colorname(ownBackground ? settings.backgroundColour->c_str() : "white");
  pl_filltype(1);
  pl_fbox(middleX - halfWidth, middleY - halfHeight, middleX + halfWidth, middleY + halfHeight);
  pl_restorestate();
}

void DrawTitles(const Grapher& grapher, const FrameBox& box, const std::string& dateLine) {
  const PlotSettings& settings = grapher.settings;
  const double size = SetFont(settings.titleFont, box.smallerSide * settings.titleFontSize);

  const bool outwardTicks = (settings.gridStyle == 1 || settings.gridStyle == 2) && settings.tickSize <= 0.0;
  const double tickRoom = std::abs(settings.tickSize) * (outwardTicks ? 1.0 : 0.5);
  const auto drawAt = [&](double height, const std::string& text) {
    pl_fmove(0.5 * (box.left + box.right),
             ((tickRoom + height) * settings.plotBoxHeight + settings.plotBoxUp) * DEVICE_SIZE + 0.65 * size +
                 grapher.halfLineWidth);
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
  const double length = box.smallerSide * grapher.settings.tickSize + grapher.halfLineWidth;
  SetFont(axis.font, box.smallerSide * axis.fontSize);
  ForEachTick(grapher.xMap, axis.firstTick, axis.lastTick, axis.tickSpacing, [&](double value) {
    const double x = AxisToDevice(grapher.xMap, value);
    const std::string label = AxisTimeLabel(value);
    if (grapher.yAxis.switchAxisEnd) {
      pl_fmove(x, box.top + offset);
      pl_alabel('c', 'b', label.c_str());
    } else {
      pl_fmove(x, box.bottom - offset);
      pl_alabel('c', 't', label.c_str());
    }
    ++axis.labelledTicks;
    DrawXMarks(box, x, length);
  });
}

void DrawYTicks(Grapher& grapher, const FrameBox& box) {
  AxisState& axis = grapher.yAxis;
  const bool atRight = grapher.xAxis.switchAxisEnd;
  const double offset = LabelOffset(grapher, box);
  const double length = box.smallerSide * grapher.settings.tickSize + grapher.halfLineWidth;
  SetFont(axis.font, box.smallerSide * axis.fontSize);
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
  const double length = box.smallerSide * grapher.subtickSize;
  ForEachTick(grapher.xMap, axis.firstSubtick, axis.lastSubtick, axis.subtickSpacing,
              [&](double value) { DrawXMarks(box, AxisToDevice(grapher.xMap, value), length); });
}

void DrawYSubticks(const Grapher& grapher, const FrameBox& box) {
  const AxisState& axis = grapher.yAxis;
  const double length = box.smallerSide * grapher.subtickSize;
  ForEachTick(grapher.yMap, axis.firstSubtick, axis.lastSubtick, axis.subtickSpacing,
              [&](double value) { DrawYMarks(box, AxisToDevice(grapher.yMap, value), length); });
}

void DrawDottedLine(double x0, double y0, double x1, double y1) {
  pl_linemod("dotted");
  pl_fline(x0, y0, x1, y1);
  pl_linemod("solid");
}

void DrawXAxis(Grapher& grapher, const FrameBox& box) {
  if (grapher.settings.gridStyle != 0 && !grapher.xAxis.omitTicks) {
    DrawXTicks(grapher, box);
    if (grapher.xAxis.haveSubticks) DrawXSubticks(grapher, box);
  }
  if (HasBothSigns(grapher.xMap)) {
    const double x = AxisToDevice(grapher.xMap, 0.0);
    DrawDottedLine(x, box.bottom, x, box.top);
  }
}

void DrawYAxis(Grapher& grapher, const FrameBox& box) {
  if (grapher.settings.gridStyle != 0 && !grapher.yAxis.omitTicks) {
    DrawYTicks(grapher, box);
    if (grapher.yAxis.haveSubticks) DrawYSubticks(grapher, box);
  }
  if (HasBothSigns(grapher.yMap)) {
    const double y = AxisToDevice(grapher.yMap, 0.0);
    DrawDottedLine(box.left, y, box.right, y);
  }
}

void DrawYTitle(const Grapher& grapher, const FrameBox& box) {
  const AxisState& axis = grapher.yAxis;
  if (axis.title.empty()) return;
  const double size = SetFont(axis.font, box.smallerSide * axis.fontSize);
  const double offset = 0.5 * size + LabelOffset(grapher, box) + axis.maxLabelWidth * 1.15;
  const double middle = AxisToDevice(grapher.yMap, 0.5 * (grapher.yMap.inputMin + grapher.yMap.inputMax));
  const bool atRight = grapher.xAxis.switchAxisEnd;
  pl_fmove(atRight ? box.right + offset : box.left - offset, middle);
  pl_ftextangle(90.0);
  pl_alabel('c', atRight ? 't' : 'x', LabelText(axis.title).c_str());
  pl_ftextangle(0.0);
}

void WarnOfFewLabels(Grapher& grapher) {
  const int labels = std::min(grapher.xAxis.labelledTicks, grapher.yAxis.labelledTicks);
  if (grapher.settings.gridStyle != 0 && !grapher.tickWarningGiven && labels < LABELS_MIN) {
    GrapherWarn("too few labelled axis ticks, adjust tick spacing manually");
    grapher.tickWarningGiven = true;
  }
}

}  // namespace

FrameBox FrameBoxOf(const Grapher& grapher) {
  const auto edges = [](const AxisMap& map, const AxisState& axis) {
    return std::minmax({AxisToDevice(map, axis.otherAxisLow), AxisToDevice(map, axis.otherAxisHigh)});
  };
  const auto [left, right] = edges(grapher.xMap, grapher.xAxis);
  const auto [bottom, top] = edges(grapher.yMap, grapher.yAxis);
  const double smallerSide = std::min(grapher.xMap.outputRange, grapher.yMap.outputRange) * DEVICE_SIZE;
  return {left, right, bottom, top, smallerSide};
}

std::string PeriodText(Seconds start, double span) {
  for (const PeriodForm& form : PERIOD_FORMS) {
    if (span <= form.spanMax) return TimeFormat(start, form.format);
  }
  return TimeFormat(start, "%Y");
}

void GrapherDrawFrame(Grapher& grapher, const GraphJob& job, bool blankOut) {
  const PlotSettings& settings = grapher.settings;
  const FrameBox box = FrameBoxOf(grapher);
  pl_savestate();
  pl_pencolorname(settings.frameColour.c_str());
  pl_flinewidth(settings.frameLineWidth * DEVICE_SIZE);
  pl_linemod("solid");
  if (blankOut) DrawBlankBox(grapher, box);
  if (settings.gridStyle != 0 && !grapher.yAxis.switchAxisEnd && !settings.title.empty()) {
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
