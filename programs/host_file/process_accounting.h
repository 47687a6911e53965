// What the processes of a host used in an interval.
#pragma once

#include <cstdint>
#include <vector>

#include "programs/host_file/host_figures.h"

namespace ozmo::host_file {

// The processes of `later` with what they used since `earlier`, both by id; `since` is the uptime at
// `earlier`.
//
// Most processes of a build live for less than an interval and are seen in no reading, or seen once with half
// of what they use. What they used comes to light in their parent, which counts the use of the children it
// has waited for. The growth of that count is taken as the parent's own use, less what the ended children
// were seen with, as that was counted in earlier intervals.
//
// A process that came in sight without having started since counts nothing in its first interval. Not seen is
// the use of ended processes whose parent doesn't wait for them because it ignores their end.
std::vector<ProcessFigures> ProcessesSince(const std::vector<ProcessFigures>& earlier, uint64_t since,
                                           const std::vector<ProcessFigures>& later);

}  // namespace ozmo::host_file
