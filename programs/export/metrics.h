// What the items of a catalog are called as metrics: one name an item, on all platforms where it means one
// thing.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace ozmo::exporting {

struct Metric {
  std::string_view item;            // its title; DISK, ADAPTER and CPU-N are in the place of names
  std::string_view name;            // without "ozmo_" and the unit
  std::string_view unit;            // empty: the name is of what is counted
  std::string_view yTitle = {};     // where items of one title differ by it; empty: any
  std::string_view platforms = {};  // words of the kinds; empty: all that no row before it names
  std::string_view help = {};       // empty: the item's description
  bool isRanked = false;            // the labels of traces begin with a rank
};

// In the order in which families of metrics are written. Rows of one name and unit are one family.
std::span<const Metric> Metrics();

// The row of an item of a kind of files, by its general title; null if there is none.
const Metric* FindMetric(std::string_view item, std::string_view yTitle, std::string_view platform);

// "ozmo_cpu_utilization_percent".
std::string FullName(const Metric& metric);

// The place of the metric's family among all.
size_t FamilyOf(const Metric& metric);

}  // namespace ozmo::exporting
