// Disk graphs: overall rates, the series of the Top lists, and the graphs of each disk below "All Disks".
#pragma once

#include <array>
#include <bitset>
#include <vector>

#include "catalog/disk_spec.h"
#include "catalog/name_hash.h"
#include "catalog/name_series.h"
#include "catalog/platform.h"

namespace ozmo {

// Disks with graphs of their own; further ones are in the overall rates and Top lists only.
inline constexpr size_t MAX_DISK_ROWS = 1024;

// The series that are kept of each disk for the Top lists.
enum class DiskSeries { OPERATIONS, DATA, UTILIZATION, QUEUE, SPACE, RESPONSE, COUNT };
inline constexpr size_t DISK_SERIES_COUNT = static_cast<size_t>(DiskSeries::COUNT);
using DiskSeriesSet = std::bitset<DISK_SERIES_COUNT>;

// The figures of one record. `timesMeasured`: service and response time are in the record.
DiskValues DiskValuesOf(const DiskRecord& disk, bool timesMeasured);

// What a build wants of single disks.
struct DiskDetail {
  DiskSeriesSet series;    // for the Top lists
  bool hasGraphs = false;  // graphs of their own
  bool IsWanted() const { return series.any() || hasGraphs; }
};

// The disks seen so far.
class DiskPass {
 public:
  DiskPass(const DiskSpec& spec, const DiskDetail& detail, SeriesBudget& budget)
      : spec_(spec), detail_(detail), pages_(budget) {}

  void Run(const Minute& minute, const VmrContext& interval, const PagingOperations& paging);

  // One series of all disks, in ascending order of their names.
  std::vector<NamedSeries> Named(DiskSeries series) const;
  // That of a disk that was seen.
  const NameSeries& SeriesOf(std::string_view name, DiskSeries series) const {
    return entries_.find(name)->second.series[static_cast<size_t>(series)];
  }

 private:
  // Where the figures of one disk go.
  struct Entry {
    std::array<NameSeries, DISK_SERIES_COUNT> series;
    std::vector<std::pair<const DiskGraph*, GraphRecord*>> graphs;
  };

  Entry& EntryOf(GraphCatalog& catalog, std::string_view name);
  void MakeRow(GraphCatalog& catalog, Entry& entry, std::string_view name);
  void Store(const Minute& minute, std::string_view name, const DiskValues& figures);

  const DiskSpec& spec_;
  DiskDetail detail_;
  SeriesPages pages_;
  NameTable<Entry> entries_;
  size_t rows_ = 0;  // taken below "All Disks", also by disks whose graphs nobody wants
};

}  // namespace ozmo
