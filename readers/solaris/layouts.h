// The record tables of the Solaris collector, one a version.
#pragma once

#include "readers/collector_format.h"

namespace ozmo {

extern const RecordTable SOLARIS_P730;
extern const RecordTable SOLARIS_P720;
extern const RecordTable SOLARIS_P300;

}  // namespace ozmo
