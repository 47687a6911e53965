// AIX: machine-wide CPU figures, two forms of memory figures, the partition's graphs, and idle logical
// processors that are taken out of the catalog at the end.

#include "catalog/adapters.h"
#include "catalog/aix/partition.h"
#include "catalog/aix/texts.h"
#include "catalog/bsd_network.h"
#include "catalog/disks.h"
#include "catalog/file_systems.h"
#include "catalog/memory.h"
#include "catalog/platforms.h"
#include "catalog/processes.h"
#include "catalog/processors.h"

namespace ozmo::aix_catalog {
namespace {

// The machine as a whole comes in a record of its own; the processors only fill their own graphs.
ProcessorSums AddAixProcessors(ProcessorPass& pass, const Minute& minute, const VmrContext& interval) {
  ProcessorSums sums = pass.Run(minute, interval);
  const RecordList<ProcessorRecord>& overall = interval.overallCpu.primary;
  const ProcessorRecord machine = overall.empty() ? ProcessorRecord{} : overall.head();
  const double busy = machine.systemTime + machine.userTime;
  const double all = busy + machine.idleTime + machine.waitTime;
  const double factor = all > 0.0 ? 100.0 / all : 1.0;
  sums.overallCpu = StoreOverallCpu(minute, busy * factor);
  minute.Store(Graph::CPU_BY_MODE,
               {machine.waitTime * factor, machine.userTime * factor, machine.systemTime * factor});
  return sums;
}

// The machine-wide record is used for the processors where an interval brings no more.
bool HasProcessorsOrMachine(const VmrContext& interval) {
  return HasProcessors(interval) || !interval.overallCpu.primary.empty();
}

struct MemoryUse {
  double realMb = 0.0;
  double freeMb = 0.0;
  double procsMb = 0.0;
  double filesMb = 0.0;
  double systemMb = 0.0;
};

// The newer collectors' figures. The factor isn't that of a page of 4096 bytes: the graphs were always drawn
// so.
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

PagingOperations AddMemory(const Minute& minute, const VmrContext& interval) {
  if (!interval.memory.primary) return StoreNoMemory(minute);
  const MemoryRecord& memory = *interval.memory.primary;
  MemoryUse use =
      memory.realMb > 0.0F ? NewerMemoryUse(memory) : OlderMemoryUse(memory, MemorySizeOf(interval));
  if (!(use.realMb > 0.0)) use.realMb = use.freeMb + use.procsMb + use.filesMb + use.systemMb;
  minute.Store(Graph::MEMORY_UTILIZATION, {UsedPercent(use.freeMb, use.realMb)});
  minute.Store(Graph::MEMORY_ALLOCATION, {use.freeMb, use.procsMb, use.filesMb, use.systemMb});

  const double zeroFill = static_cast<double>(memory.zeroFillFaultRate);
  const double execFill = static_cast<double>(memory.execFillFaultRate);
  double other = static_cast<double>(memory.pageFaultRate) - zeroFill - execFill;
  if (other < 0.0) other = 0.0;
  minute.Store(Graph::PAGEFAULTS_BY_TYPE, {other, zeroFill, execFill});
  minute.Store(Graph::PAGEFAULT_RATE, {other + zeroFill + execFill});
  const double pagedIn = static_cast<double>(memory.pageInRate);
  const double pagedOut = static_cast<double>(memory.pageOutRate);
  minute.Store(Graph::PAGING_IN_OUT, {pagedIn, pagedOut});
  return {};  // no graph splits the disk operations here
}

}  // namespace

// A processor count that the partition's online processors limit. The seconds are those since the start of
// the span and not of the interval: only the proportions count once the shares are scaled.
double ShareOf(const ProcessRecord& process, const ShareBasis& basis) {
  const double seconds = static_cast<double>(basis.interval.periodEnd - basis.spanStart);
  double processors = basis.processors.seen;
  if (basis.interval.partition) {
    const double online = basis.interval.partition->onlineProcessors;
    if (online > 0.0 && processors > online) processors = online;
  }
  return 100.0 * CpuSecondsOf(process) / seconds / processors;
}

static_assert(EachGraphHasOneRecord(aix_texts::RECORDS));
static_assert(RowsLeadToRecords(aix_texts::TREE, aix_texts::RECORDS));

constinit const PlatformSpec PLATFORM = {
    .records = aix_texts::RECORDS,
    .tree = aix_texts::TREE,
    .pointCountRule = PointCountRule::OF_DIFFERENCE,
    .pointRule = PointRule::NEAREST_MINUTE,
    .gapExtra = 1,
    .walksWithoutOpen = true,
    .usesInterval = HasProcessorsOrMachine,
    .processors = AddAixProcessors,
    .memory = AddMemory,
    .processes = AddProcesses<ShareOf>,
    .protocols = AddBsdProtocols,
    .partition = AddPartition,
    .processorSpec = {.namePrefix = "cpu", .countsNice = false},
    .processSpec = {.passedOver = "wait", .figures = {.residentMb = MbOfKilobytes, .pageFaults = FaultRates}},
    .diskSpec = {.name = DiskNameAsIs, .graphs = disk_graphs::WITH_SPACE},
    .fileSystemKeyFormat = FILE_SYSTEM_KEY_PLAIN,
    .hasAdapterGraphs = AdapterHasAnyName,
    .topLists = {.images = {.labelFormat = "#%d %s", .others = OthersRule::TOTAL, .isRescaled = true},
                 .users = {.labelFormat = "#%d %s", .others = OthersRule::TOTAL, .isRescaled = true},
                 .diskOperations = {.labelFormat = "#%d %s", .others = OthersRule::TOTAL},
                 .diskData = {.labelFormat = "#%d %s", .others = OthersRule::TOTAL},
                 .diskQueue = {.labelFormat = "#%d %s"},
                 .diskUtilization = {.labelFormat = "#%d %s"},
                 .diskSpace = {.labelFormat = "#%d %s"},
                 .fileSystems = {.labelFormat = "#%d %s", .firstRank = 1}},
    .finish = RemoveIdleProcessors,
};

}  // namespace ozmo::aix_catalog
