// The passes that only monitor text files have.
#pragma once

#include "catalog/platform.h"

namespace ozmo {

// Processors that have a graph by mode of their own.
inline constexpr size_t MAX_PROCESSOR_RECORDS = 32;

// The longest distance seen between two time stamps, at most ten minutes: gaps up to it are bridged.
void MeasureVmrInterval(BuildState& state, const VmrContext& context);

// The machine's modes from the head of the list, and each processor's busy time and modes.
void AddVmrProcessors(BuildState& state, const VmrContext& context);

// Shares that add up to overall CPU, and a "Process Count" in which half a life counts half.
void AddVmrProcesses(BuildState& state, const VmrContext& context);

}  // namespace ozmo
