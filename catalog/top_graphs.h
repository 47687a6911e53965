// From name trees to the graphs of the ten heaviest names.
#pragma once

#include <optional>

#include "catalog/platform.h"

namespace ozmo {

// What shares are scaled with; nothing where the platform has no overall CPU.
std::optional<CpuScale> CpuScaleOf(BuildState& state);

// Ranks each tree that the platform keeps a list of and hands the winners' series to the graph.
void FinishTopLists(BuildState& state);

}  // namespace ozmo
