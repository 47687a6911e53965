// Views: Top lists beside a platform's own graphs, of what the records of processes say of memory and page
// faults.
//
// They are made for those who ask for them (WantedTitles::AllAndViews), and are in the tree after the other
// rows of the group of processes. No title that is looked up leads to one.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "catalog/name_series.h"
#include "catalog/platform.h"

namespace ozmo {

inline constexpr size_t VIEW_COUNT = 3;  // the rows in views.cc

// By the place of the row. Null: that view isn't made.
using ViewSeries = std::array<NameSeries*, VIEW_COUNT>;

// The images and users seen so far, and what all of them have together.
class ViewPass {
 public:
  // Without `areWanted` it does nothing.
  ViewPass(const PlatformSpec& platform, bool areWanted, GraphCatalog& catalog);

  bool areMade() const { return areWanted_; }
  // The series of an image and of a user; the addresses are stable.
  ViewSeries SeriesOfNames(std::string_view image, std::string_view user);
  // Adds the figures of a process that has lived for `life` of the interval. One that isn't known adds
  // nothing.
  void Feed(const Minute& minute, const ViewSeries& series, const ProcessRecord& process,
            const SystemConfig& config, double life);
  // Ranks the names and adds the graphs to the catalog's tree. A view of which no record had a figure is left
  // out.
  void Finish(GraphCatalog& catalog, const SampledPoints& points) const;

 private:
  bool IsMade(size_t view) const;

  const PlatformSpec& platform_;
  bool areWanted_;
  SeriesBudget budget_;  // of their own: what the graphs may take is left to them
  SeriesPages pages_;
  std::array<SeriesTable, VIEW_COUNT> tables_;
  std::array<Series, VIEW_COUNT> totals_;
};

}  // namespace ozmo
