// Decoder tables: a row says which field goes to which member of a record, and by which conversion.
//
// The arithmetic runs in the type of the member: a member of 32 bits is computed in single precision, one of
// 64 bits in double precision, a whole number in whole numbers. The steps of a row, in order:
//
//   value in its form (0 beyond the limit), / scale, / interval (PER_INTERVAL), / divisor (where the row uses
//   it), floor at 0
//
// A field without a row doesn't count as read; a row that drops its field counts.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "readers/collector_format.h"
#include "runtime/numbers.h"

namespace ozmo {

// The form in which a number is taken from its field.
enum class Form : uint8_t {
  INT32,          // 4 bytes, signed; of an 8-byte field the low half
  UINT64,         // 8 bytes, unsigned
  SIGNED_HALVES,  // 8 bytes as two signed halves; 4 bytes signed where the field has no more
  NATURAL,        // by the field's own size: 4 bytes signed, 8 bytes unsigned
  WIDE            // UINT64 where the file's counters are wide, else INT32
};
enum class Per : uint8_t { RECORD, INTERVAL };
// Both tests are on a whole number, so at least 1 and above 0 are one.
enum class Divide : uint8_t { NEVER, AT_LEAST_1, ABOVE_1 };
enum class Sign : uint8_t { ANY, NOT_NEGATIVE };

inline double ValueAsDouble(const FieldValue& field, Form form, const ReaderState& state) {
  switch (form) {
    case Form::INT32:
      return field.Int32();
    case Form::UINT64:
      return static_cast<double>(field.Uint64());
    case Form::SIGNED_HALVES:
      return field.size == FieldSize::INT8 ? field.SignedHalves() : field.Int32();
    case Form::NATURAL:
      return field.size == FieldSize::INT8 ? static_cast<double>(field.Uint64()) : field.Int32();
    case Form::WIDE:
      return state.wideCounters ? static_cast<double>(field.Uint64()) : field.Int32();
  }
  return 0.0;
}

inline int64_t ValueAsInteger(const FieldValue& field, Form form, const ReaderState& state) {
  const bool wide = form == Form::UINT64 || (form == Form::WIDE && state.wideCounters) ||
                    ((form == Form::NATURAL || form == Form::SIGNED_HALVES) && field.size == FieldSize::INT8);
  return wide ? static_cast<int64_t>(field.Uint64()) : field.Int32();
}

template <class Record>
struct FieldRule {
  using Store = void (*)(Record& record, const FieldValue& field, const FieldRule& rule, Decoding& decoding);

