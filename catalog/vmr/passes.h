// The passes that only monitor text files have.
#pragma once

#include "catalog/processes.h"
#include "catalog/processors.h"

namespace ozmo::vmr_catalog {

// Processors that have a graph by mode of their own.
inline constexpr size_t MAX_PROCESSOR_RECORDS = 32;

// The longest distance seen between two time stamps, at most ten minutes: gaps up to it are bridged.
void MeasureVmrInterval(CollectionInterval& length, const VmrContext& interval);

// The machine's modes from the head of the list, and each processor's busy time and modes.
ProcessorSums AddVmrProcessors(ProcessorPass& pass, const Minute& minute, const VmrContext& interval);

// Shares that add up to overall CPU, and a "Process Count" in which half a life counts half.
void AddVmrProcesses(ProcessPass& pass, const Minute& minute, VmrContext& interval,
                     const ProcessorSums& processors, const CollectionInterval& length);

}  // namespace ozmo::vmr_catalog
