// What a reader delivered of an interval, as texts to be compared.
#pragma once

#include <string>
#include <vector>

#include "readers/vmr_context.h"

namespace ozmo::testing {

// A text for each record but twins, newest first: its kind, its names, and its figures that aren't 0, each
// after the name of its member; those of a monitor's network are named shorter. A process has its life
// only where that isn't the whole interval. The configuration comes first where it is asked for.
std::vector<std::string> IntervalTexts(const VmrContext& context, bool withConfig);

}  // namespace ozmo::testing
