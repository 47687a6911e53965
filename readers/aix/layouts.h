// The record tables of the AIX collector, one a version. The 64 tables differ from their narrow siblings in
// the width of time stamps and counters.
#pragma once

#include "readers/collector_format.h"

namespace ozmo {

extern const RecordTable AIX_P910;
extern const RecordTable AIX_P910_64;
extern const RecordTable AIX_P730;
extern const RecordTable AIX_P730_64;
extern const RecordTable AIX_P720;
extern const RecordTable AIX_P720_64;
extern const RecordTable AIX_P300;
extern const RecordTable AIX_P300_64;

}  // namespace ozmo
