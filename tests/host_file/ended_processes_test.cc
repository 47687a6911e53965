#include "programs/host_file/ended_processes.h"

#include <gtest/gtest.h>

#include "programs/host_file/sum.h"

namespace ozmo::host_file {
namespace {

TEST(EndedProcesses, UseGoesToTheLivingOfImageAndUserElseToOneRecord) {
  std::vector<ProcessFigures> living(2);
  living[0].own = {1, 2, 3, 4};
  living[1].own.userTicks = 5;
  living[0].user = living[1].user = "ann";
  const std::vector<std::string> images = {"cc1plus", "cc1plus"};
  const std::vector<EndedProcess> ended = {{20, 1, "cc1plus", "ann", {10, 20, 30, 40}, ""},
                                           {21, 1, "cc1plus", "bob", {7, 0, 0, 0}, "/usr/lib/cc1plus -quiet"},
                                           {22, 1, "cc1plus", "bob", {8, 1, 2, 3}, ""}};
  AddEnded(living, images, ended);
  ASSERT_EQ(living.size(), 3U);
  EXPECT_EQ(living[0].own.userTicks, 11U);
  EXPECT_EQ(living[0].own.majorFaults, 44U);
  EXPECT_EQ(living[1].own.userTicks, 5U);
  EXPECT_EQ(living[2].id, 21);
  EXPECT_EQ(living[2].command + living[2].user, "/usr/lib/cc1plus -quietbob");
  EXPECT_EQ(living[2].own.userTicks, 15U);
  EXPECT_EQ(living[2].own.majorFaults, 3U);
}

// A process that ended in the first interval leaves what it used to one of its image and user.
TEST(SumTest, CountersAddUpAndLevelsAreThoseOfTheEnd) {
  const auto process = [](int32_t id, const char* command, uint64_t ticks) {
    ProcessFigures figures;
    figures.id = id;
    figures.own.userTicks = ticks;
    figures.command = command;
    return figures;
  };
  HostFigures first;
  first.memory.free = 5;
  first.paging.pagedIn = 7;
  first.disks = {{"gone", {1}}, {"sda", {1, 0, 0, 0, 0, 0, 0, 0, 9}}};
  first.processes = {process(1, "init", 1), process(2, "/usr/bin/cc1 a.c", 2),
                     process(3, "[kworker/0:1]", 4)};
  first.hasProtocols = true;
  first.protocols[53] = 10;
  first.protocols[54] = 10;
  HostFigures second = first;
  second.memory.free = 6;
  second.disks = {{"sda", {2, 0, 0, 0, 0, 0, 0, 0, 3}}};
  second.processes = {process(1, "init", 8), process(4, "cc1 b.c", 16)};
  const HostFigures sum = SumOf(first, second);
  EXPECT_EQ(sum.memory.free, 6U);
  EXPECT_EQ(sum.paging.pagedIn, 14U);
  ASSERT_EQ(sum.disks.size(), 2U);
  EXPECT_EQ(sum.disks[0].figures, (std::array<uint64_t, 11>{3, 0, 0, 0, 0, 0, 0, 0, 3}));
  EXPECT_EQ(sum.protocols[53] + sum.protocols[54], 30U);
  std::string text;
  for (const ProcessFigures& one : sum.processes) {
    text += std::to_string(one.id) + " " + one.command + " " + std::to_string(one.own.userTicks) + "; ";
  }
  EXPECT_EQ(text, "1 init 9; 4 cc1 b.c 18; 3 [kworker/0:1] 4; ");
}

}  // namespace
}  // namespace ozmo::host_file
