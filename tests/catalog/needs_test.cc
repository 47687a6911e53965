#include "catalog/needs.h"

#include <gtest/gtest.h>

#include <set>

#include "build_fixture.h"

namespace ozmo {
namespace {

TEST(Needs, WhatNobodyNeedsIsNotRead) {
  using enum PassKind;
  struct Case {
    const PlatformSpec& platform;
    const char* title;
    std::set<PassKind> passes;
  };
  for (const Case& test : {Case{SOLARIS_PLATFORM, "overall CPU utilization", {PROCESSORS}},
                           {SOLARIS_PLATFORM, "Memory Utilization", {MEMORY}},
                           {SOLARIS_PLATFORM, "Process Count", {PROCESSES}},
                           {SOLARIS_PLATFORM, "Top 10 Users by CPU Utilization", {PROCESSES, PROCESSORS}},
                           {SOLARIS_PLATFORM, "Utilization for sda", {DISKS, ADAPTERS}},
                           {SOLARIS_PLATFORM, "hme0", {ADAPTERS}},
                           {AIX_PLATFORM, "Shared Pool CPU Utilization", {PARTITION, ADAPTERS}},
                           {TRU64_PLATFORM, "hme0", {}},
                           {VMR_PLATFORM, "CPU-1 Utilization by Mode", {PROCESSORS}}}) {
    const Needs needs = NeedsOf(test.platform, WantedTitles({test.title}), true);
    std::set<PassKind> passes;
    for (size_t pass = 0; pass < needs.passes.size(); ++pass) {
      if (needs.passes[pass]) passes.insert(static_cast<PassKind>(pass));
    }
    EXPECT_EQ(passes, test.passes) << test.title;
  }
}

}  // namespace
}  // namespace ozmo
