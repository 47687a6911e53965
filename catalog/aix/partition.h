// What AIX alone has: the figures of a logical partition, and processors that are there but never run.
#pragma once

#include "catalog/platform.h"

namespace ozmo::aix_catalog {

// Physical CPU, shared pool, context switches and phantom interrupts of one interval. An interval without a
// partition record stores nothing.
void AddPartition(const Minute& minute, const VmrContext& interval);

// Takes out the processors that were never busy and scales the CPU figures to those that are left.
// Only the first `processors` are looked at: as many as the last interval had.
void RemoveIdleProcessors(GraphCatalog& catalog, int processors);

}  // namespace ozmo::aix_catalog
