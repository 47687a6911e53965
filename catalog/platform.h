// What makes one platform's catalog: the constant description that the driver of builder.h runs on.
//
// A new platform is one such description, its tables of texts, and the few passes that are its own.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "catalog/build_state.h"
#include "catalog/disk_spec.h"
#include "catalog/tables.h"
#include "readers/vmr_context.h"

namespace ozmo {

// How many minute points a span has, start and end in seconds.
enum class PointCountRule {
  OF_DIFFERENCE,  // (end - start) / 60 + 2
  OF_QUOTIENTS    // end / 60 - start / 60 + 2
};

// The point of a time stamp.
enum class PointRule {
  NEAREST_MINUTE,  // half a minute rounds up
  TRUNCATED        // to the minute of the clock
};

// The sets behind the ranks of a Top list.
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
  bool rescaled = false;  // by NormalizeProcessSeries
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

// Percent of the machine that a process took in the interval.
using ShareRule = double (*)(const BuildState& state, const VmrContext& context,
                             const ProcessRecord& process);

struct ProcessSpec {
  ShareRule share = nullptr;
  const char* passedOver = nullptr;  // the process of this name has no share
  bool restNamed = false;            // what the shares leave of overall CPU goes to "<NoProc>"
  bool sumStartsMissing = false;     // the sum of shares starts as MISSING_POINT and not as 0
  bool classesRescaled = true;       // the class series by NormalizeProcessSeries
};

// Whether the interval brought any processor.
bool HasProcessors(const VmrContext& context);

// A pass over one part of an interval's records.
using Pass = void (*)(BuildState& state, const VmrContext& context);

struct PlatformSpec {
  std::span<const RecordText> (*records)() = nullptr;
  std::span<const RowText> (*tree)() = nullptr;

  PointCountRule pointCountRule = PointCountRule::OF_QUOTIENTS;
  PointRule pointRule = PointRule::TRUNCATED;
  int gapExtra = 0;                       // maxGap is the interval in minutes plus this
  bool dropsBeyondEnd = false;            // an interval behind the last point is dropped
  bool walksWithoutOpen = false;          // the walk starts whatever ReaderOpen answered
  std::optional<int> skippedResult = {};  // a result of ReaderNext that skips the interval and goes on
  Seconds detailLimit = 0;  // a longer span has no disks and file systems in detail; 0: no limit
  const char* secondClassFile = nullptr;

  // Whether an interval counts. One without processor data doesn't: nothing of it is stored, and its minute
  // stays free for a later one.
  bool (*usesInterval)(const VmrContext& context) = HasProcessors;
  // Null: the first interval's configuration tells it.
  Pass measureInterval = nullptr;

  // In the order of an interval's work. A null pass: the platform has no such data.
  Pass processors = nullptr;
  Pass memory = nullptr;
  Pass disks = nullptr;
  Pass fileSystems = nullptr;
  Pass adapters = nullptr;
  Pass processes = nullptr;
  Pass network = nullptr;
  Pass partition = nullptr;

  // Differences within the shared passes.
  ProcessorSpec processorSpec = {};
  ProcessSpec processSpec = {};
  DiskSpec diskSpec = {};
  const char* fileSystemKeyFormat = "";                    // of mount point and device, see file_systems.h
  bool (*adapterFilter)(std::string_view name) = nullptr;  // which adapters have graphs; null: all
  TopListSpecs topLists = {};

  // Behind the Top lists and classes; null: nothing is left to do.
  void (*finish)(BuildState& state) = nullptr;
};

// The configuration of the walk; all members 0 where the file told none.
const SystemConfig& ConfigOf(const VmrContext& context);

}  // namespace ozmo
