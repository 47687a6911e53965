#include "programs/host_file/process_accounting.h"

#include <algorithm>
#include <cstddef>

namespace ozmo::host_file {
namespace {

using Processes = std::vector<ProcessFigures>;

ProcessUse Sum(ProcessUse first, const ProcessUse& second) {
  for (const auto member : USE_COUNTERS) first.*member += second.*member;
  return first;
}

// A count that has gone back gives 0.
ProcessUse Growth(const ProcessUse& from, const ProcessUse& to) {
  ProcessUse growth;
  for (const auto member : USE_COUNTERS) growth.*member = to.*member - std::min(to.*member, from.*member);
  return growth;
}

// Takes out of both what they have in common.
void Settle(ProcessUse& debt, ProcessUse& credit) {
  for (const auto member : USE_COUNTERS) {
    const uint64_t paid = std::min(debt.*member, credit.*member);
    debt.*member -= paid;
    credit.*member -= paid;
  }
}

// The place of process `id`, or the size of the list.
size_t PlaceOf(const Processes& processes, int32_t id) {
  const auto found =
      std::lower_bound(processes.begin(), processes.end(), id,
                       [](const ProcessFigures& process, int32_t wanted) { return process.id < wanted; });
  const bool here = found != processes.end() && found->id == id;
  return here ? static_cast<size_t>(found - processes.begin()) : processes.size();
}

// The place of the same process in another reading, or the size of the list.
size_t PlaceOfSame(const Processes& processes, const ProcessFigures& process) {
  const size_t place = PlaceOf(processes, process.id);
  const bool same = place < processes.size() && processes[place].start == process.start;
  return same ? place : processes.size();
}

// Takes what the ended process `child` was seen with out of the children's use of the one that waited for it.
// That is its parent, if the parent lives. Else the parent may have waited for it, and then a living ancestor
// counts both; or the child outlived its parent and fell to an ancestor further up.
void SettleEnded(const Processes& earlier, const ProcessFigures& child, Processes& later) {
  ProcessUse debt = Sum(child.own, child.children);
  size_t ancestor = PlaceOf(earlier, child.parent);
  const bool parentLives = ancestor < earlier.size() && PlaceOfSame(later, earlier[ancestor]) < later.size();
  // A reading isn't made at one moment, so a chain of parents may be a ring.
  for (size_t steps = 0; ancestor < earlier.size() && steps < earlier.size(); ++steps) {
    const size_t place = PlaceOfSame(later, earlier[ancestor]);
    if (place < later.size()) Settle(debt, later[place].children);
    if (parentLives) return;
    ancestor = PlaceOf(earlier, earlier[ancestor].parent);
  }
}

}  // namespace

std::vector<ProcessFigures> ProcessesSince(const Processes& earlier, uint64_t since, const Processes& later) {
  Processes used = later;
  for (ProcessFigures& process : used) {
    const size_t before = PlaceOfSame(earlier, process);
    if (before < earlier.size()) {
      process.own = Growth(earlier[before].own, process.own);
      process.children = Growth(earlier[before].children, process.children);
    } else if (process.start < since) {
      process.own = {};
      process.children = {};
    }
  }
  for (const ProcessFigures& process : earlier) {
    if (PlaceOfSame(used, process) == used.size()) SettleEnded(earlier, process, used);
  }
  for (ProcessFigures& process : used) {
    process.own = Sum(process.own, process.children);
    process.children = {};
  }
  return used;
}

}  // namespace ozmo::host_file
