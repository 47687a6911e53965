// HP-UX: page counts and three kinds of faults; long spans have no disks and file systems in detail.

#include "catalog/adapters.h"
#include "catalog/disks.h"
#include "catalog/file_systems.h"
#include "catalog/memory.h"
#include "catalog/network.h"
#include "catalog/platform_tables.h"
#include "catalog/platforms.h"
#include "catalog/processes.h"
#include "catalog/processors.h"

namespace ozmo {
namespace {

constexpr CpuMode MODES[] = {CpuMode::NICE, CpuMode::USER, CpuMode::SYSTEM};
constexpr Seconds TWO_DAYS = 172800;

void AddMemory(BuildState& state, const VmrContext& context) {
  if (!context.memory.primary) {
    StoreNoMemory(state);
    return;
  }
  const MemoryRecord& memory = *context.memory.primary;
  const MemorySize size = MemorySizeOf(context);
  const double freeMb = memory.freePages * size.pageMb;
  const double activeMb = static_cast<double>(memory.activePages) * size.pageMb;
  StoreSets(state, Graph::MEMORY_ALLOCATION, {freeMb, activeMb, size.memMb - activeMb - freeMb});
  StoreSets(state, Graph::MEMORY_UTILIZATION, {UsedPercent(freeMb, size.memMb)});

  const float kinds[] = {memory.majorFaultRate, memory.copyOnWriteFaultRate, memory.zeroFillFaultRate};
  StoreFaultKinds(state, kinds);
  state.sums.pageOperations = static_cast<double>(memory.pageInRate + memory.pageOutRate);
  state.sums.swapOperations = static_cast<double>(memory.swapInRate + memory.swapOutRate);
  StoreSets(state, Graph::PAGEFAULT_IO, {state.sums.pageOperations});
}

double ShareOf(const BuildState& state, const VmrContext&, const ProcessRecord& process) {
  return 100.0 * CpuSecondsOf(process) / state.sums.processorTime;
}

}  // namespace

const PlatformSpec HPUX_PLATFORM = {
    .records = HpuxRecords,
    .tree = HpuxTree,
    .gapExtra = 1,
    .detailLimit = TWO_DAYS,
    .processors = AddProcessors,
    .memory = AddMemory,
    .disks = AddDisks,
    .fileSystems = AddFileSystems,
    .adapters = AddAdapters,
    .processes = AddProcesses,
    .network = AddNetworkBsd,
    .processorSpec = {.modes = MODES},
    .processSpec = {.share = ShareOf},
    .diskSpec = HPUX_DISKS,
    .fileSystemKeyFormat = FILE_SYSTEM_KEY_PLAIN,
    .topLists = {.images = {"#%d  %s", 0, OthersRule::TOTAL, true},
                 .users = {"%d. %s", 0, OthersRule::TOTAL, true},
                 .diskOperations = {"#%d %s", 0, OthersRule::TOTAL},
                 .diskData = {"#%d %s", 0, OthersRule::TOTAL},
                 .diskQueue = {"#%d %s"},
                 .diskUtilization = {"#%d %s"},
                 .diskSpace = {"#%d %s"},
                 .fileSystems = {"#%d %s", 1}},
};

}  // namespace ozmo
