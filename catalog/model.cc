#include "catalog/model.h"

#include <algorithm>
#include <utility>

#include "runtime/memory.h"

namespace ozmo {
namespace {

constexpr int64_t MAX_SERIES_BYTES = int64_t{2} << 30;

constexpr const char* PALETTE[] = {
    "LimeGreen", "LightBlue", "Purple",       "Red",         "Cyan", "Orange", "DarkBlue",    "Green",
    "HotPink",   "Wheat",     "DarkSeaGreen", "DeepSkyBlue", "Gold", "Salmon", "ForestGreen", "Maroon"};

void SetText(std::vector<std::optional<std::string>>& texts, int set, std::string text) {
  if (set < 0) return;
  const size_t index = static_cast<size_t>(set);
  if (index >= texts.size()) texts.resize(index + 1);
  texts[index] = std::move(text);
}

const std::optional<std::string>& TextOf(const std::vector<std::optional<std::string>>& texts, int set) {
  static const std::optional<std::string> NONE;
  return set >= 0 && static_cast<size_t>(set) < texts.size() ? texts[static_cast<size_t>(set)] : NONE;
}

void ClearNegatives(Series& series, size_t points) {
  for (size_t p = 0; p < points; ++p) {
    if (series[p] < 0.0F) series[p] = 0.0F;
  }
}

void StackSets(XrtData& data) {
  if (data.y.empty() || data.npoints <= 0) return;
  size_t points = static_cast<size_t>(data.npoints);
  for (const Series& series : data.y) points = std::min(points, series.size());
  ClearNegatives(data.y.back(), points);
  for (size_t s = data.y.size() - 1; s-- > 0;) {
    ClearNegatives(data.y[s], points);
    for (size_t p = 0; p < points; ++p) data.y[s][p] += data.y[s + 1][p];
  }
}

}  // namespace

std::span<const char* const> Palette() { return PALETTE; }

void GraphRecord::SetLabel(int set, std::string label) { SetText(traceLabels, set, std::move(label)); }
void GraphRecord::SetColour(int set, std::string colour) { SetText(traceColours, set, std::move(colour)); }
const std::optional<std::string>& GraphRecord::Label(int set) const { return TextOf(traceLabels, set); }
const std::optional<std::string>& GraphRecord::Colour(int set) const { return TextOf(traceColours, set); }

const GraphRecord* GraphCatalog::Find(Graph graph) const {
  const size_t index = static_cast<size_t>(graph);
  return index < records.size() && records[index] ? &*records[index] : nullptr;
}

GraphRecord* GraphCatalog::Find(Graph graph) {
  return const_cast<GraphRecord*>(std::as_const(*this).Find(graph));
}

GraphRecord* GraphCatalog::FindNeeded(Graph graph) {
  GraphRecord* record = Find(graph);
  return record != nullptr && record->isNeeded ? record : nullptr;
}

const Series* GraphCatalog::FindSeries(Graph graph, int set) const {
  const GraphRecord* record = Find(graph);
  if (record == nullptr || set < 0 || set >= record->data.nsets()) return nullptr;
  return &record->data.y[static_cast<size_t>(set)];
}

Series* GraphCatalog::FindSeries(Graph graph, int set) {
  return const_cast<Series*>(std::as_const(*this).FindSeries(graph, set));
}

void GraphCatalog::Store(Graph graph, int set, int point, float value) {
  if (Series* series = FindSeries(graph, set)) PointStore(*series, point, value);
}

void SeriesBudget::Take(int64_t count, int64_t points) {
  constexpr int64_t VALUE_BYTES = sizeof(float);
  if (points < 0) MemFail(points * VALUE_BYTES);
  const int64_t valuesLeft = (MAX_SERIES_BYTES - bytes_) / VALUE_BYTES;
  if (points > 0 && count > valuesLeft / points) MemFail(bytes_ + count * points * VALUE_BYTES);
  bytes_ += count * points * VALUE_BYTES;
}

Series SeriesNew(GraphCatalog& catalog) {
  const int64_t points = int64_t{catalog.pointCount} + 1;
  catalog.budget.Take(1, points);
  return Series(static_cast<size_t>(points), MISSING_POINT);
}

void XrtSeriesCreate(GraphCatalog& catalog, GraphRecord& record, int nsets) {
  record.data.npoints = catalog.pointCount + 1;
  record.data.y.clear();
  for (int set = 0; set < nsets; ++set) XrtSeriesAdd(catalog, record);
}

int XrtSeriesAdd(GraphCatalog& catalog, GraphRecord& record) {
  record.data.y.push_back(SeriesNew(catalog));
  return record.data.nsets() - 1;
}

void SeriesBridgeGaps(Series& series, int points, int maxGap) {
  if (maxGap <= 0) return;
  const int limit = std::min(points - maxGap, static_cast<int>(series.size()));
  int last = -1;
  for (int i = 0; i < limit; ++i) {
    const float value = series[static_cast<size_t>(i)];
    if (!(value > MISSING_POINT)) continue;
    if (last >= 0 && i - last <= maxGap) {
      const float step = (value - series[static_cast<size_t>(last)]) / static_cast<float>(i - last);
      for (int j = last + 1; j < i; ++j) {
        series[static_cast<size_t>(j)] = series[static_cast<size_t>(j - 1)] + step;
      }
    }
    last = i;
  }
}

void GraphBridgeGaps(std::vector<GraphMenuEntry>& table, int points, int maxGap) {
  VisitGraphs(table, [=](GraphRecord& record) {
    for (Series& series : record.data.y) SeriesBridgeGaps(series, points, maxGap);
  });
}

void GraphStackTraces(std::vector<GraphMenuEntry>& table) {
  VisitGraphs(table, [](GraphRecord& record) { StackSets(record.data); });
}

}  // namespace ozmo
