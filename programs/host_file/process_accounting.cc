#include "programs/host_file/process_accounting.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <utility>

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

// Takes `debt`, what a child of process `parent` used until it ended, out of the children's use of the one
// that waited for it, and returns what is left of it. That one is its parent, if the parent lives. Else the
// parent may have waited for it, and then a living ancestor counts both; or the child outlived its parent and
// fell to an ancestor further up.
ProcessUse SettleEnded(const Processes& earlier, ProcessUse debt, int32_t parent, Processes& later) {
  size_t ancestor = PlaceOf(earlier, parent);
  if (ancestor == earlier.size()) {  // one that has begun since
    const size_t place = PlaceOf(later, parent);
    if (place < later.size()) Settle(debt, later[place].children);
    return debt;
  }
  const bool parentLives = PlaceOfSame(later, earlier[ancestor]) < later.size();
  // A reading isn't made at one moment, so a chain of parents may be a ring.
  for (size_t steps = 0; ancestor < earlier.size() && steps < earlier.size(); ++steps) {
    const size_t place = PlaceOfSame(later, earlier[ancestor]);
    if (place < later.size()) Settle(debt, later[place].children);
    if (parentLives) break;
    ancestor = PlaceOf(earlier, earlier[ancestor].parent);
  }
  return debt;
}

// Makes of each end what was used in the interval, and returns by parent what the parents' counts have grown
// for it. `settled` gets the ids of the ended processes that `earlier` has.
std::map<int32_t, ProcessUse> TakeEnds(const Processes& earlier, const Processes& later,
                                       std::vector<ProcessEnd>& ends, std::set<int32_t>& settled) {
  std::map<int32_t, ProcessUse> debts;
  for (ProcessEnd& end : ends) {
    EndedProcess& process = end.process;
    const size_t before = end.wasSeen ? PlaceOf(earlier, process.id) : earlier.size();
    if (before == earlier.size()) {
      debts[process.parent] = Sum(debts[process.parent], process.use);
      continue;
    }
    const ProcessFigures& seen = earlier[before];
    const ProcessUse whole = process.use;
    process.use = Growth(seen.own, whole);
    process.command = seen.command;
    process.user = seen.user;
    if (PlaceOfSame(later, seen) < later.size()) continue;  // its parent has yet to take notice
    settled.insert(process.id);
    debts[process.parent] = Sum(debts[process.parent], Sum(whole, seen.children));
  }
  // Those that haven't been waited for yet: they are settled when they are gone.
  for (const ProcessFigures& process : later) {
    if (!process.hasEnded || PlaceOfSame(earlier, process) < earlier.size()) continue;
    const auto debt = debts.find(process.parent);
    if (debt != debts.end()) debt->second = Growth(process.own, debt->second);
  }
  return debts;
}

}  // namespace

std::vector<ProcessFigures> ProcessesSince(const Processes& earlier, uint64_t since, const Processes& later,
                                           ProcessEnds& ends) {
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
    if (ends.areReported && process.hasEnded) process.own = {};  // its end has it
  }
  std::set<int32_t> settled;
  const std::map<int32_t, ProcessUse> debts = TakeEnds(earlier, later, ends.ends, settled);
  for (const ProcessFigures& process : earlier) {
    if (PlaceOfSame(used, process) == used.size() && !settled.contains(process.id)) {
      SettleEnded(earlier, Sum(process.own, process.children), process.parent, used);
    }
  }
  for (const auto& [parent, debt] : std::exchange(ends.unpaid, {})) SettleEnded(earlier, debt, parent, used);
  for (const auto& [parent, debt] : debts) ends.unpaid[parent] = SettleEnded(earlier, debt, parent, used);
  for (ProcessFigures& process : used) {
    process.own = Sum(process.own, process.children);
    process.children = {};
  }
  return used;
}

}  // namespace ozmo::host_file
