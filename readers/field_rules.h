// Rules: tables of rows that say which field goes where in a record, and by which conversion.
//
//   constexpr Conversion RATE{.form = Form::WIDE, .per = Per::INTERVAL};
//   constexpr FieldRule<LoadItem> ITEM_RULES[] = {
//       {.field = 1, .to = To<&LoadItem::itemName>()},
//       {.field = 2, .last = 7, .to = To<&LoadItem::itemRates>(), .as = RATE},
//   };
//
// A table is a constant, and goes to what works on it as a template argument: the index by field id is made
// by the compiler, which refuses a field that is named twice and a run of fields that is longer than its
// array.
//
// The arithmetic runs in the type of the member: a member of 32 bits is computed in single precision, one of
// 64 bits in double precision, a whole number in whole numbers. The steps of a conversion, in order:
//
//   value in its form (0 beyond the limit), / scale, / interval (Per::INTERVAL), / divisor (where the row
//   uses it), floor at 0
//
// A field without a row doesn't count as read; a row that leads nowhere drops its field, which counts.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

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

// How the number of a field becomes the value of a member. Whole numbers know neither scale, interval nor
// limit.
struct Conversion {
  Form form = Form::INT32;
  Per per = Per::RECORD;
  Divide divide = Divide::NEVER;
  Sign sign = Sign::ANY;
  double scale = 1.0;                                      // the value is divided by it first
  double limit = std::numeric_limits<double>::infinity();  // a value not below it counts as 0
};

// For the limit of counters that are 32 bits wide at their source: one beyond is bad.
inline constexpr double COUNTER_LIMIT = 4294967296.0;

// What a row works on.
struct Source {
  const FieldValue& field;
  const Conversion& as;
  size_t place;  // of the field in the row's run
  Decoding& decoding;
};

