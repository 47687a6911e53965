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

// Takes out of both what they have in common. The kernel divides a process' time into its two parts anew at
// each look, so that what one part lacks may be in the other.
void Settle(ProcessUse& debt, ProcessUse& credit) {
  const auto pay = [](uint64_t& owed, uint64_t& had) {
    const uint64_t paid = std::min(owed, had);
    owed -= paid;
    had -= paid;
  };
  for (const auto member : USE_COUNTERS) pay(debt.*member, credit.*member);
  pay(debt.userTicks, credit.systemTicks);
  pay(debt.systemTicks, credit.userTicks);
}

// What a process that was seen with `seen` used until it ended. Of the parts of its time one may have gone
// back; their sum is right.
ProcessUse GrowthUntilEnd(const ProcessUse& seen, const ProcessUse& whole) {
  ProcessUse growth = Growth(seen, whole);
  const uint64_t wholeTicks = whole.userTicks + whole.systemTicks;
  const uint64_t ticks = wholeTicks - std::min(wholeTicks, seen.userTicks + seen.systemTicks);
  growth.systemTicks = std::min(growth.systemTicks, ticks);
  growth.userTicks = ticks - growth.systemTicks;
  return growth;
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

// The place in `later` of the one that waits for the children of process `parent`: itself, or else its
// nearest ancestor that lives; or the size of the list.
size_t PlaceOfPayer(const Processes& earlier, int32_t parent, const Processes& later) {
  size_t ancestor = PlaceOf(earlier, parent);
  if (ancestor == earlier.size()) return PlaceOf(later, parent);
  for (size_t steps = 0; ancestor < earlier.size() && steps < earlier.size(); ++steps) {
    const size_t place = PlaceOfSame(later, earlier[ancestor]);
    if (place < later.size()) return place;
    ancestor = PlaceOf(earlier, earlier[ancestor].parent);
  }
  return later.size();
}

// In microseconds, what the ended processes are likely to have used after their reports. A report is made
// when a task begins to end, before its memory is given back, which takes about a microsecond for a page that
// it had; and it counts up to the last tick of the kernel's clock, which is half a tick before on the
// average.
uint64_t LikelyTail(const ReportedEnd& end) {
  constexpr uint64_t HALF_A_TICK = 2000;
  return end.tasks * HALF_A_TICK + end.process.use.minorFaults;
}

// The part of `all` that falls to `weight` of `weights`, when so much of them had its part before.
uint64_t PartOf(uint64_t all, uint64_t before, uint64_t weight, uint64_t weights) {
  const auto upTo = [&](uint64_t sum) {
    return static_cast<uint64_t>(static_cast<double>(all) * static_cast<double>(sum) /
                                 static_cast<double>(weights));
  };
  return upTo(before + weight) - upTo(before);
}

// Gives the ended what their parents' counts have grown beyond the reports, up to twice what is likely.
void ShareTails(const Processes& earlier, std::vector<ReportedEnd>& ends, Processes& later) {
  constexpr uint64_t MICROSECONDS_PER_TICK = 1'000'000 / TICKS_PER_SECOND;
  std::map<size_t, std::vector<ReportedEnd*>> endsOf;  // by the place of the payer
  for (ReportedEnd& end : ends) endsOf[PlaceOfPayer(earlier, end.process.parent, later)].push_back(&end);
  endsOf.erase(later.size());
  for (const auto& [place, ended] : endsOf) {
    uint64_t weights = 0;
    for (const ReportedEnd* end : ended) weights += LikelyTail(*end);
    ProcessUse& rest = later[place].children;
    const uint64_t ticks = rest.userTicks + rest.systemTicks;
    const uint64_t shared = std::min(ticks, 2 * weights / MICROSECONDS_PER_TICK);
    if (shared == 0) continue;
    const uint64_t system = PartOf(shared, 0, rest.systemTicks, ticks);
    uint64_t before = 0;
    for (ReportedEnd* end : ended) {
      const uint64_t weight = LikelyTail(*end);
      end->process.use.systemTicks += PartOf(system, before, weight, weights);
      end->process.use.userTicks += PartOf(shared - system, before, weight, weights);
      before += weight;
    }
    rest.systemTicks -= system;
    rest.userTicks -= shared - system;
  }
}

// Makes of each end what was used in the interval, and returns by parent what the parents' counts have grown
// for it. `settled` gets the ids of the ended processes that `earlier` has.
std::map<int32_t, ProcessUse> TakeEnds(const Processes& earlier, const Processes& later, ProcessEnds& ends,
                                       std::set<int32_t>& settled) {
  std::map<int32_t, ProcessUse> debts;
  for (ReportedEnd& end : ends.ends) {
    EndedProcess& process = end.process;
    const size_t before = end.wasSeen ? PlaceOf(earlier, process.id) : earlier.size();
    if (before == earlier.size()) {
      debts[process.parent] = Sum(debts[process.parent], process.use);
      continue;
    }
    const ProcessFigures& seen = earlier[before];
    const ProcessUse whole = process.use;
    process.use = GrowthUntilEnd(seen.own, whole);
    process.command = seen.command;
    process.user = seen.user;
    if (PlaceOfSame(later, seen) < later.size()) continue;  // its parent has yet to take notice
    settled.insert(process.id);
    debts[process.parent] = Sum(debts[process.parent], Sum(whole, seen.children));
  }
  // Those that haven't been waited for yet: they are settled when they are gone.
  for (const ProcessFigures& process : later) {
    if (!ends.shown.contains(process.id) || PlaceOfSame(earlier, process) < earlier.size()) continue;
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
    if (ends.shown.contains(process.id)) process.own = {};  // its end has it
  }
  std::set<int32_t> settled;
  const std::map<int32_t, ProcessUse> debts = TakeEnds(earlier, later, ends, settled);
  for (const ProcessFigures& process : earlier) {
    if (PlaceOfSame(used, process) == used.size() && !settled.contains(process.id)) {
      SettleEnded(earlier, Sum(process.own, process.children), process.parent, used);
    }
  }
  for (const auto& [parent, debt] : std::exchange(ends.unpaid, {})) SettleEnded(earlier, debt, parent, used);
  for (const auto& [parent, debt] : debts) ends.unpaid[parent] = SettleEnded(earlier, debt, parent, used);
  ShareTails(earlier, ends.ends, used);
  for (ProcessFigures& process : used) {
    process.own = Sum(process.own, process.children);
    process.children = {};
  }
  return used;
}

}  // namespace ozmo::host_file
