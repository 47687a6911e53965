// The partition record of AIX files, some fifty figures of the hypervisor.
#pragma once

#include "readers/collector_format.h"

namespace ozmo {

// Fills the interval's one PartitionRecord.
int AixDecodeLpar(Decoding& decoding);

}  // namespace ozmo
