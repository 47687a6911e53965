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
using testing::Pointwise;

// A machine of 1024 MB in pages of 4 KB.
struct MemoryCase {
  const PlatformSpec& platform;
  void (*fill)(MemoryRecord& memory);
  std::vector<std::pair<Graph, std::vector<float>>> values;
};

constexpr float AIX_FACTOR = 4094.0F / 1048576.0F;

const MemoryCase CASES[] = {
    {SOLARIS_PLATFORM,
     [](MemoryRecord& memory) {
       memory.freePages = 65536;
       memory.majorFaultsPerSecond = 1;
       memory.protectionFaultsPerSecond = 2;
       memory.asFaultsPerSecond = 4;
       memory.pageInsPerSecond = 8;
       memory.pageOutsPerSecond = 16;
     },
     {{Graph::MEMORY_ALLOCATION, {256, 768}},
      {Graph::MEMORY_UTILIZATION, {75}},
      {Graph::PAGEFAULTS_BY_TYPE, {1, 0, 2, 0, 0, 0, 0, 4}},
      {Graph::PAGEFAULT_RATE, {7}},
      {Graph::PAGEFAULT_IO, {24}}}},
    {LINUX_PLATFORM,  // applications have what is left, negative or not; the top band of paging holds all
                      // four
     [](MemoryRecord& memory) {
       memory.freeKb = 512 * 1024;
       memory.sharedKb = 1024;
       memory.cacheKb = 510 * 1024;
       memory.buffersKb = 4 * 1024;
       memory.pageInRate = 1;
       memory.pageOutRate = 2;
       memory.swapInRate = 4;
       memory.swapOutRate = 8;
     },
     {{Graph::MEMORY_ALLOCATION, {512, -3, 1, 510, 4}},
      {Graph::MEMORY_UTILIZATION, {50}},
      {Graph::PAGES_IN_OUT, {15, 2, 4, 1}}}},
    {HPUX_PLATFORM,  // free and active pages, and what they leave
     [](MemoryRecord& memory) {
       memory.freeKb = 65536;
       memory.vmValue[20] = 32768;
       memory.pageRate307 = 1;
       memory.pageRate326 = 2;
       memory.pageRate327 = 4;
     },
     {{Graph::MEMORY_ALLOCATION, {256, 128, 640}},
      {Graph::PAGEFAULTS_BY_TYPE, {1, 2, 4}},
      {Graph::PAGEFAULT_RATE, {7}}}},
    {TRU64_PLATFORM,
     [](MemoryRecord& memory) {
       memory.tru64FreePages = 256;
       memory.tru64InactivePages = 512;
       memory.tru64ActivePages = 1024;
       memory.tru64BufferCachePages = 2048;
       memory.tru64WiredPages = 4096;
     },
     {{Graph::MEMORY_ALLOCATION, {1, 2, 4, 8, 16, 993}}}},
    {AIX_PLATFORM,  // the newer form: real, free, files, system, processes
     [](MemoryRecord& memory) {
       memory.vmValue[1] = 1000;
       memory.vmValue[2] = 250;
       memory.vmValue[14] = 200;
       memory.vmValue[18] = 300;
       memory.vmValue[20] = 400;
     },
     {{Graph::MEMORY_ALLOCATION, {250 * AIX_FACTOR, 400 * AIX_FACTOR, 200 * AIX_FACTOR, 300 * AIX_FACTOR}},
      {Graph::MEMORY_UTILIZATION, {75}}}},
    {AIX_PLATFORM,  // the older form counts pages, and system isn't negative; others are what two kinds leave
     [](MemoryRecord& memory) {
       memory.freeKb = 65536;
       memory.memoryValue302 = 32768;
       memory.memoryValue303 = 16384;
       memory.pageRate307 = 10;
       memory.vmValue[20] = 3;
       memory.vmValue[21] = 4;
     },
     {{Graph::MEMORY_ALLOCATION, {256, 128, 64, 0}},
      {Graph::MEMORY_UTILIZATION, {75}},
      {Graph::PAGEFAULTS_BY_TYPE, {3, 3, 4}},
      {Graph::PAGEFAULT_RATE, {10}}}},
    {AIX_PLATFORM,  // no less than none
     [](MemoryRecord& memory) {
       memory.pageRate307 = 1;
       memory.vmValue[20] = 3;
     },
     {{Graph::PAGEFAULTS_BY_TYPE, {0, 3, 0}}, {Graph::PAGEFAULT_RATE, {3}}}},
};

TEST(Memory, FiguresFollowThePlatform) {
  for (const MemoryCase& test : CASES) {
    BuildFixture fixture(test.platform);
    test.fill(fixture.context.memory.primary.emplace());
    fixture.TakeBusy(60, 10);
    for (const auto& [graph, values] : test.values) {
      EXPECT_THAT(fixture.Values(graph, 1), Pointwise(FloatEq(), values)) << fixture.Record(graph).title;
    }
  }
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
    memory.freeKb = 256;
    memory.memoryValue302 = 768;
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
