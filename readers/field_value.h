// One field of a collector record as it is in the file.
//
// A field is a text (one length byte, then that many bytes), a 4-byte or an 8-byte integer in the file's byte
// order. Fields carry no tags; the place of one follows from the definition list of its record type.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ozmo {

enum class ByteOrder : uint8_t { BIG, LITTLE };
enum class FieldSize : uint8_t { TEXT = 1, INT4 = 4, INT8 = 8 };

// No such row, field or divisor.
inline constexpr int32_t NOT_FOUND_ID = -8888;

inline uint32_t LoadUint32(const uint8_t* bytes, ByteOrder order) {
  if (order == ByteOrder::LITTLE) {
    return uint32_t{bytes[0]} | uint32_t{bytes[1]} << 8 | uint32_t{bytes[2]} << 16 | uint32_t{bytes[3]} << 24;
  }
  return uint32_t{bytes[3]} | uint32_t{bytes[2]} << 8 | uint32_t{bytes[1]} << 16 | uint32_t{bytes[0]} << 24;
}

inline uint64_t LoadUint64(const uint8_t* bytes, ByteOrder order) {
  const uint64_t first = LoadUint32(bytes, order);
  const uint64_t second = LoadUint32(bytes + 4, order);
  return order == ByteOrder::LITTLE ? second << 32 | first : first << 32 | second;
}

// A text after its length byte. It ends at its first NUL byte, where it has one: collectors fill up with
// them.
inline std::string_view LoadText(const uint8_t* bytes) {
  const std::string_view text(reinterpret_cast<const char*>(bytes + 1), bytes[0]);
  return text.substr(0, text.find('\0'));
}

struct FieldValue {
  int32_t fieldId = 0;
  int32_t divisor = NOT_FOUND_ID;
  const uint8_t* data = nullptr;  // null: the file hasn't got the field
  FieldSize size = FieldSize::INT4;
  ByteOrder order = ByteOrder::BIG;

  // The number's low and high 32 bits; a 4-byte field has no high half, and a text is no number.
  uint32_t Low() const {
    switch (size) {
      case FieldSize::INT4:
        return LoadUint32(data, order);
      case FieldSize::INT8:
        return LoadUint32(order == ByteOrder::BIG ? data + 4 : data, order);
      case FieldSize::TEXT:
        break;
    }
    return 0;
  }
  uint32_t High() const {
    return size == FieldSize::INT8 ? LoadUint32(order == ByteOrder::BIG ? data : data + 4, order) : 0;
  }

  // The 4-byte form: signed; of an 8-byte field the low half.
  int32_t Int32() const { return static_cast<int32_t>(Low()); }
  // The 8-byte form: unsigned.
  uint64_t Uint64() const { return size == FieldSize::INT8 ? LoadUint64(data, order) : Low(); }
  // The 8-byte form in signed halves: each half is a signed number, high * 2^32 + low. A low half with its
  // top bit set thus pulls the value down by 2^32.
  double SignedHalves() const {
    return static_cast<double>(static_cast<int32_t>(High())) * 4294967296.0 +
           static_cast<double>(static_cast<int32_t>(Low()));
  }

  std::string_view Text() const { return size == FieldSize::TEXT ? LoadText(data) : std::string_view(); }
};

}  // namespace ozmo
