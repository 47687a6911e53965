// Figures of a record that a test compares at once.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <vector>

namespace ozmo::testing {

// Numbers side by side, compared as closely as floats tell them apart.
class Figures {
 public:
  template <typename... Numbers>
  explicit Figures(Numbers... numbers) : numbers_{static_cast<double>(numbers)...} {}

  template <typename... Numbers>
  void Add(Numbers... numbers) {
    (numbers_.push_back(static_cast<double>(numbers)), ...);
  }

  friend bool operator==(const Figures& left, const Figures& right) {
    return std::equal(left.numbers_.begin(), left.numbers_.end(), right.numbers_.begin(),
                      right.numbers_.end(), Same);
  }
  friend void PrintTo(const Figures& figures, std::ostream* out) {
    *out << ::testing::PrintToString(figures.numbers_);
  }

 private:
  static bool Same(double left, double right) {
    if (std::isnan(left) || std::isnan(right)) return std::isnan(left) == std::isnan(right);
    return left == right || std::abs(left - right) < 3e-7 * std::abs(left);
  }

  std::vector<double> numbers_;
};

}  // namespace ozmo::testing
