#include "programs/report/page_data.h"

#include <algorithm>

#include "output/number_text.h"
#include "output/selection.h"
#include "programs/report/colours.h"
#include "programs/report/text.h"
#include "runtime/times.h"

namespace ozmo::report {
namespace {

std::vector<int64_t> OwnHundredths(const Overlay& overlay, size_t set, int pointCount) {
  std::vector<float> own(static_cast<size_t>(pointCount));
  for (size_t point = 0; point < own.size(); ++point) own[point] = OwnValue(overlay, set, point);
  return HundredthsOf(own);
}

std::string ColourText(const OverlayTrace& trace, size_t set) {
  return trace.colour ? ColourOf(*trace.colour) : ColourOfSet(static_cast<int>(set));
}

// Three digits are enough of a view, whose values are large and never rest.
int ScaleOf(const GraphRecord& record) {
  if (!record.isView) return 100;
  const float highest = std::ranges::max(record.data.y.front());  // stacked: of all sets together
  if (highest >= 1000.0F) return 1;
  return highest >= 100.0F ? 10 : 100;
}

PageGraph GraphOf(const Item& item, const PageData& data) {
  const Overlay overlay = PrepareMainOverlay(*item.record);
  PageGraph graph;
  graph.heading = item.heading;
  graph.named = item.named;
  graph.view = item.record->isView;
  graph.scale = ScaleOf(*item.record);
  graph.unit = overlay.yTitle;
  graph.top = item.record->yMax > 0.0F ? overlay.yMax : 0.0;
  for (size_t set = 0; set < overlay.traces.size(); ++set) {
    const OverlayTrace& trace = overlay.traces[set];
    const std::vector<int64_t> hundredths = OwnHundredths(overlay, set, item.record->data.npoints);
    const int last = std::min(data.lastPoint, static_cast<int>(hundredths.size()) - 1);
    graph.traces.push_back(
        {trace.label.value_or(""), ColourText(trace, set), FiguresOf(hundredths, data.firstPoint, last), ""});
  }
  return graph;
}

std::vector<int64_t> PartsOf(std::vector<int64_t> hundredths, int scale) {
  const int64_t each = 100 / scale;
  for (int64_t& value : hundredths) {
    if (value != NO_VALUE) value = (value + each / 2) / each;
  }
  return hundredths;
}

// Gives the graph its points; false when they take more than `room`, which is less by them otherwise.
bool GivePoints(PageGraph& graph, const Item& item, size_t& room) {
  const Overlay overlay = PrepareMainOverlay(*item.record);
  size_t taken = 0;
  for (size_t set = 0; set < graph.traces.size() && taken <= room; ++set) {
    graph.traces[set].points =
        EncodeSeries(PartsOf(OwnHundredths(overlay, set, item.record->data.npoints), graph.scale));
    taken += graph.traces[set].points.size();
  }
  graph.hasChart = taken <= room;
  if (graph.hasChart) {
    room -= taken;
  } else {
    for (PageTrace& trace : graph.traces) trace.points.clear();
  }
  return graph.hasChart;
}

double WeightOf(const PageSection& section) {
  double weight = 0.0;
  if (section.graphs.empty()) return weight;
  for (const PageTrace& trace : section.graphs.front().traces) weight += trace.figures.mean;
  return weight;
}

// Places of sections in the order in which they get their points.
std::vector<size_t> OrderOfPoints(const std::vector<PageSection>& sections) {
  std::vector<size_t> order(sections.size());
  for (size_t i = 0; i < order.size(); ++i) order[i] = i;
  std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) {
    if (sections[a].runTime != sections[b].runTime) return sections[b].runTime;
    return sections[a].runTime && WeightOf(sections[a]) > WeightOf(sections[b]);
  });
  return order;
}

void GiveAllPoints(PageData& data, const std::vector<Section>& sections, size_t room) {
  for (size_t place : OrderOfPoints(data.sections)) {
    for (size_t i = 0; i < sections[place].items.size(); ++i) {
      ++data.graphs;
      const bool fits = GivePoints(data.sections[place].graphs[i], sections[place].items[i], room);
      if (!fits) ++data.graphsWithoutChart;
    }
  }
}

}  // namespace

PageData PageDataOf(const DataDay& day, const std::vector<Section>& sections, size_t room) {
  PageData data;
  const GraphCatalog& catalog = *day.catalog;
  data.node = day.node;
  data.system = day.system;
  data.start = day.begin;
  data.pointCount = catalog.pointCount;
  data.firstPoint = std::clamp(catalog.extent.firstPoint, 0, data.pointCount - 1);
  data.lastPoint = std::clamp(catalog.extent.lastPoint, data.firstPoint, data.pointCount - 1);
  data.intervals = catalog.extent.intervals;
  for (const Section& section : sections) {
    PageSection& target = data.sections.emplace_back();
    target.label = section.label;
    target.level = section.level;
    target.runTime = section.runTime;
    for (const Item& item : section.items) target.graphs.push_back(GraphOf(item, data));
  }
  GiveAllPoints(data, sections, room);
  return data;
}

std::string FigureText(double value) { return NumberText(value, 2); }

}  // namespace ozmo::report
