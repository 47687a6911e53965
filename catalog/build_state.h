// Working state of one catalog build, passed to every step.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <unordered_map>

#include "catalog/disk_entry.h"
#include "catalog/model.h"
#include "catalog/process_identity.h"
#include "catalog/top_list.h"
#include "readers/vmr_context.h"
#include "workload/workload.h"

namespace ozmo {

struct PlatformSpec;

// Sums over one interval; nothing carries over to the next.
struct IntervalSums {
  int cpuSeen = 0;              // processors counted
  double overallCpu = 0.0;      // percent
  double processorTime = 0.0;   // sum of all processors' time counters
  double pageOperations = 0.0;  // disk operations per second that paging made
  double swapOperations = 0.0;
};

struct BuildState {
  BuildState(const PlatformSpec& spec, GraphCatalog& target, WorkloadClassList& list)
      : platform(spec), catalog(target), classes(list), trees(target) {}

  const PlatformSpec& platform;
  GraphCatalog& catalog;
  WorkloadClassList& classes;

  int point = 0;                 // of the current interval
  int lastPoint = 0;             // of the last interval used
  int intervalMinutes = 0;       // collection interval
  float intervalSeconds = 0.0F;  // the same as .vmr files measure it
  bool intervalKnown = false;
  bool announced = false;       // the "Processing" line is out
  bool processorsMade = false;  // where the first interval decides how many processors a graph shows
  Seconds lastTimeStamp = 0;
  bool detailed = true;  // disks and file systems in detail
  IntervalSums sums;     // of the current interval; after the walk, of the last one used

  Series processCpuSum;                                        // sum of process CPU shares, per point
  NameTrees trees;                                             // series by name, ranked after the walk
  std::unordered_map<int32_t, int> processorSets;              // set number by processor number
  std::unordered_map<int32_t, GraphRecord*> processorRecords;  // .vmr: mode record by processor number
  DiskEntries diskEntries;                                     // by disk name
  ProcessIdentities processIdentities;
};

// Stores one value a set at the interval's point, set 0 first. Nothing happens where the platform lacks the
// graph or a set.
void StoreSets(BuildState& state, Graph graph, std::span<const float> values);
void StoreSets(BuildState& state, Graph graph, std::initializer_list<float> values);
void StoreSets(BuildState& state, Graph graph, std::initializer_list<double> values);

}  // namespace ozmo
