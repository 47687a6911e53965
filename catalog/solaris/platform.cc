// Solaris: mode means over the processors, free pages, eight kinds of page faults.

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

constexpr CpuMode MODES[] = {CpuMode::USER, CpuMode::SYSTEM};

void AddMemory(BuildState& state, const VmrContext& context) {
  const MemorySize size = MemorySizeOf(context);
  if (!context.memory.primary) {
    StoreNoMemory(state, size.memMb > 0.0 ? 0.0 : -1.0);
    return;
  }
  const MemoryRecord& memory = *context.memory.primary;
  const double freeMb = memory.freePages * size.pageMb;
  StoreSets(state, Graph::MEMORY_ALLOCATION, {freeMb, size.memMb - freeMb});
  StoreSets(state, Graph::MEMORY_UTILIZATION, {UsedPercentOrMissing(freeMb, size.memMb)});

  const float kinds[] = {memory.majorFaultRate,         memory.copyOnWriteFaultRate,
                         memory.protectionFaultRate,    memory.softLockFaultRate,
                         memory.kernelAddressFaultRate, memory.zeroFillFaultRate,
                         memory.translationFaultRate,   memory.addressFaultRate};
  StoreFaultKinds(state, kinds);
  state.sums.pageOperations = static_cast<double>(memory.pageInRate + memory.pageOutRate);
  state.sums.swapOperations = static_cast<double>(memory.swapInRate + memory.swapOutRate);
  StoreSets(state, Graph::PAGEFAULT_IO, {state.sums.pageOperations});
}

double ShareOf(const BuildState& state, const VmrContext& context, const ProcessRecord& process) {
  const double seconds = static_cast<double>(context.periodEnd - context.periodStart);
  return CpuSecondsOf(process) * 100.0 / state.sums.cpuSeen / seconds;
}

}  // namespace

const PlatformSpec SOLARIS_PLATFORM = {
    .records = SolarisRecords,
    .tree = SolarisTree,
    .gapExtra = 1,
    .processors = AddProcessors,
    .memory = AddMemory,
    .disks = AddDisks,
    .fileSystems = AddFileSystems,
    .adapters = AddAdapters,
    .processes = AddProcesses,
    .network = AddNetworkSolaris,
    .processorSpec = {.modes = MODES},
    .processSpec = {.share = ShareOf, .sumStartsMissing = true},
    .diskSpec = SOLARIS_DISKS,
    .fileSystemKeyFormat = FILE_SYSTEM_KEY_SPACED,
    .adapterFilter = AdapterEndsInDigit,
    .topLists = {.images = {"#%d  %s", 0, OthersRule::TOTAL},
                 .users = {"%d. %s", 0, OthersRule::TOTAL, true},
                 .diskOperations = {"#%d  %s", 0, OthersRule::TOTAL},
                 .diskData = {"#%d %s", 0, OthersRule::TOTAL},
                 .diskQueue = {"#%d %s"},
                 .diskUtilization = {"#%d %s"},
                 .diskSpace = {"#%d %s"},
                 .fileSystems = {"#%d  %s", 1}},
};

}  // namespace ozmo
