// Disk records of HP-UX files: rates as the file tells them, times worked out from them.
#pragma once

#include "readers/collector_format.h"

namespace ozmo {

// One disk to the disk list; types 2 and 18.
void HpuxDecodeDisk(Decoding& decoding);

}  // namespace ozmo
