// What AIX alone has: the figures of a logical partition, and processors that are there but never run.
#pragma once

#include "catalog/platform.h"

namespace ozmo {

// Processors that the partition has online.
double PartitionOnline(const PartitionRecord& partition);

// Physical CPU, shared pool, context switches and phantom interrupts of one interval. An interval without a
// partition record stores nothing.
void AddPartition(BuildState& state, const VmrContext& context);

// Takes out the processors that were never busy and scales the CPU figures to those that are left.
void RemoveIdleProcessors(BuildState& state);

}  // namespace ozmo
