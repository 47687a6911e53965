#include "catalog/needs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <set>

#include "build_fixture.h"

namespace ozmo {
namespace {

// Intervals with records of every kind, whose figures differ from interval to interval. Time goes back once,
// and an interval is dropped.
std::unique_ptr<BuildFixture> Busy(const PlatformSpec& platform, const WantedTitles& titles) {
  auto fixture = std::make_unique<BuildFixture>(platform, 3600, titles);
  VmrContext& context = fixture->context;
  int n = 0;
  for (const Seconds offset : {300, 360, 370, 600, 420, 660}) {
    const auto f = static_cast<float>(++n);
    for (const int cpuId : {3, 1, 0}) {
      ProcessorRecord& cpu = fixture->AddProcessor(cpuId, cpuId == 3 ? 0 : 5 * n, cpuId == 3 ? 0 : 3, 80);
      cpu.dpcTime = 1;
      cpu.interruptTime = 1;
    }
    context.overallCpu.primary.Push() = fixture->context.processors.primary.head();
    for (const char* name : {"c1d0", "sdb", "sda"}) {
      DiskRecord& disk = context.disks.primary.Push();
      disk.deviceName = name;
      disk.ioRate = f * static_cast<float>(name[2]);
      disk.queueLength = 2 * f;
      disk.busyFraction = 0.01F * f;
      disk.totalBytesRate = 1024 * f;
    }
    for (const char* name : {"/", "/home"}) {
      FileSystemRecord& files = context.fileSystems.primary.Push();
      files.mountName = name;
      files.totalBlocks = 100;
      files.freeBlocks = files.availableBlocks = 10 * n;
    }
    for (const char* name : {"en10", "en1"}) {
      LanRecord& lan = context.lans.primary.Push();
      lan.adapterName = name;
      lan.packetsInRate = lan.bytesOutRate = lan.collisionRate = 10 * f;
    }
    for (const char* name : {"/bin/ksh", "oracle", "wait", "sshd"}) {
      ProcessRecord& process = fixture->AddProcess(name[0] == 's' ? "root" : "ann", name, f);
      process.elapsedSeconds = process.cpuPercent = process.majorFaults = 3 * f;
    }
    MemoryRecord& memory = context.memory.primary.emplace();
    memory.freePages = memory.freeKb = memory.pageInRate = memory.pageFaultRate = memory.swapInRate = f;
    auto& counters = context.protocolCounters.primary.emplace().counters;
    for (size_t i = 0; i < counters.size(); ++i) counters[i] = f + static_cast<float>(i);
    context.network.emplace().ipSentPerSecond = f;
    PartitionRecord& partition = context.partition.emplace();
    partition.onlineProcessors = 2;
    partition.timeByMode[0] = partition.voluntarySwitchRate = n;
    fixture->Take(offset);
  }
  fixture->Finish();
  return fixture;
}

// Titles of all graphs that a search for them finds.
std::set<std::string> Titles(BuildFixture& fixture) {
  std::set<std::string> titles;
  VisitGraphs(fixture.catalog.itemTree, [&](const GraphRecord& record) { titles.insert(record.title); });
  return titles;
}

void ExpectSame(const GraphRecord& alone, const GraphRecord& amongAll) {
  EXPECT_EQ(alone.data.y, amongAll.data.y) << alone.title;
  EXPECT_EQ(alone.data.npoints, amongAll.data.npoints) << alone.title;
  EXPECT_EQ(alone.traceLabels, amongAll.traceLabels) << alone.title;
  EXPECT_EQ(alone.traceColours, amongAll.traceColours) << alone.title;
  EXPECT_EQ(alone.yMax, amongAll.yMax) << alone.title;
}

TEST(Needs, AGraphIsTheSameAloneAndAmongAll) {
  for (const PlatformSpec* platform : ALL_PLATFORMS) {
    const auto all = Busy(*platform, WantedTitles::All());
    const std::set<std::string> titles = Titles(*all);
    EXPECT_GT(titles.size(), 40U);
    for (const std::string& title : titles) {
      const auto alone = Busy(*platform, WantedTitles({title}));
      ASSERT_NE(alone->Find(title), nullptr) << title;
      ExpectSame(*alone->Find(title), *all->Find(title));
    }
  }
}

TEST(Needs, WhatNobodyNeedsIsNeitherReadNorKept) {
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
  const auto busy = Busy(LINUX_PLATFORM, WantedTitles({"Queue Length for SDB"}));
  EXPECT_EQ(busy->catalog.runtimeRecords.size(), 1U);
  EXPECT_EQ(busy->Sets(Graph::DISK_OPERATIONS), 0);
  EXPECT_TRUE(busy->build.sources().disks.Named(DiskSeries::OPERATIONS)[0].series->IsEmpty());
}

}  // namespace
}  // namespace ozmo