[[gnu::always_inline]] inline double ValueAsDouble(const FieldValue& field, Form form,
                                                   const ReaderState& state) {
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
inline double ValueAsDouble(const Source& from) {
  return ValueAsDouble(from.field, from.as.form, from.decoding.state);
}

[[gnu::always_inline]] inline int64_t ValueAsInteger(const FieldValue& field, Form form,
                                                     const ReaderState& state) {
  const bool wide = form == Form::UINT64 || (form == Form::WIDE && state.wideCounters) ||
                    ((form == Form::NATURAL || form == Form::SIGNED_HALVES) && field.size == FieldSize::INT8);
  return wide ? static_cast<int64_t>(field.Uint64()) : field.Int32();
}

// The conversion of a row, in the precision of `Number`. Inlined, so that a row is left with the steps it
// has.
template <class Number>
[[gnu::always_inline]] inline Number Convert(const Source& from) {
  const Conversion& as = from.as;
  const int32_t divisor = from.field.divisor;
  const ReaderState& state = from.decoding.state;
  const bool divides =
      (as.divide == Divide::AT_LEAST_1 && divisor >= 1) || (as.divide == Divide::ABOVE_1 && divisor > 1);
  if constexpr (std::is_integral_v<Number>) {
    int64_t value = ValueAsInteger(from.field, as.form, state);
    if (divides) value /= divisor;
    if (as.sign == Sign::NOT_NEGATIVE) value = std::max<int64_t>(value, 0);
    return static_cast<Number>(value);
  } else {
    const double raw = ValueAsDouble(from);
    Number value = raw < as.limit ? static_cast<Number>(raw) : 0;
    if (as.scale != 1.0) value = static_cast<Number>(value / as.scale);
    if (as.per == Per::INTERVAL) value = value / static_cast<Number>(state.intervalSeconds);
    if (divides) value = value / static_cast<Number>(divisor);
    if (as.sign == Sign::NOT_NEGATIVE && value < 0) value = 0;
    return value;
  }
}

// --- Where a row leads ---

template <class Record>
struct Destination {
  using Store = void (*)(Record& record, const Source& from);

  Store store;
  size_t room;    // for how many fields one after the other
  bool isDetail;  // what no builder reads
};

template <class Target>
struct MemberOf;
template <class Owner, class Value>
struct MemberOf<Value Owner::*> {
  using Record = Owner;
  using Type = Value;
};
template <class Owner>
struct MemberOf<void (*)(Owner&, const Source&)> {
  using Record = Owner;
};
template <auto Target>
using TargetRecord = typename MemberOf<decltype(Target)>::Record;

template <class Type>
inline constexpr size_t ELEMENT_COUNT = 0;
template <class Element, size_t Count>
inline constexpr size_t ELEMENT_COUNT<std::array<Element, Count>> = Count;

// Out of line: a record has a text or two beside dozens of numbers.
[[gnu::noinline, gnu::flatten]] inline void StoreText(std::string& member, const FieldValue& field) {
  member = field.Text();
}

template <class Member>
void StoreField(Member& member, const Source& from) {
  if constexpr (std::is_same_v<Member, std::string>) {
    StoreText(member, from.field);
  } else {
    member = Convert<Member>(from);
  }
}

template <auto Member>
void StoreMember(TargetRecord<Member>& record, const Source& from) {
  StoreField(record.*Member, from);
}

template <auto Array, size_t First>
void StoreElement(TargetRecord<Array>& record, const Source& from) {
  StoreField((record.*Array)[First + from.place], from);
}

// To a member: To<&Record::member>(). To the elements of an array, from one of them on:
// To<&Record::array, first>(). By a function, for a rule of its own: To<StoreIt>().
template <auto Target, size_t First = 0>
constexpr Destination<TargetRecord<Target>> To() {
  if constexpr (std::is_member_object_pointer_v<decltype(Target)>) {
    constexpr size_t COUNT = ELEMENT_COUNT<typename MemberOf<decltype(Target)>::Type>;
    if constexpr (COUNT > 0) {
      static_assert(First < COUNT, "the array hasn't got the element");
      return {StoreElement<Target, First>, COUNT - First, false};
    } else {
      return {StoreMember<Target>, 1, false};
    }
  } else {
    return {Target, 1, false};
  }
}

// The same for a figure that no builder reads: a walk for a builder may pass the field over.
template <auto Target, size_t First = 0>
constexpr Destination<TargetRecord<Target>> Detail() {
  Destination<TargetRecord<Target>> destination = To<Target, First>();
  destination.isDetail = true;
  return destination;
}

template <class Record>
void Drop(Record& /*record*/, const Source& /*from*/) {}

template <class Record>
constexpr Destination<Record> Nowhere() {
  return {Drop<Record>, std::numeric_limits<size_t>::max(), true};
}

template <class Record>
struct FieldRule {
  using RecordType = Record;

  int32_t field;
  int32_t last = 0;  // of the fields one after the other that the row takes; 0: it takes one
  Destination<Record> to = Nowhere<Record>();
  Conversion as = {};
  RecordKind wantedFor = RecordKind::CONFIGURATION;  // as of a BuilderField

  constexpr int32_t Last() const { return last == 0 ? field : last; }
};

// --- Tables ---

template <const auto& Rules>
using RecordOfRules = typename std::remove_cvref_t<decltype(Rules[0])>::RecordType;

template <class Rules>
constexpr bool RunsFit(const Rules& rules) {
  return std::all_of(std::begin(rules), std::end(rules), [](const auto& rule) {
    return rule.Last() >= rule.field && static_cast<size_t>(rule.Last() - rule.field) < rule.to.room;
  });
}

template <class Rules>
constexpr bool EachFieldHasOneRow(const Rules& rules) {
  for (auto rule = std::begin(rules); rule != std::end(rules); ++rule) {
    const bool overlaps = std::any_of(std::begin(rules), rule, [&](const auto& other) {
      return rule->field <= other.Last() && other.field <= rule->Last();
    });
    if (overlaps) return false;
  }
  return true;
}

// What a row does with a field, compiled for that row.
template <const auto& Rules, size_t Row>
[[gnu::flatten]] void ApplyRow(RecordOfRules<Rules>& record, const FieldValue& field, Decoding& decoding) {
  // Of its own, since a reference to the table would have all functions that the table names compiled once
  // more.
  static constexpr Conversion AS = Rules[Row].as;
  constexpr auto STORE = Rules[Row].to.store;
  STORE(record, {field, AS, static_cast<size_t>(field.fieldId - Rules[Row].field), decoding});
}

template <const auto& Rules>
constexpr int32_t FirstField() {
  return std::min_element(std::begin(Rules), std::end(Rules),
                          [](const auto& a, const auto& b) { return a.field < b.field; })
      ->field;
}
template <const auto& Rules>
constexpr int32_t LastField() {
  return std::max_element(std::begin(Rules), std::end(Rules),
                          [](const auto& a, const auto& b) { return a.Last() < b.Last(); })
      ->Last();
}

// By field id less that of the first field what its row does with it; null where no row names the field.
template <const auto& Rules>
inline constexpr auto RULE_INDEX = []<size_t... Row>(std::index_sequence<Row...>) {
  static_assert(RunsFit(Rules), "a run of fields is longer than its array");
  static_assert(EachFieldHasOneRow(Rules), "a field is named twice");
  using Apply = void (*)(RecordOfRules<Rules>&, const FieldValue&, Decoding&);
  constexpr int32_t FIRST = FirstField<Rules>();
  std::array<Apply, static_cast<size_t>(LastField<Rules>() - FIRST + 1)> index{};
  const auto enter = [&](const auto& rule, Apply apply) {
    for (int32_t field = rule.field; field <= rule.Last(); ++field) {
      index[static_cast<size_t>(field - FIRST)] = apply;
    }
  };
  (enter(Rules[Row], ApplyRow<Rules, Row>), ...);
  return index;
}
(std::make_index_sequence<std::size(Rules)>());

template <const auto& Rules>
constexpr size_t CountBuilderFields() {
  size_t count = 0;
  for (const auto& rule : Rules) {
    if (!rule.to.isDetail) count += static_cast<size_t>(rule.Last() - rule.field + 1);
  }
  return count;
}

// The fields that builders read the figures of.
template <const auto& Rules>
inline constexpr auto BUILDER_FIELDS = [] {
  std::array<BuilderField, CountBuilderFields<Rules>()> fields{};
  size_t next = 0;
  for (const auto& rule : Rules) {
    for (int32_t field = rule.field; field <= rule.Last() && !rule.to.isDetail; ++field) {
      fields[next++] = {field, rule.wantedFor};
    }
  }
  return fields;
}();

// --- Decoding by rules ---

// Runs the rules over the record's fields; whether a field counted.
template <const auto& Rules>
bool ApplyRules(RecordOfRules<Rules>& record, Decoding& decoding) {
  constexpr int32_t FIRST = FirstField<Rules>();
  bool counts = false;
  for (const FieldValue& field : decoding.fields) {
    if (field.data == nullptr) continue;
    const auto place = static_cast<size_t>(int64_t{field.fieldId} - FIRST);
    if (place >= RULE_INDEX<Rules>.size() || RULE_INDEX<Rules>[place] == nullptr) continue;
    counts = true;
    RULE_INDEX<Rules>[place](record, field, decoding);
  }
  return counts;
}

// A new head of the list, filled by the rules. Without a field that counts it is taken off again: false.
template <const auto& Rules, class Record>
bool FillHead(RecordList<Record>& list, Decoding& decoding) {
  const bool counts = ApplyRules<Rules>(list.Push(), decoding);
  if (!counts) list.PopHead();
  return counts;
}

// The same for a single record of the interval: one that is there is filled again.
template <const auto& Rules, class Record>
bool FillSlot(std::optional<Record>& slot, Decoding& decoding) {
  const bool isNew = !slot.has_value();
  if (isNew) slot.emplace();
  const bool counts = ApplyRules<Rules>(*slot, decoding);
  if (!counts && isNew) slot.reset();
  return counts;
}

// Decoders that need nothing but their rules. `Store` is the member of VmrContext for a type and its twin.
template <const auto& Rules, auto Store>
void DecodeToList(Decoding& decoding) {
  FillHead<Rules>((decoding.context.*Store).Of(decoding.isTwin), decoding);
}
template <const auto& Rules, auto Store>
void DecodeToSlot(Decoding& decoding) {
  FillSlot<Rules>((decoding.context.*Store).Of(decoding.isTwin), decoding);
}

}  // namespace ozmo
