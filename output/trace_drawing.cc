#include "output/trace_drawing.h"

#include <array>
#include <cmath>

#include "output/libplot.h"
#include "runtime/numbers.h"

namespace ozmo {
namespace {

// An empty name gives libplot's default, which is solid.
constexpr std::array<const char*, STYLE_ROWS> LINE_STYLES = {
    "solid", "dotted", "dotdashed", "shortdashed", "longdashed", "", ""};

// Two ends that each leave over two sides need four moves; more mean that rounding leads nowhere.
constexpr int CLIP_MOVES_MAX = 8;

constexpr double FILL_LEVELS = 65534.0;

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

int GrapherClipLine(const Grapher& grapher, double& x0, double& y0, double& x1, double& y1) {
  int code0 = GrapherClipCode(grapher, x0, y0);
  int code1 = GrapherClipCode(grapher, x1, y1);
  int result = CLIP_ACCEPTED;
  for (int moves = 0; (code0 | code1) != 0; ++moves) {
    if ((code0 & code1) != 0 || moves == CLIP_MOVES_MAX) return CLIP_REJECTED;
    if (code0 != 0) {
      MoveToLimit(grapher, code0, x0, y0, x1, y1);
      code0 = GrapherClipCode(grapher, x0, y0);
      result |= CLIP_FIRST_MOVED;
    } else {
      MoveToLimit(grapher, code1, x1, y1, x0, y0);
      code1 = GrapherClipCode(grapher, x1, y1);
      result |= CLIP_SECOND_MOVED;
    }
  }
  return result;
}

void GrapherSetLineStyle(const Grapher& grapher, int mode, bool useColor) {
  const int row = mode - 1;
  if (mode >= 1) {
    const int style = useColor ? (row / STYLE_ROWS) % STYLE_ROWS : row % STYLE_ROWS;
    pl_linemod(LINE_STYLES[static_cast<size_t>(style)]);
  }
  if (!useColor) {
    pl_colorname(grapher.settings.frameColour.c_str());
    return;
  }
  const int colourRow = mode >= 1 ? row % STYLE_ROWS : mode == 0 ? 0 : (-mode - 1) % (STYLE_ROWS - 1);
  const std::optional<std::string>& colour = grapher.settings.colours[static_cast<size_t>(colourRow)];
  // Libplot takes a null name and leaves both colours as they were.
  pl_colorname(colour ? colour->c_str() : nullptr);
}

int GrapherFillType(double fillFraction) {
  return fillFraction < 0.0 ? 0 : ClampTo<int>(std::round(FILL_LEVELS * (1.0 - fillFraction))) + 1;
}

void GrapherPlotPoint(Grapher& grapher, const PlotPoint& point) {
  if (!point.pendown || grapher.firstPointOfPolyline) {
    GrapherSetLineStyle(grapher, point.lineMode, point.useColor);
    pl_flinewidth(DEVICE_SIZE * point.lineWidth);
    pl_filltype(GrapherFillType(point.fillFraction));
  }

  double x0 = grapher.lastX;
  double y0 = grapher.lastY;
  double x1 = point.x;
  double y1 = point.y;
  grapher.lastX = point.x;
  grapher.lastY = point.y;
  const int clipped = GrapherClipLine(grapher, x0, y0, x1, y1);
  if (clipped == CLIP_REJECTED) {
    MoveTo(grapher, point.x, point.y);
    return;
  }

  const bool firstMoved = (clipped & CLIP_FIRST_MOVED) != 0;
  const bool secondMoved = (clipped & CLIP_SECOND_MOVED) != 0;
  const bool penUp = !point.pendown || point.lineMode < 1;
  if (penUp || (firstMoved && secondMoved) || grapher.firstPointOfPolyline) {
    MoveTo(grapher, point.x, point.y);
  } else {
    if (firstMoved) MoveTo(grapher, x0, y0);
    ContinueTo(grapher, x1, y1);
  }
  grapher.firstPointOfPolyline = false;
  if (secondMoved) return;
  if (point.lineMode > 0) {
    // Error bars would come between these two; minute values have none.
    pl_savestate();
    pl_restorestate();
  }
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
