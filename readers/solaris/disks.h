// Disk records of Solaris files: rates as the file gives them, times worked out from nanoseconds.
#pragma once

#include "readers/collector_format.h"

namespace ozmo::solaris_files {

// One disk to the disk list; types 2 and 18.
void DecodeDisk(Decoding& decoding);

}  // namespace ozmo::solaris_files
