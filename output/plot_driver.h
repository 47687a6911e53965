// Draws a graph job as a PostScript, GIF or JPEG file: one pass, or two where the job has an overlay, which
// is drawn over the main graph as a line with its own axis at the right.
#pragma once

#include "output/graph_job.h"

namespace ozmo {

// Returns 0, or 1 when the plot device can't be opened or closed (a line on standard error says so). What the
// grapher can't draw at all, and a file that can't be opened, ends the process with a message and status 1.
int PlotGraphJob(const GraphJob& job);

}  // namespace ozmo
