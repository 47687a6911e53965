// Numbers that have to fit.
#pragma once

#include <cmath>
#include <limits>

namespace ozmo {

// A whole number of a value that may lie anywhere: cut towards zero, out of range goes to the nearest end,
// and what is not a number becomes 0.
template <class Integer>
Integer ClampTo(double value) {
  if (std::isnan(value)) return 0;
  constexpr double LOW = static_cast<double>(std::numeric_limits<Integer>::min());
  constexpr double HIGH = static_cast<double>(std::numeric_limits<Integer>::max());
  if (value <= LOW) return std::numeric_limits<Integer>::min();
  if (value >= HIGH) return std::numeric_limits<Integer>::max();
  return static_cast<Integer>(value);
}

}  // namespace ozmo
