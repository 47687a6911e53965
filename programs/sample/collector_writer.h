// Writes collector files, byte by byte.
//
// A collector file is a chain of records without any header: a length that counts itself, a type
// number, and the payload. What the fields of a data record are is given by two lists that come
// before the data: the record R * 100 holds the field ids of record R in file order, the record
// R * 10 the divisors of these fields, position by position. Record 99 is a mark with a text.
//
// The writer knows nothing else of any platform: which records and fields there are is given by
// whoever writes (a kind of sample files by its layouts, a test for its own case). It shares no code with
// the readers, so that a slip on one side does not hide one on the other.
//
//   CollectorWriter writer(WrittenOrder::BIG);
//   writer.OrderList(7, {701}).DivisorList(7, {1});
//   writer.Record(7, {Int32(1329897600)});
//   writer.WriteFile("/tmp/qtxs_node_2012Feb22.dat_1");
//
// Everything here lives in ozmo::sample, a namespace of its own: a test may include it beside the readers.
//
// The operations under "defects" make what no collector writes on purpose: tests use them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ozmo::sample {

enum class WrittenOrder { LITTLE, BIG };

enum class Encoding { TEXT, INT32, INT64, RAW };

// One field as it goes into a record. Fields carry no tag in the file.
struct EncodedField {
  Encoding encoding = Encoding::INT32;
  uint64_t number = 0;
  std::string text;
};

// Numbers take signed and unsigned values alike; what doesn't fit is cut to the field's width.
EncodedField Int32(int64_t value);
EncodedField Int64(int64_t value);
// A length byte and the bytes; a text of more than 255 bytes is cut there.
EncodedField Text(std::string_view text);
// Bytes that are in the payload as they are.
EncodedField Raw(std::string_view bytes);

class CollectorWriter {
 public:
  explicit CollectorWriter(WrittenOrder order) : order_(order) {}

  // A text block before the first record, between its two marker lines.
  CollectorWriter& LeadingBlock(std::string_view lines);

  // The definition records of data record `recordType`: types recordType * 100 and * 10.
  CollectorWriter& OrderList(uint32_t recordType, const std::vector<int32_t>& fieldIds);
  CollectorWriter& DivisorList(uint32_t recordType, const std::vector<int32_t>& divisors);

  CollectorWriter& Record(uint32_t recordType, const std::vector<EncodedField>& fields);
  // Record 99: one length byte and the text.
  CollectorWriter& Tag(std::string_view text);

  // Defects. A record whose length field lies; bytes that belong to no record; a tail cut off.
  CollectorWriter& RecordWithLength(uint32_t recordLength, uint32_t recordType,
                                    const std::vector<EncodedField>& fields);
  CollectorWriter& RawBytes(std::string_view bytes);
  CollectorWriter& CutTail(size_t byteCount);

  const std::string& Bytes() const { return bytes_; }
  // False when the file can't be written whole.
  bool WriteFile(const std::string& path) const;

 private:
  std::string NumberBytes(uint64_t value, int byteCount) const;
  void PutField(const EncodedField& field);

  WrittenOrder order_;
  std::string bytes_;
};

}  // namespace ozmo::sample
