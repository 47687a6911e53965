// Drawing of traces: polylines clipped at the frame, filled or not.
//
// A path ends where the next one starts: the move to a trace's first point makes libplot finish the path
// before it, and fill it. A filled path is closed from its end to its start; both lie on the axis.
#pragma once

#include <optional>

#include "output/grapher.h"
#include "output/points.h"

namespace ozmo {

// Where a point lies outside the limits, as bits; 0 inside. A small tolerance counts as inside.
inline constexpr int CLIP_ABOVE = 1;
inline constexpr int CLIP_BELOW = 2;
inline constexpr int CLIP_RIGHT = 4;
inline constexpr int CLIP_LEFT = 8;

struct Segment {
  double x0;
  double y0;
  double x1;
  double y1;
};

// The part of a segment within the limits.
struct ClippedSegment {
  Segment part;
  bool isFirstMoved = false;  // the segment begins outside
  bool isSecondMoved = false;
};

int GrapherClipCode(const Grapher& grapher, double x, double y);

// Cuts a segment at the limits; absent if all of it lies outside.
std::optional<ClippedSegment> GrapherClipLine(const Grapher& grapher, const Segment& segment);

// Line style and colour of a trace by its number: seven colours with solid lines, the same seven with dotted
// ones, and so on.
void GrapherSetLineStyle(const Grapher& grapher, int trace);

// Draws from the stored last point to this one.
void GrapherPlotPoint(Grapher& grapher, const PlotPoint& point);

// All points in array order. A point that isn't a finite number is left out; the polyline goes on behind it.
void GrapherPlotPoints(Grapher& grapher, const PointArray& array);

}  // namespace ozmo
