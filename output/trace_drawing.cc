#include "output/trace_drawing.h"

#include <array>
#include <cmath>

#include "output/libplot.h"

namespace ozmo {
namespace {

// An empty name gives libplot's default, which is solid.
constexpr std::array<const char*, STYLE_ROWS> LINE_STYLES = {
    "solid", "dotted", "dotdashed", "shortdashed", "longdashed", "", ""};

// Two ends that each leave over two sides need four moves; more mean that rounding leads nowhere.
constexpr int CLIP_MOVES_MAX = 8;

// Moves the end (x, y), which lies outside by `code`, along the segment to the limit.
void MoveToLimit(const Grapher& grapher, int code, double& x, double& y, double otherX, double otherY) {
  const AxisMap& xMap = grapher.xMap;
  const AxisMap& yMap = grapher.yMap;
  if ((code & (CLIP_RIGHT | CLIP_LEFT)) != 0) {
    const double limit = (code & CLIP_RIGHT) != 0 ? xMap.inputMax : xMap.inputMin;
    y += (otherY - y) * (limit - x) / (otherX - x);
    x = limit;
  } else {
    const double limit = (code & CLIP_ABOVE) != 0 ? yMap.inputMax : yMap.inputMin;
    x += (otherX - x) * (limit - y) / (otherY - y);
    y = limit;
  }
}

void MoveTo(const Grapher& grapher, double x, double y) {
  pl_fmove(AxisToDevice(grapher.xMap, x), AxisToDevice(grapher.yMap, y));
}

void ContinueTo(const Grapher& grapher, double x, double y) {
  pl_fcont(AxisToDevice(grapher.xMap, x), AxisToDevice(grapher.yMap, y));
}

}  // namespace

int GrapherClipCode(const Grapher& grapher, double x, double y) {
  const AxisMap& xMap = grapher.xMap;
  const AxisMap& yMap = grapher.yMap;
  const double xMargin = LIMIT_TOLERANCE * xMap.inputRange;
  const double yMargin = LIMIT_TOLERANCE * yMap.inputRange;
  int code = 0;
  if (x > xMap.inputMax + xMargin) {
    code |= CLIP_RIGHT;
  } else if (x < xMap.inputMin - xMargin) {
    code |= CLIP_LEFT;
  }
  if (y > yMap.inputMax + yMargin) {
    code |= CLIP_ABOVE;
  } else if (y < yMap.inputMin - yMargin) {
    code |= CLIP_BELOW;
  }
  return code;
}

std::optional<ClippedSegment> GrapherClipLine(const Grapher& grapher, const Segment& segment) {
  ClippedSegment clipped{segment};
  auto& [x0, y0, x1, y1] = clipped.part;
  int code0 = GrapherClipCode(grapher, x0, y0);
  int code1 = GrapherClipCode(grapher, x1, y1);
  for (int moves = 0; (code0 | code1) != 0; ++moves) {
    if ((code0 & code1) != 0 || moves == CLIP_MOVES_MAX) return std::nullopt;
    if (code0 != 0) {
      MoveToLimit(grapher, code0, x0, y0, x1, y1);
      code0 = GrapherClipCode(grapher, x0, y0);
      clipped.isFirstMoved = true;
    } else {
      MoveToLimit(grapher, code1, x1, y1, x0, y0);
      code1 = GrapherClipCode(grapher, x1, y1);
      clipped.isSecondMoved = true;
    }
  }
  return clipped;
}

void GrapherSetLineStyle(const Grapher& grapher, int trace) {
  const auto row = static_cast<size_t>(trace);
  pl_linemod(LINE_STYLES[row / STYLE_ROWS % STYLE_ROWS]);
  const std::optional<std::string>& colour = grapher.settings.colours[row % STYLE_ROWS];
  // Libplot takes a null name and leaves both colours as they stood.
  pl_colorname(colour ? colour->c_str() : nullptr);
}

void GrapherPlotPoint(Grapher& grapher, const PlotPoint& point) {
  if (!point.pendown || grapher.firstPointOfPolyline) {
    GrapherSetLineStyle(grapher, point.trace);
    pl_flinewidth(DEVICE_SIZE * grapher.settings.lineWidth);
    pl_filltype(grapher.settings.isFilled ? 1 : 0);
  }

  const std::optional<ClippedSegment> clipped =
      GrapherClipLine(grapher, {grapher.lastX, grapher.lastY, point.x, point.y});
  grapher.lastX = point.x;
  grapher.lastY = point.y;
  if (!clipped) {
    MoveTo(grapher, point.x, point.y);
    return;
  }
  const bool isCutTwice = clipped->isFirstMoved && clipped->isSecondMoved;
  if (!point.pendown || isCutTwice || grapher.firstPointOfPolyline) {
    MoveTo(grapher, point.x, point.y);
  } else {
    if (clipped->isFirstMoved) MoveTo(grapher, clipped->part.x0, clipped->part.y0);
    ContinueTo(grapher, clipped->part.x1, clipped->part.y1);
  }
  grapher.firstPointOfPolyline = false;
  if (clipped->isSecondMoved) return;
  // Error bars would stand between these two; minute values have none.
  pl_savestate();
  pl_restorestate();
}

void GrapherPlotPoints(Grapher& grapher, const PointArray& array) {
  bool startLost = false;  // the point that was to start the polyline has been left out
  for (PlotPoint point : array) {
    startLost = startLost || !point.pendown;
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) continue;
    point.pendown = !startLost;
    GrapherPlotPoint(grapher, point);
    startLost = false;
  }
}

}  // namespace ozmo
