// What the HP-UX decoders leave in the context, where a rule has a trap.
#include <cmath>
#include <vector>

#include "tests/readers/one_interval.h"

namespace ozmo::testing {
namespace {

constexpr int64_t BEYOND_32_BITS = 0x100000000;

class HpuxReaderTest : public OneIntervalTest {
 protected:
  HpuxReaderTest() : OneIntervalTest(HPUX_FORMAT, sample::ByteOrder::BIG, "qtxh_node_2012Feb22.dat_1") {}

  void WriteTime(Seconds time) override { writer_.Record(6, {wide_ ? Int64(time) : Int32(time)}); }

  void WriteConfig(const std::string& version, int64_t interval = 60) {
    writer_.OrderList(6, {601}).DivisorList(6, {1});
    writer_.OrderList(5, {503, 505, 507, 501, 508, 511, 514}).DivisorList(5, {4, 1, 1, 1, 1, 1, 1});
    writer_.Record(5, {Int64(BEYOND_32_BITS), Text("five"), Text("node"), Text(version), Int32(0),
                       Text("eleven"), Int32(interval)});
    wide_ = version.find("_64") != version.npos;
  }

  void Begin(const std::string& version = "P730", int64_t interval = 60) {
    WriteConfig(version, interval);
    WriteSamples(60);
  }

