// What is particular to one platform's catalog: the constant description that the builder runs on.
#pragma once

#include <span>
#include <string_view>

#include "catalog/disk_spec.h"
#include "catalog/minute.h"
#include "catalog/point_rules.h"
#include "catalog/required.h"
#include "catalog/tables.h"
#include "readers/vmr_context.h"

namespace ozmo {

class ProcessorPass;
class ProcessPass;

// The length of the collection interval, as the builder knows it.
struct CollectionInterval {
  bool isKnown = false;
  int minutes = 0;
  float seconds = 0.0F;       // measured, for those who measure it
  Seconds lastTimeStamp = 0;  // the same
};

// What the processors of one interval add up to.
struct ProcessorSums {
  int seen = 0;             // processors counted
  double overallCpu = 0.0;  // percent
  double time = 0.0;        // of all processors' time counters
};

// Disk operations per second that paging made in one interval.
struct PagingOperations {
  double paging = 0.0;
  double swapping = 0.0;
};

// The sets after the ranks of a Top list.
enum class OthersRule {
  NONE,
  TOTAL,         // "Others": what the ranks leave of the graph's total
  DPC_INTERRUPT  // the same less DPC and interrupt time, which have a set of their own
};

// One Top list of a platform. `labelFormat` holds %d for a rank and %s for a name; the first entry's rank is
// `firstRank`. A list without a format isn't kept.
struct TopListSpec {
  const char* labelFormat = nullptr;
  int firstRank = 0;
  OthersRule others = OthersRule::NONE;
  bool isRescaled = false;  // by NormalizeProcessSeries
};

struct TopListSpecs {
  TopListSpec images = {};
  TopListSpec users = {};
  TopListSpec diskOperations = {};
  TopListSpec diskData = {};
  TopListSpec diskQueue = {};
  TopListSpec diskUtilization = {};
  TopListSpec diskSpace = {};
  TopListSpec fileSystems = {};
};

enum class CpuMode { USER, NICE, SYSTEM, IDLE, WAIT };

struct ProcessorSpec {
  const char* namePrefix = "CPU-";
  bool countsNice = true;               // nice time is part of total and busy time
  std::span<const CpuMode> modes = {};  // sets of "By Mode", means over the processors; none: not from here
  bool stopsAtConfigured = false;       // the pass ends with the configured number of processors
  bool setsFromConfiguration = false;   // the first interval makes one set for each configured processor
};

// Figures of a process in an interval, for the views and for tables of processes; below 0 where they aren't
// known. Null: the format hasn't got them.
struct ProcessMeasures {
  using Figure = double (*)(const ProcessRecord& process, const SystemConfig& config);
  Figure residentMb = nullptr;
  Figure pageFaults = nullptr;  // per second
};

struct ProcessSpec {
  std::string_view passedOver = {};  // the process of this name has no share; empty: all have
  bool restIsNamed = false;          // what the shares leave of overall CPU goes to "<NoProc>"
  bool sumStartsMissing = false;     // the sum of shares starts as MISSING_POINT and not as 0
  bool classesAreRescaled = true;    // the class series by NormalizeProcessSeries
  ProcessMeasures figures = {};
};

struct PlatformSpec {
  Required<std::span<const RecordText>> records;
  Required<std::span<const RowText>> tree;

  PointCountRule pointCountRule = PointCountRule::OF_QUOTIENTS;
  PointRule pointRule = PointRule::TRUNCATED;
  int gapExtra = 0;               // maxGap is the interval in minutes plus this
  bool dropsBeyondEnd = false;    // an interval after the last point is dropped
  bool walksWithoutOpen = false;  // the walk starts whatever opening has returned
  Seconds detailLimit = 0;        // a longer span has no disks and file systems in detail; 0: no limit
  const char* secondClassFile = nullptr;

  // Whether an interval counts. One without processor data doesn't: nothing of it is stored, and its minute
  // stays free for a later one.
  Required<bool (*)(const VmrContext& interval)> usesInterval;
  // Null: the first interval's configuration gives it.
  void (*measureInterval)(CollectionInterval& measured, const VmrContext& interval) = nullptr;

  // The passes, in the order of an interval's work. Those of disks, file systems and adapters are the same
  // everywhere.
  Required<ProcessorSums (*)(ProcessorPass& pass, const Minute& minute, const VmrContext& interval)>
      processors;
  Required<PagingOperations (*)(const Minute& minute, const VmrContext& interval)> memory;
  Required<void (*)(ProcessPass& pass, const Minute& minute, VmrContext& interval,
                    const ProcessorSums& processors, const CollectionInterval& length)>
      processes;
  Required<void (*)(const Minute& minute, const VmrContext& interval)> protocols;
  void (*partition)(const Minute& minute, const VmrContext& interval) = nullptr;  // null: there are none

  // Differences within the shared passes.
  ProcessorSpec processorSpec = {};
  ProcessSpec processSpec = {};
  DiskSpec diskSpec;
  const char* fileSystemKeyFormat = nullptr;  // see file_systems.h; null: no such data
  // Which adapters have graphs; null: no such data.
  bool (*hasAdapterGraphs)(std::string_view name) = nullptr;
  TopListSpecs topLists = {};

  // After the Top lists and classes; null: nothing is left to do. `processors` were seen in the last
  // interval.
  void (*finish)(GraphCatalog& catalog, int processors) = nullptr;
};

// The configuration of the walk; all members 0 where the file has none.
inline const SystemConfig& ConfigOf(const VmrContext& interval) {
  static const SystemConfig NONE;
  return interval.config ? *interval.config : NONE;
}

}  // namespace ozmo
