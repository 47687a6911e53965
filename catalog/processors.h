// The processor pass: time counters to percent, the graphs by processor and by mode, overall CPU.
#pragma once

#include <map>
#include <string>

#include "catalog/platform.h"

namespace ozmo {

// The processors seen so far.
class ProcessorPass {
 public:
  explicit ProcessorPass(const ProcessorSpec& spec) : spec_(spec) {}

  // Works the interval's processors in. Where the platform's description has modes, overall CPU and the modes
  // are means over the processors; otherwise the platform has machine-wide figures and stores them itself.
  ProcessorSums Run(const Minute& minute, const VmrContext& interval);

  // Gives the graphs by processor `count` sets, once in a walk.
  void MakeSets(GraphCatalog& catalog, int count);

  // "CPU-3", "cpu3".
  std::string NameOf(int32_t cpuId) const { return spec_.namePrefix + std::to_string(cpuId); }

  // The graph by mode of one processor, in files that bring one; null for a processor that has none yet.
  std::map<int32_t, GraphRecord*>& modeRecords() { return modeRecords_; }

 private:
  struct Totals;

  void Add(const Minute& minute, const ProcessorRecord& processor, ProcessorSums& sums, Totals& totals);
  int SetOf(GraphCatalog& catalog, int32_t cpuId);
  int RoomForSets(const GraphCatalog& catalog) const;

  const ProcessorSpec& spec_;
  bool setsAreMade_ = false;
  std::map<int32_t, int> sets_;  // by processor number
  std::map<int32_t, GraphRecord*> modeRecords_;
};

// The pass of a platform that has nothing of its own.
ProcessorSums AddProcessors(ProcessorPass& pass, const Minute& minute, const VmrContext& interval);

// Whether the interval brought any processor.
bool HasProcessors(const VmrContext& interval);

// Stores overall CPU, limited to 0 to 100, and returns it.
double StoreOverallCpu(const Minute& minute, double percent);

}  // namespace ozmo
