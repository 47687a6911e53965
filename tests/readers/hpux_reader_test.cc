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

  void Begin(const std::string& version) override {
    writer_.OrderList(6, {601}).DivisorList(6, {1});
    writer_.OrderList(5, {503, 505, 507, 501, 508, 511, 514}).DivisorList(5, {4, 1, 1, 1, 1, 1, 1});
    writer_.Record(5, {Int64(BEYOND_32_BITS), Text("five"), Text("node"), Text(version), Int32(0),
                       Text("eleven"), Int32(configuredInterval_)});
    wide_ = version.find("_64") != version.npos;
    WriteSamples();
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
  const VmrContext& context =
      DeliverRecord("P300_64", 3, {301, 306}, {Int64(BEYOND_32_BITS), Int64(60 * BEYOND_32_BITS)});
  const MemoryRecord& memory = *context.memory.primary;
  EXPECT_EQ(Figures(memory.freePages, memory.pageInRate), Figures(BEYOND_32_BITS, BEYOND_32_BITS));
}

TEST_F(HpuxReaderTest, NarrowCountersAreSigned) {
  EXPECT_EQ(DeliverRecord("my540build", 3, {306}, {Int32(-60)}).memory.primary->pageInRate, -1.0F);
}

TEST_F(HpuxReaderTest, ConfigurationTextsDontOverlapAndPageSizeComesWithTheMemoryRecord) {
  writer_.OrderList(3, {305, 322, 313, 302}).OrderList(4, {408}).DivisorList(4, {2});
  Begin("P730");
  writer_.Record(3, {Int32(8192), Int32(77), Int32(60), Int32(1)});
  writer_.Record(4, {Int32(6)});
  const VmrContext& context = Deliver();
  const SystemConfig& config = *context.config;
  EXPECT_EQ(config.configText[5] + config.configText[11] + config.configNode, "fiveelevennode");
  // The memory is a wide field in a narrow version, in quarters of a kilobyte.
  EXPECT_EQ(Figures(config.memoryMb, config.pageSize), Figures(1048576, 8192));
  EXPECT_EQ(Figures(context.memory.primary->activePages, context.memory.primary->majorFaultRate),
            Figures(77, 1));
  EXPECT_EQ(context.processes.primary.head().sizeResident, 3 * 8192);
}

TEST_F(HpuxReaderTest, RepeatedTimeStampTakesTheConfiguredInterval) {
  configuredInterval_ = 20;
  writer_.OrderList(3, {306});
  Begin("P730");
  WriteTime(NOON);
  writer_.Record(3, {Int32(60)});
  EXPECT_EQ(Deliver().memory.primary->pageInRate, 3.0F);
}

// --- Processors ---

TEST_F(HpuxReaderTest, ProcessorWithoutTicksPerSecondDividesByZero) {
  const VmrContext& context = DeliverRecord("P730", 8, {801, 803}, {Int32(0), Int32(5)});
  const ProcessorRecord& cpu = context.processors.primary.head();
  EXPECT_TRUE(std::isinf(cpu.userTime));
  EXPECT_TRUE(std::isnan(cpu.idleTime));
}

TEST_F(HpuxReaderTest, TicksPerSecondAloneAreNoProcessor) {
  EXPECT_TRUE(DeliverRecord("P730", 8, {812, 806}, {Int32(100), Int32(1)}).processors.primary.empty());
}

TEST_F(HpuxReaderTest, TwinProcessorsKeepTheirTicksAndShareTheList) {
  writer_.OrderList(8, {803, 812});
  Begin("P730");
  writer_.Record(23, {Int32(3000), Int32(100)});
  const auto& processors = Deliver().processors;
  EXPECT_TRUE(processors.primary.empty());
  EXPECT_EQ(processors.twin.head().userTime, 3000.0);
}

// The divisor of nice time lands on wait time: 6 per second, by 3 and by 2. V520 shares the table of V525.
TEST_F(HpuxReaderTest, OnlyOldVersionsHaveNiceTime) {
  const struct {
    const char* version;
    double nice;
    double wait;
  } cases[] = {{"V530", 2, 1}, {"V525", 2, 1}, {"V520", 0, 2}, {"P720", 0, 2}};
  for (const auto& wanted : cases) {
    SCOPED_TRACE(wanted.version);
    StartOver();
    const VmrContext& context =
        DeliverRecord(wanted.version, 1, {105, 104}, {Int32(120), Int32(360)}, {2, 3});
    const ProcessorRecord& cpu = context.overallCpu.primary.head();
    EXPECT_EQ(Figures(cpu.niceTime, cpu.waitTime), Figures(wanted.nice, wanted.wait));
  }
}

// --- Disks ---

