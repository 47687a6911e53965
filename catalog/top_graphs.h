// From the series of names to the graphs of the ten heaviest.
#pragma once

#include <optional>
#include <span>

#include "catalog/disks.h"
#include "catalog/file_systems.h"
#include "catalog/platform.h"
#include "catalog/processes.h"
#include "catalog/top_list.h"

namespace ozmo {

// How names are weighed. An image or user that did nothing isn't ranked; an idle disk is.
enum class Weight { PLAIN, NORMALIZED_FLOAT, NORMALIZED_DOUBLE };

// The passes and the points that the lists are made from.
struct TopSources {
  const SampledPoints& points;
  const ProcessPass& processes;
  const DiskPass& disks;
  const FileSystemPass& fileSystems;
};

// One list, the same on all platforms; TopListSpec holds what differs.
struct TopListRule {
  Graph graph;
  TopListSpec TopListSpecs::*spec;
  std::vector<NamedSeries> (*named)(const TopSources& sources);
  DiskSeries diskSeries = DiskSeries::COUNT;  // that it ranks, of a list of disks
  Weight weight = Weight::PLAIN;
  Graph total = Graph::COUNT;  // of "Others"
  bool isOfDetail = false;     // not kept for a span beyond the platform's limit
};

std::span<const TopListRule> TopListRules();

// What shares are scaled with; nothing where the platform has no overall CPU or nobody wants shares.
std::optional<CpuScale> CpuScaleOf(const GraphCatalog& catalog, const Series& shareSum);

// What all names of a list have together.
struct TopTotals {
  const SampledPoints& points;
  const Series& sums;  // by point of the span
};

// Gives the record, which has no sets, the series of the ten names with the greatest sums, and what they
// leave of the totals as "Others". Without a name that has anything there are no sets.
void UseTopNames(GraphCatalog& catalog, GraphRecord& record, const TopListSpec& spec,
                 std::span<const NamedSeries> names, const TopTotals& totals);

// Ranks the names of each list that is needed and gives the winners' series to its graph.
void FinishTopLists(GraphCatalog& catalog, const PlatformSpec& platform, const TopSources& sources);

}  // namespace ozmo