  int32_t fieldId;
  Store store;  // null: the field counts and is dropped
  Form form = Form::INT32;
  Per per = Per::RECORD;
  Divide divide = Divide::NEVER;
  Sign sign = Sign::ANY;
  double scale = 1.0;                                      // the value is divided by it first
  double limit = std::numeric_limits<double>::infinity();  // a value not below it counts as 0
};

// For the limit of counters that are 32 bits wide at their source: one beyond is bad.
inline constexpr double COUNTER_LIMIT = 4294967296.0;

// The conversion of a row, in the precision of `Number`.
template <class Number, class Record>
Number Convert(const FieldValue& field, const FieldRule<Record>& rule, const ReaderState& state) {
  const bool divides = (rule.divide == Divide::AT_LEAST_1 && field.divisor >= 1) ||
                       (rule.divide == Divide::ABOVE_1 && field.divisor > 1);
  if constexpr (std::is_integral_v<Number>) {
    int64_t value = ValueAsInteger(field, rule.form, state);
    if (divides) value /= field.divisor;
    if (rule.sign == Sign::NOT_NEGATIVE) value = std::max<int64_t>(value, 0);
    return static_cast<Number>(value);
  } else {
    const double raw = ValueAsDouble(field, rule.form, state);
    Number value = raw < rule.limit ? static_cast<Number>(raw) : 0;
    if (rule.scale != 1.0) value = static_cast<Number>(value / rule.scale);
    if (rule.per == Per::INTERVAL) value = value / static_cast<Number>(state.intervalSeconds);
    if (divides) value = value / static_cast<Number>(field.divisor);
    if (rule.sign == Sign::NOT_NEGATIVE && value < 0) value = 0;
    return value;
  }
}

template <class Member>
struct MemberOf;
template <class Owner, class Value>
struct MemberOf<Value Owner::*> {
  using Record = Owner;
  using Type = Value;
};

// Store functions for the rows: To<&Record::member>, and ToElement<&Record::array, index>.
template <auto Member>
void To(typename MemberOf<decltype(Member)>::Record& record, const FieldValue& field,
        const FieldRule<typename MemberOf<decltype(Member)>::Record>& rule, Decoding& decoding) {
  using Type = typename MemberOf<decltype(Member)>::Type;
  if constexpr (std::is_same_v<Type, std::string>) {
    record.*Member = field.Text();
  } else {
    record.*Member = Convert<Type>(field, rule, decoding.state);
  }
}

// To a member of double precision, through single precision.
template <auto Member>
void ToRounded(typename MemberOf<decltype(Member)>::Record& record, const FieldValue& field,
               const FieldRule<typename MemberOf<decltype(Member)>::Record>& rule, Decoding& decoding) {
  record.*Member = static_cast<double>(Convert<float>(field, rule, decoding.state));
}

template <auto Member, size_t Index>
void ToElement(typename MemberOf<decltype(Member)>::Record& record, const FieldValue& field,
               const FieldRule<typename MemberOf<decltype(Member)>::Record>& rule, Decoding& decoding) {
  using Array = typename MemberOf<decltype(Member)>::Type;
  using Type = typename Array::value_type;
  static_assert(Index < std::tuple_size_v<Array>);
  if constexpr (std::is_same_v<Type, std::string>) {
    (record.*Member)[Index] = field.Text();
  } else {
    (record.*Member)[Index] = Convert<Type>(field, rule, decoding.state);
  }
}

// The rows of one decoder, found by field id.
template <class Record>
class RuleTable {
 public:
  RuleTable(std::initializer_list<FieldRule<Record>> rows) : rows_(rows) {
    const auto [low, high] = std::minmax_element(
        rows_.begin(), rows_.end(), [](const auto& a, const auto& b) { return a.fieldId < b.fieldId; });
    first_ = low->fieldId;
    index_.assign(static_cast<size_t>(int64_t{high->fieldId} - first_ + 1), NONE);
    for (size_t i = 0; i < rows_.size(); ++i) index_[static_cast<size_t>(rows_[i].fieldId - first_)] = i;
  }

  const FieldRule<Record>* Find(int32_t fieldId) const {
    const auto offset = static_cast<size_t>(int64_t{fieldId} - first_);
    if (offset >= index_.size() || index_[offset] == NONE) return nullptr;
    return &rows_[index_[offset]];
  }

 private:
  static constexpr size_t NONE = std::numeric_limits<size_t>::max();
  std::vector<FieldRule<Record>> rows_;
  std::vector<size_t> index_;
  int32_t first_ = 0;
};

// Runs the rows over the record's fields; how many fields counted.
template <class Record>
int ApplyRules(const RuleTable<Record>& rules, Record& record, Decoding& decoding) {
  int counted = 0;
  for (const FieldValue& field : decoding.fields) {
    if (field.data == nullptr) continue;
    const FieldRule<Record>* rule = rules.Find(field.fieldId);
    if (rule == nullptr) continue;
    ++counted;
    if (rule->store != nullptr) rule->store(record, field, *rule, decoding);
  }
  return counted;
}

// The common decoder: a new head of the list, filled by the rows; without a counted field it is taken off
// again.
template <class Record>
int DecodeToList(const RuleTable<Record>& rules, TwinPair<RecordList<Record>>& lists, Decoding& decoding) {
  RecordList<Record>& list = lists.Of(decoding.isTwin);
  const int counted = ApplyRules(rules, list.Push(), decoding);
  if (counted == 0) list.PopHead();
  return counted;
}

// The same for a single record of the interval: one that stands is filled again.
template <class Record>
int DecodeToSlot(const RuleTable<Record>& rules, std::optional<Record>& slot, Decoding& decoding) {
  const bool isNew = !slot.has_value();
  if (isNew) slot.emplace();
  const int counted = ApplyRules(rules, *slot, decoding);
  if (counted == 0 && isNew) slot.reset();
  return counted;
}

}  // namespace ozmo
