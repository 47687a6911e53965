// The ten heaviest of many names.
#pragma once

#include <vector>

#include "catalog/name_series.h"

namespace ozmo {

// One ranked name.
struct TopEntry {
  NamedSeries named;
  float weight = 0.0F;
};

using TopList = std::vector<TopEntry>;  // heaviest first

// Ranks an entry. A list holds at most ten; the tenth place is only ever filled from above, by an entry that
// beats the ninth. Among equals the newer entry goes in front.
void TopListInsert(TopList& list, const TopEntry& entry);

// Sum of the values at the first `points` points, in single precision.
float PlainSum(const Samples& samples, int points);

// What process shares are scaled with: overall CPU and the sum of all shares, by point.
struct CpuScale {
  const Series& overallCpu;
  const Series& shareSum;
  int points;
};

// Weight in percent-minutes of overall CPU: each share is scaled so that the shares of a minute add up to
// the overall figure. Products are floats; the sum is kept in `Sum`.
template <class Sum>
Sum NormalizedSum(const Samples& samples, const CpuScale& scale);

// Scales the series in place by the same rule.
void NormalizeProcessSeries(Series& series, const CpuScale& scale);

}  // namespace ozmo
