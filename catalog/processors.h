// The per-processor pass: time counters to percent, the graphs by processor and by mode, overall CPU.
#pragma once

#include "catalog/platform.h"

namespace ozmo {

// Walks the interval's processors. Where the platform's description has modes, overall CPU and the modes are
// means over the processors; otherwise the platform has machine-wide figures and stores them itself.
void AddProcessors(BuildState& state, const VmrContext& context);

// Sets and stores overall CPU of the interval, limited to 0 to 100.
void StoreOverallCpu(BuildState& state, double percent);

// "CPU-3", "cpu3": a processor's name.
std::string ProcessorName(const char* prefix, int32_t cpuId);

}  // namespace ozmo
