// The items of a catalog in the order of its tree, cut into the sections of a page.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "catalog/model.h"

namespace ozmo::report {

struct Item {
  GraphRecord* record = nullptr;  // owned by the catalog
  std::string heading;            // the title, and the row's label where another item has the same title
  bool named = true;              // -item finds it: it is no view, and no item before it has the same title
};

// The graph rows right below one group row.
struct Section {
  std::string label;     // of the group row
  int level = 1;         // 1: a group of the root table
  bool runTime = false;  // one disk, adapter or processor
  std::vector<Item> items;
};

// Whether any interval had a process.
bool HasProcesses(const GraphCatalog& catalog);

// All sections with an item that has sets, and the sections above them. Without processes, graphs of them
// would show no more than zeros and the name of what no process used, and are left out.
std::vector<Section> SectionsOf(GraphCatalog& catalog);

// Leaves the items whose title is one of `titles`, as -item compares them. Returns the first title that no
// item has.
std::optional<std::string> KeepItems(std::vector<Section>& sections, const std::vector<std::string>& titles);

// Runs `visit` on each item.
template <class Sections, class Visit>
void VisitItems(Sections& sections, Visit visit) {
  for (auto& section : sections) {
    for (auto& item : section.items) visit(item);
  }
}

}  // namespace ozmo::report
