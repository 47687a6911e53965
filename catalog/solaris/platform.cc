// Solaris: mode means over the processors, free pages, eight kinds of page faults.

#include "catalog/disks.h"
#include "catalog/file_systems.h"
#include "catalog/memory.h"
#include "catalog/platforms.h"
#include "catalog/processes.h"
#include "catalog/processors.h"
#include "catalog/solaris/network.h"
#include "catalog/solaris/texts.h"
#include "runtime/text.h"

namespace ozmo::solaris_catalog {
namespace {

constexpr CpuMode MODES[] = {CpuMode::USER, CpuMode::SYSTEM};

PagingOperations AddMemory(const Minute& minute, const VmrContext& interval) {
  const MemorySize size = MemorySizeOf(interval);
  if (!interval.memory.primary) return StoreNoMemory(minute, size.memMb > 0.0 ? 0.0 : -1.0);
  const MemoryRecord& memory = *interval.memory.primary;
  const double freeMb = memory.freePages * size.pageMb;
  minute.Store(Graph::MEMORY_ALLOCATION, {freeMb, size.memMb - freeMb});
  minute.Store(Graph::MEMORY_UTILIZATION, {UsedPercentOrMissing(freeMb, size.memMb)});

  const float kinds[] = {memory.majorFaultRate,         memory.copyOnWriteFaultRate,
                         memory.protectionFaultRate,    memory.softLockFaultRate,
                         memory.kernelAddressFaultRate, memory.zeroFillFaultRate,
                         memory.translationFaultRate,   memory.addressFaultRate};
  StoreFaultKinds(minute, kinds);
  const PagingOperations operations = {
      .paging = static_cast<double>(memory.pageInRate + memory.pageOutRate),
      .swapping = static_cast<double>(memory.swapInRate + memory.swapOutRate)};
  minute.Store(Graph::PAGEFAULT_IO, {operations.paging});
  return operations;
}

}  // namespace

double ShareOf(const ProcessRecord& process, const ShareBasis& basis) {
  const double seconds = static_cast<double>(basis.interval.periodEnd - basis.interval.periodStart);
  return CpuSecondsOf(process) * 100.0 / basis.processors.seen / seconds;
}

// Pages, as long as the size of one isn't known.
double ResidentMb(const ProcessRecord& process, const SystemConfig& config) {
  return config.pageSize > 0 ? MbOfKilobytes(process, config) : MISSING_POINT;
}

static_assert(EachGraphHasOneRecord(solaris_texts::RECORDS));
static_assert(RowsLeadToRecords(solaris_texts::TREE, solaris_texts::RECORDS));

constinit const PlatformSpec PLATFORM = {
    .records = solaris_texts::RECORDS,
    .tree = solaris_texts::TREE,
    .gapExtra = 1,
    .usesInterval = HasProcessors,
    .processors = AddProcessors,
    .memory = AddMemory,
    .processes = AddProcesses<ShareOf>,
    .protocols = AddSolarisProtocols,
    .processorSpec = {.modes = MODES},
    .processSpec = {.sumStartsMissing = true,
                    .figures = {.residentMb = ResidentMb, .pageFaults = PageFaultRate}},
    .diskSpec = {.name = DiskNameWithoutDirectory, .graphs = disk_graphs::PLAIN},
    .fileSystemKeyFormat = FILE_SYSTEM_KEY_SPACED,
    .hasAdapterGraphs = EndsInDigit,  // "hme0"; not "lo" and the like
    .topLists = {.images = {.labelFormat = "#%d  %s", .others = OthersRule::TOTAL},
                 .users = {.labelFormat = "%d. %s", .others = OthersRule::TOTAL, .isRescaled = true},
                 .diskOperations = {.labelFormat = "#%d  %s", .others = OthersRule::TOTAL},
                 .diskData = {.labelFormat = "#%d %s", .others = OthersRule::TOTAL},
                 .diskQueue = {.labelFormat = "#%d %s"},
                 .diskUtilization = {.labelFormat = "#%d %s"},
                 .diskSpace = {.labelFormat = "#%d %s"},
                 .fileSystems = {.labelFormat = "#%d  %s", .firstRank = 1}},
};

}  // namespace ozmo::solaris_catalog
