// What the Solaris decoders leave in the context, where a rule has a trap.
#include "tests/readers/one_interval.h"
#include "tests/readers/solaris_file.h"

namespace ozmo::testing {
namespace {

class SolarisReaderTest : public OneIntervalTest {
 protected:
  SolarisReaderTest()
      : OneIntervalTest(SOLARIS_FORMAT, sample::ByteOrder::BIG, "qtxs_node_2012Feb22.dat_1") {}

  void WriteTime(Seconds time) override { WriteSolarisTime(writer_, time); }

  void Begin(const std::string& version) override {
    WriteSolarisLists(writer_);
    WriteSolarisConfig(writer_, {.version = version, .interval = configuredInterval_});
    WriteSamples();
  }
};

// --- Versions and configuration ---

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
  configuredInterval_ = -5;
  Begin("P730");
  EXPECT_EQ(Deliver().config->intervalSeconds, 60.0F);
}

// --- Disks and memory ---

TEST_F(SolarisReaderTest, DiskStandsInTableOrderWhateverItsListSays) {
  writer_.OrderList(2, {204, 201}).OrderList(18, {201, 205});
  Begin("P730");
  writer_.Record(2,
                 {Text("sd0"), Int64(6000), Int64(0), Int32(120), Int32(60), Int64(1), Int64(30'000'000'000),
                  Int64(0), Int64(6'000'000'000), Int64(30'000'000'000), Int64(0), Int32(0), Int32(0)});
  writer_.Record(18, {Text("twin"), Int32(600)});
  const auto& disks = Deliver().disks;
  const DiskRecord& disk = disks.primary.head();
  EXPECT_EQ(disk.deviceName, "sd0");
  // Busy by field 209 in place of 206.
  EXPECT_EQ(Figures(disk.readBytesRate, disk.ioRate, disk.busyFraction, disk.queueLength, disk.servicePerIo,
                    disk.waitPerIo),
            Figures(100, 3, 0.1F, 1, 6000.0F / 180, 0));
  EXPECT_EQ(disks.twin.head().writeRate, 10.0F);
}

TEST_F(SolarisReaderTest, MemoryTwinWritesOverItsBase) {
  writer_.OrderList(3, {303, 331, 341}).OrderList(19, {341});
  Begin("P730");
  writer_.Record(3, {Int64(8192), Int64(120), Int64(1000)}).Record(19, {Int64(2000)});
  const VmrContext& context = Deliver();
  const auto& memory = context.memory;
  EXPECT_EQ(Figures(context.config->pageSize, memory.primary->majorFaultRate, memory.primary->freePages,
                    memory.twin->freePages),
            Figures(8192, 2, 2000, 0));
}

TEST_F(SolarisReaderTest, MemoryTwinWithoutItsBaseIsDropped) {
  EXPECT_FALSE(DeliverRecord("P730", 19, {341}, {Int64(2000)}).memory.primary.has_value());
}

// --- Processes ---

TEST_F(SolarisReaderTest, ProcessTimesAndSizes) {
  writer_.OrderList(4, {421, 415, 410, 411, 422, 425}).DivisorList(4, {1, 1, 2, 1, 1, 1});
  writer_.OrderList(3, {303});
  Begin("P730");
  writer_.Record(3, {Int64(8192)});
  writer_.Record(
      4, {Text("root"), Text("init"), Int64(6'000'000'000), Int64(2'000'000'000), Int32(5), Int64(16)});
  const ProcessRecord& process = Deliver().processes.primary.head();
  // The divisor counts from 2 on. Without field 412 the other time is the system time.
  EXPECT_EQ(Figures(process.userCpuSeconds, process.systemCpuSeconds, process.otherCpuSeconds),
            Figures(3, 2, 2));
  // The configured interval, whatever field 422 says.
  EXPECT_EQ(Figures(process.elapsedSeconds, process.sizeResident), Figures(60, 128));
}

TEST_F(SolarisReaderTest, OldestTableTakesProcessTimesInSeconds) {
  const VmrContext& context = DeliverRecord("build P300", 4, {410, 415}, {Int64(6), Text("init")});
  EXPECT_EQ(context.processes.primary.head().userCpuSeconds, 6.0F);
}

TEST_F(SolarisReaderTest, NegativeRatesOfFourByteFieldsAreFloored) {
  const VmrContext& context =
      DeliverRecord("P730", 21, {416, 418, 415}, {Int32(-60), Int32(-60), Text("init")});
  const ProcessRecord& process = context.processes.twin.head();
  EXPECT_EQ(Figures(process.pageFaultsPerSecond, process.rates[3]), Figures(0, -1));
}

TEST_F(SolarisReaderTest, ProcessWithoutFieldsTakesTheOldestWithIt) {
  writer_.OrderList(4, {415, 401});
  Begin("P730");
  writer_.Record(4, {Text("first")}).Record(4, {Text("second")});
  writer_.OrderList(4, {401}).Record(4, {Int32(1)});
  const auto& processes = Deliver().processes.primary;
  ASSERT_EQ(processes.size(), 2U);
  EXPECT_EQ(processes.head().name, "");
  EXPECT_EQ(std::next(processes.begin())->name, "second");
}

// A process record that lacks a field shows what an earlier process left there.
TEST_F(SolarisReaderTest, PooledProcessesKeepWhatTheyHeld) {
  writer_.OrderList(4, {415, 421});
  Begin("P730");
  writer_.Record(4, {Text("one"), Text("ann")}).Record(4, {Text("two"), Text("bob")});
  WriteTime(NOON + 60);
  WriteTime(NOON + 120);
  writer_.OrderList(4, {415}).Record(4, {Text("three")});
  Deliver();
  reader_.Next(context_);
  ASSERT_EQ(context_.processes.primary.size(), 1U);
  EXPECT_EQ(context_.processes.primary.head().name, "three");
  EXPECT_EQ(context_.processes.primary.head().userName, "bob");  // newest first in, first out
}

// --- The other records ---

TEST_F(SolarisReaderTest, AdapterBytesWithTheWrapMark) {
  const VmrContext& context =
      DeliverRecord("P730", 15, {1501, 1502, 1503}, {Text("hme0"), Int64(120), Int64(int64_t{0x8000} << 32)});
  const LanRecord& adapter = context.lans.primary.head();
  EXPECT_EQ(Figures(adapter.packetsInRate, adapter.bytesInRate),
            Figures(2, (32768.0 * 4294967296.0 + 4294967295.0) / 60));
}

TEST_F(SolarisReaderTest, FileSystemTwinNumbersGoToTheBase) {
  writer_.OrderList(12, {1201, 1202, 1204}).DivisorList(12, {1, 1, 2}).OrderList(24, {1201, 1205});
  Begin("P730");
  writer_.Record(12, {Text("/"), Text("/dev/dsk/a"), Int64(101)}).Record(24, {Text("/twin"), Int64(40)});
  const auto& fileSystems = Deliver().fileSystems;
  const FileSystemRecord& base = fileSystems.primary.head();
  const FileSystemRecord& twin = fileSystems.twin.head();
  EXPECT_EQ(twin.mountName, "/twin");
  EXPECT_EQ(Figures(base.totalBlocks, base.freeBlocks, twin.freeBlocks), Figures(50, 40, 0));
}

}  // namespace
}  // namespace ozmo::testing
