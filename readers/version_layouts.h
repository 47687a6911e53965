// Layouts of a format by collector version: rows that say which versions they hold for, and the record table
// of one version, which the compiler makes of them.
//
//   constexpr FieldRun DISK[] = {Text(201), Counter(202, 205)};
//   constexpr LayoutRow LAYOUTS[] = {
//       {.type = 2, .versions = ALL, .fields = DISK},
//       {.type = 18, .listsOf = 2, .versions = P730, .fields = DISK},
//   };
//   constexpr RecordTable P730_TABLE = TableOf<LAYOUTS, P730, NARROW_COUNTERS>("P730");
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "readers/collector_format.h"

namespace ozmo {

enum class RunSize : uint8_t { TEXT, INT4, INT8, COUNTER };

// Fields of one size, one after the other.
struct FieldRun {
  int32_t first;
  int32_t last;
  RunSize size;
  int32_t fixedDivisor = NOT_FOUND_ID;
};

constexpr FieldRun Text(int32_t first, int32_t last) { return {first, last, RunSize::TEXT}; }
constexpr FieldRun Text(int32_t field) { return Text(field, field); }
constexpr FieldRun Int4(int32_t first, int32_t last) { return {first, last, RunSize::INT4}; }
constexpr FieldRun Int4(int32_t field) { return Int4(field, field); }
constexpr FieldRun Int8(int32_t first, int32_t last) { return {first, last, RunSize::INT8}; }
constexpr FieldRun Int8(int32_t field) { return Int8(field, field); }
// As wide as the version's counters.
constexpr FieldRun Counter(int32_t first, int32_t last) { return {first, last, RunSize::COUNTER}; }
constexpr FieldRun Counter(int32_t field) { return Counter(field, field); }

// The sizes of a version's counters.
inline constexpr FieldSize NARROW_COUNTERS = FieldSize::INT4;
inline constexpr FieldSize WIDE_COUNTERS = FieldSize::INT8;

struct LayoutRow {
  int32_t type;
  int32_t listsOf = NO_TYPE;  // the type whose definition lists describe it; NO_TYPE: it has its own
  uint32_t versions;          // a bit each
  bool positional = false;    // fields are in table order, whatever the order list says
  std::span<const FieldRun> fields;
};

constexpr bool EachTypeHasOneLayout(std::span<const LayoutRow> layouts) {
  for (size_t i = 0; i < layouts.size(); ++i) {
    for (size_t j = 0; j < i; ++j) {
      if (layouts[i].type == layouts[j].type && (layouts[i].versions & layouts[j].versions) != 0)
        return false;
    }
  }
  return true;
}

constexpr bool HasEachFieldOnce(std::span<const LayoutRow> layouts) {
  for (const LayoutRow& row : layouts) {
    for (size_t i = 0; i < row.fields.size(); ++i) {
      for (size_t j = 0; j < i; ++j) {
        if (row.fields[i].first <= row.fields[j].last && row.fields[j].first <= row.fields[i].last)
          return false;
      }
    }
  }
  return true;
}

// Whether the rows of a format are good, worked out once for all its versions.
template <const auto& Layouts>
inline constexpr bool LAYOUTS_ARE_GOOD = [] {
  static_assert(EachTypeHasOneLayout(Layouts), "a record type has two layouts in one version");
  static_assert(HasEachFieldOnce(Layouts), "a field is twice in a record");
  return true;
}();

// --- The record table of a version ---

constexpr FieldSize SizeOfRun(RunSize size, FieldSize counter) {
  switch (size) {
    case RunSize::TEXT:
      return FieldSize::TEXT;
    case RunSize::INT4:
      return FieldSize::INT4;
    case RunSize::INT8:
      return FieldSize::INT8;
    case RunSize::COUNTER:
      break;
  }
  return counter;
}

constexpr size_t CountFields(const LayoutRow& row) {
  size_t count = 0;
  for (const FieldRun& run : row.fields) count += static_cast<size_t>(run.last - run.first + 1);
  return count;
}

struct VersionSize {
  size_t rows = 0;
  size_t fields = 0;
};

constexpr VersionSize SizeOfVersion(std::span<const LayoutRow> layouts, uint32_t version) {
  VersionSize size;
  for (const LayoutRow& row : layouts) {
    if ((row.versions & version) == 0) continue;
    ++size.rows;
    size.fields += CountFields(row);
  }
  return size;
}

// The fields of all rows of the version, one row after the other.
template <size_t Count>
constexpr auto FieldsOfVersion(std::span<const LayoutRow> layouts, uint32_t version, FieldSize counter) {
  std::array<FieldSpec, Count> fields{};
  size_t next = 0;
  for (const LayoutRow& row : layouts) {
    if ((row.versions & version) == 0) continue;
    for (const FieldRun& run : row.fields) {
      for (int32_t field = run.first; field <= run.last; ++field) {
        fields[next++] = {field, SizeOfRun(run.size, counter), run.fixedDivisor};
      }
    }
  }
  return fields;
}

template <size_t Count>
constexpr auto RowsOfVersion(std::span<const LayoutRow> layouts, uint32_t version,
                             std::span<const FieldSpec> fields) {
  std::array<RecordLayout, Count> rows{};
  size_t next = 0;
  for (const LayoutRow& row : layouts) {
    if ((row.versions & version) == 0) continue;
    const size_t count = CountFields(row);
    rows[next++] = {row.type, row.listsOf == NO_TYPE ? row.type : row.listsOf, fields.first(count),
                    row.positional};
    fields = fields.subspan(count);
  }
  return rows;
}

template <const auto& Layouts, uint32_t Version, FieldSize CounterSize>
inline constexpr auto VERSION_FIELDS = FieldsOfVersion<SizeOfVersion(Layouts, Version).fields>(Layouts,
                                                                                               Version,
                                                                                               CounterSize);

template <const auto& Layouts, uint32_t Version, FieldSize CounterSize>
inline constexpr auto VERSION_ROWS = RowsOfVersion<SizeOfVersion(Layouts, Version).rows>(
    Layouts, Version, VERSION_FIELDS<Layouts, Version, CounterSize>);

// The rows of `Layouts` whose versions hold the bit `Version`, with counters of `CounterSize`.
template <const auto& Layouts, uint32_t Version, FieldSize CounterSize = NARROW_COUNTERS>
constexpr RecordTable TableOf(std::string_view name) {
  static_assert(LAYOUTS_ARE_GOOD<Layouts>);
  constexpr auto& ROWS = VERSION_ROWS<Layouts, Version, CounterSize>;
  return {.name = name, .rows = ROWS, .counters = CounterSize};
}

}  // namespace ozmo
