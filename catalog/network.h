// Protocol graphs, one pass for each origin of the counters. An interval without a network record stores
// nothing.
#pragma once

#include "catalog/build_state.h"
#include "readers/vmr_context.h"

namespace ozmo {

void AddNetworkSolaris(BuildState& state, const VmrContext& context);
void AddNetworkLinux(BuildState& state, const VmrContext& context);
void AddNetworkBsd(BuildState& state, const VmrContext& context);  // AIX, HP-UX, Tru64
void AddNetworkVmr(BuildState& state, const VmrContext& context);

}  // namespace ozmo
