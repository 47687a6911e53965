// The record tables of the HP-UX collector, one a layout of its versions. The 64 tables differ from their
// narrow siblings in the width of time stamps and counters.
#pragma once

#include "readers/collector_format.h"

namespace ozmo {

extern const RecordTable HPUX_P730;
extern const RecordTable HPUX_P730_64;
extern const RecordTable HPUX_P720;
extern const RecordTable HPUX_P720_64;
extern const RecordTable HPUX_P300;
extern const RecordTable HPUX_P300_64;
extern const RecordTable HPUX_V530;
extern const RecordTable HPUX_V520;

}  // namespace ozmo
