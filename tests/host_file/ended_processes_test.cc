#include "programs/host_file/ended_processes.h"

#include <gtest/gtest.h>

namespace ozmo::host_file {
namespace {

TEST(EndedProcesses, UseGoesToTheLivingOfImageAndUserElseToOneRecord) {
  std::vector<ProcessFigures> living(2);
  living[0].own = {1, 2, 3, 4};
  living[1].own.userTicks = 5;
  living[0].user = living[1].user = "ann";
  const std::vector<std::string> images = {"cc1plus", "cc1plus"};
  const std::vector<EndedProcess> ended = {{20, 1, "cc1plus", "ann", {10, 20, 30, 40}},
                                           {21, 1, "cc1plus", "bob", {7, 0, 0, 0}},
                                           {22, 1, "cc1plus", "bob", {8, 1, 2, 3}}};
  AddEnded(living, images, ended);
  ASSERT_EQ(living.size(), 3U);
  EXPECT_EQ(living[0].own.userTicks, 11U);
  EXPECT_EQ(living[0].own.majorFaults, 44U);
  EXPECT_EQ(living[1].own.userTicks, 5U);
  EXPECT_EQ(living[2].id, 21);
  EXPECT_EQ(living[2].command + living[2].user, "cc1plusbob");
  EXPECT_EQ(living[2].own.userTicks, 15U);
  EXPECT_EQ(living[2].own.majorFaults, 3U);
}

}  // namespace
}  // namespace ozmo::host_file
