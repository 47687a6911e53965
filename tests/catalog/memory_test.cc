#include "catalog/memory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "build_fixture.h"

namespace ozmo {
namespace {

using testing::Each;
using testing::ElementsAre;

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

}  // namespace
}  // namespace ozmo
