// Record layouts of the collectors, as the sample files use them: a table in the file of each kind.
//
// A layout is a table, one row a record. The fields of a row are written as text, in file order:
// single ids or ranges, the size after the colon ("t" a text, "4" or "8" bytes). After a "*" may
// come the unit, how many of what the field counts make one of the model's figure (a second is
// 1000000000 nanoseconds), and after a "/" the divisor that the divisor list names. Both are 1
// otherwise; the file holds the figure times both. A unit of 0 is a field that the version leaves at 0.
//
//   {6, 0, ALL, "601-602:4 603-604:t 605-613:8/100 614:4"}
//
// A twin record repeats a base record under a number of its own; a twin row without fields has the
// fields of its base. A row belongs to the versions whose bits it holds, so a collector version is
// nothing but a set of rows.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "programs/sample/collector_writer.h"

namespace ozmo::sample {

struct SampleLayout {
  uint32_t recordType;
  uint32_t twinOf;  // 0: a base record
  uint32_t versions;
  std::string_view fields;
};

struct VersionLayout {
  std::string_view text;
  uint32_t versionBit;
};

struct FieldLayout {
  int32_t fieldId;
  Encoding encoding;
  int32_t unit;
  int32_t divisor;
};

// A row with its fields spelled out.
struct ExpandedRecord {
  uint32_t recordType;
  uint32_t twinOf;
  std::vector<FieldLayout> fields;
};

std::vector<FieldLayout> ExpandFields(std::string_view fields);

// The records of one version: the base records first, then the twins. That order matters to files
// in which a twin shares the definition lists of its base with other fields.
std::vector<ExpandedRecord> ExpandLayout(std::span<const SampleLayout> layout, uint32_t versionBit);

// The version that a text asks for: the equal one, else the first one the text holds. Null for an
// unknown text.
const VersionLayout* FindVersion(std::span<const VersionLayout> versions, std::string_view text);

}  // namespace ozmo::sample
