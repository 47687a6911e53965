#include "programs/sample/collector_writer.h"

#include <algorithm>

#include "runtime/whole_file.h"

namespace ozmo::sample {
namespace {

constexpr uint32_t TAG_RECORD = 99;
constexpr size_t LONGEST_TEXT = 255;

std::vector<EncodedField> Int32Array(const std::vector<int32_t>& values) {
  std::vector<EncodedField> fields;
  fields.reserve(values.size());
  for (int32_t value : values) {
    fields.push_back(Int32(value));
  }
  return fields;
}

}  // namespace

EncodedField Int32(int64_t value) { return {Encoding::INT32, static_cast<uint64_t>(value), {}}; }

EncodedField Int64(int64_t value) { return {Encoding::INT64, static_cast<uint64_t>(value), {}}; }

EncodedField Text(std::string_view text) {
  return {Encoding::TEXT, 0, std::string(text.substr(0, LONGEST_TEXT))};
}

EncodedField Raw(std::string_view bytes) { return {Encoding::RAW, 0, std::string(bytes)}; }

CollectorWriter& CollectorWriter::LeadingBlock(std::string_view lines) {
  bytes_ += "-----BEGIN COLLECTOR FILE-----\n";
  bytes_ += lines;
  bytes_ += "-----END COLLECTOR FILE-----\n";
  return *this;
}

CollectorWriter& CollectorWriter::OrderList(uint32_t recordType, const std::vector<int32_t>& fieldIds) {
  return Record(recordType * 100, Int32Array(fieldIds));
}

CollectorWriter& CollectorWriter::DivisorList(uint32_t recordType, const std::vector<int32_t>& divisors) {
  return Record(recordType * 10, Int32Array(divisors));
}

CollectorWriter& CollectorWriter::Record(uint32_t recordType, const std::vector<EncodedField>& fields) {
  const size_t start = bytes_.size();
  RecordWithLength(0, recordType, fields);
  // The length comes before a payload whose size is only known now.
  bytes_.replace(start, 4, NumberBytes(bytes_.size() - start, 4));
  return *this;
}

CollectorWriter& CollectorWriter::Tag(std::string_view text) { return Record(TAG_RECORD, {Text(text)}); }

CollectorWriter& CollectorWriter::RecordWithLength(uint32_t recordLength, uint32_t recordType,
                                                   const std::vector<EncodedField>& fields) {
  bytes_ += NumberBytes(recordLength, 4);
  bytes_ += NumberBytes(recordType, 4);
  for (const EncodedField& field : fields) {
    PutField(field);
  }
  return *this;
}

CollectorWriter& CollectorWriter::RawBytes(std::string_view bytes) {
  bytes_ += bytes;
  return *this;
}

CollectorWriter& CollectorWriter::CutTail(size_t byteCount) {
  bytes_.resize(bytes_.size() - std::min(byteCount, bytes_.size()));
  return *this;
}

bool CollectorWriter::WriteFile(const std::string& path) const {
  return WriteWholeFile({path}, bytes_).empty();
}

std::string CollectorWriter::NumberBytes(uint64_t value, int byteCount) const {
  std::string bytes;
  for (int i = 0; i < byteCount; ++i) {
    const int byte = order_ == WrittenOrder::LITTLE ? i : byteCount - 1 - i;
    bytes += static_cast<char>((value >> (8 * byte)) & 0xFF);
  }
  return bytes;
}

void CollectorWriter::PutField(const EncodedField& field) {
  switch (field.encoding) {
    case Encoding::TEXT:
      bytes_ += static_cast<char>(field.text.size());
      bytes_ += field.text;
      break;
    case Encoding::INT32:
      bytes_ += NumberBytes(field.number, 4);
      break;
    case Encoding::INT64:
      bytes_ += NumberBytes(field.number, 8);
      break;
    case Encoding::RAW:
      bytes_ += field.text;
      break;
  }
}

}  // namespace ozmo::sample
