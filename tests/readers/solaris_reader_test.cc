// What the Solaris decoders leave in the context, where a rule has a trap.
#include <gtest/gtest.h>

#include <cstdlib>

#include "readers/collector_reader.h"
#include "readers/formats.h"
#include "runtime/runtime.h"
#include "tests/readers/solaris_file.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {
namespace {

constexpr Seconds NOON = 1329912000;

// Delivers the first interval of a file that holds `records` behind its first sample; samples stand 60
// seconds apart.
class SolarisReaderTest : public ::testing::Test {
 protected:
  SolarisReaderTest() {
    setenv("TZ", "UTC", 1);
    tzset();
    WriteSolarisLists(writer_);
  }

  void Begin(const std::string& version = "P730") {
    WriteSolarisConfig(writer_, {.version = version});
    WriteTime(writer_, NOON - 60);
    WriteTime(writer_, NOON);
  }

  const VmrContext& Deliver() {
    WriteTime(writer_, NOON + 120);
    const std::string path = directory_ / "qtxs_node_2012Feb22.dat_1";
    EXPECT_TRUE(writer_.WriteFile(path));
    std::string node;
    Seconds first = 0;
    EXPECT_EQ(reader_.EntryPass(path, node, first), 1);
    context_.periodStart = NOON;
    context_.periodEnd = NOON + 3600;
    EXPECT_EQ(reader_.Open(context_), 1);
    EXPECT_EQ(reader_.Next(context_), 1);
    return context_;
  }

