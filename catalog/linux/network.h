// The protocol graphs of Linux.
#pragma once

#include "catalog/platform.h"

namespace ozmo::linux_catalog {

// An interval without protocol figures stores nothing.
void AddLinuxProtocols(const Minute& minute, const VmrContext& interval);

}  // namespace ozmo::linux_catalog
