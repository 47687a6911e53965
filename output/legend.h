// The coloured key under the frame: a row of cells, each a box in a trace's colour and the trace's label.
#pragma once

#include <cstddef>

#include "output/graph_job.h"
#include "output/grapher.h"

namespace ozmo {

struct LegendLayout {
  int columns = 0;    // cells in a row; 0: the longest label leaves no room for one
  double cell = 0.0;  // width of a cell, of the device
  double left = 0.0;  // margin, of the device
};

// Cells for `count` labels of at most `longest` bytes at a font size in device units. Few cells are centred;
// very many are packed closer than the others.
LegendLayout LegendPlan(int fontSize, size_t longest, int count);

// Draws the key for all traces of the main layer and for the overlay. Nothing checks that it fits: a long
// key runs down past the page. A label too long for even one column ends the process with a message.
void GrapherDrawLegend(const Grapher& grapher, const GraphJob& job);

}  // namespace ozmo
