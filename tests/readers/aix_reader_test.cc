// What the AIX decoders leave in the context, where a rule has a trap.
#include "tests/readers/one_interval.h"

namespace ozmo::testing {
namespace {

constexpr int64_t BAD_COUNTER = 0x100000000;

class AixReaderTest : public OneIntervalTest {
 protected:
  AixReaderTest() : OneIntervalTest(AIX_FORMAT, sample::ByteOrder::BIG, "qtxa_node_2012Feb22.dat_1") {}

  void WriteTime(Seconds time) override { writer_.Record(6, {wide_ ? Int64(time) : Int32(time)}); }

  void Begin(const std::string& version = "P910", int64_t interval = 60) {
    writer_.OrderList(6, {601}).DivisorList(6, {1});
    writer_.OrderList(5, {501, 507, 508, 514, 505, 511}).DivisorList(5, {1, 1, 1, 1, 1, 1});
    writer_.Record(5, {Text(version), Text("node"), Int32(0), Int32(interval), Text("five"), Text("eleven")});
    wide_ = version.find("_64") != version.npos;
    WriteSamples(60);
  }

  bool wide_ = false;
};

// --- Versions and intervals ---

TEST_F(AixReaderTest, UnknownVersionIsToldAndReadWithTheNewestTable) {
  writer_.OrderList(12, {3});
  Begin("P999");
  writer_.Record(12, {Int64(512)});
  ::testing::internal::CaptureStdout();
  const VmrContext& context = Deliver();
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "\nUnrecognized data collector version P999\n");
  EXPECT_FLOAT_EQ(context.memory.primary->vmValue[1], 2.0F);
}

TEST_F(AixReaderTest, VersionTextsAreComparedWhole) {
  writer_.OrderList(12, {3});
  Begin("P300 build 7");  // not P300, whose table has no record 12
  writer_.Record(12, {Int64(512)});
  ::testing::internal::CaptureStdout();
  EXPECT_TRUE(Deliver().memory.primary.has_value());
  EXPECT_NE(::testing::internal::GetCapturedStdout(), "");
}

TEST_F(AixReaderTest, WideVersionHasWideStampsAndCounters) {
  writer_.OrderList(7, {701}).OrderList(1, {101});
  Begin("P720_64");
  writer_.Record(7, {Int64(60 * BAD_COUNTER)});
  writer_.Record(1, {Int64(60 * BAD_COUNTER)});
  const VmrContext& context = Deliver();
  EXPECT_FLOAT_EQ(context.kernel.primary->counters[0], 4294967296.0F);
  EXPECT_DOUBLE_EQ(context.overallCpu.primary.head().userTime, 4294967296.0);
}

TEST_F(AixReaderTest, NarrowVersionTakesTheLowHalfOfWideFields) {
  writer_.OrderList(1, {101, 110, 112}).DivisorList(1, {10, 1, 1});
  Begin("P730");
  writer_.Record(1, {Int64(BAD_COUNTER - 60), Int64(250), Int64(98304)});
  const ProcessorRecord& overall = Deliver().overallCpu.primary.head();
  EXPECT_DOUBLE_EQ(overall.userTime, -1.0);  // signed, and no divisor
  EXPECT_DOUBLE_EQ(overall.extraSecondsA, 2.5);
  EXPECT_DOUBLE_EQ(overall.loadAverage[0], 1.5);
}

TEST_F(AixReaderTest, RepeatedTimeStampTakesTheConfiguredInterval) {
  writer_.OrderList(3, {304});
  Begin("P910", 20);
  WriteTime(NOON);
  writer_.Record(3, {Int32(60)});
  EXPECT_FLOAT_EQ(Deliver().memory.primary->pageInRate, 3.0F);
}

TEST_F(AixReaderTest, LaterTextWritesOverTheEarlier) {
  Begin();
  const SystemConfig& config = *Deliver().config;
  EXPECT_EQ(config.configText[5], "eleven");
  EXPECT_EQ(config.configNode, "node");
  EXPECT_EQ(config.pageSize, 0);
}

// --- Memory ---

TEST_F(AixReaderTest, TwoRecordTypesFillOneMemoryRecord) {
  writer_.OrderList(3, {301, 310, 311}).OrderList(12, {7, 10, 23});
  Begin();
  writer_.Record(12, {Int64(512), Int64(120), Int64(BAD_COUNTER)});
  writer_.Record(3, {Int32(1000), Int32(65536), Int32(240)});
  const VmrContext& context = Deliver();
  const MemoryRecord& memory = *context.memory.primary;
  EXPECT_EQ(memory.freeKb, 1000.0);
  EXPECT_FLOAT_EQ(memory.vmValue[5], 2.0F);
  EXPECT_EQ(memory.vmRaw[0], BAD_COUNTER);
  EXPECT_FLOAT_EQ(memory.pageRate311(), 4.0F);  // over the 2 MB of field 7
  EXPECT_EQ(context.config->pageSize, 65536);
}

TEST_F(AixReaderTest, MegabytesCountPagesOf4096WhateverThePageSize) {
  writer_.OrderList(3, {310, 311}).OrderList(12, {7});
  Begin();
  writer_.Record(3, {Int32(65536), Int32(240)});
  writer_.Record(12, {Int64(512)});
  EXPECT_FLOAT_EQ(Deliver().memory.primary->pageRate311(), 2.0F);
}

// --- Processors ---

TEST_F(AixReaderTest, ProcessorsOfOneNumberMerge) {
  writer_.OrderList(8, {801, 802, 803, 804, 805});
  Begin();
  writer_.Record(8, {Int32(3), Int64(600), Int64(0), Int64(600), Int64(0)});
  writer_.Record(8, {Int32(4), Int64(0), Int64(0), Int64(0), Int64(0)});
  writer_.Record(8, {Int32(3), Int64(300), Int64(0), Int64(600), Int64(300)});
  writer_.Record(23, {Int32(3), Int64(600), Int64(0), Int64(0), Int64(0)});
  const VmrContext& context = Deliver();
  ASSERT_EQ(context.processors.primary.size(), 2U);
  EXPECT_EQ(context.processors.primary.head().userTime, 0.0);  // nothing done, nothing divided
  const ProcessorRecord& cpu = *std::next(context.processors.primary.begin());
  EXPECT_DOUBLE_EQ(cpu.userTime, 0.25);
  EXPECT_DOUBLE_EQ(cpu.idleTime, 0.5);
  EXPECT_DOUBLE_EQ(cpu.waitTime, 0.25);
  EXPECT_DOUBLE_EQ(context.processors.twin.head().userTime, 1.0);
}

TEST_F(AixReaderTest, ProcessorFieldsAheadOfTheNumberAreLost) {
  writer_.OrderList(8, {802, 801});
  Begin();
  writer_.Record(8, {Int64(600), Int32(3)});
  writer_.OrderList(8, {802});
  writer_.Record(8, {Int64(600)});
  EXPECT_TRUE(Deliver().processors.primary.empty());
}

// --- Disks ---

class AixDiskTest : public AixReaderTest {
 protected:
  // A disk of the newer form; the older figures are those of `oldTransfers`.
  void WriteDisk(const std::string& name, int64_t oldTransfers, int64_t transfers, int64_t busyTicks = 600,
                 int64_t sizeValueA = 1000) {
    writer_.Record(
        2, {Text(name), Int32(oldTransfers), Int32(30'000), Int32(6144), Int32(12288), Int64(0),
            Int64(sizeValueA), Int64(400), Int64(1024), Int64(transfers), Int64(600), Int64(1200), Int64(0),
            Int64(60'000'000), Int64(60'000'000), Int64(0), Int64(busyTicks), Int64(240'000'000)});
  }
};

TEST_F(AixDiskTest, NewerFigures) {
  Begin();
  WriteDisk("hdisk0", 0, 120);
  const DiskRecord& disk = Deliver().disks.primary.head();
  EXPECT_EQ(disk.deviceName, "hdisk0");
  EXPECT_EQ(disk.size, 1000);
  EXPECT_EQ(disk.free, 400);
  EXPECT_FLOAT_EQ(disk.ioRate, 2.0F);
  EXPECT_FLOAT_EQ(disk.readBytesRate, 10240.0F);
  EXPECT_FLOAT_EQ(disk.writeBytesRate, 20480.0F);
  EXPECT_FLOAT_EQ(disk.servicePerIo, 10.0F);
  EXPECT_FLOAT_EQ(disk.waitPerIo, 20.0F);
  EXPECT_FLOAT_EQ(disk.responsePerIo, 30.0F);
  EXPECT_FLOAT_EQ(disk.busyFraction, 0.1F);
  EXPECT_FLOAT_EQ(disk.queueLength, 0.06F);
  EXPECT_EQ(disk.readRate, 0.0F);
}

TEST_F(AixDiskTest, WithoutBusyTicksServiceTimeTellsTheUtilization) {
  Begin();
  WriteDisk("hdisk0", 0, 120, 0);
  EXPECT_FLOAT_EQ(Deliver().disks.primary.head().busyFraction, 0.02F);
}

TEST_F(AixDiskTest, OlderFiguresGoFirst) {
  writer_.OrderList(2, {201, 202}).DivisorList(2, {1, 2});
  Begin();
  WriteDisk("hdisk0", 120, 600);
  const DiskRecord& disk = Deliver().disks.primary.head();
  EXPECT_FLOAT_EQ(disk.ioRate, 1.0F);  // by the divisor
  EXPECT_FLOAT_EQ(disk.readBytesRate, 102.4F);
  EXPECT_FLOAT_EQ(disk.busyFraction, 0.5F);
  EXPECT_EQ(disk.servicePerIo, 0.0F);
}

TEST_F(AixDiskTest, OneBadCounterSpoilsAllRates) {
  Begin();
  WriteDisk("hdisk0", 0, BAD_COUNTER);
  WriteDisk("hdisk1", 120, 120, 600, BAD_COUNTER);
  WriteDisk("hdisk2", 0, BAD_COUNTER - 1);
  const auto& disks = Deliver().disks.primary;
  ASSERT_EQ(disks.size(), 3U);
  auto disk = disks.begin();
  EXPECT_GT(disk->ioRate, 0.0F);
  ++disk;
  EXPECT_EQ(disk->ioRate, 0.0F);
  EXPECT_EQ(disk->size, 0);
  EXPECT_EQ(disk->free, 400);
  ++disk;
  EXPECT_EQ(disk->ioRate, 0.0F);
  EXPECT_EQ(disk->readBytesRate, 0.0F);
  EXPECT_EQ(disk->busyFraction, 0.0F);
}

TEST_F(AixDiskTest, VirtualScsiDevicesNeverAppear) {
  writer_.OrderList(18, {201, 202});
  Begin("P730");
  WriteDisk("vscsi0", 0, 120);
  WriteDisk("vscsi1", 0, 120);
  WriteDisk("hdisk0", 0, 120);
  WriteDisk("my vscsi2", 0, 120);
  writer_.Record(18, {Text("vscsi0"), Int32(1)});
  const auto& disks = Deliver().disks;
  ASSERT_EQ(disks.primary.size(), 1U);
  EXPECT_EQ(disks.primary.head().deviceName, "hdisk0");
  EXPECT_TRUE(disks.twin.empty());
}

// --- Processes ---

TEST_F(AixReaderTest, IdleProcessOfTheKernelConsumesNothing) {
  writer_.OrderList(4, {407, 408, 420});
  Begin();
  writer_.Record(4, {Int32(60), Int32(60), Text("wait")});
  writer_.Record(4, {Int32(60), Int32(60), Text("waiter")});
  const auto& processes = Deliver().processes.primary;
  EXPECT_FLOAT_EQ(processes.head().userCpuSeconds, 60.0F);
  const ProcessRecord& wait = *std::next(processes.begin());
  EXPECT_EQ(wait.userCpuSeconds, 0.0F);
  EXPECT_EQ(wait.systemCpuSeconds, 0.0F);
}

TEST_F(AixReaderTest, ProcessRatesBeyondTheirCountersAreZero) {
  writer_.OrderList(4, {411, 412, 420});
  Begin("P730_64");
  writer_.Record(4, {Int64(BAD_COUNTER), Int64(BAD_COUNTER - 16), Text("vi")});
  const ProcessRecord& process = Deliver().processes.primary.head();
  EXPECT_EQ(process.minorFaults, 0.0F);
  EXPECT_FLOAT_EQ(process.majorFaults, 4294967280.0F / 60.0F);
}

// --- The other records ---

TEST_F(AixReaderTest, AdapterFiguresBeyondTheirCountersAreZero) {
  writer_.OrderList(15, {1501, 1502, 1503}).DivisorList(15, {1, 2, 1});
  Begin("P720");
  writer_.Record(15, {Text("en0"), Int64(240), Int64(BAD_COUNTER)});
  const LanRecord& adapter = Deliver().lans.primary.head();
  EXPECT_FLOAT_EQ(adapter.packetsInRate, 2.0F);
  EXPECT_EQ(adapter.bytesInRate, 0.0F);
}

TEST_F(AixReaderTest, PartitionFiguresAndItsTwinIsDropped) {
  writer_.OrderList(14, {1, 2, 3, 7, 15, 17, 18, 20, 32, 47, 50});
  Begin();
  const auto partition = [](int64_t flag) {
    return std::vector<EncodedField>{Text("lpar1"), Int32(9),   Int32(flag),       Int32(-1),
                                     Int64(250),    Int64(17),  Int64(18),         Int64(20),
                                     Int64(2000),   Int64(120), Int64(BAD_COUNTER)};
  };
  writer_.Record(14, partition(1));
  writer_.Record(31, partition(7));
  const PartitionRecord& lpar = *Deliver().partition;
  EXPECT_EQ(lpar.lparName, "lpar1");
  EXPECT_EQ(lpar.lparValue[4], 1.0);
  EXPECT_EQ(lpar.lparValue[8], 1.0);
  EXPECT_EQ(lpar.lparValue[9], -1.0);
  EXPECT_DOUBLE_EQ(lpar.lparValue[14], 2.5);
  EXPECT_EQ(lpar.lparValue[20], 17.0);
  EXPECT_EQ(lpar.lparValue[19], 18.0);
  EXPECT_EQ(lpar.lparValue[23], 20.0);
  EXPECT_DOUBLE_EQ(lpar.lparValue[37], 2.0);
  EXPECT_DOUBLE_EQ(lpar.lparValue[34], 2.0);
  EXPECT_EQ(lpar.lparTicks, BAD_COUNTER);
}

}  // namespace
}  // namespace ozmo::testing
