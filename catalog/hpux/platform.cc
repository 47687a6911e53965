// HP-UX: page counts and three kinds of faults; long spans have no disks and file systems in detail.

#include "catalog/adapters.h"
#include "catalog/bsd_network.h"
#include "catalog/disks.h"
#include "catalog/file_systems.h"
#include "catalog/hpux/texts.h"
#include "catalog/memory.h"
#include "catalog/platforms.h"
#include "catalog/processes.h"
#include "catalog/processors.h"

namespace ozmo::hpux_catalog {
namespace {

constexpr CpuMode MODES[] = {CpuMode::NICE, CpuMode::USER, CpuMode::SYSTEM};

PagingOperations AddMemory(const Minute& minute, const VmrContext& interval) {
  if (!interval.memory.primary) return StoreNoMemory(minute);
  const MemoryRecord& memory = *interval.memory.primary;
  const MemorySize size = MemorySizeOf(interval);
  const double freeMb = memory.freePages * size.pageMb;
  const double activeMb = static_cast<double>(memory.activePages) * size.pageMb;
  minute.Store(Graph::MEMORY_ALLOCATION, {freeMb, activeMb, size.memMb - activeMb - freeMb});
  minute.Store(Graph::MEMORY_UTILIZATION, {UsedPercent(freeMb, size.memMb)});

  const float kinds[] = {memory.majorFaultRate, memory.copyOnWriteFaultRate, memory.zeroFillFaultRate};
  StoreFaultKinds(minute, kinds);
  const PagingOperations operations = {
      .paging = static_cast<double>(memory.pageInRate + memory.pageOutRate),
      .swapping = static_cast<double>(memory.swapInRate + memory.swapOutRate)};
  minute.Store(Graph::PAGEFAULT_IO, {operations.paging});
  return operations;
}

}  // namespace

double ShareOf(const ProcessRecord& process, const ShareBasis& basis) {
  return 100.0 * CpuSecondsOf(process) / basis.processors.time;
}

// The record has bytes here, once the size of a page is known.
double ResidentMb(const ProcessRecord& process, const SystemConfig& config) {
  return config.pageSize > 0 ? MbOfKilobytes(process, config) / 1024.0 : MISSING_POINT;
}

static_assert(EachGraphHasOneRecord(hpux_texts::RECORDS));
static_assert(RowsLeadToRecords(hpux_texts::TREE, hpux_texts::RECORDS));

constinit const PlatformSpec PLATFORM = {
    .records = hpux_texts::RECORDS,
    .tree = hpux_texts::TREE,
    .gapExtra = 1,
    .detailLimit = 2 * SECONDS_PER_DAY,
    .usesInterval = HasProcessors,
    .processors = AddProcessors,
    .memory = AddMemory,
    .processes = AddProcesses<ShareOf>,
    .protocols = AddBsdProtocols,
    .processorSpec = {.modes = MODES},
    .processSpec = {.figures = {.residentMb = ResidentMb, .pageFaults = FaultRates}},
    .diskSpec = {.name = DiskNameWithoutDirectory, .graphs = disk_graphs::SUMMED},
    .fileSystemKeyFormat = FILE_SYSTEM_KEY_PLAIN,
    .hasAdapterGraphs = AdapterHasAnyName,
    .topLists = {.images = {.labelFormat = "#%d  %s", .others = OthersRule::TOTAL, .isRescaled = true},
                 .users = {.labelFormat = "%d. %s", .others = OthersRule::TOTAL, .isRescaled = true},
                 .diskOperations = {.labelFormat = "#%d %s", .others = OthersRule::TOTAL},
                 .diskData = {.labelFormat = "#%d %s", .others = OthersRule::TOTAL},
                 .diskQueue = {.labelFormat = "#%d %s"},
                 .diskUtilization = {.labelFormat = "#%d %s"},
                 .diskSpace = {.labelFormat = "#%d %s"},
                 .fileSystems = {.labelFormat = "#%d %s", .firstRank = 1}},
};

}  // namespace ozmo::hpux_catalog
