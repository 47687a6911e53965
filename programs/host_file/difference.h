// From two readings of a host to what went on between them.
#pragma once

#include "programs/host_file/host_figures.h"
#include "programs/host_file/process_accounting.h"

namespace ozmo::host_file {

// The figures of the interval from `earlier` to `later`. A counter that has gone back counts 0, and a
// processor, disk or adapter that `earlier` doesn't know is left out: what it counts began at an unknown
// time.
//
// Where the kernel reports ends of processes, `ends` has those that came in the interval
// (process_accounting.h); what they used is added by AddEnded.
HostFigures DifferenceOf(const HostFigures& earlier, const HostFigures& later, ProcessEnds& ends);
HostFigures DifferenceOf(const HostFigures& earlier, const HostFigures& later);

}  // namespace ozmo::host_file
