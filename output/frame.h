// Everything on the page that isn't data: box, title, date line, ticks, tick labels, and the y title.
#pragma once

#include <string>

#include "output/graph_job.h"
#include "output/grapher.h"

namespace ozmo {

// The frame on the page, in device units.
struct FrameBox {
  double left = 0.0;
  double right = 0.0;
  double bottom = 0.0;
  double top = 0.0;
  double smallerSide = 0.0;  // what font and tick sizes are fractions of
};

FrameBox FrameBoxOf(const Grapher& grapher);

// The date line: the day, week, month or year of `start`, by the length of the span in seconds.
std::string PeriodText(Seconds start, double span);

// Draws the frame of a pass. `blankOut` wipes what lies in and around it first.
void GrapherDrawFrame(Grapher& grapher, const GraphJob& job, bool blankOut);

}  // namespace ozmo
