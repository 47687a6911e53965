// Decoders of AIX files that fill a source file of their own.
#pragma once

#include "readers/collector_format.h"

namespace ozmo::aix_files {

// One disk to the disk list; virtual SCSI devices are left out.
void DecodeDisk(Decoding& decoding);

// The partition, some fifty figures of the hypervisor, to the interval's one PartitionRecord.
void DecodePartition(Decoding& decoding);

}  // namespace ozmo::aix_files
