// One collector file in the making: the values of a record by field id, put into the layout of the
// collector version that the file is of.
//
// The caller names values for every field that any version knows. The file writes the record with
// the fields of its own version, in their order and sizes; a field without a value is 0 or an empty
// text. A record that the version hasn't got is left out.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "sample/collector_writer.h"
#include "sample/layouts.h"

namespace ozmo::sample {

class FieldValues {
 public:
  // Numbers are figures of the model; the layout knows the unit that the file counts in.
  FieldValues& Set(int32_t fieldId, double number);
  FieldValues& Set(int32_t fieldId, std::string_view text);
  template <std::integral Integer>
  FieldValues& Set(int32_t fieldId, Integer number) {
    values_.emplace_back(fieldId, static_cast<double>(number));
    return *this;
  }

  double Number(int32_t fieldId) const;
  std::string_view TextOf(int32_t fieldId) const;

 private:
  using Value = std::variant<double, std::string>;
  const Value* Find(int32_t fieldId) const;

  std::vector<std::pair<int32_t, Value>> values_;
};

class SampleFile {
 public:
  SampleFile(ByteOrder order, std::vector<ExpandedRecord> records);

  // All order lists, then all divisor lists.
  void WriteDefinitions();
  // A mark with a text: record 99.
  void WriteTag(std::string_view text);
  // Starts a sample: the time record.
  void BeginSample(uint32_t timeRecord, const FieldValues& time);
  // Writes the record, and behind it its twin if this is the first such record of the sample.
  void Write(uint32_t recordType, const FieldValues& values);

  bool Save(const std::string& path) const { return writer_.WriteFile(path); }

 private:
  void WriteRow(const ExpandedRecord& row, const FieldValues& values);

  CollectorWriter writer_;
  std::vector<ExpandedRecord> records_;
  std::vector<uint32_t> twinnedTypes_;  // base records that have had their twin in this sample
};

}  // namespace ozmo::sample
