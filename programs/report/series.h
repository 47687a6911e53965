// The figures of one trace, and its values in the form that the page carries them.
//
// A trace is shown by its own value: the difference between its sum and the next trace's, as in a CSV file,
// with the two decimals that a CSV file has. One and the same value is called a point's hundredths here.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace ozmo::report {

// A value that is no finite number: a broken file can hold one.
inline constexpr int64_t NO_VALUE = INT64_MIN;

// Values in hundredths, rounded as printf rounds to two decimals. Beyond 1e13 they stay at that bound, so
// that a script counts them exactly.
std::vector<int64_t> HundredthsOf(std::span<const float> values);

struct TraceFigures {
  double mean = 0.0;  // over the points that have a value
  double peak = 0.0;
  int peakPoint = 0;  // the first that has the peak
};

// Of the points `first` to `last`.
TraceFigures FiguresOf(std::span<const int64_t> hundredths, int first, int last);

// A text for JSON: each value as its difference from the one before, in digits of five bits, the lowest
// first, a sixth bit saying that more follow, sign in the lowest bit; each digit a letter of the base64
// alphabet. After a difference of 0 comes how many more of them follow. "!" is a point without a
// value. A minute of a trace takes two letters or so, an idle day takes four.
std::string EncodeSeries(std::span<const int64_t> hundredths);

}  // namespace ozmo::report
