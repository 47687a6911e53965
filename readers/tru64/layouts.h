// The record tables of the Tru64 collector, one a layout of its versions.
#pragma once

#include "readers/collector_format.h"

namespace ozmo {

extern const RecordTable TRU64_P730;
extern const RecordTable TRU64_P720;
extern const RecordTable TRU64_P300;
extern const RecordTable TRU64_V520;

}  // namespace ozmo
