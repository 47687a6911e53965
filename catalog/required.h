// A member of a constant description that has no default: a description that leaves it out doesn't compile.
#pragma once

#include <concepts>
#include <cstddef>

namespace ozmo {

template <class T>
class Required {
 public:
  template <class Value>
  requires(std::convertible_to<const Value&, T> &&
           !std::same_as<Value, std::nullptr_t>) constexpr Required(const Value& value)
      : value_(value) {}                           // NOLINT(google-explicit-constructor)
  constexpr operator T() const { return value_; }  // NOLINT(google-explicit-constructor)

 private:
  T value_;
};

}  // namespace ozmo
