// LAN adapter graphs: two summary graphs over all adapters, and three graphs of each adapter.
#pragma once

#include <string_view>

#include "catalog/build_state.h"
#include "readers/vmr_context.h"

namespace ozmo {

// Adapters with graphs; further ones are passed over.
inline constexpr int MAX_ADAPTERS = 15;

// Adapter filters of platforms: whether the adapter of this name has graphs.
bool AdapterIsNamed(std::string_view name);
bool AdapterEndsInDigit(std::string_view name);

// One interval's adapters. Needs a LAN group in the platform's tree.
void AddAdapters(BuildState& state, const VmrContext& context);

}  // namespace ozmo
