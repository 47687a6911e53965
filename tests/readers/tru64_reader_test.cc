// What the Tru64 decoders leave in the context, where a rule has a trap; and files of no kind at all.
#include <random>

#include "tests/readers/one_interval.h"

namespace ozmo::testing {
namespace {

class Tru64ReaderTest : public OneIntervalTest {
 protected:
  Tru64ReaderTest() : OneIntervalTest(TRU64_FORMAT, sample::ByteOrder::LITTLE, "node_2012Feb22.dat1") {
    path_ = directory_ / "node_2012Feb22.dat_1";
  }

  void WriteTime(Seconds time) override { writer_.Record(9, {Int32(time)}); }

  void WriteLists() {
    writer_.OrderList(9, {901}).DivisorList(9, {1});
    writer_.OrderList(5, {501, 504, 505, 507, 508, 509, 513}).DivisorList(5, {2, 1, 1, 1, 1, 1, 1});
  }

  void Begin(const std::string& version = "P730", int64_t interval = 60) {
    WriteLists();
    writer_.Record(5, {Int32(4096000), Text("node"), Text(version), Int32(0), Text("OSF1"), Text("V5.01"),
                       Int32(interval)});
    WriteSamples(60);
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

TEST_F(Tru64ReaderTest, UnknownVersionEndsTheProcess) {
  Begin("V525");
  EXPECT_EXIT(EntryPass(), ::testing::ExitedWithCode(1),
              "^\nERROR : Unrecognized Data Collector Version V525\n$");
}

TEST_F(Tru64ReaderTest, V505HasNoFileSystems) {
  writer_.OrderList(11, {1101});
  Begin("V505");
  writer_.Record(11, {Int32(60)});
  writer_.Record(12, {Text("/")});  // an unknown type ends the interval
  writer_.Record(11, {Int32(120)});
  const VmrContext& context = Deliver();
  EXPECT_EQ(context.kernel.primary->counters[0], 1.0F);
  EXPECT_TRUE(context.fileSystems.primary.empty());
}

TEST_F(Tru64ReaderTest, ConfiguredIntervalOfZeroReadsAsAMinute) {
  Begin("P730", 0);
  EXPECT_EQ(Deliver().config->intervalSeconds, 60.0F);
}

// --- Processors ---

TEST_F(Tru64ReaderTest, ProcessorTicksBecomePercent) {
  writer_.OrderList(8, {801, 804, 805, 806, 807, 808, 809}).DivisorList(8, {9, 9, 9, 9, 9, 9, 9});
  Begin();
  writer_.Record(8, {Int32(2), Int64(600), Int64(3000), Int64(1200), Int64(300), Int64(900), Int32(100)});
  const ProcessorRecord& cpu = Deliver().processors.primary.head();
  EXPECT_EQ(cpu.cpuId, 2);
  EXPECT_EQ(cpu.niceTime, 10.0);
  EXPECT_EQ(cpu.userTime, 50.0);
  EXPECT_EQ(cpu.systemTime, 20.0);
  EXPECT_EQ(cpu.waitTime + cpu.idleTime, 20.0);
}

TEST_F(Tru64ReaderTest, ProcessorWithoutTicksPerSecondIsDropped) {
  writer_.OrderList(8, {801, 805, 809});
  Begin();
  writer_.Record(8, {Int32(0), Int64(3000), Int32(100)});
  writer_.Record(8, {Int32(1), Int64(3000), Int32(0)});
  writer_.Record(23, {Int32(1), Int64(3000)});
  const VmrContext& context = Deliver();
  ASSERT_EQ(context.processors.primary.size(), 1U);
  EXPECT_EQ(context.processors.primary.head().cpuId, 0);
  EXPECT_TRUE(context.processors.twin.empty());
}

// --- Disks ---

class Tru64DiskTest : public Tru64ReaderTest {
 protected:
  const DiskRecord& DeliverDisk(int64_t operations) {
    writer_.OrderList(2, {201, 202, 203, 204, 205, 206, 207}).DivisorList(2, {1, 1, 1, 1, 2, 1, 1});
    writer_.OrderList(7, {701, 702});
    Begin();
    writer_.Record(7, {Text("dsk0"), Text("old")});
    writer_.Record(7, {Text("dsk0"), Text("new")});
    writer_.Record(7, {Text("dsk1"), Text("other")});
    writer_.Record(2,
                   {Text("dsk0"), Int64(operations), Int64(6000), Int64(77), Int64(60), Int64(20), Int64(1)});
    return Deliver().disks.primary.head();
  }
};

TEST_F(Tru64DiskTest, QueueLengthIsWorkedOut) {
  const DiskRecord& disk = DeliverDisk(600);
  EXPECT_EQ(disk.ioRate, 10.0F);
  EXPECT_EQ(disk.totalBytesRate, 100.0F);
  EXPECT_EQ(disk.waitPerIo, 30.0F);
  EXPECT_EQ(disk.servicePerIo, 20.0F);
  EXPECT_EQ(disk.responsePerIo, 50.0F);
  EXPECT_FLOAT_EQ(disk.busyFraction, 0.2F);
  EXPECT_FLOAT_EQ(disk.queueLength, 0.5F);
}

TEST_F(Tru64DiskTest, DiskWithoutOperationsHasNoTimes) {
  const DiskRecord& disk = DeliverDisk(0);
  EXPECT_EQ(disk.totalBytesRate, 100.0F);
  EXPECT_EQ(disk.waitPerIo, 0.0F);
  EXPECT_EQ(disk.servicePerIo, 0.0F);
  EXPECT_EQ(disk.responsePerIo, 0.0F);
  EXPECT_EQ(disk.busyFraction, 0.0F);
  EXPECT_EQ(disk.queueLength, 0.0F);
}

TEST_F(Tru64DiskTest, NewestAliasCounts) { EXPECT_EQ(DeliverDisk(600).displayName, "new"); }

// --- Memory ---

TEST_F(Tru64ReaderTest, WiredPagesSumOverTheRecordsOfAnInterval) {
  writer_.OrderList(3, {309, 310, 313, 314, 334}).DivisorList(3, {5, 5, 5, 5, 5});
  Begin();
  writer_.Record(3, {Int64(8192), Int64(100), Int64(40), Int64(120), Int64(180)});
  writer_.Record(3, {Int64(8192), Int64(90), Int64(2), Int64(60), Int64(180)});
  const VmrContext& context = Deliver();
  const MemoryRecord& memory = *context.memory.primary;
  EXPECT_EQ(memory.tru64FreePages, 90.0F);
  EXPECT_EQ(memory.tru64WiredPages, 42.0F);
  EXPECT_EQ(memory.tru64FaultRates[0], 1.0F);
  EXPECT_EQ(memory.tru64PageWriteRate, 3.0F);
  EXPECT_EQ(context.config->pageSize, 8192);
}

// --- Processes ---

TEST_F(Tru64ReaderTest, NewVersionsCountProcessorTimeInMicroseconds) {
  writer_.OrderList(4, {411, 407, 408, 409}).DivisorList(4, {1, 1, 2, 60});
  Begin("P720");
  writer_.Record(4, {Text("init"), Int64(2500000), Int64(3000000), Int64(120)});
  const ProcessRecord& process = Deliver().processes.primary.head();
  EXPECT_EQ(process.name, "init");
  EXPECT_EQ(process.userCpuSeconds, 2.5F);
  EXPECT_EQ(process.systemCpuSeconds, 1.5F);
  EXPECT_EQ(process.rates[0], 2.0F);
  EXPECT_EQ(process.elapsedSeconds, 60.0F);  // of the configuration
}

TEST_F(Tru64ReaderTest, OldVersionsCountProcessorTimeInHundredths) {
  writer_.OrderList(4, {407, 416, 421}).DivisorList(4, {7, 1, 1});
  Begin("V510");
  writer_.Record(4, {Int64(250), Int64(4096), Text("extra")});
  const ProcessRecord& process = Deliver().processes.primary.head();
  EXPECT_EQ(process.userCpuSeconds, 2.5F);  // whatever divisor the file tells
  EXPECT_EQ(process.values[0], 4);
  EXPECT_EQ(process.extraText, "extra");
}

TEST_F(Tru64ReaderTest, ProcessWithoutACountedFieldGoesBackToThePool) {
  writer_.OrderList(4, {411, 402}).OrderList(21, {411, 402});
  Begin();
  writer_.Record(4, {Text("first"), Int32(7)});
  writer_.Record(4, {});
  EXPECT_EQ(Deliver().processes.primary.size(), 1U);
}

// --- The others ---

// --- Files of no kind ---

TEST_F(Tru64ReaderTest, GarbageEndsWithoutAResult) {
  EXPECT_EQ(EntryPassOver(""), 0);
  EXPECT_EQ(EntryPassOver("seven b"), 0);
  EXPECT_EQ(EntryPassOver("#!/bin/sh\necho hello\n"), 0);
  EXPECT_EQ(EntryPassOver(std::string(100000, '\0')), 0);
  EXPECT_EQ(EntryPassOver(std::string(100000, '\xff')), 0);
  EXPECT_EQ(EntryPassOver(std::string("\x08\0\0\0\0\0\0\x80", 8)), 0);  // a negative type
  EXPECT_EQ(reader_.EntryPass(directory_.path(), node_, firstRecordTime_), 0);
}

// Good files with bytes changed: whatever they hold, the walk ends. The version stays readable, since an
// unknown one rightly ends the process.
TEST_F(Tru64ReaderTest, DamagedFilesEndTheWalk) {
  writer_.OrderList(8, {801, 805, 809}).OrderList(2, {201, 202}).OrderList(4, {411, 407});
  Begin();
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