  bool wide_ = false;
};

// --- Versions and configuration ---

TEST_F(HpuxReaderTest, UnknownVersionEndsTheProcess) {
  Begin("V505");  // a Tru64 version
  EXPECT_EXIT(EntryPass(), ::testing::ExitedWithCode(1),
              "^\nFatal, Unrecognized Data Collector Version V505$");
}

TEST_F(HpuxReaderTest, FileWithoutVersionIsUnsupported) {
  writer_.OrderList(5, {507}).Record(5, {Text("node")});
  EXPECT_EQ(EntryPass(), 0);
}

TEST_F(HpuxReaderTest, WideVersionsHaveWideStampsAndCounters) {
  writer_.OrderList(3, {301, 306});
  Begin("P300_64");
  writer_.Record(3, {Int64(BEYOND_32_BITS), Int64(60 * BEYOND_32_BITS)});
  const MemoryRecord& memory = *Deliver().memory.primary;
  EXPECT_EQ(memory.freeKb, 4294967296.0);
  EXPECT_EQ(memory.pageInRate, 4294967296.0F);
}

TEST_F(HpuxReaderTest, PageSizeComesWithTheMemoryRecord) {
  writer_.OrderList(3, {305, 322, 313, 302}).OrderList(4, {408}).DivisorList(4, {2});
  Begin();
  writer_.Record(3, {Int32(8192), Int32(77), Int32(60), Int32(1)});
  writer_.Record(4, {Int32(6)});
  const VmrContext& context = Deliver();
  EXPECT_EQ(context.config->pageSize, 8192);
  EXPECT_EQ(context.memory.primary->pageRate311(), 77.0F);
  EXPECT_EQ(context.memory.primary->pageRate307, 1.0F);
  EXPECT_EQ(context.processes.primary.head().sizeResident, 3 * 8192);
}

TEST_F(HpuxReaderTest, RepeatedTimeStampTakesTheConfiguredInterval) {
  writer_.OrderList(3, {306});
  Begin("P730", 20);
  WriteTime(NOON);
  writer_.Record(3, {Int32(60)});
  EXPECT_EQ(Deliver().memory.primary->pageInRate, 3.0F);
}

// --- Processors ---

TEST_F(HpuxReaderTest, ProcessorTicksBecomeFractionsOfTheInterval) {
  writer_.OrderList(8, {801, 802, 803, 804, 805, 812}).DivisorList(8, {1, 1, 1, 1, 2, 1});
  Begin();
  writer_.Record(8, {Int32(3), Int32(600), Int32(3000), Int32(1200), Int32(2400), Int32(100)});
  const ProcessorRecord& cpu = Deliver().processors.primary.head();
  EXPECT_EQ(cpu.cpuId, 3);
  EXPECT_EQ(cpu.idleTime, 0.1);
  EXPECT_EQ(cpu.userTime, 0.5);
  EXPECT_EQ(cpu.waitTime, 0.2);
  EXPECT_EQ(cpu.systemTime, 0.2);
}

TEST_F(HpuxReaderTest, ProcessorWithoutTicksPerSecondDividesByZero) {
  writer_.OrderList(8, {801, 803});
  Begin();
  writer_.Record(8, {Int32(0), Int32(5)});
  const ProcessorRecord& cpu = Deliver().processors.primary.head();
  EXPECT_TRUE(std::isinf(cpu.userTime));
  EXPECT_TRUE(std::isnan(cpu.idleTime));
}

TEST_F(HpuxReaderTest, TwinProcessorsKeepTheirTicksAndShareTheList) {
  writer_.OrderList(8, {803, 812});
  Begin();
  writer_.Record(23, {Int32(3000), Int32(100)});
  const VmrContext& context = Deliver();
  EXPECT_TRUE(context.processors.primary.empty());
  EXPECT_EQ(context.processors.twin.head().userTime, 3000.0);
}

TEST_F(HpuxReaderTest, DivisorOfNiceTimeLandsOnWaitTime) {
  writer_.OrderList(1, {105, 104}).DivisorList(1, {2, 3});
  Begin("V530");
  writer_.Record(1, {Int32(120), Int32(360)});
  const ProcessorRecord& cpu = Deliver().overallCpu.primary.head();
  EXPECT_EQ(cpu.niceTime, 2.0);
  EXPECT_EQ(cpu.waitTime, 1.0);  // 6 per second, by 3 and by 2
}

TEST_F(HpuxReaderTest, OnlyOldVersionsHaveNiceTime) {
  writer_.OrderList(1, {105}).DivisorList(1, {2});
  Begin("P720");
  writer_.Record(1, {Int32(120)});
  const VmrContext& context = Deliver();
  ASSERT_EQ(context.overallCpu.primary.size(), 1U);  // the field counts all the same
  EXPECT_EQ(context.overallCpu.primary.head().niceTime, 0.0);
}

TEST_F(HpuxReaderTest, V520HasNoNiceTimeThoughItSharesTheTableOfV525) {
  writer_.OrderList(1, {105});
  Begin("V520");
  writer_.Record(1, {Int32(120)});
  EXPECT_EQ(Deliver().overallCpu.primary.head().niceTime, 0.0);
}

// --- Disks ---

class HpuxDiskTest : public HpuxReaderTest {
 protected:
  // A disk with 10 transfers a second, a tenth of the time busy, and the transfers' whole time.
  const DiskRecord& DeliverDisk(const std::string& version, int64_t milliseconds, int64_t transfers = 600) {
    writer_.OrderList(2, {201, 202, 203, 204, 206, 207, 208});
    Begin(version);
    writer_.Record(2, {Text("c0t0d0"), Int32(600), Int32(120), Int32(transfers), Int64(milliseconds * 1000),
                       Int32(99), Int32(600)});
    return Deliver().disks.primary.head();
  }
};

TEST_F(HpuxDiskTest, WaitIsWhatServiceLeavesOfTheResponse) {
  const DiskRecord& disk = DeliverDisk("P300", 0);
  EXPECT_EQ(disk.ioRate, 10.0F);
  EXPECT_EQ(disk.totalBytesRate, 128.0F);
  EXPECT_EQ(disk.servicePerIo, 0.0F);  // old figures
}

TEST_F(HpuxDiskTest, TimesComeFromBusyTimeAndTransfers) {
  const DiskRecord& disk = DeliverDisk("P730", 9000);
  EXPECT_FLOAT_EQ(disk.busyFraction, 0.1F);
  EXPECT_FLOAT_EQ(disk.servicePerIo, 10.0F);
  EXPECT_FLOAT_EQ(disk.responsePerIo, 15.0F);
  EXPECT_FLOAT_EQ(disk.waitPerIo, 5.0F);
  EXPECT_FLOAT_EQ(disk.queueLength, 0.15F);
}

TEST_F(HpuxDiskTest, DiskWithoutTransfersHasNoTimes) {
  const DiskRecord& disk = DeliverDisk("P730", 9000, 0);
  EXPECT_EQ(disk.busyFraction, 0.0F);
  EXPECT_EQ(disk.servicePerIo, 0.0F);
  EXPECT_EQ(disk.queueLength, 0.0F);
}

TEST_F(HpuxDiskTest, OldVersionsHaveNoTimes) {
  const DiskRecord& disk = DeliverDisk("V525", 9000);
  EXPECT_EQ(disk.ioRate, 10.0F);
  EXPECT_EQ(disk.busyFraction, 0.0F);
  EXPECT_EQ(disk.waitPerIo, 0.0F);
}

// --- Processes ---

// --- Protocol counters ---

class HpuxCountersTest : public HpuxReaderTest {
 protected:
  void WriteLists() {
    writer_.OrderList(7, {701, 753, 755, 764}).OrderList(11, {1001, 1002, 1045, 1048, 1084, 1086, 1100});
  }
  void WriteFirstPart() { writer_.Record(7, {Int32(60), Int32(60), Int32(120), Int32(180)}); }
  void WriteSecondPart(uint32_t type = 11) {
    writer_.Record(type, {Int32(60), Int32(7), Int32(120), Int32(180), Int32(240), Int32(300), Int32(360)});
  }
};

TEST_F(HpuxCountersTest, SecondPartTakesThePlaceOfTheFirst) {
  WriteLists();
  Begin();
  WriteFirstPart();
  WriteSecondPart();
  const KernelCounters& kernel = *Deliver().kernel.primary;
  EXPECT_FALSE(kernel.hasFirstPart);
  EXPECT_EQ(kernel.counters[0], 0.0F);
  EXPECT_EQ(kernel.counters[67], 1.0F);
  EXPECT_EQ(kernel.counters[68], 7.0F);  // a level
  EXPECT_EQ(kernel.counters[115], 2.0F);
  EXPECT_EQ(kernel.counters[116], 3.0F);
  EXPECT_EQ(kernel.counters[172], 4.0F);
  EXPECT_EQ(kernel.counters[154], 5.0F);
  EXPECT_EQ(kernel.counters[171], 6.0F);
}

// --- File systems and adapters ---

TEST_F(HpuxReaderTest, AdapterErrorsAreDividedTwice) {
  writer_.OrderList(15, {1501, 1503, 1504, 1507}).DivisorList(15, {1, 2, 2, 2});
  Begin();
  writer_.Record(15, {Text("lan0"), Int64(240), Int64(240), Int64(240)});
  const LanRecord& adapter = Deliver().lans.primary.head();
  EXPECT_EQ(adapter.bytesInRate, 2.0F);
  EXPECT_EQ(adapter.errorsInRate, 1.0F);
  EXPECT_EQ(adapter.errorsOutRate, 2.0F);
}

TEST_F(HpuxReaderTest, AdapterErrorsWithDivisorZeroAreUndefined) {
  writer_.OrderList(15, {1501, 1504}).DivisorList(15, {0, 0});
  Begin();
  writer_.Record(15, {Text("lan0"), Int64(60)});
  writer_.Record(15, {Text("lan1"), Int64(0)});
  const VmrContext& context = Deliver();
  EXPECT_TRUE(std::isnan(context.lans.primary.head().errorsInRate));
  EXPECT_TRUE(std::isinf(std::next(context.lans.primary.begin())->errorsInRate));
}

}  // namespace
}  // namespace ozmo::testing
