// Disk records of HP-UX files: rates as the file gives them, times worked out from them.
#pragma once

#include "readers/collector_format.h"

namespace ozmo::hpux_files {

// One disk to the disk list; types 2 and 18.
void DecodeDisk(Decoding& decoding);

}  // namespace ozmo::hpux_files
