// Whose use the use of ended processes becomes.
#include "programs/host_file/process_accounting.h"

#include <gtest/gtest.h>

#include <map>

namespace ozmo::host_file {
namespace {

// A process with user ticks of its own and of its children.
ProcessFigures Process(int32_t id, int32_t parent, uint64_t own, uint64_t children, uint64_t start = 0) {
  ProcessFigures process;
  process.id = id;
  process.parent = parent;
  process.start = start;
  process.own.userTicks = own;
  process.children.userTicks = children;
  return process;
}

struct AccountingCase {
  const char* what;
  std::vector<ProcessFigures> earlier;
  std::vector<ProcessFigures> later;
  std::map<int32_t, uint64_t> used;
};

TEST(ProcessesSinceTest, UseOfEndedProcessesCountsOnce) {
  constexpr uint64_t SINCE = 1000;
  const AccountingCase cases[] = {
      {"the parent has what its child used after it was last seen",
       {Process(1, 0, 0, 0), Process(5, 1, 10, 100), Process(6, 5, 70, 0)},
       {Process(1, 0, 0, 0), Process(5, 1, 11, 190)},
       {{1, 0}, {5, 21}}},
      {"an ancestor has what child and grandchild that ended both",
       {Process(1, 0, 0, 0), Process(5, 1, 0, 0), Process(6, 5, 10, 20), Process(7, 6, 30, 0)},
       {Process(1, 0, 0, 0), Process(5, 1, 0, 65)},
       {{1, 0}, {5, 5}}},
      {"a child that outlived its parent is the first process's",
       {Process(1, 0, 0, 0), Process(5, 1, 0, 0), Process(6, 5, 10, 0), Process(7, 6, 500, 0)},
       {Process(1, 0, 0, 505), Process(5, 1, 0, 12)},
       {{1, 7}, {5, 0}}},
      {"a parent that doesn't wait has nothing, and no one else pays",
       {Process(1, 0, 0, 0), Process(5, 1, 0, 0), Process(6, 5, 400, 0)},
       {Process(1, 0, 0, 30), Process(5, 1, 0, 0)},
       {{1, 30}, {5, 0}}},
      {"an id used again is another process, and the first one has ended",
       {Process(1, 0, 0, 0), Process(5, 1, 900, 0, 10)},
       {Process(1, 0, 0, 907), Process(5, 1, 3, 4, SINCE)},
       {{1, 7}, {5, 7}}},
      {"a process that is older than its coming in sight begins at 0",
       {Process(1, 0, 0, 0)},
       {Process(1, 0, 0, 0), Process(5, 1, 900, 90, SINCE - 1)},
       {{1, 0}, {5, 0}}},
      {"a reading that shows parents in a ring comes to an end",
       {Process(5, 6, 10, 0), Process(6, 5, 10, 0), Process(7, 6, 1, 0)},
       {Process(9, 0, 0, 0)},
       {{9, 0}}},
  };
  for (const AccountingCase& row : cases) {
    SCOPED_TRACE(row.what);
    std::map<int32_t, uint64_t> used;
    ProcessEnds ends;
    for (const ProcessFigures& process : ProcessesSince(row.earlier, SINCE, row.later, ends)) {
      used[process.id] = process.own.userTicks;
    }
    EXPECT_EQ(used, row.used);
  }
}

ReportedEnd End(int32_t id, int32_t parent, uint64_t whole, bool wasSeen = false, uint64_t tasks = 1) {
  return {{id, parent, "cc1", "ann", {whole, 0, 0, 0}, ""}, wasSeen, tasks};
}

struct ReportedCase {
  const char* what;
  std::vector<ProcessFigures> earlier;
  std::vector<ProcessFigures> later;
  std::vector<ReportedEnd> ends = {};
  std::set<int32_t> shown = {};  // of the ended, by the later reading
  std::map<int32_t, uint64_t> unpaid = {};
  std::map<int32_t, uint64_t> used = {};   // of the living
  std::vector<uint64_t> usedByEnded = {};  // in the order of `ends`
  std::map<int32_t, uint64_t> unpaidThen = {};
};

TEST(ProcessesSinceTest, ReportedEndsAreNotCountedAgainInTheirParents) {
  const ReportedCase cases[] = {
      // of user time
      {.what = "a child that was seen and one that wasn't; what no report explains is the parent's",
       .earlier = {Process(5, 1, 0, 0), Process(6, 5, 70, 3)},
       .later = {Process(5, 1, 1, 600)},
       .ends = {End(6, 5, 100, true, 0), End(7, 5, 400, false, 0)},
       .used = {{5, 98}},  // 1, and 600 less 103 and 400
       .usedByEnded = {30, 400},
       .unpaidThen = {{5, 0}}},
      {.what = "a child that its parent waits for after the parent was read is paid in the next interval",
       .earlier = {Process(5, 1, 0, 10)},
       .later = {Process(5, 1, 0, 60)},
       .ends = {End(7, 5, 80)},
       .unpaid = {{5, 20}},
       .used = {{5, 0}},
       .usedByEnded = {80},
       .unpaidThen = {{5, 50}}},
      {.what = "one that no one has waited for yet is paid when it is gone",
       .earlier = {Process(5, 1, 0, 0), Process(6, 5, 50, 0)},
       .later = {Process(5, 1, 0, 0), Process(6, 5, 90, 0), Process(8, 5, 30, 0, 2000)},
       .ends = {End(6, 5, 90, true), End(8, 5, 30)},
       .shown = {6, 8},
       .used = {{5, 0}, {6, 0}, {8, 0}},
       .usedByEnded = {40, 30},
       .unpaidThen = {{5, 0}}},
      {.what = "and has been then",
       .earlier = {Process(5, 1, 0, 0), Process(6, 5, 90, 0)},
       .later = {Process(5, 1, 0, 90)},
       .used = {{5, 0}}},
      {.what = "what ended ones used after their reports is theirs by threads and pages, up to twice what is "
               "likely",
       .earlier = {Process(1, 0, 0, 0), Process(5, 1, 0, 0), Process(6, 5, 10, 0), Process(9, 1, 0, 0)},
       .later = {Process(1, 0, 0, 0), Process(5, 1, 0, 140), Process(9, 1, 0, 200)},
       .ends = {End(7, 6, 70, false, 50), End(8, 5, 0, false, 150), End(10, 9, 100, false, 10)},
       .used = {{1, 0}, {5, 0}, {9, 96}},  // of 60 and of 100; likely were 40 and 2
       .usedByEnded = {85, 45, 104},
       .unpaidThen = {{5, 0}, {6, 0}, {9, 0}}},
      {.what = "a process whose time the kernel divides anew",
       .earlier = {Process(1, 0, 0, 0), Process(6, 1, 80, 0)},
       .later = {Process(1, 0, 0, 100)},
       .ends = {{{6, 1, "cc1", "ann", {70, 30, 0, 0}, ""}, true, 0}},
       .used = {{1, 0}},
       .usedByEnded = {0},
       .unpaidThen = {{1, 0}}},
  };
  for (const ReportedCase& row : cases) {
    SCOPED_TRACE(row.what);
    ProcessEnds ends{true, row.ends, row.shown, {}};
    for (const auto& [parent, use] : row.unpaid) ends.unpaid[parent].userTicks = use;
    std::map<int32_t, uint64_t> used;
    for (const ProcessFigures& process : ProcessesSince(row.earlier, 1000, row.later, ends)) {
      used[process.id] = process.own.userTicks;
    }
    std::vector<uint64_t> usedByEnded;
    for (const ReportedEnd& end : ends.ends) usedByEnded.push_back(end.process.use.userTicks);
    std::map<int32_t, uint64_t> unpaid;
    for (const auto& [parent, use] : ends.unpaid) unpaid[parent] = use.userTicks;
    EXPECT_EQ(used, row.used);
    EXPECT_EQ(usedByEnded, row.usedByEnded);
    EXPECT_EQ(unpaid, row.unpaidThen);
  }
}

}  // namespace
}  // namespace ozmo::host_file
