// The settings of a plot. The tool has no options for any of them but type and size: a run starts from the
// values below, and a graph with an overlay changes a few of them for its second pass.
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
inline constexpr int STYLE_ROWS = 7;

// Libplot colour names by row; a row without a name leaves the colour as it is.
using ColourTable = std::array<std::optional<std::string>, STYLE_ROWS>;

// Whatever colour the catalog gives its trace, an overlay has to differ from the areas below it.
inline constexpr const char* OVERLAY_COLOUR = "orange";

struct PlotSettings {
  // How the traces are read.
  double pointStep = 60.0;  // seconds between two points
  double firstX = 0.0;      // x of the first point of every trace
  bool automaticAbscissa = true;
  bool automaticBump = true;  // each trace gets the next line mode
  int symbol = 0;             // no marker at the points
  double symbolSize = 0.03;   // of the smaller frame side
  const char* symbolFont = "ZapfDingbats";
  int lineMode = 1;           // of the first trace
  double lineWidth = 0.0015;  // of the device width
  double fillFraction = 1.0;  // 0 to 1: an area in its own colour to white; negative: a line
  bool useColor = true;

  // The frame.
  int gridStyle = 2;  // 0: nothing but a box; 2: a box with ticks on all four sides
  std::string frameColour = "black";
  std::optional<std::string> backgroundColour;
  bool switchXAxisEnd = false;     // the y axis is at the right
  bool switchYAxisEnd = false;     // the x axis is at the top
  bool omitXTicks = false;         // no ticks and labels on the x axis
  bool omitYTicks = false;         // no ticks and labels on the y axis
  double frameLineWidth = -0.001;  // of the device; negative: libplot's default width
  double plotBoxUp = 0.17;         // lower edge of the frame, of the device
  double plotBoxRight = 0.08;      // left edge of the frame, of the device
  double plotBoxHeight = 0.72;     // of the device
  double plotBoxWidth = 0.88;      // of the device
  double tickSize = 0.01;          // of the smaller frame side; negative: outward
  double tickFontSize = 0.03;      // of the smaller frame side
  double titleFontSize = 0.03;     // of the smaller frame side
  double blankOutFraction = 1.3;   // of the frame's size
  std::string tickFont = "HersheySans";
  std::string titleFont = "HersheySans";
  std::string title;
  std::string yTitle;
  ColourTable colours = {"red", "green", "blue", "magenta", "cyan"};
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
