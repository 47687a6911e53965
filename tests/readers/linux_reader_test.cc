// What the Linux decoders leave in the context, where a rule has a trap.
#include <unistd.h>

#include <cmath>

#include "tests/readers/one_interval.h"

namespace ozmo::testing {
namespace {

class LinuxReaderTest : public OneIntervalTest {
 protected:
  LinuxReaderTest() : OneIntervalTest(LINUX_FORMAT, sample::ByteOrder::LITTLE, "qtxl_node_2012Feb22.dat_1") {}

  void WriteTime(Seconds time) override { writer_.Record(9, {wide_ ? Int64(time) : Int32(time)}); }

  void WriteConfig(const std::string& version) {
    writer_.OrderList(9, {901}).DivisorList(9, {1});
    writer_.OrderList(5, {504, 505, 507, 513}).DivisorList(5, {1, 1, 1, 1});
    writer_.Record(5, {Text("node"), Text(version), Int32(0), Int32(60)});
    wide_ = version.find("_64") != version.npos;
  }

  void Begin(const std::string& version, Seconds step = 60) {
    WriteConfig(version);
    WriteSamples(step);
  }

  // Version text and tag of one mind: the newer processor decoders.
  void BeginNewer(const std::string& version = "P730_64") {
    writer_.Tag("collector " + version);
    Begin(version);
  }

