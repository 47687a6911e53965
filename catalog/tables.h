// The static texts of a platform's catalog: tables that read like what they describe, one line a record.
#pragma once

#include <span>

#include "catalog/model.h"

namespace ozmo {

struct TraceText {
  const char* label;   // null: filled at run time
  const char* colour;  // null: none of its own
};

// How the series of a record come about.
enum class SeriesPlan {
  FIXED,    // one set a trace of the table, made at the start
  RUN_TIME  // no sets at the start: a processor, adapter, class or Top list entry makes one
};

struct RecordText {
  Graph graph;
  const char* title;
  const char* yTitle = "";
  float yMax = 0.0F;
  const char* legendFormat = "";
  SeriesPlan plan = SeriesPlan::FIXED;
  std::span<const TraceText> traces = {};  // RUN_TIME with none: the palette
};

struct RowText {
  const char* code;
  const char* label = nullptr;  // null: of a GRAPH row, the title of its record
  RowKind kind = RowKind::GRAPH;
  Graph graph = Graph::COUNT;          // of a GRAPH row
  std::span<const RowText> rows = {};  // of a GROUP row; for ADAPTERS the rows before the adapters'
};

// Whether each record is in the table once.
constexpr bool EachGraphHasOneRecord(std::span<const RecordText> records) {
  for (size_t i = 0; i < records.size(); ++i) {
    for (size_t j = 0; j < i; ++j) {
      if (records[i].graph == records[j].graph) return false;
    }
  }
  return true;
}

// Whether each graph row leads to a record, no other row does, and every other row has a label.
constexpr bool RowsLeadToRecords(std::span<const RowText> rows, std::span<const RecordText> records) {
  for (const RowText& row : rows) {
    bool isRecord = false;
    for (const RecordText& record : records) isRecord = isRecord || record.graph == row.graph;
    if (!isRecord && row.label == nullptr) return false;
    if (isRecord != (row.kind == RowKind::GRAPH) || !RowsLeadToRecords(row.rows, records)) return false;
  }
  return true;
}

// Makes the catalog's records and tree from a platform's tables. The records have no series yet.
void CatalogFromTables(GraphCatalog& catalog, std::span<const RecordText> records,
                       std::span<const RowText> tree);

// Series that CreateFixedSeries makes.
int FixedSeriesCount(std::span<const RecordText> records);

// Gives each FIXED record that is needed its missing series, one a trace, and every record its point count.
// The series are in the budget by then.
void CreateFixedSeries(GraphCatalog& catalog, std::span<const RecordText> records);

}  // namespace ozmo
