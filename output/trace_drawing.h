// Drawing of traces: polylines clipped at the frame, filled or not.
//
// A path ends where the next one starts: the move to a trace's first point makes libplot finish the path
// before it, and fill it. A filled path is closed from its end to its start; both lie on the axis.
#pragma once

#include "output/grapher.h"
#include "output/points.h"

namespace ozmo {

// Where a point lies outside the limits, as bits; 0 inside. A small tolerance counts as inside.
inline constexpr int CLIP_ABOVE = 1;
inline constexpr int CLIP_BELOW = 2;
inline constexpr int CLIP_RIGHT = 4;
inline constexpr int CLIP_LEFT = 8;

// Results of GrapherClipLine; the moved bits come on top of CLIP_ACCEPTED.
inline constexpr int CLIP_REJECTED = 0;
inline constexpr int CLIP_ACCEPTED = 1;
inline constexpr int CLIP_FIRST_MOVED = 2;
inline constexpr int CLIP_SECOND_MOVED = 4;

int GrapherClipCode(const Grapher& grapher, double x, double y);

// Cuts a segment at the limits and writes its ends back.
int GrapherClipLine(const Grapher& grapher, double& x0, double& y0, double& x1, double& y1);

// Line style and colour of a line mode: seven colours with solid lines, the same seven with dotted ones, and
// so on.
void GrapherSetLineStyle(const Grapher& grapher, int mode, bool useColor);

// Libplot's fill type of a fraction: 1 is the full colour, 65535 white, 0 no filling.
int GrapherFillType(double fillFraction);

// Draws from the stored last point to this one.
void GrapherPlotPoint(Grapher& grapher, const PlotPoint& point);

// All points in array order. A point that isn't a finite number is left out; the polyline goes on after it.
void GrapherPlotPoints(Grapher& grapher, const PointArray& array);

}  // namespace ozmo
