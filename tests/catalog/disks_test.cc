#include "catalog/disks.h"

#include <gtest/gtest.h>

#include <limits>

#include "build_fixture.h"
#include "catalog/file_systems.h"

namespace ozmo {
namespace {

struct DiskFixture : BuildFixture {
  using BuildFixture::BuildFixture;
  // The next interval has these disks, in the order in which they are worked in.
  void Add(const std::vector<DiskRecord>& disks) {
    for (auto disk = disks.rbegin(); disk != disks.rend(); ++disk) context.disks.primary.Push() = *disk;
    TakeBusy(60 * ++point, 10);
  }
  std::vector<float> Last(const std::string& title) { return Values(title, point); }
  const std::vector<GraphMenuEntry>& Rows() { return catalog.RuntimeRow(RowKind::DISKS)->subTable; }
  // The disks in the lists, in the order of their names.
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const NamedSeries& named : Operations()) names.emplace_back(named.name);
    return names;
  }
  std::vector<NamedSeries> Operations() const { return build.sources().disks.Named(DiskSeries::OPERATIONS); }
  float LastOperations(std::string_view name) const { return Named(Operations(), name, point); }
  int point = 0;
};

DiskRecord Disk(const std::string& name, float ioRate = 1.0F) {
  DiskRecord disk;
  disk.deviceName = name;
  disk.ioRate = ioRate;
  return disk;
}

// ---- Names ----

TEST(DiskNames, AreCleanedAsThePlatformDoes) {
  struct Case {
    const PlatformSpec& platform;
    std::vector<std::string> devices;
    std::vector<std::string> disks;
  };
  const std::string oddName = "%s%n%d" + std::string(249, 'x');
  const Case cases[] = {
      {linux_catalog::PLATFORM,
       {"sda", "sda1", "hdb", "hdb12", "fd0"},
       {"hdb", "sda"}},  // no partitions, no floppies
      {linux_catalog::PLATFORM,
       {"cciss/c0d0", "cciss/c0d0p1", "dm-0", "nvme0n1"},
       {"cciss/c0d0", "dm-0", "nvme0n1"}},
      {linux_catalog::PLATFORM, {" sda1 ", " sdb "}, {"sdb"}},
      {solaris_catalog::PLATFORM, {"/dev/dsk/c0", "/old/dev/dsk/c1", ""}, {"/old/dev/dsk/c1", "c0"}},
      {hpux_catalog::PLATFORM, {"/dev/dsk/c0", "/old/dev/dsk/c1"}, {"/old/dev/dsk/c1", "c0"}},
      {aix_catalog::PLATFORM, {"/dev/dsk/c0", "hdisk0  ", " hdisk0"}, {"/dev/dsk/c0", "hdisk0"}},
      {aix_catalog::PLATFORM, {oddName}, {oddName}},
  };
  for (const Case& test : cases) {
    DiskFixture fixture(test.platform);
    std::vector<DiskRecord> disks;
    for (const std::string& device : test.devices) disks.push_back(Disk(device));
    fixture.Add(disks);
    EXPECT_EQ(fixture.Names(), test.disks);
    EXPECT_EQ(fixture.Rows().size(), test.disks.size());
    for (const std::string& disk : test.disks)
      EXPECT_NE(fixture.Find("I/O rate for " + disk), nullptr) << disk;
  }
}

// ---- Figures ----

struct Operations {
  const char* rule;
  float readRate, writeRate, ioRate, readKb, writeKb;
  float operations, reads, writes;
};

TEST(DiskValues, OperationsReadsAndWritesReplaceOneAnother) {
  for (const Operations& test : {
           Operations{"the sum takes the place of the total", 3, 4, 0, 0, 0, 7, 3, 4},
           {"known ones stay, even if they don't add up", 3, 4, 9, 0, 0, 9, 3, 4},
           {"unknown ones follow the data", 0, 0, 10, 3, 1, 10, 7.5F, 2.5F},
           {"without data there are neither", 0, 0, 10, 0, 0, 10, 0, 0},
       }) {
    DiskRecord disk = Disk("d", test.ioRate);
    disk.readRate = test.readRate;
    disk.writeRate = test.writeRate;
    disk.readBytesRate = test.readKb * 1024;
    disk.writeBytesRate = test.writeKb * 1024;
    const DiskValues figures = DiskValuesOf(disk, false);
    EXPECT_EQ(figures.operations, test.operations) << test.rule;
    EXPECT_EQ(figures.reads, test.reads) << test.rule;
    EXPECT_EQ(figures.writes, test.writes) << test.rule;
    EXPECT_EQ(figures.totalKb, test.readKb + test.writeKb) << test.rule;
    disk.totalBytesRate = 5 * 1024.0F;
    EXPECT_EQ(DiskValuesOf(disk, false).totalKb, 5.0F) << "the record's own total goes first";
  }
}

