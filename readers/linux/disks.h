// Disk records of Linux files: counters of the oldest version, or the kernel's own of the later ones.
#pragma once

#include "readers/collector_format.h"

namespace ozmo::linux_files {

// One disk to the disk list; types 2 and 18.
void DecodeDisk(Decoding& decoding);

}  // namespace ozmo::linux_files
