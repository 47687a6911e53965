// The protocol graphs of Linux.
#pragma once

#include "catalog/platform.h"

namespace ozmo {

// An interval without protocol figures stores nothing.
void AddLinuxProtocols(const Minute& minute, const VmrContext& interval);

}  // namespace ozmo
