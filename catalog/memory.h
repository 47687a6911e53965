// Memory and paging: what the platforms' memory passes share.
#pragma once

#include <span>

#include "catalog/platform.h"

namespace ozmo {

inline constexpr double BYTES_PER_MB = 1048576.0;

// The machine's memory as its configuration gives it.
struct MemorySize {
  double memMb = 0.0;
  double pageMb = 0.0;  // of one page
};
MemorySize MemorySizeOf(const VmrContext& interval);

// The stores of an interval without a memory record: all figures are 0, memory utilization as given. There
// was no paging then.
PagingOperations StoreNoMemory(const Minute& minute, double utilization = 0.0);

// Percent of memory that isn't free. A size of 0 gives what floating point gives.
double UsedPercent(double freeMb, double memMb);
// The same, or -1.0 (a missing point) where the size isn't above 0.
double UsedPercentOrMissing(double freeMb, double memMb);

// "PageFaults By Type", and their sum as "Pagefault Rate".
void StoreFaultKinds(const Minute& minute, std::span<const float> kinds);

}  // namespace ozmo
