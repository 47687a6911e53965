// The protocol graphs of Solaris.
#pragma once

#include "catalog/platform.h"

namespace ozmo::solaris_catalog {

// An interval without protocol figures stores nothing.
void AddSolarisProtocols(const Minute& minute, const VmrContext& interval);

}  // namespace ozmo::solaris_catalog
