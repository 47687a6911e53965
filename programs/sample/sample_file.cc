#include "programs/sample/sample_file.h"

#include <algorithm>
#include <cmath>

namespace ozmo::sample {
namespace {

EncodedField Encode(const FieldLayout& field, const FieldFigures& values) {
  const auto found = std::ranges::find(values, field.fieldId, &FieldFigure::fieldId);
  if (field.encoding == Encoding::TEXT) return Text(found == values.end() ? "" : found->text);
  const double figure = found == values.end() ? 0 : found->number;
  // Whole, in the field's unit.
  const int64_t count = std::llround(figure * field.unit * field.divisor);
  return field.encoding == Encoding::INT64 ? Int64(count) : Int32(count);
}

}  // namespace

SampleFile::SampleFile(WrittenOrder order, std::vector<ExpandedRecord> records)
    : writer_(order), records_(std::move(records)) {}

void SampleFile::WriteDefinitions() {
  std::vector<int32_t> numbers;
  for (const ExpandedRecord& row : records_) {
    numbers.resize(row.fields.size());
    std::ranges::transform(row.fields, numbers.begin(), &FieldLayout::fieldId);
    writer_.OrderList(row.recordType, numbers);
  }
  for (const ExpandedRecord& row : records_) {
    numbers.resize(row.fields.size());
    std::ranges::transform(row.fields, numbers.begin(), &FieldLayout::divisor);
    writer_.DivisorList(row.recordType, numbers);
  }
}

void SampleFile::BeginSample(uint32_t timeRecord, int32_t timeField, int64_t time) {
  twinnedTypes_.clear();
  Write(timeRecord, {{timeField, time}});
}

void SampleFile::Write(uint32_t recordType, const FieldFigures& values) {
  const bool twinWritten = std::ranges::count(twinnedTypes_, recordType) > 0;
  for (const ExpandedRecord& row : records_) {
    if (row.recordType == recordType || (row.twinOf == recordType && !twinWritten)) WriteRow(row, values);
  }
  if (!twinWritten) twinnedTypes_.push_back(recordType);
}

void SampleFile::WriteRow(const ExpandedRecord& row, const FieldFigures& values) {
  std::vector<EncodedField> fields;
  fields.reserve(row.fields.size());
  for (const FieldLayout& field : row.fields) fields.push_back(Encode(field, values));
  writer_.Record(row.recordType, fields);
}

}  // namespace ozmo::sample
