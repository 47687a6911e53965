// How a plot looks. The tool has no options for it but type and size: a pass has the values below, its titles
// and colours, and what a second pass for an overlay has otherwise.
//
// Sizes are fractions: of the device (the square that all drawing happens in) or of the smaller side of the
// frame, as the comment says.
#pragma once

#include <array>
#include <optional>
#include <string>

namespace ozmo {

// Side of the square of device units that the whole page is mapped to, whatever the page's shape.
inline constexpr double DEVICE_SIZE = 4096.0;

// Share of an axis' range by which ticks and points may lie outside it: rounding must not drop a tick.
inline constexpr double LIMIT_TOLERANCE = 0.000001;

// Rows of the line style table and of the colour table.
inline constexpr size_t STYLE_ROWS = 7;

// Libplot's colour names by row; a row without a name leaves the colour as it stands.
using ColourTable = std::array<std::optional<std::string>, STYLE_ROWS>;

// Whatever colour the catalog gives its trace, an overlay has to stand out from the areas below it.
inline constexpr const char* OVERLAY_COLOUR = "orange";

// Of all texts. It is one of libplot's own stroke fonts, so that every plotter has it.
inline constexpr const char* PLOT_FONT = "HersheySans";

struct PlotSettings {
  std::string title;
  std::string yTitle;
  ColourTable colours = {"red", "green", "blue", "magenta", "cyan"};  // of the traces, by their number
  bool isFilled = true;                                               // traces are areas, else lines
  double lineWidth = 0.0015;                                          // of the device width
  bool yAxisAtRight = false;                                          // else at the left

  // The frame.
  double plotBoxUp = 0.17;         // lower edge of the frame, of the device
  double plotBoxRight = 0.08;      // left edge of the frame, of the device
  double plotBoxHeight = 0.72;     // of the device
  double plotBoxWidth = 0.88;      // of the device
  double frameLineWidth = -0.001;  // of the device; negative: libplot's default width
  double tickSize = 0.01;          // of the smaller frame side; inward, on all four sides
  double tickFontSize = 0.03;      // of the smaller frame side
  double titleFontSize = 0.03;     // of the smaller frame side
};

// What is known of one axis before it is laid out. Limits and spacing that are not given are found: the
// limits from the points, the spacing from the limits.
struct AxisLimits {
  double min = 0.0;
  double max = 0.0;
  bool minGiven = false;
  bool maxGiven = false;
  double spacing = 0.0;
  bool spacingGiven = false;
};

struct PlotLimits {
  AxisLimits x;
  AxisLimits y;
};

}  // namespace ozmo