  TempDirectory directory_;
  CollectorWriter writer_{sample::ByteOrder::BIG};
  Runtime runtime_;
  CollectorReader reader_{SOLARIS_FORMAT, runtime_};
  VmrContext context_;
};

TEST_F(SolarisReaderTest, DiskStandsInTableOrderWhateverItsListSays) {
  writer_.OrderList(2, {204, 201}).OrderList(18, {201, 205});
  Begin();
  writer_.Record(2,
                 {Text("sd0"), Int64(6000), Int64(0), Int32(120), Int32(60), Int64(1), Int64(30'000'000'000),
                  Int64(0), Int64(6'000'000'000), Int64(30'000'000'000), Int64(0), Int32(0), Int32(0)});
  writer_.Record(18, {Text("twin"), Int32(600)});
  const VmrContext& context = Deliver();
  const DiskRecord& disk = context.disks.primary.head();
  EXPECT_EQ(disk.deviceName, "sd0");
  EXPECT_FLOAT_EQ(disk.readBytesRate, 100.0F);
  EXPECT_FLOAT_EQ(disk.ioRate, 3.0F);
  EXPECT_FLOAT_EQ(disk.busyFraction, 0.1F);  // field 209 in place of 206
  EXPECT_FLOAT_EQ(disk.queueLength, 1.0F);
  EXPECT_FLOAT_EQ(disk.servicePerIo, 6000.0F / (60.0F * 3.0F));
  EXPECT_EQ(disk.waitPerIo, 0.0F);
  EXPECT_FLOAT_EQ(context.disks.twin.head().writeRate, 10.0F);
}

TEST_F(SolarisReaderTest, MemoryTwinWritesOverItsBase) {
  writer_.OrderList(3, {303, 331, 341}).OrderList(19, {341});
  Begin();
  writer_.Record(3, {Int64(8192), Int64(120), Int64(1000)});
  writer_.Record(19, {Int64(2000)});
  const VmrContext& context = Deliver();
  EXPECT_EQ(context.config->pageSize, 8192);
  EXPECT_FLOAT_EQ(context.memory.primary->majorFaultsPerSecond, 2.0F);
  EXPECT_EQ(context.memory.primary->freePages, 2000.0);
  EXPECT_EQ(context.memory.twin->freePages, 0.0);
}

TEST_F(SolarisReaderTest, MemoryTwinWithoutItsBaseIsDropped) {
  writer_.OrderList(19, {341});
  Begin();
  writer_.Record(19, {Int64(2000)});
  EXPECT_FALSE(Deliver().memory.primary.has_value());
}

TEST_F(SolarisReaderTest, ProcessTimesAndSizes) {
  writer_.OrderList(4, {421, 415, 410, 411, 416, 418, 422, 425}).DivisorList(4, {1, 1, 2, 1, 1, 1, 1, 1});
  writer_.OrderList(3, {303});
  Begin();
  writer_.Record(3, {Int64(8192)});
  writer_.Record(4, {Text("root"), Text("init"), Int64(6'000'000'000), Int64(2'000'000'000), Int64(-60),
                     Int64(-60), Int32(5), Int64(16)});
  const ProcessRecord& process = Deliver().processes.primary.head();
  EXPECT_FLOAT_EQ(process.userCpuSeconds, 3.0F);  // the divisor counts from 2 on
  EXPECT_FLOAT_EQ(process.systemCpuSeconds, 2.0F);
  EXPECT_FLOAT_EQ(process.otherCpuSeconds, 2.0F);  // no field 412: the system time
  EXPECT_FLOAT_EQ(process.elapsedSeconds, 60.0F);  // the configured interval, whatever field 422 says
  EXPECT_EQ(process.sizeResident, 128);
}

TEST_F(SolarisReaderTest, OldestTableTakesProcessTimesInSeconds) {
  writer_.OrderList(4, {410, 415});
  Begin("build P300");
  writer_.Record(4, {Int64(6), Text("init")});
  EXPECT_FLOAT_EQ(Deliver().processes.primary.head().userCpuSeconds, 6.0F);
}

TEST_F(SolarisReaderTest, NegativeRatesOfFourByteFieldsAreFloored) {
  writer_.OrderList(21, {416, 418, 415});
  Begin();
  writer_.Record(21, {Int32(-60), Int32(-60), Text("init")});
  const ProcessRecord& process = Deliver().processes.twin.head();
  EXPECT_EQ(process.pageFaultsPerSecond, 0.0F);
  EXPECT_FLOAT_EQ(process.rates[3], -1.0F);
}

TEST_F(SolarisReaderTest, ProcessWithoutFieldsTakesTheOldestWithIt) {
  writer_.OrderList(4, {415, 401});
  Begin();
  writer_.Record(4, {Text("first")});
  writer_.Record(4, {Text("second")});
  writer_.OrderList(4, {401});
  writer_.Record(4, {Int32(1)});
  const auto& processes = Deliver().processes.primary;
  ASSERT_EQ(processes.size(), 2U);
  EXPECT_EQ(processes.head().name, "");
  EXPECT_EQ(std::next(processes.begin())->name, "second");
}

TEST_F(SolarisReaderTest, KernelRatesAreWholeNumbersAndLevelsAreNot) {
  writer_.OrderList(8, {801, 805, 806, 809});
  Begin();
  writer_.Record(8, {Int32(7), Int32(119), Int32(-119), Int32(7)});
  const auto& counters = Deliver().kernel.primary->counters;
  EXPECT_EQ(counters[0], 7.0F);
  EXPECT_EQ(counters[4], 1.0F);
  EXPECT_EQ(counters[5], -1.0F);
  EXPECT_EQ(counters[8], 7.0F);
}

TEST_F(SolarisReaderTest, AdapterBytesWithTheWrapMark) {
  writer_.OrderList(15, {1501, 1502, 1503});
  Begin();
  writer_.Record(15, {Text("hme0"), Int64(120), Int64(int64_t{0x8000} << 32)});
  const LanRecord& adapter = Deliver().lans.primary.head();
  EXPECT_FLOAT_EQ(adapter.packetsInRate, 2.0F);
  EXPECT_FLOAT_EQ(adapter.bytesInRate, static_cast<float>((32768.0 * 4294967296.0 + 4294967295.0) / 60.0));
}

TEST_F(SolarisReaderTest, FileSystemTwinNumbersGoToTheBase) {
  writer_.OrderList(12, {1201, 1202, 1204}).DivisorList(12, {1, 1, 2}).OrderList(24, {1201, 1205});
  Begin();
  writer_.Record(12, {Text("/"), Text("/dev/dsk/a"), Int64(101)});
  writer_.Record(24, {Text("/twin"), Int64(40)});
  const VmrContext& context = Deliver();
  EXPECT_EQ(context.fileSystems.primary.head().totalBlocks, 50);
  EXPECT_EQ(context.fileSystems.primary.head().freeBlocks, 40);
  EXPECT_EQ(context.fileSystems.twin.head().mountName, "/twin");
  EXPECT_EQ(context.fileSystems.twin.head().freeBlocks, 0);
}

TEST_F(SolarisReaderTest, VersionTextWithTwoLabelsIsTheNewerOne) {
  Begin("P720 P730");
  Deliver();
  EXPECT_EQ(reader_.state().activeTable->name, "P730");
}

// To the oldest table an adapter record is an unknown type, which ends the interval.
TEST_F(SolarisReaderTest, OldestTableHasNoAdapters) {
  Begin("P300");
  WriteProcessor(writer_, 0, 1);
  writer_.OrderList(15, {1501}).Record(15, {Text("hme0")});
  WriteProcessor(writer_, 1, 2);
  const VmrContext& context = Deliver();
  EXPECT_TRUE(context.lans.primary.empty());
  EXPECT_EQ(context.processors.primary.size(), 1U);
}

TEST_F(SolarisReaderTest, ConfiguredIntervalThatIsNotAboveZeroIsDeliveredAsSixty) {
  WriteSolarisConfig(writer_, {.interval = -5});
  WriteTime(writer_, NOON - 60);
  WriteTime(writer_, NOON);
  EXPECT_EQ(Deliver().config->intervalSeconds, 60.0F);
}

TEST_F(SolarisReaderTest, UnknownVersionEndsTheProcess) {
  Begin("P999");
  const std::string path = directory_ / "qtxs_node_2012Feb22.dat_1";
  ASSERT_TRUE(writer_.WriteFile(path));
  std::string node;
  Seconds first = 0;
  EXPECT_EXIT(reader_.EntryPass(path, node, first), ::testing::ExitedWithCode(1),
              "Unrecognized data collector version P999");
}

// A process record that lacks a field shows what an earlier process left there.
TEST_F(SolarisReaderTest, PooledProcessesKeepWhatTheyHeld) {
  writer_.OrderList(4, {415, 421});
  Begin();
  writer_.Record(4, {Text("one"), Text("ann")});
  writer_.Record(4, {Text("two"), Text("bob")});
  WriteTime(writer_, NOON + 60);
  WriteTime(writer_, NOON + 120);
  writer_.OrderList(4, {415});
  writer_.Record(4, {Text("three")});
  Deliver();
  reader_.Next(context_);
  ASSERT_EQ(context_.processes.primary.size(), 1U);
  EXPECT_EQ(context_.processes.primary.head().name, "three");
  EXPECT_EQ(context_.processes.primary.head().userName, "bob");  // newest first in, first out
}

}  // namespace
}  // namespace ozmo::testing
