#include "programs/report/items.h"

#include <algorithm>
#include <map>
#include <set>

#include "catalog/graph_name.h"

namespace ozmo::report {
namespace {

constexpr const char* HEADING_SEPARATOR = " \xE2\x80\x93 ";

using Records = std::set<const GraphRecord*>;

bool HasSets(const GraphMenuEntry& row) { return row.record != nullptr && row.record->data.nsets() > 0; }

// Graphs that a catalog without processes has nothing for.
Records EmptyRecords(const GraphCatalog& catalog) {
  Records empty;
  if (HasProcesses(catalog)) return empty;
  for (const Graph graph : {Graph::TOP_IMAGES, Graph::TOP_USERS, Graph::CLASS_CPU, Graph::CLASS_COUNT,
                            Graph::PROCESS_COUNT, Graph::PROCESS_PAGEFAULTS}) {
    empty.insert(catalog.Find(graph));
  }
  return empty;
}

void AddSections(std::vector<Section>& sections, std::vector<GraphMenuEntry>& table, const Records& empty,
                 int level) {
  for (GraphMenuEntry& row : table) {
    if (row.subTable.empty()) continue;
    const size_t place = sections.size();
    sections.push_back({row.label, level, false, {}});
    for (GraphMenuEntry& below : row.subTable) {
      if (HasSets(below) && !empty.contains(below.record))
        sections[place].items.push_back({below.record, below.label, true});
    }
    AddSections(sections, row.subTable, empty, level + 1);
  }
}

// Sections without items stay while one below them has some.
void DropEmptySections(std::vector<Section>& sections) {
  std::vector<Section> kept;
  int keptLevel = 0;  // of the section that the one looked at is in
  for (auto section = sections.rbegin(); section != sections.rend(); ++section) {
    if (section->items.empty() && section->level >= keptLevel) continue;
    keptLevel = section->level;
    kept.push_back(std::move(*section));
  }
  std::reverse(kept.begin(), kept.end());
  sections = std::move(kept);
}

void MarkRunTime(std::vector<Section>& sections, const GraphCatalog& catalog) {
  std::set<const GraphRecord*> made;
  for (const GraphRecord& record : catalog.runtimeRecords) made.insert(&record);
  for (Section& section : sections) {
    section.runTime = !section.items.empty() && made.count(section.items.front().record) != 0;
  }
}

// Items come with their row's label as heading; most need only the title.
void SetHeadings(std::vector<Section>& sections) {
  std::map<std::string, int> uses;
  VisitItems(sections, [&](const Item& item) { ++uses[GraphNameKey(item.record->title)]; });
  std::set<std::string> seen;
  VisitItems(sections, [&](Item& item) {
    const std::string key = GraphNameKey(item.record->title);
    item.named = !item.record->isView && seen.insert(key).second;
    item.heading =
        uses[key] == 1 ? item.record->title : item.record->title + HEADING_SEPARATOR + item.heading;
  });
}

}  // namespace

bool HasProcesses(const GraphCatalog& catalog) {
  const Series* counts = catalog.FindSeries(Graph::PROCESS_COUNT, 0);
  return counts == nullptr || std::ranges::any_of(*counts, [](float count) { return count > 0.0F; });
}

std::vector<Section> SectionsOf(GraphCatalog& catalog) {
  std::vector<Section> sections;
  AddSections(sections, catalog.itemTree, EmptyRecords(catalog), 1);
  DropEmptySections(sections);
  MarkRunTime(sections, catalog);
  SetHeadings(sections);
  return sections;
}

std::optional<std::string> KeepItems(std::vector<Section>& sections, const std::vector<std::string>& titles) {
  if (titles.empty()) return std::nullopt;
  std::map<std::string, bool> wanted;  // found
  for (const std::string& title : titles) wanted[GraphNameKey(title)] = false;
  for (Section& section : sections) {
    std::erase_if(section.items, [&](const Item& item) {
      const auto found = wanted.find(GraphNameKey(item.record->title));
      if (found != wanted.end()) found->second = true;
      return found == wanted.end();
    });
  }
  DropEmptySections(sections);
  for (const std::string& title : titles) {
    if (!wanted[GraphNameKey(title)]) return title;
  }
  return std::nullopt;
}

}  // namespace ozmo::report
