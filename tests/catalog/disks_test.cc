#include "catalog/disks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "catalog/file_systems.h"
#include "catalog/name_text.h"
#include "pass_fixture.h"

namespace ozmo {
namespace {

DiskRecord& Push(PassFixture& fixture, const std::string& name, float ioRate = 1.0F) {
  DiskRecord& disk = fixture.context.disks.primary.Push();
  disk.deviceName = name;
  disk.ioRate = ioRate;
  return disk;
}

void Add(PassFixture& fixture) {
  AddDisks(fixture.state, fixture.context);
  fixture.context.disks.primary.Recycle();
}

const GraphMenuEntry& DiskRows(PassFixture& fixture) { return *fixture.catalog.RuntimeRow(RowKind::DISKS); }

// ---- Names ----

TEST(DiskNames, LinuxPartitionsAreNoDisks) {
  PassFixture fixture(LINUX_PLATFORM);
  for (const char* name :
       {"sda", "sda1", "hdb", "hdb12", "fd0", "cciss/c0d0", "cciss/c0d0p1", "dm-0", "nvme0n1"}) {
    Push(fixture, name);
  }
  Add(fixture);
  for (const char* disk : {"sda", "hdb", "cciss/c0d0", "dm-0", "nvme0n1"}) {
    EXPECT_EQ(fixture.TreeValue(NameTree::DISK_OPERATIONS, disk), 1.0F) << disk;
  }
  for (const char* partition : {"sda1", "hdb12", "fd0", "cciss/c0d0p1"}) {
    EXPECT_EQ(fixture.TreeValue(NameTree::DISK_OPERATIONS, partition), PassFixture::NOTHING) << partition;
  }
  EXPECT_EQ(fixture.Value("Overall Disk I/O Operation Rate"), 5.0F);
}

TEST(DiskNames, DeviceDirectoryIsCutOffWhereItIsTheCustom) {
  for (const PlatformSpec* platform : {&SOLARIS_PLATFORM, &HPUX_PLATFORM}) {
    PassFixture fixture(*platform);
    Push(fixture, "/dev/dsk/c0t0d0");
    Push(fixture, "/old/dev/dsk/c1");
    Add(fixture);
    EXPECT_NE(fixture.Find("I/O rate for c0t0d0"), nullptr);
    EXPECT_NE(fixture.Find("I/O rate for /old/dev/dsk/c1"), nullptr);
  }
  PassFixture aix(AIX_PLATFORM);
  Push(aix, "/dev/dsk/c0t0d0");
  Add(aix);
  EXPECT_NE(aix.Find("I/O rate for /dev/dsk/c0t0d0"), nullptr);
}

TEST(DiskNames, BlanksAtTheEndsMakeNoOtherDisk) {
  PassFixture fixture(AIX_PLATFORM);
  Push(fixture, "hdisk0  ", 2.0F);
  Push(fixture, " hdisk0", 3.0F);
  Add(fixture);
  EXPECT_EQ(DiskRows(fixture).subTable.size(), 1U);
  EXPECT_EQ(fixture.TreeValue(NameTree::DISK_OPERATIONS, "hdisk0"), 5.0F);
}

TEST(DiskNames, ARecordWithoutANameIsPassedOver) {
  PassFixture fixture(SOLARIS_PLATFORM);
  Push(fixture, "", 7.0F);
  Add(fixture);
  EXPECT_EQ(fixture.Value("Overall Disk I/O Operation Rate"), 0.0F);
  EXPECT_TRUE(DiskRows(fixture).subTable.empty());
}

TEST(DiskNames, AnyCharactersAndLengthsStand) {
  PassFixture fixture(AIX_PLATFORM);
  const std::string name = "%s%n%d" + std::string(249, 'x');
  Push(fixture, name);
  Add(fixture);
  GraphRecord* record = fixture.Find("I/O rate for " + name);
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->Label(1), name + " Writes");
}

// ---- Figures ----

TEST(DiskFigures, UnknownReadsAndWritesFollowTheData) {
  DiskRecord disk;
  disk.ioRate = 10.0F;
  disk.readBytesRate = 3 * 1024.0F;
  disk.writeBytesRate = 1024.0F;
  const DiskFigures figures = DiskFiguresOf(disk, false);
  EXPECT_EQ(figures.totalKb, 4.0F);
  EXPECT_EQ(figures.reads, 7.5F);
  EXPECT_EQ(figures.writes, 2.5F);
}

TEST(DiskFigures, PlottedWaitLosesTheServiceTimeTwice) {
  DiskRecord disk;
  disk.ioRate = 10.0F;
  disk.busyFraction = 0.5F;
  disk.queueLength = 2.0F;
  DiskFigures figures = DiskFiguresOf(disk, false);
  EXPECT_EQ(figures.service, 50.0F);
  EXPECT_EQ(figures.response, 200.0F);
  EXPECT_EQ(figures.wait, 100.0F);

  disk.queueLength = 0.75F;  // waits less than it is served
  EXPECT_EQ(DiskFiguresOf(disk, false).wait, 0.0F);
}

TEST(DiskFigures, AnIdleDiskHasNoTimes) {
  DiskRecord disk;
  disk.busyFraction = 0.5F;
  disk.queueLength = 4.0F;
  const DiskFigures figures = DiskFiguresOf(disk, false);
  EXPECT_EQ(figures.service, 0.0F);
  EXPECT_EQ(figures.response, 0.0F);
  EXPECT_EQ(figures.wait, 0.0F);
  EXPECT_EQ(figures.utilization, 50.0F);
}

TEST(DiskFigures, MeasuredTimesStandWhereTheFormatHasThem) {
  DiskRecord disk;
  disk.ioRate = 10.0F;
  disk.busyFraction = 1.0F;
  disk.servicePerIo = 8.0F;
  disk.waitPerIo = 30.0F;
  DiskFigures figures = DiskFiguresOf(disk, true);
  EXPECT_EQ(figures.service, 8.0F);
  EXPECT_EQ(figures.response, 30.0F);
  EXPECT_EQ(figures.wait, 14.0F);
  disk.waitPerIo = 3.0F;
  EXPECT_EQ(DiskFiguresOf(disk, true).response, 8.0F);
}

TEST(DiskFigures, SpaceIsAWholeNumberQuotient) {
  DiskRecord disk;
  disk.size = 1 << 30;
  disk.free = (1 << 30) - 1;
  EXPECT_EQ(DiskFiguresOf(disk, false).space, 0.0F);
  disk.free = 1 << 30;
  EXPECT_EQ(DiskFiguresOf(disk, false).space, 1.0F);
  EXPECT_EQ(DiskFiguresOf(disk, false).freeGb, 1.0F);
  EXPECT_EQ(DiskFiguresOf(disk, false).usedGb, 0.0F);
}

TEST(DiskFigures, BrokenSizesDivideAndSubtractWithoutHarm) {
  constexpr int32_t LEAST = std::numeric_limits<int32_t>::min();
  DiskRecord disk;
  for (const int32_t size : {0, -1, LEAST}) {
    disk.size = size;
    disk.free = LEAST;
    EXPECT_EQ(DiskFiguresOf(disk, false).space, 0.0F) << size;
  }
  disk.size = std::numeric_limits<int32_t>::max();
  EXPECT_FLOAT_EQ(DiskFiguresOf(disk, false).usedGb, 4.0F);
}

// ---- Graphs of one disk ----

TEST(DiskGraphs, EachFigureReachesTheTraceOfItsName) {
  PassFixture fixture(AIX_PLATFORM);
  DiskRecord& disk = Push(fixture, "d", 10.0F);
  disk.readBytesRate = 6 * 1024.0F;
  disk.writeBytesRate = 2 * 1024.0F;
  disk.busyFraction = 0.25F;
  disk.queueLength = 1.0F;
  disk.size = 1 << 30;
  disk.free = 1 << 28;
  Add(fixture);
  EXPECT_EQ(fixture.Value("I/O rate for d", 0), 7.5F);
  EXPECT_EQ(fixture.Value("I/O rate for d", 1), 2.5F);
  EXPECT_EQ(fixture.Value("Data rate for d", 0), 6.0F);
  EXPECT_EQ(fixture.Value("Data rate for d", 1), 2.0F);
  EXPECT_EQ(fixture.Value("Queue length for d"), 1.0F);
  EXPECT_EQ(fixture.Value("Utilization for d"), 25.0F);
  EXPECT_EQ(fixture.Value("Space Allocation for d", 0), 0.25F);
  EXPECT_EQ(fixture.Value("Space Allocation for d", 1), 0.75F);
  EXPECT_EQ(fixture.Value("Wait/Service Time for d", 0), 50.0F);
  EXPECT_EQ(fixture.Value("Wait/Service Time for d", 1), 25.0F);
  EXPECT_EQ(fixture.Value("Response Time for d"), 100.0F);
  EXPECT_EQ(fixture.Find("Wait/Service Time for d")->legendFormat, "%s %.1f%ms ");
}

TEST(DiskGraphs, HpuxShowsSumsInOneSet) {
  PassFixture fixture(HPUX_PLATFORM);
  DiskRecord& disk = Push(fixture, "d", 10.0F);
  disk.readBytesRate = 1024.0F;
  disk.writeBytesRate = 2048.0F;
  Add(fixture);
  GraphRecord* operations = fixture.Find("I/O rate for d");
  ASSERT_EQ(operations->data.nsets(), 1);
  EXPECT_EQ(operations->Label(0), "d Reads+Writes");
  EXPECT_EQ(fixture.Value("I/O rate for d"), 10.0F);
  EXPECT_EQ(fixture.Value("Data rate for d"), 3.0F);
  EXPECT_EQ(fixture.Value("Overall Disk Disk Data Rate"), 3.0F);
}

TEST(DiskGraphs, TwoRecordsOfADiskAddUpInTheTreesAndTheLastStandsInItsGraphs) {
  PassFixture fixture(SOLARIS_PLATFORM);
  Push(fixture, "d", 4.0F).readRate = 4.0F;
  Push(fixture, "d", 3.0F).readRate = 3.0F;
  Add(fixture);  // newest first: 3, then 4
  EXPECT_EQ(fixture.TreeValue(NameTree::DISK_OPERATIONS, "d"), 7.0F);
  EXPECT_EQ(fixture.Value("I/O rate for d"), 4.0F);
}

TEST(DiskGraphs, TheDiskBeyondTheTableIsInTheListsOnly) {
  PassFixture fixture(SOLARIS_PLATFORM, 60);
  for (size_t i = 0; i <= MAX_DISK_ROWS; ++i) {
    Push(fixture, "d" + std::to_string(i));
    Add(fixture);
  }
  EXPECT_EQ(DiskRows(fixture).subTable.size(), MAX_DISK_ROWS);
  EXPECT_NE(fixture.Find("I/O rate for d1023"), nullptr);
  EXPECT_EQ(fixture.Find("I/O rate for d1024"), nullptr);
  EXPECT_EQ(fixture.TreeValue(NameTree::DISK_OPERATIONS, "d1024"), 1.0F);

  // Rows made early still take values.
  Push(fixture, "d0", 6.0F).readRate = 6.0F;
  Add(fixture);
  EXPECT_EQ(fixture.Value("I/O rate for d0"), 6.0F);
}

// ---- Detail ----

TEST(DiskTotals, UsersHaveWhatPagingAndSwappingLeave) {
  PassFixture fixture(SOLARIS_PLATFORM);
  const auto byType = [&](double paging, double swapping) {
    fixture.state.sums.pageOperations = paging;
    fixture.state.sums.swapOperations = swapping;
    Push(fixture, "c0t0d0", 10.0F);
    Add(fixture);
    std::vector<float> values;
    for (const Series& series : fixture.catalog.Find(Graph::DISK_BY_TYPE)->data.y) {
      values.push_back(PointAt(series, fixture.state.point));
    }
    return values;
  };
  EXPECT_EQ(byType(3, 2), (std::vector<float>{5, 3, 2}));
  EXPECT_EQ(byType(9, 4), (std::vector<float>{0, 9, 4}));
}

TEST(DiskDetail, HpuxKeepsTwoDaysAndLosesOneSecondMore) {
  constexpr Seconds TWO_DAYS = 172800;
  for (const Seconds span : {TWO_DAYS, TWO_DAYS + 1}) {
    PassFixture fixture(HPUX_PLATFORM, span);
    Push(fixture, "d", 4.0F).totalBytesRate = 2048.0F;
    Add(fixture);
    EXPECT_EQ(fixture.Value("Overall Disk I/O Operation Rate"), 4.0F);
    EXPECT_EQ(fixture.Value("Overall Disk Disk Data Rate"), 2.0F);
    EXPECT_EQ(DiskRows(fixture).subTable.empty(), span > TWO_DAYS);
    EXPECT_EQ(fixture.state.trees[NameTree::DISK_OPERATIONS].names().empty(), span > TWO_DAYS);
  }
  EXPECT_TRUE(PassFixture(SOLARIS_PLATFORM, TWO_DAYS + 1).state.detailed);
}

// ---- File systems ----

FileSystemRecord Blocks(int64_t total, int64_t free, int64_t available) {
  FileSystemRecord record;
  record.totalBlocks = total;
  record.freeBlocks = free;
  record.availableBlocks = available;
  return record;
}

TEST(FileSystems, PercentIsOfWhatUsersCanHave) {
  EXPECT_EQ(FileSystemPercent(Blocks(1000, 400, 200)), 75.0F);  // 600 used, 200 to be had
  EXPECT_EQ(FileSystemPercent(Blocks(1000, 0, 0)), 100.0F);
  EXPECT_EQ(FileSystemPercent(Blocks(1000, 400, -50)), 100.0F);
}

TEST(FileSystems, NoBlocksAreNothingUsedAndAllBlocksFreeCountAsFull) {
  EXPECT_EQ(FileSystemPercent(Blocks(0, 0, 0)), 0.0F);
  EXPECT_EQ(FileSystemPercent(Blocks(-8, 3, 1)), 0.0F);
  EXPECT_EQ(FileSystemPercent(Blocks(1000, 1000, 900)), 100.0F);
}

TEST(FileSystems, BrokenCountsDoNoHarm) {
  constexpr int64_t MOST = std::numeric_limits<int64_t>::max();
  constexpr int64_t LEAST = std::numeric_limits<int64_t>::min();
  FileSystemPercent(Blocks(MOST, LEAST, MOST));
  EXPECT_EQ(FileSystemPercent(Blocks(MOST, LEAST, LEAST)), 100.0F);
}

TEST(FileSystems, KeysNameMountPointAndDevice) {
  const auto keyOn = [](const PlatformSpec& platform) {
    PassFixture fixture(platform);
    FileSystemRecord& record = fixture.context.fileSystems.primary.Push();
    record.mountName = "  /home";
    record.deviceName = "/dev/hd1";
    AddFileSystems(fixture.state, fixture.context);
    const auto& names = fixture.state.trees[NameTree::FILE_SYSTEMS].names();
    return names.empty() ? std::string() : names.begin()->first;
  };
  for (const PlatformSpec* platform : {&AIX_PLATFORM, &HPUX_PLATFORM}) {
    EXPECT_EQ(keyOn(*platform), "/home (on /dev/hd1)");
  }
  for (const PlatformSpec* platform : {&LINUX_PLATFORM, &SOLARIS_PLATFORM, &TRU64_PLATFORM}) {
    EXPECT_EQ(keyOn(*platform), "/home on ( /dev/hd1 )");
  }
}

}  // namespace
}  // namespace ozmo
