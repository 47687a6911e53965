#include "catalog/processes.h"

#include <gtest/gtest.h>

#include <cmath>

#include "build_fixture.h"

namespace ozmo {
namespace {

// ---- Shares by platform ----

TEST(ProcessShare, FollowsThePlatform) {
  // The share of a process of three seconds (user 2, system 1) in an interval of 60 seconds on two
  // processors.
  const auto shareOn = [](const PlatformSpec& platform) {
    BuildFixture fixture(platform);
    fixture.AddProcessor(0, 0, 100, 0);
    fixture.AddProcessor(1, 0, 100, 0);
    fixture.AddProcess("adm", "job", 2).systemCpuSeconds = 1;
    fixture.Take(120);
    return fixture.Image("job", 2);
  };
  EXPECT_FLOAT_EQ(shareOn(SOLARIS_PLATFORM), 2.5F);
  EXPECT_FLOAT_EQ(shareOn(LINUX_PLATFORM), 2.5F);
  EXPECT_FLOAT_EQ(shareOn(HPUX_PLATFORM), 1.5F) << "of the processors' time counters";
  EXPECT_FLOAT_EQ(shareOn(TRU64_PLATFORM), 3.0F) << "as it stands";
  EXPECT_FLOAT_EQ(shareOn(AIX_PLATFORM), 1.25F) << "of the time since the start of the span";
}

TEST(ProcessShare, OnlinePartitionProcessorsLimitTheDivisorOnAix) {
  for (const auto& [online, share] : {std::pair(1.0, 5.0F), {0.0, 2.5F}, {8.0, 2.5F}}) {
    BuildFixture fixture(AIX_PLATFORM);
    fixture.AddProcessor(1, 1, 0, 1);
    fixture.AddProcess("adm", "job", 3);
    fixture.context.partition.emplace().onlineProcessors = online;
    fixture.TakeBusy(60, 50);
    EXPECT_FLOAT_EQ(fixture.Image("job", 1), share) << online;
  }
}

TEST(ProcessShare, AnIntervalOfNoLengthIsAFloatDivision) {
  BuildFixture fixture(SOLARIS_PLATFORM);
  fixture.AddProcessor(0, 50, 0, 50);
  fixture.AddProcess("adm", "job", 3);
  fixture.context.periodStart = fixture.context.periodEnd = BuildFixture::START + 60;
  fixture.build.TakeInterval(fixture.context);
  EXPECT_TRUE(std::isinf(fixture.Image("job", 1)));
}

// ---- Where a share goes ----

TEST(Processes, AShareGoesToSumClassImageAndUser) {
  BuildFixture fixture(SOLARIS_PLATFORM);
  fixture.AddProcess("root", "/usr/sbin/inetd -s", 6);
  fixture.AddProcess("root", "/sbin/init", 12);
  fixture.AddProcess("root", "ksh", 6);  // the command of another class for another user
  fixture.AddProcess(" adm ", "-ksh", 3);
  fixture.AddProcess("adm", "/usr/bin/ksh", 3);
  fixture.TakeBusy(60, 100);
  EXPECT_FLOAT_EQ(fixture.ShareSum(1), 50.0F);
  EXPECT_EQ(fixture.Value(Graph::PROCESS_COUNT, 0, 1), 5.0F);
  struct Class {
    const char* name;
    float cpu, count;
  };
  for (const Class& test :
       {Class{"daemons", 10, 1}, {"root", 30, 2}, {"others", 10, 2}, {"cde", MISSING_POINT, MISSING_POINT}}) {
    EXPECT_FLOAT_EQ(fixture.Class(Graph::CLASS_CPU, test.name, 1), test.cpu) << test.name;
    EXPECT_FLOAT_EQ(fixture.Class(Graph::CLASS_COUNT, test.name, 1), test.count) << test.name;
  }
  EXPECT_FLOAT_EQ(fixture.Image("ksh", 1), 20.0F);
  EXPECT_FLOAT_EQ(fixture.Image("inetd", 1), 10.0F);
  EXPECT_FLOAT_EQ(fixture.User("adm", 1), 10.0F);
  EXPECT_FLOAT_EQ(fixture.User("root", 1), 40.0F);
  fixture.build.FinishGraphs();
  EXPECT_FLOAT_EQ(fixture.Class(Graph::CLASS_CPU, "root", 1), 60.0F) << "scaled to overall CPU";
}

TEST(Processes, AixPassesOverWaitButCountsIt) {
  BuildFixture fixture(AIX_PLATFORM);
  fixture.AddProcess("root", "wait", 30);
  fixture.AddProcess("root", "waiter", 6);
  fixture.TakeBusy(60, 50);
  EXPECT_EQ(fixture.Value(Graph::PROCESS_COUNT, 0, 1), 2.0F);
  EXPECT_EQ(fixture.Image("wait", 1), BuildFixture::NOTHING);
  EXPECT_FLOAT_EQ(fixture.ShareSum(1), 10.0F);
}

TEST(NoProc, TakesWhatTheProcessesLeaveOfOverallCpu) {
  BuildFixture fixture(LINUX_PLATFORM);
  fixture.AddProcess("root", "cron", 6);
  fixture.TakeBusy(60, 50);
  EXPECT_FLOAT_EQ(fixture.Image("<NoProc>", 1), 40.0F);
  EXPECT_FLOAT_EQ(fixture.User("<NoProc>", 1), 40.0F);
  EXPECT_FLOAT_EQ(fixture.Class(Graph::CLASS_CPU, "others", 1), 40.0F);
  EXPECT_FLOAT_EQ(fixture.ShareSum(1), 50.0F);
  EXPECT_EQ(fixture.Value(Graph::PROCESS_COUNT, 0, 1), 1.0F) << "it is no process";
}

TEST(NoProc, IsAbsentWhereTheProcessesTakeAllAndOnSolaris) {
  BuildFixture taken(TRU64_PLATFORM);
  taken.AddProcess("root", "cron", 6);
  taken.TakeBusy(60, 5);
  EXPECT_EQ(taken.Image("<NoProc>", 1), BuildFixture::NOTHING);
  BuildFixture solaris(SOLARIS_PLATFORM);
  solaris.TakeBusy(60, 50);
  EXPECT_EQ(solaris.Image("<NoProc>", 1), BuildFixture::NOTHING);
  EXPECT_EQ(solaris.ShareSum(1), MISSING_POINT);
}

// ---- Names ----

TEST(ImageOfCommand, IsTheLastPathComponentOfTheFirstWordWithoutOneDash) {
  const std::pair<std::string, std::string> cases[] = {
      {"/usr/bin/ksh -x", "ksh"},
      {"ksh\t/etc/profile", "ksh"},
      {"bin/", ""},
      {"-ksh", "ksh"},
      {"/bin/-sh", "sh"},
      {"--x", "-x"},
      {"  ksh -x", "  ksh"},  // blanks stay where there is no path
      {"  /bin/ksh -x", "ksh"},
      {" -ksh", " -ksh"},
      {"", "<unknown>"},
      {" \t ", "<unknown>"},
      {std::string(300, 'a'), std::string(255, 'a')},  // a command is cut ahead of all else
      {std::string(253, 'a') + "/bc", "b"},
      {std::string(255, ' ') + "x", "<unknown>"},
  };
  for (const auto& [command, image] : cases) EXPECT_EQ(ImageOfCommand(command), image) << command;
}

}  // namespace
}  // namespace ozmo
