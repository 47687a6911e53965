// Monitor text files: the machine as a whole heads the processor list, the collection interval is measured
// from the time stamps, and process shares are weighted by how long a process lived.

#include "catalog/disks.h"
#include "catalog/memory.h"
#include "catalog/network.h"
#include "catalog/platform_tables.h"
#include "catalog/platforms.h"
#include "catalog/vmr/passes.h"

namespace ozmo {
namespace {

void AddMemory(BuildState& state, const VmrContext& context) {
  const MemorySize size = MemorySizeOf(context);
  if (!context.memory.primary) {
    StoreNoMemory(state, size.memMb > 0.0 ? 0.0 : -1.0);
    return;
  }
  const MemoryRecord& memory = *context.memory.primary;
  StoreSets(state, Graph::MEMORY_UTILIZATION,
            {UsedPercentOrMissing(memory.freePages * size.pageMb, size.memMb)});
  StoreSets(state, Graph::PAGEFAULT_RATE, {memory.pageFaultRate});
  StoreSets(state, Graph::PAGEFAULT_IO, {memory.pageReadRate + memory.pageWriteRate});
}

}  // namespace

const PlatformSpec VMR_PLATFORM = {
    .records = VmrRecords,
    .tree = VmrTree,
    .pointRule = PointRule::NEAREST_MINUTE,
    .gapExtra = 1,
    .measureInterval = MeasureVmrInterval,
    .processors = AddVmrProcessors,
    .memory = AddMemory,
    .disks = AddDisks,
    .processes = AddVmrProcesses,
    .network = AddNetworkVmr,
    .processSpec = {.classesRescaled = false},
    .diskSpec = VMR_DISKS,
    .topLists = {.images = {"#%d  %s", 1, OthersRule::DPC_INTERRUPT},
                 .diskOperations = {"#%d  %s", 0, OthersRule::TOTAL},
                 .diskData = {"#%d %s", 0, OthersRule::TOTAL},
                 .diskQueue = {"#%d %s"},
                 .diskUtilization = {"#%d %s"}},
};

}  // namespace ozmo
