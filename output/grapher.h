// The state of the grapher: a small plotting engine with one frame, which draws through libplot. A plot owns
// one Grapher; each of its passes starts with GrapherSetParameters, and the drawing steps read what that
// has settled.
#pragma once

#include "output/axes.h"
#include "output/plot_settings.h"

namespace ozmo {

struct Grapher {
  PlotSettings settings;  // of the present pass
  AxisMap xMap;
  AxisMap yMap;
  AxisState xAxis;
  AxisState yAxis;
  double subtickSize = 0.0;    // of the smaller frame side
  double halfLineWidth = 0.0;  // half the frame's line, in device units

  // How far the present polyline has come.
  bool firstPointOfPolyline = true;
  double lastX = 0.0;
  double lastY = 0.0;

  bool tickWarningGiven = false;  // once a plot, not once a pass
};

// Takes over the settings of a pass and lays out both axes. Limits in falling order make a reversed axis;
// equal limits are moved apart with a message; a spacing of zero ends the process with a message.
void GrapherSetParameters(Grapher& grapher, const PlotSettings& settings, PlotLimits limits);

}  // namespace ozmo
