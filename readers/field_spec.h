// Helpers for writing the layouts of a format: runs of fields of one size, joined in table order.
#pragma once

#include <array>
#include <cstddef>

#include "readers/collector_format.h"

namespace ozmo {

// Fields First to Last of one size.
template <int32_t First, int32_t Last>
constexpr auto Fields(FieldSize size) {
  std::array<FieldSpec, static_cast<size_t>(Last - First + 1)> fields{};
  for (size_t i = 0; i < fields.size(); ++i) fields[i] = {First + static_cast<int32_t>(i), size};
  return fields;
}

// One run of fields, or of rows, behind the other.
template <class Element, size_t... Sizes>
constexpr auto Join(const std::array<Element, Sizes>&... parts) {
  std::array<Element, (Sizes + ...)> joined{};
  size_t next = 0;
  const auto append = [&](const auto& part) {
    for (const Element& element : part) joined[next++] = element;
  };
  (append(parts), ...);
  return joined;
}

template <int32_t First, int32_t Last = First>
constexpr auto TextFields() {
  return Fields<First, Last>(FieldSize::TEXT);
}
template <int32_t First, int32_t Last = First>
constexpr auto Int4Fields() {
  return Fields<First, Last>(FieldSize::INT4);
}
template <int32_t First, int32_t Last = First>
constexpr auto Int8Fields() {
  return Fields<First, Last>(FieldSize::INT8);
}

}  // namespace ozmo
