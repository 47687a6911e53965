// The steps of one catalog build, without the reader: BuildCatalog runs them around a walk, and a test on
// records of its own.
#pragma once

#include "catalog/adapters.h"
#include "catalog/disks.h"
#include "catalog/file_systems.h"
#include "catalog/needs.h"
#include "catalog/platform.h"
#include "catalog/processes.h"
#include "catalog/processors.h"
#include "catalog/top_graphs.h"

namespace ozmo {

class BuildSteps {
 public:
  // Makes the catalog's records and tree for the span, and the series of those records that are needed. The
  // classes are loaded by then. All arguments but the span have to live as long as the build.
  BuildSteps(const PlatformSpec& platform, const WorkloadClassList& classes, const Span& span,
             GraphCatalog& catalog);

  // Gives the processes of each interval that is used to `sink`, where somebody wants the graph of images.
  void SetProcessSink(ProcessSink sink);

  // Works one interval into the catalog; one that the platform doesn't use stores nothing and moves no point.
  // False: the interval was dropped, because it falls on the point of the one before (the first counts, and
  // point 0 never does) or after the span.
  bool TakeInterval(VmrContext& interval);

  // Ranks names, finishes the classes and what else the platform has to finish.
  void FinishGraphs();

  // Bridges gaps and stacks traces. Nothing is missing after that.
  void FinishSeries();

  const Needs& needs() const { return needs_; }
  const CollectionInterval& length() const { return length_; }
  TopSources sources() const { return {points_, processes_, disks_, fileSystems_}; }

 private:
  bool UseInterval(VmrContext& interval);
  void RunPasses(const Minute& minute, VmrContext& interval);

  const PlatformSpec& platform_;
  GraphCatalog& catalog_;
  Needs needs_;
  SampledPoints points_;
  ProcessorPass processors_;
  DiskPass disks_;
  FileSystemPass fileSystems_;
  AdapterPass adapters_;
  ProcessPass processes_;
  ProcessSink processSink_;

  CollectionInterval length_;
  int lastPoint_ = 0;           // of the last interval used
  int processorsSeenLast_ = 0;  // in that interval
};

}  // namespace ozmo
