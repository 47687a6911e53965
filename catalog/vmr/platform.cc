// Monitor text files: the machine as a whole heads the processor list, the collection interval is measured
// from the time stamps, and process shares are weighted by how long a process lived.

#include "catalog/disks.h"
#include "catalog/memory.h"
#include "catalog/platforms.h"
#include "catalog/processes.h"
#include "catalog/vmr/network.h"
#include "catalog/vmr/passes.h"
#include "catalog/vmr/texts.h"

namespace ozmo::vmr_catalog {
namespace {

PagingOperations AddMemory(const Minute& minute, const VmrContext& interval) {
  const MemorySize size = MemorySizeOf(interval);
  if (!interval.memory.primary) return StoreNoMemory(minute, size.memMb > 0.0 ? 0.0 : -1.0);
  const MemoryRecord& memory = *interval.memory.primary;
  minute.Store(Graph::MEMORY_UTILIZATION, {UsedPercentOrMissing(memory.freePages * size.pageMb, size.memMb)});
  minute.Store(Graph::PAGEFAULT_RATE, {memory.pageFaultRate});
  minute.Store(Graph::PAGEFAULT_IO, {memory.pageReadRate + memory.pageWriteRate});
  return {};  // no graph splits the disk operations here
}

// The record has bytes here.
double ResidentMb(const ProcessRecord& process, const SystemConfig& config) {
  return MbOfKilobytes(process, config) / 1024.0;
}

}  // namespace

static_assert(EachGraphHasOneRecord(vmr_texts::RECORDS));
static_assert(RowsLeadToRecords(vmr_texts::TREE, vmr_texts::RECORDS));

constinit const PlatformSpec PLATFORM = {
    .records = vmr_texts::RECORDS,
    .tree = vmr_texts::TREE,
    .pointRule = PointRule::NEAREST_MINUTE,
    .gapExtra = 1,
    .usesInterval = HasProcessors,
    .measureInterval = MeasureVmrInterval,
    .processors = AddVmrProcessors,
    .memory = AddMemory,
    .processes = AddVmrProcesses,
    .protocols = AddVmrProtocols,
    .processSpec = {.classesAreRescaled = false,
                    .figures = {.residentMb = ResidentMb, .pageFaults = PageFaultRate}},
    .diskSpec = {.name = DiskNameAsIs, .graphs = disk_graphs::PLAIN, .timesMeasured = true},
    .topLists = {.images = {.labelFormat = "#%d  %s", .firstRank = 1, .others = OthersRule::DPC_INTERRUPT},
                 .diskOperations = {.labelFormat = "#%d  %s", .others = OthersRule::TOTAL},
                 .diskData = {.labelFormat = "#%d %s", .others = OthersRule::TOTAL},
                 .diskQueue = {.labelFormat = "#%d %s"},
                 .diskUtilization = {.labelFormat = "#%d %s"}},
};

}  // namespace ozmo::vmr_catalog
