#include "output/legend.h"

#include <algorithm>
#include <optional>
#include <string>

#include "output/frame.h"
#include "output/grapher_messages.h"
#include "output/label_text.h"
#include "output/libplot.h"
#include "runtime/numbers.h"

namespace ozmo {
namespace {

constexpr int ROWS_OF_WIDE_CELLS = 6;
constexpr const char* TEXT_COLOUR = "black";

// The place of one key, in device units: x grows by shares of the device, y falls by `drop` a row.
struct LegendPlace {
  double left = 0.0;  // of the device
  double drop = 0.0;

  double X(double share) const { return (left + share) * DEVICE_SIZE; }
  double Y(double share) const { return share * DEVICE_SIZE - drop; }
};

LegendPlace PlaceOf(const LegendLayout& layout, int fontSize, int index) {
  const int row = index / layout.columns;
  const int column = index - layout.columns * row;
  return {column * layout.cell + layout.left, static_cast<double>(fontSize) * row * 1.3};
}

// A null name leaves the colour as it is: libplot sees to that.
void SetPenAndFill(const char* name) {
  pl_pencolorname(name);
  pl_fillcolorname(name);
}

void DrawLabel(const LegendPlace& place, double x, double y, const std::optional<std::string>& label) {
  SetPenAndFill(TEXT_COLOUR);
  pl_fmove(place.X(x), place.Y(y));
  if (label) pl_alabel('l', 'b', LabelText(*label).c_str());
}

void DrawBoxKey(const LegendPlace& place, const OverlayTrace& trace) {
  pl_linemod("solid");
  pl_filltype(1);
  SetPenAndFill(trace.colour ? trace.colour->c_str() : nullptr);
  pl_fbox(place.X(0.0), place.Y(0.124), place.X(0.01), place.Y(0.131));
  DrawLabel(place, 0.015, 0.118, trace.label);
}

void DrawLineKey(const LegendPlace& place, const OverlayTrace& trace) {
  pl_linemod("solid");
  pl_pencolorname(OVERLAY_COLOUR);
  pl_fline(place.X(0.0), place.Y(0.1245), place.X(0.015), place.Y(0.1245));
  DrawLabel(place, 0.02, 0.115, trace.label);
}

size_t LongestLabel(const GraphJob& job) {
  size_t longest = 0;
  const auto measure = [&](const OverlayTrace& trace) {
    longest = std::max(longest, trace.label ? trace.label->size() : 0);
  };
  std::for_each(job.mainOverlay.traces.begin(), job.mainOverlay.traces.end(), measure);
  if (job.additionalOverlay) measure(job.additionalOverlay->traces.front());
  return longest;
}

}  // namespace

LegendLayout LegendPlan(int fontSize, size_t longest, int count) {
  const double labelSize = static_cast<double>(fontSize) * static_cast<double>(longest);
  LegendLayout layout;
  layout.columns = ClampTo<int>(DEVICE_SIZE / (labelSize * 0.7));
  if (layout.columns <= 0) return {};
  if (count < layout.columns) {
    layout.cell = 1.0 / layout.columns;
    layout.left = 0.53 - count * layout.cell / 2.0;
  } else if (count / layout.columns < ROWS_OF_WIDE_CELLS) {
    layout.cell = 0.94 / layout.columns;
    layout.left = 0.06;
  } else {
    layout.columns = ClampTo<int>(DEVICE_SIZE * 1.067 / (labelSize * 0.6));
    layout.cell = 1.0 / layout.columns;
    layout.left = 0.01;
  }
  return layout;
}

void GrapherDrawLegend(const Grapher& grapher, const GraphJob& job) {
  pl_fontname("HersheySans");
  const int fontSize = ClampTo<int>(pl_ffontsize(0.025 * FrameBoxOf(grapher).smallerSide));

  const std::vector<OverlayTrace>& traces = job.mainOverlay.traces;
  const int traceCount = static_cast<int>(traces.size());
  const LegendLayout layout =
      LegendPlan(fontSize, LongestLabel(job), traceCount + (job.additionalOverlay ? 1 : 0));
  if (layout.columns == 0) GrapherFail("a trace label is too long for the key");
  for (int index = 0; index < traceCount; ++index) {
    DrawBoxKey(PlaceOf(layout, fontSize, index), traces[static_cast<size_t>(index)]);
  }
  if (job.additionalOverlay) {
    DrawLineKey(PlaceOf(layout, fontSize, traceCount), job.additionalOverlay->traces.front());
  }
}

}  // namespace ozmo
