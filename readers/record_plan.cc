#include "readers/record_plan.h"

#include <algorithm>

namespace ozmo {
namespace {

// A position beyond the shorter list has no divisor.
int32_t DivisorOf(const FieldSpec& spec, const DefinitionLists& lists) {
  if (spec.fixedDivisor != NOT_FOUND_ID) return spec.fixedDivisor;
  const size_t known = std::min(lists.order.size(), lists.divisors.size());
  for (size_t i = 0; i < known; ++i) {
    if (lists.order[i] == spec.fieldId) return lists.divisors[i];
  }
  return NOT_FOUND_ID;
}

// For each position of the file the field's index in the layout, or NOT_FOUND_ID: as many positions as the
// layout has fields, whatever the length of the list.
std::vector<int32_t> LayoutIndexes(const RecordLayout& layout, std::span<const int32_t> order) {
  std::vector<int32_t> indexes(layout.fields.size(), NOT_FOUND_ID);
  for (size_t position = 0; position < indexes.size(); ++position) {
    if (layout.positional) {
      indexes[position] = static_cast<int32_t>(position);
    } else if (position < order.size()) {
      const auto field = std::find_if(layout.fields.begin(), layout.fields.end(),
                                      [&](const FieldSpec& spec) { return spec.fieldId == order[position]; });
      if (field != layout.fields.end()) {
        indexes[position] = static_cast<int32_t>(field - layout.fields.begin());
      }
    }
  }
  return indexes;
}

}  // namespace

RecordPlan::RecordPlan(const RecordLayout& layout, const DefinitionLists& lists, ByteOrder order,
                       std::span<const int32_t> wanted) {
  FindFields(layout, lists, order);
  FindRuns(ChooseWanted(wanted));
}

// Takes those fields of the layout that have a position in the file.
void RecordPlan::FindFields(const RecordLayout& layout, const DefinitionLists& lists, ByteOrder order) {
  fieldAt_ = LayoutIndexes(layout, lists.order);
  for (size_t index = 0; index < layout.fields.size(); ++index) {
    const auto layoutIndex = static_cast<int32_t>(index);
    if (std::find(fieldAt_.begin(), fieldAt_.end(), layoutIndex) == fieldAt_.end()) continue;
    // Fields before this one have their new indexes already, which are not above those of the layout.
    const FieldSpec& spec = layout.fields[index];
    std::replace(fieldAt_.begin(), fieldAt_.end(), layoutIndex, static_cast<int32_t>(fields_.size()));
    fields_.push_back({spec.fieldId, DivisorOf(spec, lists), nullptr, spec.size, order});
  }
}

// For each of the fields its index in wanted_, or NOT_FOUND_ID. A file that has none of those that are wanted
// has all its fields taken: whether a record holds anything at all decides what becomes of it.
std::vector<int32_t> RecordPlan::ChooseWanted(std::span<const int32_t> wanted) {
  const auto isWanted = [&](const FieldValue& field) {
    return std::find(wanted.begin(), wanted.end(), field.fieldId) != wanted.end();
  };
  const bool takesAll = std::none_of(fields_.begin(), fields_.end(), isWanted);
  std::vector<int32_t> indexes;
  for (const FieldValue& field : fields_) {
    const bool isTaken = takesAll || isWanted(field);
    indexes.push_back(isTaken ? static_cast<int32_t>(wanted_.size()) : NOT_FOUND_ID);
    if (isTaken) wanted_.push_back(field);
  }
  return indexes;
}

void RecordPlan::FindRuns(const std::vector<int32_t>& wantedIndexes) {
  Run run;
  for (const int32_t field : fieldAt_) {
    if (field == NOT_FOUND_ID) continue;
    const int32_t wanted = wantedIndexes[static_cast<size_t>(field)];
    const FieldSize size = fields_[static_cast<size_t>(field)].size;
    if (wanted != NOT_FOUND_ID) places_.push_back({static_cast<uint32_t>(wanted), run.size});
    run.placeEnd = static_cast<uint32_t>(places_.size());
    run.size += static_cast<uint32_t>(size);  // of a text its length byte
    run.endsInText = size == FieldSize::TEXT;
    if (!run.endsInText) continue;
    runs_.push_back(run);
    run.size = 0;
  }
  if (run.size > 0) runs_.push_back(run);
  while (runs_.size() > 1 && runs_[runs_.size() - 2].placeEnd == places_.size()) runs_.pop_back();
  for (const Run& kept : runs_) reach_ += kept.size + (kept.endsInText ? LONGEST_FIELD - 1 : 0);
}

std::span<const FieldValue> RecordPlan::Place(const uint8_t* record, size_t size) {
  const uint8_t* begin = record;
  const uint8_t* const end = record + size;
  const FixedPlace* place = places_.data();
  for (const Run& run : runs_) {
    size_t taken = run.size;
    if (taken > static_cast<size_t>(end - begin)) return PlaceCutOff(record, size);
    for (const FixedPlace* const placeEnd = places_.data() + run.placeEnd; place != placeEnd; ++place) {
      wanted_[place->field].data = begin + place->offset;
    }
    if (run.endsInText) taken += begin[taken - 1];
    if (taken > static_cast<size_t>(end - begin)) return PlaceCutOff(record, size);
    begin += taken;
  }
  return wanted_;
}

std::span<const FieldValue> RecordPlan::PlaceCutOff(const uint8_t* record, size_t size) {
  for (FieldValue& field : fields_) field.data = nullptr;
  size_t offset = 0;
  for (const int32_t index : fieldAt_) {
    if (index == NOT_FOUND_ID) continue;
    if (offset >= size) break;
    FieldValue& field = fields_[static_cast<size_t>(index)];
    const size_t taken = SizeInFile(field.size, record + offset);
    if (taken > size - offset) break;
    field.data = record + offset;
    offset += taken;
  }
  return fields_;
}

}  // namespace ozmo
