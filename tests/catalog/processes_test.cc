#include "catalog/processes.h"

#include <gtest/gtest.h>

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

TEST(NoProc, IsAbsentWhereTheProcessesTakeAllAndOnSolaris) {
  BuildFixture taken(TRU64_PLATFORM);
  taken.AddProcess("root", "cron", 6);
  taken.TakeBusy(60, 5);
  EXPECT_EQ(taken.Image("<NoProc>", 1), BuildFixture::NOTHING);
  BuildFixture solaris(SOLARIS_PLATFORM);
  solaris.TakeBusy(60, 50);
  EXPECT_EQ(solaris.Image("<NoProc>", 1), BuildFixture::NOTHING);
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
