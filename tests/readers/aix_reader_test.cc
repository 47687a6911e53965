// What the AIX decoders leave in the context, where a rule has a trap.
#include "tests/readers/one_interval.h"

namespace ozmo::testing {
namespace {

constexpr int64_t BAD_COUNTER = 0x100000000;

class AixReaderTest : public OneIntervalTest {
 protected:
  AixReaderTest() : OneIntervalTest(AIX_FORMAT, sample::ByteOrder::BIG, "qtxa_node_2012Feb22.dat_1") {}

  void WriteTime(Seconds time) override { writer_.Record(6, {wide_ ? Int64(time) : Int32(time)}); }

  void Begin(const std::string& version) override {
    writer_.OrderList(6, {601}).DivisorList(6, {1});
    writer_.OrderList(5, {501, 507, 508, 514, 505, 511}).DivisorList(5, {1, 1, 1, 1, 1, 1});
    writer_.Record(
        5, {Text(version), Text("node"), Int32(0), Int32(configuredInterval_), Text("five"), Text("eleven")});
    wide_ = version.find("_64") != version.npos;
    WriteSamples();
  }

  bool wide_ = false;
};

// --- Versions and intervals ---

// Version texts are compared whole: P300 has no record 12.
TEST_F(AixReaderTest, UnknownVersionIsToldAndReadWithTheNewestTable) {
  for (const std::string version : {"P999", "P300 build 7"}) {
    StartOver();
    ::testing::internal::CaptureStdout();
    const VmrContext& context = DeliverRecord(version, 12, {3}, {Int64(512)});
    EXPECT_EQ(::testing::internal::GetCapturedStdout(),
              "\nUnrecognized data collector version " + version + "\n");
    ASSERT_TRUE(context.memory.primary.has_value());
    EXPECT_EQ(context.memory.primary->realMb, 2.0F);
  }
}

TEST_F(AixReaderTest, WideVersionHasWideStampsAndCounters) {
  writer_.OrderList(7, {701});
  const VmrContext& context = DeliverRecord("P720_64", 1, {101}, {Int64(60 * BAD_COUNTER)});
  EXPECT_EQ(context.overallCpu.primary.head().userTime, 4294967296.0);
}

TEST_F(AixReaderTest, NarrowVersionTakesTheLowHalfOfWideFields) {
  const VmrContext& context = DeliverRecord("P730", 1, {101, 110, 112},
                                            {Int64(BAD_COUNTER - 60), Int64(250), Int64(98304)}, {10, 1, 1});
  const ProcessorRecord& overall = context.overallCpu.primary.head();
  // Signed, and no divisor.
  EXPECT_EQ(Figures(overall.userTime, overall.extraSecondsA, overall.loadAverage[0]), Figures(-1, 2.5, 1.5));
}

TEST_F(AixReaderTest, RepeatedTimeStampTakesTheConfiguredInterval) {
  configuredInterval_ = 20;
  writer_.OrderList(3, {304});
  Begin("P910");
  WriteTime(NOON);
  writer_.Record(3, {Int32(60)});
  EXPECT_EQ(Deliver().memory.primary->pageInRate, 3.0F);
}

TEST_F(AixReaderTest, LaterTextOfTheConfigurationWritesOverTheEarlier) {
  Begin("P910");
  const SystemConfig& config = *Deliver().config;
  EXPECT_EQ(config.configText[5], "eleven");
  EXPECT_EQ(config.configNode, "node");
  EXPECT_EQ(config.pageSize, 0);
}

// --- Memory ---

// Field 7, in megabytes of pages of 4096 bytes whatever the page size says, and field 311 share a place.
TEST_F(AixReaderTest, TwoRecordTypesFillOneMemoryRecord) {
  for (const bool megabytesFirst : {true, false}) {
    StartOver();
    writer_.OrderList(3, {301, 310, 311}).OrderList(12, {7, 10, 23});
    Begin("P910");
    const std::vector<EncodedField> counters{Int64(512), Int64(120), Int64(BAD_COUNTER)};
    if (megabytesFirst) writer_.Record(12, counters);
    writer_.Record(3, {Int32(1000), Int32(65536), Int32(240)});
    if (!megabytesFirst) writer_.Record(12, counters);
    const VmrContext& context = Deliver();
    const MemoryRecord& memory = *context.memory.primary;
    EXPECT_EQ(
        Figures(memory.freePages, memory.unreadMore[10], memory.unreadMore[23], context.config->pageSize),
        Figures(1000, 2, BAD_COUNTER, 65536));
    EXPECT_EQ(memory.zeroFillFaultRate, megabytesFirst ? 4.0F : 2.0F);
  }
}

TEST_F(AixReaderTest, MemoryTwinStartsAnew) {
  writer_.OrderList(19, {301, 302});
  Begin("P730");
  writer_.Record(19, {Int32(1), Int32(2)}).OrderList(19, {301}).Record(19, {Int32(3)});
  const VmrContext& context = Deliver();
  EXPECT_EQ(Figures(context.memory.twin->freePages, context.memory.twin->processPages), Figures(3, 0));
  EXPECT_FALSE(context.memory.primary.has_value());
}

// --- Processors ---

TEST_F(AixReaderTest, ProcessorsOfOneNumberMerge) {
  writer_.OrderList(8, {801, 802, 803, 804, 805});
  Begin("P910");
  writer_.Record(8, {Int32(3), Int64(600), Int64(0), Int64(600), Int64(0)});
  writer_.Record(8, {Int32(4), Int64(0), Int64(0), Int64(0), Int64(0)});
  writer_.Record(8, {Int32(3), Int64(300), Int64(0), Int64(600), Int64(300)});
  writer_.Record(23, {Int32(3), Int64(600), Int64(0), Int64(0), Int64(0)});
  const auto& processors = Deliver().processors;
  ASSERT_EQ(processors.primary.size(), 2U);
  EXPECT_EQ(processors.primary.head().userTime, 0.0);  // nothing done, nothing divided
  const ProcessorRecord& cpu = *std::next(processors.primary.begin());
  EXPECT_EQ(Figures(cpu.userTime, cpu.idleTime, cpu.waitTime), Figures(0.25, 0.5, 0.25));
  EXPECT_EQ(processors.twin.head().userTime, 1.0);
}

TEST_F(AixReaderTest, ProcessorFieldsAheadOfTheNumberAreLost) {
  writer_.OrderList(8, {802, 801});
  Begin("P910");
  writer_.Record(8, {Int64(600), Int32(3)}).OrderList(8, {802}).Record(8, {Int64(600)});
  EXPECT_TRUE(Deliver().processors.primary.empty());
}

// --- Disks ---

class AixDiskTest : public AixReaderTest {
 protected:
  // Transfers, bytes, service and wait of the newer form.
  void WriteDisk(const std::string& name, int64_t transfers, int64_t busyTicks = 600, int64_t size = 1000) {
    writer_.Record(2, {Text(name), Int32(0), Int32(0), Int32(0), Int32(0), Int64(0), Int64(size), Int64(400),
                       Int64(1024), Int64(transfers), Int64(600), Int64(1200), Int64(0), Int64(60'000'000),
                       Int64(60'000'000), Int64(0), Int64(busyTicks), Int64(240'000'000)});
  }
};

TEST_F(AixDiskTest, BusyTicksOrServiceTimeTellTheUtilization) {
  Begin("P910");
  WriteDisk("hdisk0", 120);
  WriteDisk("hdisk1", 120, 0);
  const auto& disks = Deliver().disks.primary;
  const DiskRecord& disk = *std::next(disks.begin());
  EXPECT_EQ(Figures(disk.busyFraction, disk.queueLength, disk.responsePerIo), Figures(0.1F, 0.06F, 30));
  EXPECT_EQ(Figures(disks.head().busyFraction), Figures(0.02F));
}

TEST_F(AixDiskTest, OneBadCounterSpoilsAllRates) {
  Begin("P910");
  WriteDisk("hdisk0", BAD_COUNTER);
  WriteDisk("hdisk1", 600, 600, BAD_COUNTER);
  WriteDisk("hdisk2", BAD_COUNTER - 1);
  const auto& disks = Deliver().disks.primary;
  auto disk = disks.begin();
  EXPECT_GT(disk->ioRate, 0.0F);
  ++disk;
  EXPECT_EQ(Figures(disk->ioRate, disk->size, disk->free), Figures(0, 0, 400));
  ++disk;
  EXPECT_EQ(Figures(disk->ioRate, disk->readBytesRate, disk->size), Figures(0, 0, 1000));
}

TEST_F(AixDiskTest, VirtualScsiTwinsNeverAppear) {
  writer_.OrderList(18, {201, 202});
  Begin("P730");
  for (const char* name : {"vscsi0", "hdisk0", "my vscsi2"}) {
    writer_.Record(18, {Text(name), Int32(1)});
  }
  EXPECT_EQ(Deliver().disks.twin.size(), 1U);
}

// --- The other records ---

TEST_F(AixReaderTest, IdleProcessOfTheKernelConsumesNothing) {
  writer_.OrderList(4, {407, 408, 404, 417, 420}).DivisorList(4, {100, 1, 1, 1, 1});
  Begin("P910");
  writer_.Record(4, {Int32(60), Int32(60), Int32(1), Int32(5), Text("wait")});
  writer_.Record(4, {Int32(60), Int32(60), Int32(-7), Int32(5), Text("waiter")});
  const auto& processes = Deliver().processes.primary;
  const ProcessRecord& waiter = processes.head();
  EXPECT_EQ(waiter.idText, "-7");
  // The configured interval, whatever field 417 says.
  EXPECT_EQ(Figures(waiter.userCpuSeconds, waiter.elapsedSeconds), Figures(0.6F, 60));
  const ProcessRecord& wait = *std::next(processes.begin());
  EXPECT_EQ(Figures(wait.userCpuSeconds, wait.systemCpuSeconds), Figures(0, 0));
}

TEST_F(AixReaderTest, RatesBeyondTheirCountersAreZero) {
  writer_.OrderList(4, {411, 412, 420}).OrderList(15, {1501, 1502, 1503}).DivisorList(15, {1, 2, 1});
  Begin("P730_64");
  writer_.Record(4, {Int64(BAD_COUNTER), Int64(BAD_COUNTER - 16), Text("vi")});
  writer_.Record(15, {Text("en0"), Int64(240), Int64(BAD_COUNTER)});
  const VmrContext& context = Deliver();
  const ProcessRecord& process = context.processes.primary.head();
  EXPECT_EQ(Figures(process.minorFaults, process.majorFaults), Figures(0, 4294967280.0F / 60.0F));
  const LanRecord& adapter = context.lans.primary.head();
  EXPECT_EQ(Figures(adapter.packetsInRate, adapter.bytesInRate), Figures(2, 0));
}

TEST_F(AixReaderTest, ProtocolRecordWithoutKnownFieldsIsWithdrawn) {
  EXPECT_FALSE(DeliverRecord("P910", 7, {746}, {Int32(60)}).protocolCounters.primary.has_value());
}

TEST_F(AixReaderTest, PartitionTwinIsDropped) {
  writer_.OrderList(14, {1, 3, 15, 17, 32});
  Begin("P910");
  for (const char* name : {"lpar1", "lpar2"}) {
    writer_.Record(name == std::string("lpar1") ? 14 : 31,
                   {Text(name), Int32(1), Int64(250), Int64(17), Int64(2000)});
  }
  const PartitionRecord& lpar = *Deliver().partition;
  EXPECT_EQ(lpar.name, "lpar1");
  EXPECT_EQ(Figures(lpar.isCapped, lpar.entitledProcessors, lpar.unread[17], lpar.unread[32]),
            Figures(1, 2.5, 17, 2));
}

}  // namespace
}  // namespace ozmo::testing
