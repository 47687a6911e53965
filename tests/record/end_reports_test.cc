#include "programs/record/end_reports.h"

#include <gtest/gtest.h>

namespace ozmo::record {
namespace {

EndReport Report(int32_t id, int32_t process, int32_t parent, bool endsProcess, const char* name,
                 uint64_t time) {
  return {id, process, parent, endsProcess, 0, name, time, 0, 1, 0};
}

std::string NameOf(uint32_t user) { return user == 0 ? "root" : "?"; }

// "image parent ticks faults" of each, those that were seen alive with a star.
// Then the ids of the ended that the reading still shows.
std::string Take(EndSums& sums, const std::vector<host_file::ProcessFigures>& living) {
  host_file::ProcessEnds ends;
  sums.Take(living, NameOf, ends);
  std::string text;
  for (const auto& [process, wasSeen, tasks] : ends.ends) {
    text += process.image + (wasSeen ? "* " : " ") + std::to_string(process.parent) + " " +
            std::to_string(process.use.userTicks) + " " + std::to_string(process.use.minorFaults) + "\n";
    EXPECT_EQ(tasks, process.use.minorFaults);  // each has one here
  }
  for (const int32_t id : ends.shown) text += std::to_string(id) + "\n";
  return text;
}

TEST(EndSums, AreByImageAndLivingParentAndByProcessForThoseThatWereSeen) {
  EndSums sums;
  std::vector<host_file::ProcessFigures> living(2);
  living[0].id = 10;
  living[1].id = 20;
  sums.Add(Report(1, 1, 0, true, "early", 90'000));
  EXPECT_EQ(Take(sums, living), "early 0 9 1\n");

  // Compilers of a shell that ends later; each is less than a tick.
  for (int id = 100; id < 200; ++id) sums.Add(Report(id, id, 50, true, "cc1", 4'000));
  sums.Add(Report(50, 50, 10, true, "sh", 30'000));
  // Threads, the first of which gives the name. What threads of the living used isn't of this interval.
  sums.Add(Report(60, 60, 10, false, "java", 10'000));
  sums.Add(Report(21, 20, 1, false, "worker", 70'000));
  sums.Add(Report(61, 60, 10, true, "pool-1", 20'000));
  sums.Add(Report(70, 70, 2, true, "kworker/1:0", 10'000));
  sums.Add(Report(10, 10, 1, true, "make", 50'000));
  // While a reading is made. It shows 20 alive, so that the end of it is of the next interval.
  sums.Hold();
  sums.Add(Report(20, 20, 1, true, "httpd", 10'000));
  sums.Add(Report(80, 80, 20, true, "cgi", 10'000));
  living.erase(living.begin());
  EXPECT_EQ(Take(sums, living),
            "make* 1 5 1\n[kworker] 2 1 1\ncc1 10 40 100\njava 10 3 2\nsh 10 3 1\ncgi 20 1 1\n");
  EXPECT_EQ(Take(sums, {}), "httpd* 1 8 2\n");
  // The end of a process was lost, and its id is another's now.
  sums.Add(Report(91, 90, 1, false, "worker", 70'000));
  sums.ForgetThreads();
  sums.Add(Report(90, 90, 1, true, "cc1", 20'000));
  EXPECT_EQ(Take(sums, {}), "cc1 1 2 1\n");
}

TEST(EndSums, OfProcessesThatAreShownAreThoseThatAReportWasMadeOf) {
  EndSums sums;
  std::vector<host_file::ProcessFigures> living(2);
  living[0].id = 10;
  living[1].id = 20;  // whose first thread has ended, and others go on
  living[1].hasEnded = true;
  sums.Add(Report(20, 20, 1, false, "server", 10'000));
  EXPECT_EQ(Take(sums, living), "");
  living[0].hasEnded = true;
  sums.Add(Report(10, 10, 1, true, "cc1", 20'000));
  EXPECT_EQ(Take(sums, living), "cc1* 1 2 1\n10\n");
  sums.Add(Report(21, 20, 1, true, "worker", 30'000));
  EXPECT_EQ(Take(sums, {}), "server* 1 4 2\n");
}

}  // namespace
}  // namespace ozmo::record
