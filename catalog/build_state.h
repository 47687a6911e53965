// Working state of one catalog build, passed to every step.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "catalog/model.h"
#include "catalog/top_list.h"
#include "readers/vmr_context.h"
#include "workload/workload.h"

namespace ozmo {

struct PlatformSpec;

struct BuildState {
  const PlatformSpec& platform;
  GraphCatalog& catalog;
  WorkloadClassList& classes;

  int point = 0;            // of the current interval
  int lastPoint = 0;        // of the last interval used
  int intervalMinutes = 0;  // collection interval
  float intervalSeconds = 0.0F;
  bool detailed = true;     // disks and file systems in detail
  bool started = false;     // an interval has been used
  Seconds lastTimeStamp = 0;

  // Of the current interval.
  int cpuSeen = 0;        // processors counted
  double overallCpu = 0;  // percent
  double totalTime = 0;   // sum of all processors' time counters
  double diskOperations = 0;
  double pageOperations = 0;
  double swapOperations = 0;

  Series processCpuSum;            // sum of process CPU shares, per point
  NameTrees trees;                 // series by name, ranked after the walk
  std::unordered_map<std::string, int> processorSets;  // set number by processor name
  std::unordered_map<std::string, size_t> diskRows;    // row number by disk name
};

}  // namespace ozmo