struct Times {
  const char* rule;
  bool measured;
  float ioRate, busyFraction, queueLength, servicePerIo, waitPerIo;
  float service, response, wait;
};

TEST(DiskValues, TimesComeFromTheQueueOrFromTheRecord) {
  for (const Times& test : {
           Times{"the plotted wait loses the service time twice", false, 10, 0.5F, 2, 0, 0, 50, 200, 100},
           {"and isn't negative", false, 10, 0.5F, 0.75F, 0, 0, 50, 75, 0},
           {"the response is never below the service", false, 10, 0.5F, 0.1F, 0, 0, 50, 50, 0},
           {"an idle disk has none", false, 0, 0.5F, 4, 0, 0, 0, 0, 0},
           {"measured ones stay", true, 10, 0.5F, 0, 8, 30, 8, 30, 14},
           {"but for a response below the service", true, 10, 0.5F, 0, 8, 3, 8, 8, 0},
       }) {
    DiskRecord disk = Disk("d", test.ioRate);
    disk.busyFraction = test.busyFraction;
    disk.queueLength = test.queueLength;
    disk.servicePerIo = test.servicePerIo;
    disk.waitPerIo = test.waitPerIo;
    const DiskValues figures = DiskValuesOf(disk, test.measured);
    EXPECT_EQ(figures.service, test.service) << test.rule;
    EXPECT_EQ(figures.response, test.response) << test.rule;
    EXPECT_EQ(figures.wait, test.wait) << test.rule;
    EXPECT_EQ(figures.utilization, 50.0F) << test.rule;
  }
}

// ---- Graphs of one disk ----

TEST(DiskGraphs, MonitorFilesBringTheirTimes) {
  DiskRecord disk = Disk("d", 10);
  disk.servicePerIo = 8;
  disk.waitPerIo = 30;
  DiskFixture fixture(vmr_catalog::PLATFORM);
  fixture.Add({disk});
  EXPECT_EQ(fixture.Last("Response Time for d"), (Series{30}));
  EXPECT_EQ(fixture.Find("Space Allocation for d"), nullptr) << "only AIX and Tru64 know it";
}

TEST(DiskGraphs, TwoRecordsOfADiskAddUpInTheTreesAndTheLastIsInItsGraphs) {
  DiskFixture fixture(solaris_catalog::PLATFORM);
  DiskRecord first = Disk("d", 3);
  first.readRate = 3;
  DiskRecord last = Disk("d", 4);
  last.readRate = 4;
  fixture.Add({first, last});
  EXPECT_EQ(fixture.LastOperations("d"), 7.0F);
  EXPECT_EQ(fixture.Last("I/O rate for d"), (Series{4, 0}));
}

TEST(DiskGraphs, TheDiskBeyondTheTableIsInTheListsOnly) {
  DiskFixture fixture(solaris_catalog::PLATFORM, 120);
  std::vector<DiskRecord> disks;
  for (size_t i = 0; i <= MAX_DISK_ROWS; ++i) disks.push_back(Disk("d" + std::to_string(i)));
  fixture.Add(disks);
  EXPECT_EQ(fixture.Rows().size(), MAX_DISK_ROWS);
  EXPECT_EQ(fixture.Find("I/O rate for d1024"), nullptr);
  EXPECT_EQ(fixture.LastOperations("d1024"), 1.0F);
  DiskRecord early = Disk("d0", 6);
  early.readRate = 6;
  fixture.Add({early});
  EXPECT_EQ(fixture.Last("I/O rate for d0")[0], 6.0F) << "rows made early still take values";
}

// ---- Totals and detail ----

TEST(DiskTotals, UsersHaveWhatPagingAndSwappingLeave) {
  DiskFixture fixture(solaris_catalog::PLATFORM);
  const auto byType = [&](float paging, float swapping) {
    MemoryRecord& memory = fixture.context.memory.primary.emplace();
    memory.pageInRate = paging;
    memory.swapOutRate = swapping;
    fixture.Add({Disk("c0t0d0", 10)});
    return fixture.Values(Graph::DISK_BY_TYPE, fixture.point);
  };
  EXPECT_EQ(byType(3, 2), (Series{5, 3, 2}));
  EXPECT_EQ(byType(9, 4), (Series{0, 9, 4}));
}

// ---- File systems ----

TEST(FileSystems, BrokenCountsOfBlocksDoNoHarm) {
  constexpr int64_t MOST = std::numeric_limits<int64_t>::max();
  constexpr int64_t LEAST = std::numeric_limits<int64_t>::min();
  FileSystemRecord record;
  record.totalBlocks = -8;
  EXPECT_EQ(FileSystemPercent(record), 0.0F);
  record.totalBlocks = MOST;
  record.freeBlocks = LEAST;
  record.availableBlocks = LEAST;
  EXPECT_EQ(FileSystemPercent(record), 100.0F);
}

}  // namespace
}  // namespace ozmo