// A disk with 10 transfers a second, a tenth of the time busy, and the transfers' whole time. Wait is what
// service leaves of the response, which is not below service; old versions have no times.
TEST_F(HpuxReaderTest, DiskTimesComeFromBusyTimeAndTransfers) {
  const struct {
    const char* version;
    int64_t milliseconds;
    int64_t transfers;
    Figures times;  // busy fraction, service, response, wait, queue
  } cases[] = {{"P730", 9000, 600, Figures(0.1F, 10, 15, 5, 0.15F)},
               {"P730", 600, 600, Figures(0.1F, 10, 10, 0, 0.1F)},
               {"P730", 9000, 0, Figures(0, 0, 0, 0, 0)},
               {"P300", 0, 600, Figures(0, 0, 0, 0, 0)},
               {"V525", 9000, 600, Figures(0, 0, 0, 0, 0)}};
  for (const auto& wanted : cases) {
    SCOPED_TRACE(wanted.version);
    StartOver();
    const VmrContext& context =
        DeliverRecord(wanted.version, 2, {201, 202, 203, 204, 206, 207, 208},
                      {Text("c0t0d0"), Int32(600), Int32(120), Int32(wanted.transfers),
                       Int64(wanted.milliseconds * 1000), Int32(99), Int32(600)});
    const DiskRecord& disk = context.disks.primary.head();
    EXPECT_EQ(
        Figures(disk.busyFraction, disk.servicePerIo, disk.responsePerIo, disk.waitPerIo, disk.queueLength),
        wanted.times);
    EXPECT_EQ(Figures(disk.ioRate, disk.totalBytesRate), Figures(10, 128));
  }
}

// --- Processes ---

TEST_F(HpuxReaderTest, ProcessFiguresAreDividedAndNotBelowZero) {
  const VmrContext& context = DeliverRecord(
      "P730", 4, {404, 406, 407, 412, 413, 414, 415, 417},
      {Int32(-5), Int32(250), Int32(-250), Int32(1), Int32(2), Int32(3), Int32(600), Text("swapper")},
      {1, 100, 100, 1, 1, 1, 10, 1});
  const ProcessRecord& process = context.processes.primary.head();
  EXPECT_EQ(process.idText + process.name, "-5swapper");
  EXPECT_EQ(Figures(process.userCpuSeconds, process.systemCpuSeconds, process.elapsedSeconds),
            Figures(2.5, 0, 60));
  EXPECT_EQ(Figures(process.values[1], process.values[2]),
            Figures(3, 2));  // fields 413 and 414 change places
}

// --- Protocol counters ---

// The second part takes the place of the first, its twin doesn't.
TEST_F(HpuxReaderTest, CountersComeInTwoParts) {
  for (const uint32_t type : {11U, 22U}) {
    StartOver();
    writer_.OrderList(7, {701, 753, 755, 764}).OrderList(11, {1001, 1002, 1045, 1048, 1084, 1086, 1100});
    Begin("P730");
    writer_.Record(7, {Int32(60), Int32(60), Int32(120), Int32(180)});
    writer_.Record(type, {Int32(60), Int32(7), Int32(120), Int32(180), Int32(240), Int32(300), Int32(360)});
    const auto& kernel = Deliver().protocolCounters;
    const auto& base = kernel.primary->counters;
    EXPECT_EQ(kernel.primary->hasFirstPart, type == 22);
    EXPECT_EQ(Figures(base[0], base[52], base[54], base[63]),
              type == 22 ? Figures(1, 0, 2, 3) : Figures(0, 0, 0, 0));
    const auto& second = (type == 22 ? kernel.twin : kernel.primary)->counters;
    // Element 68 is a level.
    EXPECT_EQ(
        Figures(second[67], second[68], second[115], second[116], second[172], second[154], second[171]),
        Figures(1, 7, 2, 3, 4, 5, 6));
  }
}

// --- Adapters ---

TEST_F(HpuxReaderTest, AdapterErrorsAreDividedTwice) {
  const VmrContext& context = DeliverRecord("P730", 15, {1501, 1503, 1504, 1507},
                                            {Text("lan0"), Int64(240), Int64(240), Int64(240)}, {1, 2, 2, 2});
  const LanRecord& adapter = context.lans.primary.head();
  EXPECT_EQ(Figures(adapter.bytesInRate, adapter.errorsInRate, adapter.errorsOutRate), Figures(2, 1, 2));
}

TEST_F(HpuxReaderTest, AdapterErrorsWithDivisorZeroAreUndefined) {
  writer_.OrderList(15, {1501, 1504}).DivisorList(15, {0, 0});
  Begin("P730");
  writer_.Record(15, {Text("lan0"), Int64(60)}).Record(15, {Text("lan1"), Int64(0)});
  const auto& adapters = Deliver().lans.primary;
  EXPECT_TRUE(std::isnan(adapters.head().errorsInRate));
  EXPECT_TRUE(std::isinf(std::next(adapters.begin())->errorsInRate));
}

}  // namespace
}  // namespace ozmo::testing
