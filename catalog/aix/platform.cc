// AIX: machine-wide CPU figures, two forms of memory figures, the partition's graphs, and idle logical
// processors that are taken out of the catalog at the end.

#include "catalog/adapters.h"
#include "catalog/aix/partition.h"
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

// The machine as a whole comes in a record of its own; the processors only fill their own graphs.
void AddAixProcessors(BuildState& state, const VmrContext& context) {
  AddProcessors(state, context);
  const RecordList<ProcessorRecord>& overall = context.overallCpu.primary;
  const ProcessorRecord machine = overall.empty() ? ProcessorRecord{} : overall.head();
  const double busy = machine.systemTime + machine.userTime;
  const double all = busy + machine.idleTime + machine.waitTime;
  const double factor = all > 0.0 ? 100.0 / all : 1.0;
  StoreOverallCpu(state, busy * factor);
  StoreSets(state, Graph::CPU_BY_MODE,
            {machine.waitTime * factor, machine.userTime * factor, machine.systemTime * factor});
}

// The machine-wide record stands for the processors where an interval brings no more.
bool HasProcessorsOrMachine(const VmrContext& context) {
  return HasProcessors(context) || !context.overallCpu.primary.empty();
}

struct MemoryUse {
  double realMb = 0.0;
  double freeMb = 0.0;
  double procsMb = 0.0;
  double filesMb = 0.0;
  double systemMb = 0.0;
};

// The newer collectors' figures. The factor isn't that of a page of 4096 bytes: existing reports carry it.
MemoryUse NewerMemoryUse(const MemoryRecord& memory) {
  constexpr double FACTOR = 4094.0 / BYTES_PER_MB;
  const auto figure = [&](float value) { return static_cast<double>(value) * FACTOR; };
  return {.realMb = figure(memory.realMb),
          .freeMb = figure(memory.freeMb),
          .procsMb = figure(memory.processMb),
          .filesMb = figure(memory.fileMb),
          .systemMb = figure(memory.systemMb)};
}

MemoryUse OlderMemoryUse(const MemoryRecord& memory, const MemorySize& size) {
  MemoryUse use;
  use.realMb = size.memMb;
  use.freeMb = memory.freePages * size.pageMb;
  use.procsMb = static_cast<double>(memory.processPages) * size.pageMb;
  use.filesMb = static_cast<double>(memory.filePages) * size.pageMb;
  use.systemMb = use.realMb * size.pageMb - use.freeMb - use.procsMb - use.filesMb;
  if (use.systemMb < 0.0) use.systemMb = 0.0;
  return use;
}

void AddMemory(BuildState& state, const VmrContext& context) {
  if (!context.memory.primary) {
    StoreNoMemory(state);
    return;
  }
  const MemoryRecord& memory = *context.memory.primary;
  MemoryUse use =
      memory.realMb > 0.0F ? NewerMemoryUse(memory) : OlderMemoryUse(memory, MemorySizeOf(context));
  if (!(use.realMb > 0.0)) use.realMb = use.freeMb + use.procsMb + use.filesMb + use.systemMb;
  StoreSets(state, Graph::MEMORY_UTILIZATION, {UsedPercent(use.freeMb, use.realMb)});
  StoreSets(state, Graph::MEMORY_ALLOCATION, {use.freeMb, use.procsMb, use.filesMb, use.systemMb});

  const double zeroFill = static_cast<double>(memory.zeroFillFaultRate);
  const double execFill = static_cast<double>(memory.execFillFaultRate);
  double other = static_cast<double>(memory.pageFaultRate) - zeroFill - execFill;
  if (other < 0.0) other = 0.0;
  StoreSets(state, Graph::PAGEFAULTS_BY_TYPE, {other, zeroFill, execFill});
  StoreSets(state, Graph::PAGEFAULT_RATE, {other + zeroFill + execFill});
  const double pagedIn = static_cast<double>(memory.pageInRate);
  const double pagedOut = static_cast<double>(memory.pageOutRate);
  StoreSets(state, Graph::PAGING_IN_OUT, {pagedIn, pagedOut});
}

// A processor count that the partition's online processors limit. The seconds are those since the start of
// the span and not of the interval: only the proportions count once the shares are scaled.
double ShareOf(const BuildState& state, const VmrContext& context, const ProcessRecord& process) {
  const double seconds = static_cast<double>(context.periodEnd - state.catalog.spanStart);
  double processors = state.sums.cpuSeen;
  if (context.partition) {
    const double online = PartitionOnline(*context.partition);
    if (online > 0.0 && processors > online) processors = online;
  }
  return 100.0 * CpuSecondsOf(process) / seconds / processors;
}

}  // namespace

const PlatformSpec AIX_PLATFORM = {
    .records = AixRecords,
    .tree = AixTree,
    .pointCountRule = PointCountRule::OF_DIFFERENCE,
    .pointRule = PointRule::NEAREST_MINUTE,
    .gapExtra = 1,
    .walksWithoutOpen = true,
    .usesInterval = HasProcessorsOrMachine,
    .processors = AddAixProcessors,
    .memory = AddMemory,
    .disks = AddDisks,
    .fileSystems = AddFileSystems,
    .adapters = AddAdapters,
    .processes = AddProcesses,
    .network = AddNetworkBsd,
    .partition = AddPartition,
    .processorSpec = {.namePrefix = "cpu", .countsNice = false},
    .processSpec = {.share = ShareOf, .passedOver = "wait"},
    .diskSpec = AIX_DISKS,
    .fileSystemKeyFormat = FILE_SYSTEM_KEY_PLAIN,
    .topLists = {.images = {"#%d %s", 0, OthersRule::TOTAL, true},
                 .users = {"#%d %s", 0, OthersRule::TOTAL, true},
                 .diskOperations = {"#%d %s", 0, OthersRule::TOTAL},
                 .diskData = {"#%d %s", 0, OthersRule::TOTAL},
                 .diskQueue = {"#%d %s"},
                 .diskUtilization = {"#%d %s"},
                 .diskSpace = {"#%d %s"},
                 .fileSystems = {"#%d %s", 1}},
    .finish = RemoveIdleProcessors,
};

}  // namespace ozmo
