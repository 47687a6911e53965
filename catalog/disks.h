// Disk graphs: overall rates, the feeds of the Top lists, and the graphs of each disk below "All Disks".
#pragma once

#include "catalog/build_state.h"
#include "catalog/disk_spec.h"
#include "readers/vmr_context.h"

namespace ozmo {

// Disks with graphs of their own; further ones are in the overall rates and Top lists only.
inline constexpr size_t MAX_DISK_ROWS = 1024;

// The figures of one record. `timesMeasured`: service and response time are in the record.
DiskFigures DiskFiguresOf(const DiskRecord& disk, bool timesMeasured);

// One interval's disks. Uses the platform's DiskSpec; without detail only the overall rates are kept.
void AddDisks(BuildState& state, const VmrContext& context);

}  // namespace ozmo
