// Where the figures of one disk go, found by a single look-up of its name in each interval.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "catalog/model.h"

namespace ozmo {

// The name trees that disks feed, in the order of DiskSeries of disks.cc.
inline constexpr size_t DISK_TREES = 6;

struct DiskEntry {
  std::array<Series*, DISK_TREES> treeSeries{};
  std::vector<GraphRecord*> graphs;  // in the order of the platform's DiskSpec; none for a disk without a row
};

struct NameHash {
  using is_transparent = void;
  size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
};

using DiskEntries = std::unordered_map<std::string, DiskEntry, NameHash, std::equal_to<>>;

}  // namespace ozmo
