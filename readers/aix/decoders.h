// Decoders of AIX files that fill a source file of their own.
#pragma once

#include "readers/collector_format.h"

namespace ozmo {

// One disk to the disk list; virtual SCSI devices are left out.
void AixDecodeDisk(Decoding& decoding);

// The partition, some fifty figures of the hypervisor, to the interval's one PartitionRecord.
void AixDecodePartition(Decoding& decoding);

}  // namespace ozmo
