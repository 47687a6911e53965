// One collector file in the making: the values of a record by field id, put into the layout of the
// collector version that the file is of.
//
// The caller names values for every field that any version knows. The file writes the record with
// the fields of its own version, in their order and sizes; a field without a value is 0 or an empty
// text. A record that the version hasn't got is left out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "programs/sample/collector_writer.h"
#include "programs/sample/layouts.h"

namespace ozmo::sample {

// A number is a figure of the model: the layout knows the unit that the file counts in. A text has to outlive
// the call that it is for.
struct FieldFigure {
  template <typename Number>
  requires std::is_arithmetic_v<Number> FieldFigure(int32_t id, Number figure)
      : fieldId(id), number(static_cast<double>(figure)) {}
  FieldFigure(int32_t id, std::string_view words) : fieldId(id), text(words) {}

  int32_t fieldId;
  double number = 0;
  std::string_view text;
};

using FieldFigures = std::vector<FieldFigure>;

class SampleFile {
 public:
  SampleFile(WrittenOrder order, std::vector<ExpandedRecord> records);

  // All order lists, then all divisor lists.
  void WriteDefinitions();
  // A mark with a text: record 99.
  void WriteTag(std::string_view text) { writer_.Tag(text); }
  // Starts a sample: the time record.
  void BeginSample(uint32_t timeRecord, int32_t timeField, int64_t time);
  // Writes the record, and after it its twin if this is the first such record of the sample.
  void Write(uint32_t recordType, const FieldFigures& values);

  const std::string& Bytes() const { return writer_.Bytes(); }

 private:
  void WriteRow(const ExpandedRecord& row, const FieldFigures& values);

  CollectorWriter writer_;
  std::vector<ExpandedRecord> records_;
  std::vector<uint32_t> twinnedTypes_;  // base records that have had their twin in this sample
};

}  // namespace ozmo::sample
