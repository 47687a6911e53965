#include "catalog/memory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "build_fixture.h"

namespace ozmo {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::FloatEq;

// A fixture with one processor in hand, so that the interval counts.
struct MemoryFixture : BuildFixture {
  explicit MemoryFixture(const PlatformSpec& platform) : BuildFixture(platform) {
    AddProcessor(0, 10, 0, 90);
  }
  MemoryRecord& Memory() { return context.memory.primary.emplace(); }
};

TEST(Memory, WithoutARecordAllFiguresAreZero) {
  for (const PlatformSpec* platform :
       {&SOLARIS_PLATFORM, &LINUX_PLATFORM, &AIX_PLATFORM, &HPUX_PLATFORM, &TRU64_PLATFORM, &VMR_PLATFORM}) {
    MemoryFixture fixture(*platform);
    fixture.Take(60);
    EXPECT_THAT(fixture.Values(Graph::MEMORY_UTILIZATION, 1), ElementsAre(0));
    EXPECT_THAT(fixture.Values(Graph::PAGEFAULT_RATE, 1), ElementsAre(0));
    if (platform == &VMR_PLATFORM) continue;
    EXPECT_THAT(fixture.Values(Graph::MEMORY_ALLOCATION, 1), Each(0.0F));
  }
}

TEST(Memory, WithoutASizeUtilizationIsMissingWhereThePlatformAsksForIt) {
  for (const PlatformSpec* platform : {&SOLARIS_PLATFORM, &LINUX_PLATFORM, &VMR_PLATFORM}) {
    MemoryFixture fixture(*platform);
    fixture.context.config->memoryMb = 0.0F;
    fixture.Memory().freeKb = 100;
    fixture.Take(60);
    EXPECT_EQ(fixture.Value(Graph::MEMORY_UTILIZATION, 0, 1), MISSING_POINT);
  }
  MemoryFixture fixture(HPUX_PLATFORM);
  fixture.context.config->memoryMb = 0.0F;
  fixture.Memory().freeKb = 100;
  fixture.Take(60);
  EXPECT_TRUE(std::isinf(fixture.Value(Graph::MEMORY_UTILIZATION, 0, 1)));
}

TEST(Memory, LinuxApplicationsAreWhatIsLeftAndMayBeNegative) {
  MemoryFixture fixture(LINUX_PLATFORM);
  MemoryRecord& memory = fixture.Memory();
  memory.freeKb = 512 * 1024;
  memory.sharedKb = 1024;
  memory.cacheKb = 510.0F * 1024.0F;
  memory.buffersKb = 4.0F * 1024.0F;
  fixture.Take(60);
  EXPECT_THAT(fixture.Values(Graph::MEMORY_ALLOCATION, 1), ElementsAre(512, -3, 1, 510, 4));
  EXPECT_EQ(fixture.Value(Graph::MEMORY_UTILIZATION, 0, 1), 50.0F);
}

TEST(Memory, LinuxTopBandOfPagingHoldsAllFour) {
  MemoryFixture fixture(LINUX_PLATFORM);
  MemoryRecord& memory = fixture.Memory();
  memory.pageInRate = 1;
  memory.pageOutRate = 2;
  memory.swapInRate = 4;
  memory.swapOutRate = 8;
  fixture.Take(60);
  EXPECT_THAT(fixture.Values(Graph::PAGES_IN_OUT, 1), ElementsAre(15, 2, 4, 1));
}

TEST(Memory, LinuxPageFaultsAreThoseOfTheProcesses) {
  MemoryFixture fixture(LINUX_PLATFORM);
  ProcessRecord& first = fixture.AddProcess("root", "a", 0);
  first.majorFaults = 60;
  first.minorFaults = 120;
  ProcessRecord& second = fixture.AddProcess("root", "b", 0);
  second.minorFaults = 240;
  fixture.Take(60);
  EXPECT_THAT(fixture.Values(Graph::PROCESS_PAGEFAULTS, 1), ElementsAre(1, 6));
}

// ---- AIX ----

TEST(MemoryAix, NewerFormHasItsOwnFactor) {
  MemoryFixture fixture(AIX_PLATFORM);
  MemoryRecord& memory = fixture.Memory();
  memory.vmValue[1] = 1000;  // real
  memory.vmValue[2] = 250;   // free
  memory.vmValue[14] = 200;  // files
  memory.vmValue[18] = 300;  // system
  memory.vmValue[20] = 400;  // processes
  fixture.Take(60);
  const float factor = 4094.0F / 1048576.0F;
  EXPECT_THAT(fixture.Values(Graph::MEMORY_ALLOCATION, 1),
              ElementsAre(FloatEq(250 * factor), FloatEq(400 * factor), FloatEq(200 * factor),
                          FloatEq(300 * factor)));
  EXPECT_FLOAT_EQ(fixture.Value(Graph::MEMORY_UTILIZATION, 0, 1), 75.0F);
}

TEST(MemoryAix, OlderFormCountsPagesAndSystemIsNeverNegative) {
  MemoryFixture fixture(AIX_PLATFORM);
  MemoryRecord& memory = fixture.Memory();
  memory.freeKb = 65536;
  memory.memoryValue302 = 32768;
  memory.memoryValue303 = 16384;
  fixture.Take(60);
  EXPECT_THAT(fixture.Values(Graph::MEMORY_ALLOCATION, 1), ElementsAre(256, 128, 64, 0));
  EXPECT_EQ(fixture.Value(Graph::MEMORY_UTILIZATION, 0, 1), 75.0F);
}

TEST(MemoryAix, WithoutASizeTheSumOfTheUsesStandsIn) {
  MemoryFixture fixture(AIX_PLATFORM);
  fixture.context.config->memoryMb = 0.0F;
  MemoryRecord& memory = fixture.Memory();
  memory.freeKb = 256;
  memory.memoryValue302 = 768;
  fixture.Take(60);
  EXPECT_EQ(fixture.Value(Graph::MEMORY_UTILIZATION, 0, 1), 75.0F);
}

TEST(MemoryAix, OtherFaultsAreWhatTheTwoKindsLeave) {
  MemoryFixture fixture(AIX_PLATFORM);
  MemoryRecord& memory = fixture.Memory();
  memory.pageRate307 = 10;
  memory.vmValue[20] = 3;
  memory.vmValue[21] = 4;
  fixture.Take(60);
  EXPECT_THAT(fixture.Values(Graph::PAGEFAULTS_BY_TYPE, 1), ElementsAre(3, 3, 4));
  EXPECT_EQ(fixture.Value(Graph::PAGEFAULT_RATE, 0, 1), 10.0F);

  fixture.AddProcessor(0, 10, 0, 90);
  MemoryRecord& second = fixture.Memory();
  second.pageRate307 = 1;
  second.vmValue[20] = 3;
  fixture.Take(120);
  EXPECT_THAT(fixture.Values(Graph::PAGEFAULTS_BY_TYPE, 2), ElementsAre(0, 3, 0));
  EXPECT_EQ(fixture.Value(Graph::PAGEFAULT_RATE, 0, 2), 3.0F);
}

}  // namespace
}  // namespace ozmo
