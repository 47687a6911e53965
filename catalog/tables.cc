#include "catalog/tables.h"

#include <optional>

namespace ozmo {
namespace {

std::optional<std::string> Text(const char* text) {
  return text == nullptr ? std::nullopt : std::optional<std::string>(text);
}

GraphRecord RecordFromText(const RecordText& text) {
  GraphRecord record;
  record.title = text.title;
  record.yTitle = text.yTitle;
  record.yMax = text.yMax;
  record.legendFormat = text.legendFormat;
  for (const TraceText& trace : text.traces) {
    record.traceLabels.push_back(Text(trace.label));
    record.traceColours.push_back(Text(trace.colour));
  }
  if (text.plan == SeriesPlan::RUN_TIME && text.traces.empty()) {
    for (const char* colour : Palette()) record.traceColours.emplace_back(colour);
  }
  return record;
}

std::vector<GraphMenuEntry> RowsFromText(GraphCatalog& catalog, std::span<const RowText> rows) {
  std::vector<GraphMenuEntry> table;
  table.reserve(rows.size());
  for (const RowText& row : rows) {
    GraphMenuEntry& entry = table.emplace_back();
    entry.code = row.code;
    if (row.kind == RowKind::GRAPH) entry.record = catalog.Find(row.graph);
    entry.label = row.label != nullptr ? row.label : entry.record->title;
    entry.subTable = RowsFromText(catalog, row.rows);
  }
  return table;
}

// Rows keep their places only once the whole tree is made.
void FindRuntimeRows(GraphCatalog& catalog, std::vector<GraphMenuEntry>& table,
                     std::span<const RowText> rows) {
  for (size_t i = 0; i < rows.size(); ++i) {
    const RowKind kind = rows[i].kind;
    if (kind != RowKind::GRAPH && kind != RowKind::GROUP) {
      catalog.runtimeRows[static_cast<size_t>(kind)] = &table[i];
    }
    FindRuntimeRows(catalog, table[i].subTable, rows[i].rows);
  }
}

}  // namespace

void CatalogFromTables(GraphCatalog& catalog, std::span<const RecordText> records,
                       std::span<const RowText> tree) {
  catalog.records.clear();
  catalog.records.resize(static_cast<size_t>(Graph::COUNT));
  for (const RecordText& text : records) {
    catalog.records[static_cast<size_t>(text.graph)] = RecordFromText(text);
  }
  catalog.itemTree = RowsFromText(catalog, tree);
  FindRuntimeRows(catalog, catalog.itemTree, tree);
}

int FixedSeriesCount(std::span<const RecordText> records) {
  size_t count = 0;
  for (const RecordText& text : records) {
    if (text.plan == SeriesPlan::FIXED) count += text.traces.size();
  }
  return static_cast<int>(count);
}

void CreateFixedSeries(GraphCatalog& catalog, std::span<const RecordText> records) {
  const size_t points = static_cast<size_t>(catalog.pointCount) + 1;
  for (const RecordText& text : records) {
    GraphRecord& record = *catalog.Find(text.graph);
    record.data.npoints = static_cast<int>(points);
    if (!record.isNeeded || text.plan != SeriesPlan::FIXED) continue;
    record.data.y.assign(text.traces.size(), Series(points, MISSING_POINT));
  }
}

}  // namespace ozmo
