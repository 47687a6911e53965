#include "output/selection.h"

#include <algorithm>

namespace ozmo {
namespace {

// The highest point of the stack, 0 at least. Clears the stack's negatives on the way.
float TakePeak(TraceSeries& data) {
  float peak = 0.0F;
  if (data.nsets() == 0) return peak;
  for (int i = 0; i < data.npoints; ++i) {
    float& value = data.y[0][static_cast<size_t>(i)];
    if (value > peak) peak = value;
    if (value < 0.0F) value = 0.0F;
  }
  return peak;
}

void ClearEnds(Series& series, int npoints) {
  if (npoints < 1) return;
  series[0] = 0.0F;
  series[static_cast<size_t>(npoints) - 1] = 0.0F;
}

std::span<const float> PointsOf(const Series& series, int npoints) {
  return std::span(series).first(std::min(static_cast<size_t>(std::max(npoints, 0)), series.size()));
}

// The top of the y axis. `isFixed` tells whether `fixedTop` counts.
double TopOf(bool isFixed, float fixedTop, float peak) {
  return isFixed ? AXIS_HEADROOM * static_cast<double>(fixedTop) : AxisTopOf(peak);
}

// All traces of a record, stacked, without a top.
Layer LayerOf(const GraphRecord& record) {
  Layer layer;
  layer.title = record.title;
  layer.yTitle = record.yTitle;
  for (int set = 0; set < record.data.nsets(); ++set) {
    layer.traces.push_back({record.Label(set), record.Colour(set),
                            PointsOf(record.data.y[static_cast<size_t>(set)], record.data.npoints)});
  }
  return layer;
}

// The set whose label is `label`.
std::optional<size_t> FindTrace(const Layer& layer, std::string_view label) {
  for (size_t set = 0; set < layer.traces.size(); ++set) {
    const std::optional<std::string>& candidate = layer.traces[set].label;
    if (candidate && IsSameGraphName(*candidate, label)) return set;
  }
  return std::nullopt;
}

// Puts a trace's own values into `target`, as many as both have room for.
void TakeOutOfStack(const Layer& layer, size_t set, Series& target) {
  const size_t count = std::min(layer.traces[set].series.size(), target.size());
  for (size_t i = 0; i < count; ++i) target[i] = OwnValue(layer, set, i);
}

}  // namespace

GraphRecord* FindGraphRecord(const std::vector<GraphMenuEntry>& table, std::string_view name) {
  for (const GraphMenuEntry& row : table) {
    if (!row.subTable.empty()) {
      if (GraphRecord* found = FindGraphRecord(row.subTable, name)) return found;
    } else if (row.record != nullptr && IsSameGraphName(row.record->title, name)) {
      return row.record;
    }
  }
  return nullptr;
}

Layer PrepareMainLayer(GraphRecord& record) {
  const float peak = TakePeak(record.data);
  for (Series& series : record.data.y) ClearEnds(series, record.data.npoints);
  Layer layer = LayerOf(record);
  layer.yMax = TopOf(record.yMax > 0.0F, record.yMax, peak);
  return layer;
}

std::string_view OverlayGraphName(std::string_view name) { return name.substr(0, name.find('@')); }

OverlaySelection SelectOverlay(GraphCatalog& catalog, const GraphRecord& mainRecord, std::string_view name) {
  const size_t separator = name.find('@');
  if (separator == std::string_view::npos) return {{}, "Specified overlay trace not found."};

  GraphRecord* other = FindGraphRecord(catalog.itemTree, OverlayGraphName(name));
  if (other == nullptr) return {{}, "Specified overlay graph not found."};

  // The top comes from the whole stack. Whether a fixed top counts is the main graph's to say, and what it is
  // the other's: the scale of an overlay stays what it was. Only set 0 is closed on the axis here.
  const float peak = TakePeak(other->data);
  if (other->data.nsets() > 0) ClearEnds(other->data.y[0], other->data.npoints);
  const Layer stack = LayerOf(*other);
  const std::optional<size_t> set = FindTrace(stack, name.substr(separator + 1));
  if (!set) return {{}, "Specified overlay trace not found."};

  catalog.overlayScratch.assign(static_cast<size_t>(catalog.pointCount) + 1, 0.0F);
  TakeOutOfStack(stack, *set, catalog.overlayScratch);
  Layer overlay;
  overlay.title = stack.title;
  overlay.yTitle = stack.yTitle;
  overlay.yMax = TopOf(mainRecord.yMax > 0.0F, other->yMax, peak);
  overlay.traces.push_back({stack.traces[*set].label, mainRecord.Colour(static_cast<int>(*set)),
                            PointsOf(catalog.overlayScratch, mainRecord.data.npoints)});
  return {overlay, nullptr};
}

}  // namespace ozmo
