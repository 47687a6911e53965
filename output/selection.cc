#include "output/selection.h"

#include <algorithm>

namespace ozmo {
namespace {

// The highest point of the stack, 0 at least. Clears the stack's negatives on the way.
float TakePeak(XrtData& data) {
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

// The top of the y axis. `isFixed` says whether `fixedTop` counts.
double TopOf(bool isFixed, float fixedTop, float peak) {
  return isFixed ? AXIS_HEADROOM * static_cast<double>(fixedTop) : AxisTopOf(peak);
}

Overlay LayerOf(const GraphRecord& record) {
  Overlay overlay;
  overlay.title = record.title;
  overlay.yTitle = record.yTitle;
  return overlay;
}

// The set whose label is `label`; -1 when there is none.
int FindTrace(const GraphRecord& record, std::string_view label) {
  for (int set = 0; set < record.data.nsets(); ++set) {
    const std::optional<std::string>& candidate = record.Label(set);
    if (candidate && GraphNameCompare(*candidate, label) == 0) return set;
  }
  return -1;
}

// A trace's own value is the difference between its sum and the next one's.
void TakeOutOfStack(const XrtData& data, int set, Series& target) {
  const Series& sum = data.y[static_cast<size_t>(set)];
  const Series* next = set + 1 < data.nsets() ? &data.y[static_cast<size_t>(set) + 1] : nullptr;
  const size_t count = std::min(static_cast<size_t>(std::max(data.npoints, 0)), target.size());
  for (size_t i = 0; i < count; ++i) target[i] = next == nullptr ? sum[i] : sum[i] - (*next)[i];
}

}  // namespace

GraphRecord* FindGraphRecord(const std::vector<GraphMenuEntry>& table, std::string_view name) {
  for (const GraphMenuEntry& row : table) {
    if (!row.subTable.empty()) {
      if (GraphRecord* found = FindGraphRecord(row.subTable, name)) return found;
    } else if (row.record != nullptr && GraphNameCompare(row.record->title, name) == 0) {
      return row.record;
    }
  }
  return nullptr;
}

Overlay PrepareMainOverlay(GraphRecord& record) {
  XrtData& data = record.data;
  Overlay overlay = LayerOf(record);
  const float peak = TakePeak(data);
  overlay.yMax = TopOf(record.yMax > 0.0F, record.yMax, peak);
  for (int set = 0; set < data.nsets(); ++set) {
    Series& series = data.y[static_cast<size_t>(set)];
    ClearEnds(series, data.npoints);
    overlay.traces.push_back({record.Label(set), record.Colour(set), PointsOf(series, data.npoints)});
  }
  return overlay;
}

std::string_view OverlayGraphName(std::string_view name) { return name.substr(0, name.find('@')); }

OverlaySelection SelectOverlay(GraphCatalog& catalog, const GraphRecord& mainRecord, std::string_view name) {
  const size_t separator = name.find('@');
  if (separator == std::string_view::npos) return {{}, "Specified overlay trace not found."};

  GraphRecord* other = FindGraphRecord(catalog.itemTree, OverlayGraphName(name));
  if (other == nullptr) return {{}, "Specified overlay graph not found."};

  // The top comes from the whole stack. Whether a fixed top counts is the main graph's to say, and what it is
  // the other's: the scale of an overlay stays what it was. Only set 0 is closed on the axis here.
  Overlay overlay = LayerOf(*other);
  const float peak = TakePeak(other->data);
  overlay.yMax = TopOf(mainRecord.yMax > 0.0F, other->yMax, peak);
  if (other->data.nsets() > 0) ClearEnds(other->data.y[0], other->data.npoints);

  const int set = FindTrace(*other, name.substr(separator + 1));
  if (set < 0) return {{}, "Specified overlay trace not found."};

  catalog.overlayScratch.assign(static_cast<size_t>(catalog.pointCount) + 1, 0.0F);
  TakeOutOfStack(other->data, set, catalog.overlayScratch);
  overlay.traces.push_back(
      {other->Label(set), mainRecord.Colour(set), PointsOf(catalog.overlayScratch, mainRecord.data.npoints)});
  return {overlay, nullptr};
}

}  // namespace ozmo
