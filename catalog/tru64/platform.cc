// Tru64: page counts of six uses and six kinds of faults; the first interval makes the processors' sets; no
// adapter pass.

#include "catalog/bsd_network.h"
#include "catalog/disks.h"
#include "catalog/file_systems.h"
#include "catalog/memory.h"
#include "catalog/platforms.h"
#include "catalog/processes.h"
#include "catalog/processors.h"
#include "catalog/tru64/texts.h"

namespace ozmo::tru64_catalog {
namespace {

constexpr CpuMode MODES[] = {CpuMode::NICE, CpuMode::USER, CpuMode::SYSTEM};

PagingOperations AddMemory(const Minute& minute, const VmrContext& interval) {
  if (!interval.memory.primary) return StoreNoMemory(minute);
  const MemoryRecord& memory = *interval.memory.primary;
  const MemorySize size = MemorySizeOf(interval);
  const double freeMb = memory.freePages * size.pageMb;
  const double inactiveMb = static_cast<double>(memory.inactivePages) * size.pageMb;
  const double activeMb = static_cast<double>(memory.activePages) * size.pageMb;
  const double bufferMb = static_cast<double>(memory.bufferCachePages) * size.pageMb;
  const double wiredMb = static_cast<double>(memory.wiredPages) * size.pageMb;
  const double unmappedMb = size.memMb - freeMb - inactiveMb - activeMb - bufferMb - wiredMb;
  minute.Store(Graph::MEMORY_ALLOCATION, {freeMb, inactiveMb, activeMb, bufferMb, wiredMb, unmappedMb});
  minute.Store(Graph::MEMORY_UTILIZATION, {UsedPercent(freeMb, size.memMb)});

  const float kinds[] = {memory.kernelFaultRate,         memory.copyOnWriteFaultRate,
                         memory.copyOnWriteStealRate,    memory.zeroFillFaultRate,
                         memory.kernelZeroFillFaultRate, memory.bufferCacheFaultRate};
  StoreFaultKinds(minute, kinds);
  const PagingOperations operations = {.paging =
                                           static_cast<double>(memory.pageReadRate + memory.pageWriteRate)};
  minute.Store(Graph::PAGEFAULT_IO, {operations.paging});
  return operations;
}

}  // namespace

double ShareOf(const ProcessRecord& process, const ShareBasis& /*basis*/) { return CpuSecondsOf(process); }

static_assert(EachGraphHasOneRecord(tru64_texts::RECORDS));
static_assert(RowsLeadToRecords(tru64_texts::TREE, tru64_texts::RECORDS));

constinit const PlatformSpec PLATFORM = {
    .records = tru64_texts::RECORDS,
    .tree = tru64_texts::TREE,
    .usesInterval = HasProcessors,
    .processors = AddProcessors,
    .memory = AddMemory,
    .processes = AddProcesses<ShareOf>,
    .protocols = AddBsdProtocols,
    .processorSpec = {.modes = MODES, .setsFromConfiguration = true},
    .processSpec = {.restIsNamed = true, .figures = {.residentMb = MbOfKilobytes}},
    .diskSpec = {.name = DiskNameAsIs, .graphs = disk_graphs::WITH_SPACE},
    .fileSystemKeyFormat = FILE_SYSTEM_KEY_SPACED,
    .topLists = {.images = {.labelFormat = "#%d  %s", .others = OthersRule::TOTAL, .isRescaled = true},
                 .users = {.labelFormat = "%d. %s", .others = OthersRule::TOTAL, .isRescaled = true},
                 .diskOperations = {.labelFormat = "#%d %s", .others = OthersRule::TOTAL},
                 .diskData = {.labelFormat = "#%d %s", .others = OthersRule::TOTAL},
                 .diskQueue = {.labelFormat = "#%d %s"},
                 .diskUtilization = {.labelFormat = "#%d %s"},
                 .diskSpace = {.labelFormat = "#%d %s"},
                 .fileSystems = {.labelFormat = "#%d %s", .firstRank = 1}},
};

}  // namespace ozmo::tru64_catalog
