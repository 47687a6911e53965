// The protocol graphs of monitor text files.
#pragma once

#include "catalog/platform.h"

namespace ozmo::vmr_catalog {

// An interval without protocol figures stores nothing.
void AddVmrProtocols(const Minute& minute, const VmrContext& interval);

}  // namespace ozmo::vmr_catalog
