// What the Linux decoders leave in the context, where a rule has a trap.
#include <unistd.h>

#include "tests/readers/one_interval.h"

namespace ozmo::testing {
namespace {

class LinuxReaderTest : public OneIntervalTest {
 protected:
  LinuxReaderTest() : OneIntervalTest(LINUX_FORMAT, sample::ByteOrder::LITTLE, "qtxl_node_2012Feb22.dat_1") {}

  void WriteTime(Seconds time) override { writer_.Record(9, {wide_ ? Int64(time) : Int32(time)}); }

  void Begin(const std::string& version) override {
    writer_.OrderList(9, {901}).DivisorList(9, {1});
    writer_.OrderList(5, {504, 505, 507, 513}).DivisorList(5, {1, 1, 1, 1});
    writer_.Record(5, {Text("node"), Text(version), Int32(0), Int32(60)});
    wide_ = version.find("_64") != version.npos;
    WriteSamples();
  }

  bool wide_ = false;
};

// --- Two version marks ---

// Version text and tag of one mind: the newer processor decoders, which tell seconds per second.
TEST_F(LinuxReaderTest, NewerProcessorFiguresAreSecondsPerSecond) {
  writer_.OrderList(8, {801, 802, 803, 806, 807}).DivisorList(8, {1, 1, 2, 1, 1});
  writer_.OrderList(1, {101, 105, 106, 107, 109}).Tag("collector P730_64");
  Begin("P730_64");
  writer_.Record(8, {Int32(3), Int64(3000), Int64(3000), Int64(250), Int64(600)});
  writer_.Record(1, {Int64(3000), Int64(600), Int64(60), Int64(120), Int64(700)});
  const VmrContext& context = Deliver();
  const ProcessorRecord& cpu = context.processors.primary.head();
  // Whatever field 806 says.
  EXPECT_EQ(Figures(cpu.cpuId, cpu.userTime, cpu.niceTime, cpu.waitTime), Figures(3, 0.5, 0.25, 0.1));
  const ProcessorRecord& overall = context.overallCpu.primary.head();
  EXPECT_EQ(Figures(overall.userTime, overall.eventRateSum, overall.extraSecondsA, overall.extraSecondsB),
            Figures(0.5, 3, 7, 7));
}

TEST_F(LinuxReaderTest, NewerDecodersOnTheOldestTable) {
  writer_.Tag("P730");
  const VmrContext& context = DeliverRecord("P300", 8, {801, 802}, {Int32(0), Int32(3000)});
  EXPECT_EQ(context.processors.primary.head().userTime, 0.5);
}

TEST_F(LinuxReaderTest, TwinProcessorsKnowNoIntervalButToTheOlderDecoder) {
  for (const bool newer : {true, false}) {
    StartOver();
    writer_.OrderList(8, {801, 802});
    if (newer) writer_.Tag("collector P730_64");
    Begin("P730_64");
    writer_.Record(23, {Int32(0), Int64(3000)});
    EXPECT_EQ(Deliver().processors.twin.head().userTime, newer ? 30.0 : 0.5);
  }
}

TEST_F(LinuxReaderTest, EmptyTwinProcessorCostsTheBaseItsHead) {
  writer_.OrderList(8, {801});
  Begin("P730");
  writer_.Record(8, {Int32(0)}).Record(8, {Int32(1)});
  writer_.OrderList(23, {807}).Record(23, {Int64(1)});  // no field that the older decoder knows
  const auto& processors = Deliver().processors.primary;
  ASSERT_EQ(processors.size(), 1U);
  EXPECT_EQ(processors.head().cpuId, 0);
}

// --- Version texts ---

TEST_F(LinuxReaderTest, VersionTextsThatHoldMore) {
  const VmrContext& context = DeliverRecord("P730_64 build 7", 3, {302}, {Int64(int64_t{1} << 33)});
  EXPECT_EQ(context.memory.primary->freeKb, 8589934592.0);
}

TEST_F(LinuxReaderTest, VersionWith540IsTheOldestAndNarrow) {
  writer_.OrderList(2, {201, 202}).OrderList(3, {302});
  Begin("v1.540-b");
  writer_.Record(2, {Text("sda"), Int32(120), Int32(60), Int32(-60), Int32(0)}).Record(3, {Int32(-5)});
  const VmrContext& context = Deliver();
  const DiskRecord& disk = context.disks.primary.head();
  EXPECT_EQ(Figures(disk.ioRate, disk.totalBytesRate, context.memory.primary->freeKb), Figures(3, -1, -5));
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
  // Bytes are counted in sectors.
  EXPECT_EQ(Figures(disk.readRate, disk.readMergedRate, disk.readBytesRate, disk.totalBytesRate),
            Figures(2, 1, 51.2F, 153.6F));
  EXPECT_EQ(Figures(disk.ioRate, disk.busyFraction, disk.queueLength, disk.waitPerIo, disk.servicePerIo),
            Figures(3, 0.5, 1.5, 10, 5.0F / 3));
}

TEST_F(LinuxReaderTest, TwinDisksGoByTheListAndKeepTheOldFigures) {
  const VmrContext& context = DeliverRecord("P730", 18, {203, 201}, {Int32(120), Text("sda")});
  EXPECT_EQ(context.disks.twin.head().deviceName, "sda");
  EXPECT_EQ(context.disks.twin.head().ioRate, 2.0F);
}

TEST_F(LinuxReaderTest, DiskCountersBeyondTheMarkCountAsWrapped) {
  Begin("P720");
  writer_.Record(2, {Text("sda"), Int64(0x80000000), Int64(0), Int64(0x80000001)});
  writer_.Record(2, {Text("sda"), Int64(0x80000001), Int64(0), Int64(0)});
  const auto& disks = Deliver().disks.primary;
  const DiskRecord& first = *std::next(disks.begin());
  EXPECT_EQ(Figures(disks.head().readRate, first.readRate, first.readBytesRate),
            Figures(6442450945.0 / 60, 2147483648.0 / 60, 6442450945.0 * 512 / 60));
}

// --- Intervals ---

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
  const SystemConfig& config = *context.config;
  EXPECT_EQ(Figures(config.intervalSeconds, config.pageSize, config.memoryMb), Figures(60, 4096, 4096));
  EXPECT_EQ(context.memory.primary->pageInRate, 2.0F);  // by the measured interval
}

// --- The other records ---

TEST_F(LinuxReaderTest, ProcessTimesAndSizes) {
  const VmrContext& context = DeliverRecord(
      "P730", 4, {402, 407, 408, 414, 420, 421, 411, 413},
      {Int32(77), Int32(250), Int32(-100), Int32(9), Int32(2'097'152), Int32(3), Int32(0), Text("ann")},
      {1, 5, 1, 1, 1, 1, 1, 1});
  const ProcessRecord& process = context.processes.primary.head();
  EXPECT_EQ(process.name, "");  // no field 412
  EXPECT_EQ(Figures(process.userCpuSeconds, process.systemCpuSeconds, process.minorFaults),
            Figures(2.5, 0, 9));
  EXPECT_EQ(Figures(process.sizeVirtual, process.sizeResident, process.elapsedSeconds),
            Figures(2048, 12, 60));
}

TEST_F(LinuxReaderTest, UncountedFieldsMakeNoProcess) {
  EXPECT_TRUE(DeliverRecord("P300", 4, {409, 416}, {Int32(1), Int32(2)}).processes.primary.empty());
}

TEST_F(LinuxReaderTest, ProtocolSettingsStayAndTheLevelOfConnectionsIsDivided) {
  const VmrContext& context =
      DeliverRecord("P720", 11, {1102, 1103, 1148, 1149, 1154},
                    {Int32(64), Int32(120), Int32(-1), Int32(120), Int32(120)}, {1, 10, 1, 1, 1});
  const auto& all = context.protocolCounters.primary->counters;
  EXPECT_EQ(Figures(all[1], all[2], all[47], all[48], all[53]), Figures(64, 2, -1, 2, 2));
}

TEST_F(LinuxReaderTest, FileSystemBlocksAreDividedAsWholeNumbers) {
  const VmrContext& context =
      DeliverRecord("P720_64", 14, {1401, 1402, 1404, 1405, 1406},
                    {Text("/dev/sda1"), Text("/"), Int64(101), Int64(41), Int64(30)}, {1, 1, 2, 2, 0});
  const FileSystemRecord& blocks = context.fileSystems.primary.head();
  EXPECT_EQ(Figures(blocks.totalBlocks, blocks.freeBlocks, blocks.availableBlocks), Figures(50, 20, 30));
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
