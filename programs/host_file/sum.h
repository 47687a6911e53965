// From two intervals of a host to one.
#pragma once

#include "programs/host_file/host_figures.h"

namespace ozmo::host_file {

// The figures of the interval that `earlier` and `later` make together, one right after the other: counters
// are added, levels are those of its end. A processor, disk or adapter that only one of them has keeps what
// it counted. What the processes used that `later` hasn't got goes the way of ended ones: see
// ended_processes.h.
HostFigures SumOf(const HostFigures& earlier, HostFigures later);

}  // namespace ozmo::host_file
