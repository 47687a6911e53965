#include "catalog/views.h"

#include <algorithm>

#include "catalog/common_texts.h"
#include "catalog/top_graphs.h"

namespace ozmo {
namespace {

struct ViewText {
  const char* title;
  const char* yTitle;
  ProcessMeasures::Figure ProcessMeasures::*figure;
  TopListSpec TopListSpecs::*list;  // how the platform's list of the same names has its labels
};

constexpr std::array<ViewText, VIEW_COUNT> VIEWS = {{
    {"Top 10 Images by Resident Memory", "MBytes", &ProcessMeasures::residentMb, &TopListSpecs::images},
    {"Top 10 Users by Resident Memory", "MBytes", &ProcessMeasures::residentMb, &TopListSpecs::users},
    {"Top 10 Images by Page Faults", "Pagefaults per Second", &ProcessMeasures::pageFaults,
     &TopListSpecs::images},
}};

const ViewText& TextOf(size_t view) { return VIEWS[view]; }

bool NamesUsers(const ViewText& text) { return text.list == &TopListSpecs::users; }

}  // namespace

ViewPass::ViewPass(const PlatformSpec& platform, bool areWanted, GraphCatalog& catalog)
    : platform_(platform), areWanted_(areWanted), pages_(budget_) {
  if (!areWanted_) return;
  for (Series& totals : totals_) totals.assign(static_cast<size_t>(catalog.pointCount) + 1, MISSING_POINT);
}

bool ViewPass::IsMade(size_t view) const {
  const ViewText& text = TextOf(view);
  return platform_.processSpec.figures.*text.figure != nullptr &&
         (platform_.topLists.*text.list).labelFormat != nullptr;
}

ViewSeries ViewPass::SeriesOfNames(std::string_view image, std::string_view user) {
  ViewSeries series{};
  for (size_t view = 0; view < VIEW_COUNT; ++view) {
    if (!IsMade(view)) continue;
    series[view] = &SeriesOf(tables_[view], NamesUsers(TextOf(view)) ? user : image);
  }
  return series;
}

void ViewPass::Feed(const Minute& minute, const ViewSeries& series, const ProcessRecord& process,
                    const SystemConfig& config, double life) {
  for (size_t view = 0; view < VIEW_COUNT; ++view) {
    if (series[view] == nullptr) continue;
    const double figure = (platform_.processSpec.figures.*TextOf(view).figure)(process, config);
    if (!(figure >= 0.0)) continue;
    const auto value = static_cast<float>(figure * life);
    series[view]->Feed(pages_, minute.sample, value);
    PointFeed(totals_[view], minute.point, value);
  }
}

void ViewPass::Finish(GraphCatalog& catalog, const SampledPoints& points) const {
  const auto group = std::ranges::find(catalog.itemTree, common::PROCESS_GROUP.label, &GraphMenuEntry::label);
  if (group == catalog.itemTree.end()) return;
  for (size_t view = 0; view < VIEW_COUNT; ++view) {
    const ViewText& text = TextOf(view);
    GraphRecord record;
    record.title = text.title;
    record.yTitle = text.yTitle;
    record.legendFormat = "%s %.1f ";
    record.traceColours.assign(Palette().begin(), Palette().end());
    record.isView = true;
    record.data.npoints = catalog.pointCount + 1;
    UseTopNames(catalog, record, platform_.topLists.*text.list, NamedOf(tables_[view]),
                {points, totals_[view]});
    if (record.data.nsets() == 0) continue;
    catalog.viewRecords.push_back(std::move(record));
    group->subTable.push_back({"", text.title, &catalog.viewRecords.back(), {}});
  }
}

}  // namespace ozmo
