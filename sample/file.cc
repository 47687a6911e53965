#include "sample/file.h"

#include <algorithm>
#include <cmath>

namespace ozmo::sample {

namespace {

// The file's number for a figure of the model: whole, in the field's unit.
int64_t CountOf(const FieldLayout& field, double figure) {
  return static_cast<int64_t>(std::llround(figure * field.unit * field.divisor));
}

}  // namespace

FieldValues& FieldValues::Set(int32_t fieldId, double number) {
  values_.emplace_back(fieldId, number);
  return *this;
}

FieldValues& FieldValues::Set(int32_t fieldId, std::string_view text) {
  values_.emplace_back(fieldId, std::string(text));
  return *this;
}

const FieldValues::Value* FieldValues::Find(int32_t fieldId) const {
  const auto found = std::ranges::find(values_, fieldId, &std::pair<int32_t, Value>::first);
  return found == values_.end() ? nullptr : &found->second;
}

double FieldValues::Number(int32_t fieldId) const {
  const Value* value = Find(fieldId);
  const double* number = value == nullptr ? nullptr : std::get_if<double>(value);
  return number == nullptr ? 0 : *number;
}

std::string_view FieldValues::TextOf(int32_t fieldId) const {
  const Value* value = Find(fieldId);
  const std::string* text = value == nullptr ? nullptr : std::get_if<std::string>(value);
  return text == nullptr ? std::string_view() : *text;
}

SampleFile::SampleFile(ByteOrder order, std::vector<ExpandedRecord> records)
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

void SampleFile::WriteTag(std::string_view text) { writer_.Tag(text); }

void SampleFile::BeginSample(uint32_t timeRecord, const FieldValues& time) {
  twinnedTypes_.clear();
  Write(timeRecord, time);
}

void SampleFile::Write(uint32_t recordType, const FieldValues& values) {
  const bool twinWritten = std::ranges::count(twinnedTypes_, recordType) > 0;
  for (const ExpandedRecord& row : records_) {
    if (row.recordType == recordType || (row.twinOf == recordType && !twinWritten)) {
      WriteRow(row, values);
    }
  }
  if (!twinWritten) {
    twinnedTypes_.push_back(recordType);
  }
}

void SampleFile::WriteRow(const ExpandedRecord& row, const FieldValues& values) {
  std::vector<EncodedField> fields;
  fields.reserve(row.fields.size());
  for (const FieldLayout& field : row.fields) {
    switch (field.encoding) {
      case Encoding::TEXT:
        fields.push_back(Text(values.TextOf(field.fieldId)));
        break;
      case Encoding::INT64:
        fields.push_back(Int64(CountOf(field, values.Number(field.fieldId))));
        break;
      default:
        fields.push_back(Int32(CountOf(field, values.Number(field.fieldId))));
        break;
    }
  }
  writer_.Record(row.recordType, fields);
}

}  // namespace ozmo::sample
