// The protocol graphs of AIX, HP-UX and Tru64, whose counters have one origin.
#pragma once

#include "catalog/platform.h"

namespace ozmo {

// An interval without counters stores nothing.
void AddBsdProtocols(const Minute& minute, const VmrContext& interval);

}  // namespace ozmo
