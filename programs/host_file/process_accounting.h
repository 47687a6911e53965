// What the processes of a host used in an interval.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <vector>

#include "programs/host_file/ended_processes.h"
#include "programs/host_file/host_figures.h"

namespace ozmo::host_file {

// A process that has ended, or the sum of some of one image, user and parent, as the kernel reports ends.
struct ReportedEnd {
  EndedProcess process;  // used from its begin to its end; its parent is the one that may wait for it
  bool wasSeen = false;  // in the reading at the begin of the interval; then it is one process
  uint64_t tasks = 1;    // the threads of all of them
};

// The ends in an interval, and what is kept from interval to interval to go with them.
struct ProcessEnds {
  bool areReported = false;
  std::vector<ReportedEnd> ends;
  std::set<int32_t> shown;  // those of them that the reading at the end of the interval still shows
  // By parent: what the children that were recorded used, and hasn't come to light in the parent yet.
  std::map<int32_t, ProcessUse> unpaid;
};

// The processes of `later` with what they used since `earlier`, both by id; `since` is the uptime at
// `earlier`.
//
// Most processes of a build live for less than an interval and are seen in no reading, or seen once with half
// of what they use. What they used comes to light in their parent, which counts the use of the children it
// has waited for. The growth of that count is taken as the parent's own use, less what the ended children
// were seen with, as that was counted in earlier intervals.
//
// Where the kernel reports ends, `ends` has those that came after the reading `earlier`, up to a moment after
// `later`. Their use becomes what they used in the interval, with the command of those that were seen, and
// nothing of it is counted in a parent. What is left of the growth of its count is in part what its children
// used after their reports, which goes to them; the rest are ends whose reports were lost.
//
// A process that came in sight without having started since counts nothing in its first interval. Not seen,
// unless ends are reported, is the use of ended processes whose parent doesn't wait for them because it
// ignores their end.
std::vector<ProcessFigures> ProcessesSince(const std::vector<ProcessFigures>& earlier, uint64_t since,
                                           const std::vector<ProcessFigures>& later, ProcessEnds& ends);

}  // namespace ozmo::host_file
