// The process pass: each process's share of the machine goes to its class, image and user.
#pragma once

#include "catalog/platform.h"

namespace ozmo {

// User and system seconds of the interval.
double CpuSecondsOf(const ProcessRecord& process);

// Shares of all processes by the platform's rule, and "Process Count".
void AddProcesses(BuildState& state, const VmrContext& context);

// One process's share, and one in the process count of its class.
void FeedShare(BuildState& state, std::string_view user, std::string_view command, double share);

// After the walk: scales the class series to overall CPU.
void RescaleClasses(BuildState& state);

}  // namespace ozmo
