// What the Tru64 decoders leave in the context, where a rule has a trap; and files of no kind at all.
#include <random>

#include "tests/readers/one_interval.h"

namespace ozmo::testing {
namespace {

class Tru64ReaderTest : public OneIntervalTest {
 protected:
  Tru64ReaderTest() : OneIntervalTest(TRU64_FORMAT, sample::ByteOrder::LITTLE, "node_2012Feb22.dat_1") {}

  void WriteTime(Seconds time) override { writer_.Record(9, {Int32(time)}); }

  void Begin(const std::string& version) override {
    writer_.OrderList(9, {901}).DivisorList(9, {1});
    writer_.OrderList(5, {501, 504, 505, 507, 508, 509, 513}).DivisorList(5, {2, 1, 1, 1, 1, 1, 1});
    writer_.Record(5, {Int32(4096000), Text("node"), Text(version), Int32(0), Text("OSF1"), Text("V5.01"),
                       Int32(configuredInterval_)});
    WriteSamples();
  }

  // The entry pass over a file that holds these bytes.
  int EntryPassOver(const std::string& bytes) {
    EXPECT_TRUE(sample::WriteWholeFile(path_, bytes));
    return reader_.EntryPass(path_, node_, firstRecordTime_);
  }
};

// --- Versions and configuration ---

TEST_F(Tru64ReaderTest, VersionIsToldAndTheMachineMarked) {
  Begin("P730_64");  // by what it contains
  ::testing::internal::CaptureStdout();
  const VmrContext& context = Deliver();
  EXPECT_EQ(::testing::internal::GetCapturedStdout(),
            "Reading data file " + path_ + " : Collector Version P730_64\n");
  EXPECT_EQ(context.config->memoryMb, 2048.0F);  // thousands
  EXPECT_EQ(context.config->versionText, "P730_64");
  EXPECT_TRUE(context.config->isOsf1V5);
}

// Old version texts are compared whole.
TEST_F(Tru64ReaderTest, UnknownVersionEndsTheProcess) {
  for (const std::string version : {"V525", "V5051"}) {
    StartOver();
    Begin(version);
    EXPECT_EXIT(EntryPass(), ::testing::ExitedWithCode(1),
                "^\nERROR : Unrecognized Data Collector Version " + version + "\n$");
  }
}

TEST_F(Tru64ReaderTest, V505HasNoFileSystems) {
  writer_.OrderList(11, {1101});
  Begin("V505");
  writer_.Record(11, {Int32(60)});
  writer_.Record(12, {Text("/")});  // an unknown type ends the interval
  writer_.Record(11, {Int32(120)});
  const VmrContext& context = Deliver();
  EXPECT_EQ(context.protocolCounters.primary->counters[0], 1.0F);
  EXPECT_TRUE(context.fileSystems.primary.empty());
}

TEST_F(Tru64ReaderTest, ConfiguredIntervalOfZeroReadsAsAMinute) {
  configuredInterval_ = 0;
  Begin("P730");
  EXPECT_EQ(Deliver().config->intervalSeconds, 60.0F);
}

TEST_F(Tru64ReaderTest, ProcessorWithoutTicksPerSecondIsDropped) {
  writer_.OrderList(8, {801, 805, 809});
  Begin("P730");
  writer_.Record(8, {Int32(0), Int64(3000), Int32(100)}).Record(8, {Int32(1), Int64(3000), Int32(0)});
  writer_.Record(23, {Int32(1), Int64(3000)});
  const auto& processors = Deliver().processors;
  ASSERT_EQ(processors.primary.size(), 1U);
  EXPECT_EQ(processors.primary.head().cpuId, 0);
  EXPECT_TRUE(processors.twin.empty());
}

// --- Processes ---

TEST_F(Tru64ReaderTest, NewVersionsCountProcessorTimeInMicroseconds) {
  const VmrContext& context =
      DeliverRecord("P720", 4, {411, 407, 408, 409},
                    {Text("init"), Int64(2500000), Int64(3000000), Int64(120)}, {1, 1, 2, 60});
  const ProcessRecord& process = context.processes.primary.head();
  EXPECT_EQ(process.name, "init");
  EXPECT_EQ(
      Figures(process.userCpuSeconds, process.systemCpuSeconds, process.rates[0], process.elapsedSeconds),
      Figures(2.5, 1.5, 2, 60));
}

// Whatever divisor the file tells.
TEST_F(Tru64ReaderTest, OldVersionsCountProcessorTimeInHundredths) {
  const VmrContext& context =
      DeliverRecord("V510", 4, {407, 416, 421}, {Int64(250), Int64(4096), Text("extra")}, {7, 1, 1});
  const ProcessRecord& process = context.processes.primary.head();
  EXPECT_EQ(Figures(process.userCpuSeconds, process.values[0]), Figures(2.5, 4));
  EXPECT_EQ(process.extraText, "extra");
}

TEST_F(Tru64ReaderTest, ProcessWithoutACountedFieldGoesBackToThePool) {
  writer_.OrderList(4, {411, 402}).OrderList(21, {411, 402});
  Begin("P730");
  writer_.Record(4, {Text("first"), Int32(7)}).Record(4, {});
  EXPECT_EQ(Deliver().processes.primary.size(), 1U);
}

// --- The others ---

TEST_F(Tru64ReaderTest, FileSystemTextsAreCutAndNoDivisorActs) {
  const std::string longest(32, 'm');
  const VmrContext& context =
      DeliverRecord("P300", 12, {1201, 1202, 1203, 1204},
                    {Text(longest + "m"), Text("usr"), Int32(512), Int32(100)}, {1, 1, 2, 2});
  const FileSystemRecord& fileSystem = context.fileSystems.primary.head();
  EXPECT_EQ(fileSystem.mountName + fileSystem.deviceName, longest + "usr");
  EXPECT_EQ(Figures(fileSystem.blockSize, fileSystem.totalBlocks), Figures(512, 100));
}

TEST_F(Tru64ReaderTest, AdapterRatesTakeNoDivisorAndTwinsTheListOfTheirBase) {
  writer_.OrderList(15, {1501, 1502, 1508}).DivisorList(15, {1, 10, 10});
  Begin("P730");
  writer_.Record(25, {Text("tu0"), Int64(600), Int64(60)});
  const LanRecord& adapter = Deliver().lans.twin.head();
  EXPECT_EQ(Figures(adapter.packetsInRate, adapter.collisionRate), Figures(10, 1));
}

// --- Files of no kind ---

TEST_F(Tru64ReaderTest, GarbageEndsWithoutAResult) {
  const std::string negativeType("\x08\0\0\0\0\0\0\x80", 8);
  for (const std::string& bytes : {std::string(), std::string("seven b"), std::string(100000, '\0'),
                                   std::string(100000, '\xff'), negativeType}) {
    EXPECT_EQ(EntryPassOver(bytes), 0);
  }
  EXPECT_EQ(reader_.EntryPass(directory_.path(), node_, firstRecordTime_), 0);
}

// Good files with bytes changed: whatever they hold, the walk ends. The version stays readable, since an
// unknown one rightly ends the process.
TEST_F(Tru64ReaderTest, DamagedFilesEndTheWalk) {
  writer_.OrderList(8, {801, 805, 809}).OrderList(2, {201, 202}).OrderList(4, {411, 407});
  Begin("P730");
  const size_t head = writer_.Bytes().size();
  for (int i = 1; i < 20; ++i) {
    writer_.Record(8, {Int32(0), Int64(3000), Int32(100)});
    writer_.Record(2, {Text("dsk0"), Int64(600)});
    writer_.Record(4, {Text("init"), Int64(600)});
    WriteTime(NOON + 60 * i);
  }
  std::mt19937 random(1);
  for (int round = 0; round < 200; ++round) {
    std::string bytes = writer_.Bytes();
    for (int change = 0; change < 10; ++change) {
      bytes[head + random() % (bytes.size() - head)] = static_cast<char>(random() % 256);
    }
    bytes.resize(bytes.size() - random() % 100);
    if (EntryPassOver(bytes) != 1) continue;
    VmrContext context;
    context.periodStart = NOON;
    context.periodEnd = NOON + 3600;
    reader_.Open(context);
    int calls = 0;
    while (reader_.Next(context) >= 1) ASSERT_LT(++calls, 1000);
    reader_.Close(context);
  }
}

}  // namespace
}  // namespace ozmo::testing
