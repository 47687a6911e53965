// Where the fields of one record type are, worked out once when the file's definition lists have come.
//
// Numbers have fixed sizes, so the fields between two texts, a run, are at fixed distances: the length of a
// text is all that has to be looked at to find the next run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "readers/collector_format.h"
#include "readers/field_value.h"

namespace ozmo {

// A text with its length byte: no field takes more.
inline constexpr size_t LONGEST_FIELD = 256;

// The definition lists of a record type, as the file brought them.
struct DefinitionLists {
  std::vector<int32_t> order;     // field ids in file order
  std::vector<int32_t> divisors;  // by the same positions
};

class RecordPlan {
 public:
  // `wanted`: the fields that Place is asked for; empty: all.
  RecordPlan(const RecordLayout& layout, const DefinitionLists& lists, ByteOrder order,
             std::span<const int32_t> wanted = {});

  // The wanted fields that the file has, in table order. They point into `record`, of which `size` bytes are
  // there. Of a record that is cut off before one of them it is all fields, and those that aren't there
  // have null data.
  std::span<const FieldValue> Place(const uint8_t* record, size_t size);
  // How many bytes of a record Place can need at most.
  size_t reach() const { return reach_; }

  // For records that are acted on field by field: as many positions as the layout has fields, and the field
  // at each; null where the list has none, or one that the layout doesn't know.
  size_t PositionCount() const { return fieldAt_.size(); }
  const FieldValue* FieldAt(size_t position) const {
    return fieldAt_[position] == NOT_FOUND_ID ? nullptr : &fields_[static_cast<size_t>(fieldAt_[position])];
  }

 private:
  struct FixedPlace {
    uint32_t field;   // in wanted_
    uint32_t offset;  // from the begin of its run
  };
  struct Run {
    uint32_t placeEnd = 0;  // after the run's last in places_
    uint32_t size = 0;      // of all fields, with the length byte of the text
    bool endsInText = false;
  };

  void FindFields(const RecordLayout& layout, const DefinitionLists& lists, ByteOrder order);
  std::vector<int32_t> ChooseWanted(std::span<const int32_t> wanted);
  void FindRuns(const std::vector<int32_t>& wantedIndexes);
  std::span<const FieldValue> PlaceCutOff(const uint8_t* record, size_t size);

  std::vector<FieldValue> fields_;  // all that the file has, in table order
  std::vector<int32_t> fieldAt_;    // for each position its field in fields_, or NOT_FOUND_ID
  std::vector<FieldValue> wanted_;
  std::vector<FixedPlace> places_;  // of wanted_, in file order
  std::vector<Run> runs_;           // up to the last that holds a wanted field
  size_t reach_ = 0;
};

// The bytes that a field takes which begins at `bytes`.
inline size_t SizeInFile(FieldSize size, const uint8_t* bytes) {
  return size == FieldSize::TEXT ? size_t{bytes[0]} + 1 : static_cast<size_t>(size);
}

}  // namespace ozmo
