// From two readings of a host to what went on between them.
#pragma once

#include "programs/host_file/host_figures.h"

namespace ozmo::host_file {

// The figures of the interval from `earlier` to `later`. A counter that has gone back counts 0, and a
// processor, disk or adapter that `earlier` doesn't know is left out: what it counts began at an unknown
// time.
HostFigures DifferenceOf(const HostFigures& earlier, const HostFigures& later);

}  // namespace ozmo::host_file
