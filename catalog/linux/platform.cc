// Linux: memory in kilobytes, page faults from the processes, and a "<NoProc>" for what no process takes.

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

constexpr CpuMode MODES[] = {CpuMode::WAIT, CpuMode::NICE, CpuMode::USER, CpuMode::SYSTEM};
constexpr double KB_PER_MB = 1024.0;

void AddMemory(BuildState& state, const VmrContext& context) {
  const double memMb = MemorySizeOf(context).memMb;
  if (!context.memory.primary) {
    StoreNoMemory(state, memMb > 0.0 ? 0.0 : -1.0);
    return;
  }
  const MemoryRecord& memory = *context.memory.primary;
  const double freeMb = memory.freeKb / KB_PER_MB;
  const double sharedMb = memory.sharedKb / KB_PER_MB;
  const double cacheMb = static_cast<double>(memory.cacheKb) / KB_PER_MB;
  const double buffersMb = static_cast<double>(memory.buffersKb) / KB_PER_MB;
  const double applicationsMb = memMb - freeMb - buffersMb - cacheMb - sharedMb;
  StoreSets(state, Graph::MEMORY_ALLOCATION, {freeMb, applicationsMb, sharedMb, cacheMb, buffersMb});
  StoreSets(state, Graph::MEMORY_UTILIZATION, {UsedPercentOrMissing(freeMb, memMb)});

  const double pagedIn = static_cast<double>(memory.pageInRate);
  const double pagedOut = static_cast<double>(memory.pageOutRate);
  const double swappedIn = static_cast<double>(memory.swapInRate);
  const double swappedOut = static_cast<double>(memory.swapOutRate);
  state.sums.pageOperations = pagedIn + pagedOut;
  state.sums.swapOperations = swappedIn + swappedOut;
  // The top band holds all four, so once stacked it counts the others twice: existing reports rely on it.
  const double all = state.sums.pageOperations + state.sums.swapOperations;
  StoreSets(state, Graph::PAGES_IN_OUT, {all, pagedOut, swappedIn, pagedIn});
}

// Page faults stand in no memory record here: they are the processes'.
void AddPageFaults(BuildState& state, const VmrContext& context) {
  double major = 0.0;
  double minor = 0.0;
  for (const ProcessRecord& process : context.processes.primary) {
    major += static_cast<double>(process.majorFaults);
    minor += static_cast<double>(process.minorFaults);
  }
  const double seconds = static_cast<double>(ConfigOf(context).intervalSeconds);
  StoreSets(state, Graph::PROCESS_PAGEFAULTS, {major / seconds, minor / seconds});
  StoreSets(state, Graph::PAGEFAULT_RATE, {(major + minor) / seconds});
}

void AddLinuxProcesses(BuildState& state, const VmrContext& context) {
  AddProcesses(state, context);
  AddPageFaults(state, context);
}

double ShareOf(const BuildState& state, const VmrContext& context, const ProcessRecord& process) {
  const double seconds = static_cast<double>(ConfigOf(context).intervalSeconds);
  return CpuSecondsOf(process) * 100.0 / seconds / state.sums.cpuSeen;
}

bool HasProcessorsAndConfiguration(const VmrContext& context) {
  return HasProcessors(context) && context.config.has_value();
}

}  // namespace

const PlatformSpec LINUX_PLATFORM = {
    .records = LinuxRecords,
    .tree = LinuxTree,
    .dropsBeyondEnd = true,
    .skippedResult = -2,
    .secondClassFile = "veltrix.memory",
    .usesInterval = HasProcessorsAndConfiguration,
    .processors = AddProcessors,
    .memory = AddMemory,
    .disks = AddDisks,
    .fileSystems = AddFileSystems,
    .adapters = AddAdapters,
    .processes = AddLinuxProcesses,
    .network = AddNetworkLinux,
    .processorSpec = {.modes = MODES, .stopsAtConfigured = true},
    .processSpec = {.share = ShareOf, .restNamed = true, .sumStartsMissing = true},
    .diskSpec = LINUX_DISKS,
    .fileSystemKeyFormat = FILE_SYSTEM_KEY_SPACED,
    .adapterFilter = AdapterIsNamed,
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
