// Times of the day that the readers' tests take, 22-Feb-2012 UTC.
#pragma once

#include "runtime/times.h"

namespace ozmo::testing {

inline constexpr Seconds MIDNIGHT = 1329868800;
inline constexpr Seconds NOON = MIDNIGHT + 12 * 3600;

}  // namespace ozmo::testing
