// Tru64: page counts of six uses and six kinds of faults; the first interval makes the processors' sets; no
// adapter pass.

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

void AddMemory(BuildState& state, const VmrContext& context) {
  if (!context.memory.primary) {
    StoreNoMemory(state);
    return;
  }
  const MemoryRecord& memory = *context.memory.primary;
  const MemorySize size = MemorySizeOf(context);
  const double freeMb = memory.freePages * size.pageMb;
  const double inactiveMb = static_cast<double>(memory.inactivePages) * size.pageMb;
  const double activeMb = static_cast<double>(memory.activePages) * size.pageMb;
  const double bufferMb = static_cast<double>(memory.bufferCachePages) * size.pageMb;
  const double wiredMb = static_cast<double>(memory.wiredPages) * size.pageMb;
  const double unmappedMb = size.memMb - freeMb - inactiveMb - activeMb - bufferMb - wiredMb;
  StoreSets(state, Graph::MEMORY_ALLOCATION, {freeMb, inactiveMb, activeMb, bufferMb, wiredMb, unmappedMb});
  StoreSets(state, Graph::MEMORY_UTILIZATION, {UsedPercent(freeMb, size.memMb)});

  const float kinds[] = {memory.kernelFaultRate,         memory.copyOnWriteFaultRate,
                         memory.copyOnWriteStealRate,    memory.zeroFillFaultRate,
                         memory.kernelZeroFillFaultRate, memory.bufferCacheFaultRate};
  StoreFaultKinds(state, kinds);
  state.sums.pageOperations = static_cast<double>(memory.pageReadRate + memory.pageWriteRate);
  StoreSets(state, Graph::PAGEFAULT_IO, {state.sums.pageOperations});
}

double ShareOf(const BuildState&, const VmrContext&, const ProcessRecord& process) {
  return CpuSecondsOf(process);
}

}  // namespace

const PlatformSpec TRU64_PLATFORM = {
    .records = Tru64Records,
    .tree = Tru64Tree,
    .processors = AddProcessors,
    .memory = AddMemory,
    .disks = AddDisks,
    .fileSystems = AddFileSystems,
    .processes = AddProcesses,
    .network = AddNetworkBsd,
    .processorSpec = {.modes = MODES, .setsFromConfiguration = true},
    .processSpec = {.share = ShareOf, .restNamed = true},
    .diskSpec = TRU64_DISKS,
    .fileSystemKeyFormat = FILE_SYSTEM_KEY_SPACED,
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
