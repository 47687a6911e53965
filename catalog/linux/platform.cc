// Linux: memory in kilobytes, page faults from the processes, and a "<NoProc>" for what no process takes.

#include "catalog/disks.h"
#include "catalog/file_systems.h"
#include "catalog/linux/network.h"
#include "catalog/linux/texts.h"
#include "catalog/memory.h"
#include "catalog/platforms.h"
#include "catalog/processes.h"
#include "catalog/processors.h"
#include "runtime/text.h"

namespace ozmo::linux_catalog {
namespace {

constexpr CpuMode MODES[] = {CpuMode::WAIT, CpuMode::NICE, CpuMode::USER, CpuMode::SYSTEM};
constexpr double KB_PER_MB = 1024.0;

// No partitions, "sda1" or "cciss/c0d0p1", and no floppies.
std::optional<std::string_view> DiskName(std::string_view recordName) {
  const std::string_view name = TrimText(recordName, " ");
  if (name.starts_with("cciss") && name.find('p') != std::string_view::npos) return std::nullopt;
  for (const std::string_view kind : {"sd", "hd", "fd"}) {
    if (EndsInDigit(name) && name.starts_with(kind)) return std::nullopt;
  }
  return name;
}

bool IsNamedAdapter(std::string_view name) { return !name.empty(); }

PagingOperations AddMemory(const Minute& minute, const VmrContext& interval) {
  const double memMb = MemorySizeOf(interval).memMb;
  if (!interval.memory.primary) return StoreNoMemory(minute, memMb > 0.0 ? 0.0 : -1.0);
  const MemoryRecord& memory = *interval.memory.primary;
  const double freeMb = memory.freeKb / KB_PER_MB;
  const double sharedMb = memory.sharedKb / KB_PER_MB;
  const double cacheMb = static_cast<double>(memory.cacheKb) / KB_PER_MB;
  const double buffersMb = static_cast<double>(memory.buffersKb) / KB_PER_MB;
  const double applicationsMb = memMb - freeMb - buffersMb - cacheMb - sharedMb;
  minute.Store(Graph::MEMORY_ALLOCATION, {freeMb, applicationsMb, sharedMb, cacheMb, buffersMb});
  minute.Store(Graph::MEMORY_UTILIZATION, {UsedPercentOrMissing(freeMb, memMb)});

  const double pagedIn = static_cast<double>(memory.pageInRate);
  const double pagedOut = static_cast<double>(memory.pageOutRate);
  const double swappedIn = static_cast<double>(memory.swapInRate);
  const double swappedOut = static_cast<double>(memory.swapOutRate);
  const PagingOperations operations = {.paging = pagedIn + pagedOut, .swapping = swappedIn + swappedOut};
  // The top band holds all four, so once stacked it counts the other three twice.
  minute.Store(Graph::PAGES_IN_OUT, {operations.paging + operations.swapping, pagedOut, swappedIn, pagedIn});
  return operations;
}

// Page faults are in no memory record here: they are the processes'.
void AddPageFaults(const Minute& minute, const VmrContext& interval) {
  double major = 0.0;
  double minor = 0.0;
  for (const ProcessRecord& process : interval.processes.primary) {
    major += static_cast<double>(process.majorFaults);
    minor += static_cast<double>(process.minorFaults);
  }
  const double seconds = static_cast<double>(ConfigOf(interval).intervalSeconds);
  minute.Store(Graph::PROCESS_PAGEFAULTS, {major / seconds, minor / seconds});
  minute.Store(Graph::PAGEFAULT_RATE, {(major + minor) / seconds});
}

double ShareOf(const ProcessRecord& process, const ShareBasis& basis) {
  const double seconds = static_cast<double>(ConfigOf(basis.interval).intervalSeconds);
  return CpuSecondsOf(process) * 100.0 / seconds / basis.processors.seen;
}

void AddLinuxProcesses(ProcessPass& pass, const Minute& minute, VmrContext& interval,
                       const ProcessorSums& processors, const CollectionInterval& /*length*/) {
  pass.Run(minute, interval, processors, ShareOf);
  if (minute.catalog.FindNeeded(Graph::PROCESS_PAGEFAULTS) != nullptr) AddPageFaults(minute, interval);
}

double PageFaultsOf(const ProcessRecord& process, const SystemConfig& config) {
  return FaultRates(process, config) / static_cast<double>(config.intervalSeconds);
}

bool HasProcessorsAndConfiguration(const VmrContext& interval) {
  return HasProcessors(interval) && interval.config.has_value();
}

}  // namespace

static_assert(EachGraphHasOneRecord(linux_texts::RECORDS));
static_assert(RowsLeadToRecords(linux_texts::TREE, linux_texts::RECORDS));

constinit const PlatformSpec PLATFORM = {
    .records = linux_texts::RECORDS,
    .tree = linux_texts::TREE,
    .dropsBeyondEnd = true,
    .secondClassFile = "veltrix.memory",
    .usesInterval = HasProcessorsAndConfiguration,
    .processors = AddProcessors,
    .memory = AddMemory,
    .processes = AddLinuxProcesses,
    .protocols = AddLinuxProtocols,
    .processorSpec = {.modes = MODES, .stopsAtConfigured = true},
    .processSpec = {.restIsNamed = true,
                    .sumStartsMissing = true,
                    .figures = {.residentMb = MbOfKilobytes, .pageFaults = PageFaultsOf}},
    .diskSpec = {.name = DiskName, .graphs = disk_graphs::PLAIN},
    .fileSystemKeyFormat = FILE_SYSTEM_KEY_SPACED,
    .hasAdapterGraphs = IsNamedAdapter,
    .topLists = {.images = {.labelFormat = "#%d  %s", .others = OthersRule::TOTAL},
                 .users = {.labelFormat = "%d. %s", .others = OthersRule::TOTAL, .isRescaled = true},
                 .diskOperations = {.labelFormat = "#%d  %s", .others = OthersRule::TOTAL},
                 .diskData = {.labelFormat = "#%d %s", .others = OthersRule::TOTAL},
                 .diskQueue = {.labelFormat = "#%d %s"},
                 .diskUtilization = {.labelFormat = "#%d %s"},
                 .diskSpace = {.labelFormat = "#%d %s"},
                 .fileSystems = {.labelFormat = "#%d  %s", .firstRank = 1}},
};

}  // namespace ozmo::linux_catalog
