#include "catalog/memory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "build_fixture.h"

namespace ozmo {
namespace {

using testing::Each;
using testing::ElementsAre;

TEST(Memory, LinuxApplicationsHaveWhatIsLeftNegativeOrNot) {
  BuildFixture fixture(LINUX_PLATFORM);
  MemoryRecord& memory = fixture.context.memory.primary.emplace();
  memory.freeKb = 512 * 1024;
  memory.sharedKb = 1024;
  memory.cacheKb = 510 * 1024;
  memory.buffersKb = 4 * 1024;
  memory.pageInRate = 1;
  memory.pageOutRate = 2;
  memory.swapInRate = 4;
  memory.swapOutRate = 8;
  fixture.TakeBusy(60, 10);
  EXPECT_THAT(fixture.Values(Graph::MEMORY_ALLOCATION, 1), ElementsAre(512, -3, 1, 510, 4));
  EXPECT_THAT(fixture.Values(Graph::MEMORY_UTILIZATION, 1), ElementsAre(50));
  EXPECT_THAT(fixture.Values(Graph::PAGES_IN_OUT, 1), ElementsAre(15, 2, 4, 1)) << "the top band holds all";
}

TEST(Memory, WithoutARecordAllFiguresAreZero) {
  for (const PlatformSpec* platform : ALL_PLATFORMS) {
    BuildFixture fixture(*platform);
    fixture.TakeBusy(60, 10);
    EXPECT_THAT(fixture.Values(Graph::MEMORY_UTILIZATION, 1), ElementsAre(0));
    EXPECT_THAT(fixture.Values(Graph::PAGEFAULT_RATE, 1), ElementsAre(0));
    if (platform == &VMR_PLATFORM) continue;
    EXPECT_THAT(fixture.Values(Graph::MEMORY_ALLOCATION, 1), Each(0.0F));
  }
}

TEST(Memory, WithoutASizeUtilizationIsMissingInfiniteOrOfTheUses) {
  const auto utilization = [](const PlatformSpec& platform) {
    BuildFixture fixture(platform);
    fixture.context.config->memoryMb = 0.0F;
    MemoryRecord& memory = fixture.context.memory.primary.emplace();
    memory.freePages = 256;
    memory.processPages = 768;
    fixture.TakeBusy(60, 10);
    return fixture.Value(Graph::MEMORY_UTILIZATION, 0, 1);
  };
  for (const PlatformSpec* platform : {&SOLARIS_PLATFORM, &LINUX_PLATFORM, &VMR_PLATFORM}) {
    EXPECT_EQ(utilization(*platform), MISSING_POINT);
  }
  EXPECT_TRUE(std::isinf(utilization(HPUX_PLATFORM)));
  EXPECT_EQ(utilization(AIX_PLATFORM), 75.0F);
}

TEST(Memory, LinuxPageFaultsAreThoseOfTheProcesses) {
  BuildFixture fixture(LINUX_PLATFORM);
  ProcessRecord& first = fixture.AddProcess("root", "a", 0);
  first.majorFaults = 60;
  first.minorFaults = 120;
  fixture.AddProcess("root", "b", 0).minorFaults = 240;
  fixture.TakeBusy(60, 10);
  EXPECT_THAT(fixture.Values(Graph::PROCESS_PAGEFAULTS, 1), ElementsAre(1, 6));
}

}  // namespace
}  // namespace ozmo