  bool wide_ = false;
};

// --- Two version marks ---

TEST_F(LinuxReaderTest, NewerProcessorFiguresAreSecondsPerSecond) {
  writer_.OrderList(8, {801, 802, 803, 806, 807}).DivisorList(8, {1, 1, 2, 1, 1});
  writer_.OrderList(1, {101, 105, 106, 107, 109});
  BeginNewer();
  writer_.Record(8, {Int32(3), Int64(3000), Int64(3000), Int64(250), Int64(600)});
  writer_.Record(1, {Int64(3000), Int64(600), Int64(60), Int64(120), Int64(700)});
  const VmrContext& context = Deliver();
  const ProcessorRecord& cpu = context.processors.primary.head();
  EXPECT_EQ(cpu.cpuId, 3);
  EXPECT_DOUBLE_EQ(cpu.userTime, 0.5);  // whatever field 806 says
  EXPECT_DOUBLE_EQ(cpu.niceTime, 0.25);
  EXPECT_DOUBLE_EQ(cpu.waitTime, 0.1);
  const ProcessorRecord& overall = context.overallCpu.primary.head();
  EXPECT_DOUBLE_EQ(overall.userTime, 0.5);
  EXPECT_DOUBLE_EQ(overall.eventRateSum, 3.0);
  EXPECT_DOUBLE_EQ(overall.extraSecondsA, 7.0);
  EXPECT_DOUBLE_EQ(overall.extraSecondsB, 7.0);
}

TEST_F(LinuxReaderTest, FileWithoutTagHasOldProcessorFigures) {
  writer_.OrderList(8, {801, 802, 807}).OrderList(1, {101, 105});
  Begin("P730_64");
  writer_.Record(8, {Int32(0), Int64(3000), Int64(600)});
  writer_.Record(1, {Int64(3000), Int64(600)});
  const VmrContext& context = Deliver();
  EXPECT_DOUBLE_EQ(context.processors.primary.head().userTime, 0.5);
  EXPECT_EQ(context.processors.primary.head().waitTime, 0.0);
  EXPECT_DOUBLE_EQ(context.overallCpu.primary.head().userTime, 50.0);  // ticks per second
  EXPECT_EQ(context.overallCpu.primary.head().waitTime, 0.0);
}

TEST_F(LinuxReaderTest, NewerDecodersOnTheOldestTable) {
  writer_.OrderList(8, {801, 802});
  writer_.Tag("P730");
  Begin("P300");
  writer_.Record(8, {Int32(0), Int32(3000)});
  EXPECT_DOUBLE_EQ(Deliver().processors.primary.head().userTime, 0.5);
}

TEST_F(LinuxReaderTest, EmptyTwinProcessorCostsTheBaseItsHead) {
  writer_.OrderList(8, {801});
  Begin("P730");
  writer_.Record(8, {Int32(0)});
  writer_.Record(8, {Int32(1)});
  writer_.OrderList(23, {807});  // no field that the older decoder knows
  writer_.Record(23, {Int64(1)});
  const auto& processors = Deliver().processors.primary;
  ASSERT_EQ(processors.size(), 1U);
  EXPECT_EQ(processors.head().cpuId, 0);
}

// --- Version texts ---

TEST_F(LinuxReaderTest, VersionTextsThatHoldMore) {
  writer_.OrderList(3, {302});
  Begin("P730_64 build 7");
  writer_.Record(3, {Int64(int64_t{1} << 33)});
  EXPECT_EQ(Deliver().memory.primary->freeKb, 8589934592.0);
}

TEST_F(LinuxReaderTest, VersionWith540IsTheOldestAndNarrow) {
  writer_.OrderList(2, {201, 202});
  writer_.OrderList(3, {302});
  Begin("v1.540-b");
  writer_.Record(2, {Text("sda"), Int32(120), Int32(60), Int32(-60), Int32(0)});
  writer_.Record(3, {Int32(-5)});
  const VmrContext& context = Deliver();
  EXPECT_FLOAT_EQ(context.disks.primary.head().ioRate, 3.0F);
  EXPECT_FLOAT_EQ(context.disks.primary.head().totalBytesRate, -1.0F);
  EXPECT_EQ(context.memory.primary->freeKb, -5.0);
}

TEST_F(LinuxReaderTest, UnknownVersionEndsTheProcess) {
  Begin("P730 build 7");
  const auto pass = [this] {
    dup2(STDERR_FILENO, STDOUT_FILENO);
    EntryPass();
  };
  EXPECT_EXIT(
      pass(), ::testing::ExitedWithCode(1),
      "Collector Version P730 build 7\n\nERROR : Unrecognized data collector version: P730 build 7\n");
}

TEST_F(LinuxReaderTest, FileWithoutVersionIsUnsupported) {
  writer_.OrderList(9, {901}).OrderList(5, {504}).Record(5, {Text("node")});
  setenv("VELTRIX_LIBRARY", OZMO_SOURCE_DIR, 1);
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(EntryPass(), 0);
  EXPECT_NE(::testing::internal::GetCapturedStderr().find("Data version ??? of file " + path_), path_.npos);
  unsetenv("VELTRIX_LIBRARY");
}

// --- Disks ---

TEST_F(LinuxReaderTest, DiskStandsInTableOrderWhateverItsListSays) {
  writer_.OrderList(2, {207, 201, 216});
  Begin("P720");
  writer_.Record(2, {Text("sda"), Int64(120), Int64(60), Int64(6), Int64(900), Int64(60), Int64(0), Int64(12),
                     Int64(900), Int64(1), Int64(30'000), Int64(90'000)});
  const DiskRecord& disk = Deliver().disks.primary.head();
  EXPECT_EQ(disk.deviceName, "sda");
  EXPECT_FLOAT_EQ(disk.readRate, 2.0F);
  EXPECT_FLOAT_EQ(disk.readMergedRate, 1.0F);
  EXPECT_FLOAT_EQ(disk.readBytesRate, 51.2F);  // sectors
  EXPECT_FLOAT_EQ(disk.totalBytesRate, 153.6F);
  EXPECT_FLOAT_EQ(disk.ioRate, 3.0F);
  EXPECT_FLOAT_EQ(disk.busyFraction, 0.5F);
  EXPECT_FLOAT_EQ(disk.queueLength, 1.5F);
  EXPECT_FLOAT_EQ(disk.waitPerIo, 1800.0F / (60.0F * 3.0F));
  EXPECT_FLOAT_EQ(disk.servicePerIo, 0.5F * 10.0F / 3.0F);
}

TEST_F(LinuxReaderTest, TwinDisksGoByTheListAndKeepTheOldFigures) {
  writer_.OrderList(18, {203, 201});
  Begin("P730");
  writer_.Record(18, {Int32(120), Text("sda")});
  const DiskRecord& disk = Deliver().disks.twin.head();
  EXPECT_EQ(disk.deviceName, "sda");
  EXPECT_FLOAT_EQ(disk.ioRate, 2.0F);
}

TEST_F(LinuxReaderTest, DiskCountersBeyondTheMarkCountAsWrapped) {
  Begin("P720");
  const auto disk = [](int64_t reads, int64_t readSectors) {
    return std::vector<EncodedField>{Text("sda"), Int64(reads), Int64(0), Int64(readSectors)};
  };
  writer_.Record(2, disk(0x80000000, 0x80000001));
  writer_.Record(2, disk(0x80000001, 0));
  const auto& disks = Deliver().disks.primary;
  EXPECT_FLOAT_EQ(disks.head().readRate, 6442450945.0F / 60.0F);
  const DiskRecord& first = *std::next(disks.begin());
  EXPECT_FLOAT_EQ(first.readRate, 2147483648.0F / 60.0F);
  EXPECT_FLOAT_EQ(first.readBytesRate, 6442450945.0F * 512.0F / 60.0F);
}

// --- Intervals ---

TEST_F(LinuxReaderTest, RepeatedTimeStampLeavesNoIntervalAndTheReaderGoesOn) {
  writer_.OrderList(8, {801, 802, 803}).OrderList(3, {308});
  Begin("P730");
  WriteTime(NOON);
  writer_.Record(8, {Int32(0), Int64(3000), Int64(0)});
  writer_.Record(3, {Int32(60)});
  WriteTime(NOON + 60);
  writer_.Record(8, {Int32(1), Int64(3000), Int64(0)});
  const VmrContext& context = Deliver();
  ASSERT_EQ(context.processors.primary.size(), 2U);
  EXPECT_DOUBLE_EQ(context.processors.primary.head().userTime, 0.5);
  const ProcessorRecord& cpu = *std::next(context.processors.primary.begin());
  EXPECT_TRUE(std::isinf(cpu.userTime));
  EXPECT_TRUE(std::isnan(cpu.niceTime));
  EXPECT_TRUE(std::isinf(context.memory.primary->pageInRate));
}

TEST_F(LinuxReaderTest, FallingTimeStampLeavesANegativeInterval) {
  writer_.OrderList(3, {308});
  Begin("P730");
  WriteTime(NOON + 60);
  WriteTime(NOON);
  writer_.Record(3, {Int32(60)});
  EXPECT_FLOAT_EQ(Deliver().memory.primary->pageInRate, -1.0F);
}

TEST_F(LinuxReaderTest, MissingConfiguredIntervalIsAMinute) {
  writer_.OrderList(9, {901}).OrderList(5, {504, 505, 507, 501}).DivisorList(5, {1, 1, 1, 2});
  writer_.OrderList(3, {308});
  writer_.Record(5, {Text("node"), Text("P730"), Int32(0), Int32(8 << 20)});
  WriteSamples(30);
  writer_.Record(3, {Int32(60)});
  const VmrContext& context = Deliver();
  EXPECT_FLOAT_EQ(context.config->intervalSeconds, 60.0F);
  EXPECT_EQ(context.config->pageSize, 4096);
  EXPECT_FLOAT_EQ(context.config->memoryMb, 4096.0F);
  EXPECT_FLOAT_EQ(context.memory.primary->pageInRate, 2.0F);  // by the measured interval
}

// --- The other records ---

TEST_F(LinuxReaderTest, ProtocolSettingsStayAndTheLevelOfConnectionsIsDivided) {
  writer_.OrderList(11, {1102, 1103, 1148, 1149, 1154}).DivisorList(11, {1, 10, 1, 1, 1});
  Begin("P720");
  writer_.Record(11, {Int32(64), Int32(120), Int32(-1), Int32(120), Int32(120)});
  const auto& counters = Deliver().kernel.primary->counters;
  EXPECT_EQ(counters[1], 64.0F);
  EXPECT_EQ(counters[2], 2.0F);
  EXPECT_EQ(counters[47], -1.0F);
  EXPECT_EQ(counters[48], 2.0F);
  EXPECT_EQ(counters[53], 2.0F);
}

TEST_F(LinuxReaderTest, ListThatArrivedLastServesBaseAndTwin) {
  writer_.OrderList(14, {1402}).OrderList(24, {1401});
  Begin("P730");
  writer_.Record(14, {Text("sda1")});
  EXPECT_EQ(Deliver().fileSystems.primary.head().deviceName, "sda1");
}

TEST_F(LinuxReaderTest, PlainRecordPassesAndTwinsOfLaterVersionsEndTheInterval) {
  writer_.OrderList(7, {702}).OrderList(8, {801});
  Begin("P720");
  writer_.Record(7, {Text("nothing")});
  writer_.Record(8, {Int32(1)});
  writer_.Record(23, {Int32(2)});
  writer_.Record(8, {Int32(3)});
  const auto& processors = Deliver().processors;
  ASSERT_EQ(processors.primary.size(), 1U);
  EXPECT_EQ(processors.primary.head().cpuId, 1);
}

}  // namespace
}  // namespace ozmo::testing
