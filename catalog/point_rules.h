// From times to the points of a catalog's series: how many a span has, and on which one a time stamp falls.
#pragma once

#include <cstdint>

#include "runtime/times.h"

namespace ozmo {

// How many points a span has.
enum class PointCountRule {
  OF_DIFFERENCE,  // (end - start) / 60 + 2
  OF_QUOTIENTS    // end / 60 - start / 60 + 2
};

// The point of a time stamp.
enum class PointRule {
  NEAREST_MINUTE,  // half a minute rounds up
  TRUNCATED        // to the minute of the clock
};

// Points of a span, its two ends included and one more; negative for a span that ends well before it starts.
int64_t PointCountOf(PointCountRule rule, Seconds start, Seconds end);

// The point of a time stamp; beyond the series for one outside the span.
int PointOf(PointRule rule, Seconds start, Seconds timeStamp);

// Truncated; an undefined value is 0. Far values are cut so that sums of two fit.
int WholeNumber(double value);

// Whole minutes of a collection interval.
int MinutesOf(float seconds);

}  // namespace ozmo
