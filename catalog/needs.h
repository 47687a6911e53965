// What a build has to work out for the graphs that are wanted.
#pragma once

#include <bitset>

#include "catalog/disks.h"
#include "catalog/graph_name.h"
#include "catalog/platform.h"
#include "catalog/processes.h"
#include "readers/record_kinds.h"

namespace ozmo {

// The passes over the records of an interval.
enum class PassKind {
  PROCESSORS,
  MEMORY,
  DISKS,
  FILE_SYSTEMS,
  ADAPTERS,
  PROCESSES,
  PROTOCOLS,
  PARTITION,
  COUNT
};

struct Needs {
  std::bitset<GRAPH_COUNT> graphs;  // those wanted, and those that they are worked out from
  std::bitset<static_cast<size_t>(PassKind::COUNT)> passes;
  DiskDetail disks;
  ProcessDetail processes;
  RecordKinds records = {RecordKind::PROCESSORS,
                         RecordKind::MACHINE_CPU};  // which show the intervals that count

  bool Has(Graph graph) const { return graphs[static_cast<size_t>(graph)]; }
  bool Has(PassKind pass) const { return passes[static_cast<size_t>(pass)]; }
};

// `isDetailed`: the span is short enough for disks and file systems in detail.
Needs NeedsOf(const PlatformSpec& platform, const WantedTitles& titles, bool isDetailed);

}  // namespace ozmo
