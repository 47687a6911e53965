// The arithmetic of the two axes: how a value reaches the device, where ticks are, and what their labels
// say. The x axis is a time axis: its values are seconds since 1970, its labels show the clock. The y axis
// is numeric. Nothing here draws.
#pragma once

#include <string>

#include "output/plot_settings.h"

namespace ozmo {

// From data values to the device.
struct AxisMap {
  double inputMin = 0.0;
  double inputMax = 1.0;
  double inputRange = 1.0;
  bool reversed = false;     // the limits came in falling order
  double outputMin = 0.0;    // frame edge, of the device
  double outputMax = 1.0;    // outputMin + outputRange
  double outputRange = 1.0;  // frame size, of the device
};

// Tick layout and texts of one axis.
struct AxisState {
  std::string font;       // of the tick labels
  double fontSize = 0.0;  // of the smaller frame side
  std::string title;
  double tickSpacing = 0.0;  // a labelled tick is at number * tickSpacing
  int firstTick = 0;
  int lastTick = -1;
  bool haveSubticks = false;  // unlabelled ticks are drawn
  double subtickSpacing = 0.0;
  int firstSubtick = 0;
  int lastSubtick = -1;
  double otherAxisLow = 0.0;  // the values of the frame's edges
  double otherAxisHigh = 0.0;
  bool switchAxisEnd = false;  // the axis that crosses this one is at the far side
  bool omitTicks = false;
  double maxLabelWidth = 0.0;  // widest tick label drawn so far, in device units
  int labelledTicks = 0;       // labels drawn so far
};

// What a spacing is a multiple of, next to a power of ten: it settles the subticks.
enum class SpacingType { ONE = 0, TWO = 1, FIVE = 2, TWO_AND_A_HALF = 3, OTHER = -2 };

struct AxisSpacing {
  double spacing = 0.0;
  SpacingType type = SpacingType::OTHER;
};

// Device coordinate of `value`, 0 to DEVICE_SIZE across the page.
double AxisToDevice(const AxisMap& map, double value);

// A spacing of 1, 2 or 5 times a power of ten that makes about five ticks between the limits. Limits that
// are not apart end the process with a message.
AxisSpacing AxisTrialSpacing(double min, double max);

// The spacing of a time axis over `span` seconds: round clock times, eight or nine ticks at most; weeks where
// even those are more.
double AxisTimeSpacing(double span);

SpacingType AxisSpacingType(double spacing);

// Lays out the ticks of one axis; font, fontSize, title and switches are the caller's to fill in. Limits in
// falling order end the process with a message.
AxisState AxisPrepare(const AxisLimits& limits);

// The text of a tick of the y axis, with the decimals that the spacing needs; in scientific form, written
// with libplot's label escapes, if a limit is 10000 or above, or 0.0001 or below.
std::string AxisValueLabel(const AxisState& axis, const AxisMap& map, double value);

// The text of a tick of the x axis.
std::string AxisTimeLabel(double value);

// Hours and minutes of a time in local time: "14:35".
std::string ClockText(double value);

}  // namespace ozmo
