#include "catalog/point_rules.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "runtime/numbers.h"

namespace ozmo {

int64_t PointCountOf(PointCountRule rule, Seconds start, Seconds end) {
  if (rule == PointCountRule::OF_DIFFERENCE) return (end - start) / SECONDS_PER_MINUTE + 2;
  return end / SECONDS_PER_MINUTE - start / SECONDS_PER_MINUTE + 2;
}

int PointOf(PointRule rule, Seconds start, Seconds timeStamp) {
  if (rule == PointRule::NEAREST_MINUTE) {
    return WholeNumber(std::floor(0.5 + static_cast<double>(timeStamp - start) / SECONDS_PER_MINUTE));
  }
  const Seconds minutes = timeStamp / SECONDS_PER_MINUTE - start / SECONDS_PER_MINUTE;
  return WholeNumber(static_cast<double>(minutes));
}

int WholeNumber(double value) {
  constexpr int LIMIT = std::numeric_limits<int>::max() / 2;
  return std::clamp(ClampTo<int>(value), -LIMIT, LIMIT);
}

int MinutesOf(float seconds) { return WholeNumber(static_cast<double>(seconds / SECONDS_PER_MINUTE)); }

}  // namespace ozmo
