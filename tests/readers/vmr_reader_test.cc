// Monitor text files: lines, head, the walk through samples and files, and what the row handlers deliver.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "readers/vmr/reader.h"
#include "runtime/runtime.h"
#include "tests/readers/figures.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {
namespace {

constexpr Seconds MIDNIGHT = 1329868800;  // 22-Feb-2012 00:00:00 UTC
constexpr Seconds NOON = MIDNIGHT + 43200;

// Node, an interval of 60 seconds with 12 samples, the date.
const std::string HEADER = "<HEADER>~~~node~60~5000~~2012~2~22~12~0~0\n";

// A time row of today's noon and some minutes.
std::string TimeRow(int minute) { return "1~x~12~" + std::to_string(minute) + "~0\n"; }

// A processor sample that tells itself by its user time.
std::string Processor(int user) { return "2~238~1\n5~142\n4~0~1\n6~" + std::to_string(user) + "\n3\n"; }

// Samples of minutes behind noon.
std::string Samples(int first, int last) {
  std::string text = HEADER;
  for (int minute = first; minute <= last; ++minute) text += TimeRow(minute) + Processor(minute);
  return text;
}

class VmrReaderTest : public ::testing::Test {
 protected:
  std::string Write(const std::string& text, int number = 1, const std::string& date = "2012Feb22") {
    const std::string path = directory_ / ("qtx_node_" + date + "_" + std::to_string(number) + ".vmr");
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }

  int Open(const std::string& path, Seconds start = NOON, Seconds end = NOON + 600) {
    EXPECT_EQ(reader_.EntryPass(path, node_, first_), 1);
    context_.periodStart = start;
    context_.periodEnd = end;
    return reader_.Open(context_);
  }

  // Delivers the rows as one sample.
  const VmrContext& Deliver(const std::string& rows) {
    EXPECT_EQ(Open(Write(HEADER + TimeRow(0) + rows + TimeRow(1))), 1);
    EXPECT_EQ(reader_.Next(context_), 1);
    return context_;
  }

  MemoryRecord DeliverMemory(const std::string& rows) {
    const MemoryRecord memory = *Deliver(rows).memory.primary;
    reader_.Close(context_);
    return memory;
  }

  // The user times of the processors delivered next, newest first.
  std::vector<double> NextUserTimes() {
    result_ = reader_.Next(context_);
    std::vector<double> times;
    for (const ProcessorRecord& processor : context_.processors.primary) times.push_back(processor.userTime);
    return times;
  }

  ScopedVariable zone_{"TZ", "UTC"};
  TempDirectory directory_;
  Runtime runtime_;
  VmrReader reader_{runtime_};
  VmrContext context_;
  std::string node_;
  Seconds first_ = 0;
  int result_ = 0;
};

using Times = std::vector<double>;

std::vector<std::string> FieldsOf(VmrLine& line, std::string_view text) {
  std::vector<std::string> fields;
  if (!line.Assign(text)) return fields;
  for (size_t i = 0; i < line.FieldCount(); ++i) fields.push_back(line.Text(i));
  return fields;
}

using Fields = std::vector<std::string>;

// --- Lines ---

TEST(VmrLineTest, SeparatorsCutFields) {
  VmrLine line;
  EXPECT_EQ(FieldsOf(line, "6~a~~b~\n"), (Fields{"6", "a", "", "b", ""}));
  EXPECT_EQ(FieldsOf(line, "alone\n"), (Fields{"alone"}));
  EXPECT_EQ(line.Text(1), "");
}

TEST(VmrLineTest, LineEndGoesAndControlCharactersBecomeBlanks) {
  using std::string_view_literals::operator""sv;
  VmrLine line;
  EXPECT_EQ(FieldsOf(line, "6~1.5\r\n"), (Fields{"6", "1.5"}));
  EXPECT_EQ(FieldsOf(line, "4~a\tb\0c\xe9\x7f\n"sv), (Fields{"4", "a b c  "}));
  EXPECT_EQ(FieldsOf(line, "  \n"), (Fields{"  "}));
  EXPECT_EQ(FieldsOf(line, "\r\n"), Fields{});
  EXPECT_EQ(FieldsOf(line, "\n"), Fields{});
}

TEST(VmrLineTest, WhatIsNoNumberIsZero) {
  VmrLine line;
  ASSERT_TRUE(line.Assign("x~~-7~99999999999999999999~ 12abc~1e3z~1e999\n"));
  EXPECT_EQ(Figures(line.Integer(0), line.Integer(1), line.Integer(2), line.Integer(3), line.Integer(4)),
            Figures(0, 0, -7, 2147483647, 12));
  EXPECT_EQ(Figures(line.Number(5), line.Number(0), line.Number(77)), Figures(1000, 0, 0));
  EXPECT_TRUE(std::isinf(line.Number(6)));
}

TEST_F(VmrReaderTest, LongLinesAreReadInPieces) {
  const std::string path = Write(std::string(2046, 'a') + "-bcd\n\n\ne\n");
  VmrFile file;
  file.Open(path);
  for (const std::string& wanted : {std::string(2046, 'a'), std::string("bcd"), std::string("e")}) {
    ASSERT_TRUE(file.ReadLine());
    EXPECT_EQ(file.line().Text(0), wanted);
  }
  EXPECT_FALSE(file.ReadLine());
  EXPECT_FALSE(file.IsOpen());
}

// --- Head ---

TEST_F(VmrReaderTest, HeadIsReadInAnyOrder) {
  const std::string path = Write(
      "junk~1\n<META>\n1~~1~1~1\n<HEADER>~~~liar~1~1000\n<ENDMETA>\n<CONFIG>\n1~~1~1~1\n"
      "7~box~Windows~6.1~~~x64~~~8~1023\n<ENDCONFIG>\n" +
      HEADER + TimeRow(3) + TimeRow(4));
  ASSERT_EQ(Open(path, NOON), 1);
  EXPECT_EQ(node_, "node");
  EXPECT_EQ(first_, NOON);
  EXPECT_FALSE(context_.config.has_value());  // the entry pass has no context
  reader_.Next(context_);
  ASSERT_TRUE(context_.config.has_value());
  const SystemConfig& config = *context_.config;
  EXPECT_EQ(config.configNode + config.configText[6], "boxx64");
  EXPECT_EQ(Figures(config.cpuCount, config.memoryMb, config.pageSize, config.intervalSeconds),
            Figures(8, 1024, 4096, 60));
}

TEST_F(VmrReaderTest, HeadWithoutATimeRowFails) {
  for (const std::string& text :
       {std::string(), HEADER, HEADER + "<META>\n" + TimeRow(0), HEADER + "<CONFIG>\n" + TimeRow(0)}) {
    EXPECT_EQ(reader_.EntryPass(Write(text), node_, first_), 0) << text;
  }
  EXPECT_EQ(reader_.EntryPass(directory_ / "missing.vmr", node_, first_), 0);
}

TEST_F(VmrReaderTest, LeadingBlockIsSteppedOver) {
  EXPECT_EQ(Open(Write("-----BEGIN X\n1~~1~1~1\n-----END X\n" + HEADER + TimeRow(0))), 1);
  EXPECT_EQ(first_, NOON);
}

TEST_F(VmrReaderTest, ShortSamplingPeriodEndsTheProcess) {
  const std::string path = Write("<HEADER>~~~node~60~999~~2012~2~22~12~0~0\n" + TimeRow(0));
  EXPECT_EXIT(reader_.EntryPass(path, node_, first_), ::testing::ExitedWithCode(1), path);
}

TEST_F(VmrReaderTest, DatesFarOutsideTheCalendarAreHarmless) {
  Open(Write("<HEADER>~~~node~-2147483648~1000~~-2147483648~-2147483648~99999999999~-1~7~5\n" +
             std::string("1~~2147483647~-2147483648~2147483647\n")));
  reader_.Next(context_);
}

// --- Samples ---

TEST_F(VmrReaderTest, RowsBelongToTheTimeRowAheadOfThem) {
  ASSERT_EQ(Open(Write(Samples(0, 3))), 1);
  for (const int minute : {0, 1, 2, 3}) {
    EXPECT_EQ(NextUserTimes(), Times{static_cast<double>(minute)});
    EXPECT_EQ(context_.periodStart, NOON + (minute - 1) * 60);
    EXPECT_EQ(context_.periodEnd, NOON + minute * 60);
    EXPECT_EQ(result_, minute == 3 ? -1 : 1);  // the last sample meets the end of the file
  }
}

// The start of the file is below the span's start, so samples go until the interval's start reaches it. What
// they hold isn't looked at.
TEST_F(VmrReaderTest, WalkBeginsAtTheSpansMinute) {
  const std::string skipped = HEADER + TimeRow(0) + "junk\n";
  ASSERT_EQ(Open(Write(skipped + Samples(1, 8).substr(HEADER.size())), NOON + 3 * 60 + 59), 1);
  EXPECT_EQ(NextUserTimes(), Times{4});
  EXPECT_EQ(context_.periodStart, NOON + 180);
}

TEST_F(VmrReaderTest, WalkEndsBehindTheFirstSampleBeyondTheSpan) {
  ASSERT_EQ(Open(Write(Samples(0, 8)), NOON, NOON + 119), 1);
  for (const double minute : {0, 1, 2}) {  // the predecessor of the last wasn't beyond
    EXPECT_EQ(NextUserTimes(), Times{minute});
    EXPECT_EQ(result_, 1);
  }
  EXPECT_EQ(NextUserTimes(), Times{});
  EXPECT_EQ(result_, 0);
}

TEST_F(VmrReaderTest, SpanAheadOfTheFileDeliversNothing) {
  ASSERT_EQ(Open(Write(Samples(0, 1)), NOON - 7200, NOON - 61), 1);
  NextUserTimes();
  EXPECT_EQ(result_, READER_OUTSIDE_WINDOW);
}

TEST_F(VmrReaderTest, TimeGoesBackBehindMidnight) {
  ASSERT_EQ(Open(Write(HEADER + "1~~23~59~0\n" + "1~~0~0~0\n1~~0~1~0\n"), NOON, NOON + 86400), 1);
  NextUserTimes();
  EXPECT_EQ(context_.periodEnd, MIDNIGHT + 86340);
  NextUserTimes();
  EXPECT_EQ(context_.periodEnd, MIDNIGHT);
}

TEST_F(VmrReaderTest, RowsOfNoObjectAreDropped) {
  const VmrContext& context =
      Deliver("6~9\n" + Processor(1) + "6~9\n9~any\n2~777~1\n5~142\n4~0~1\n6~9\n3\n\n");
  EXPECT_EQ(context.processors.primary.size(), 1U);
  EXPECT_FALSE(context.memory.primary.has_value());
}

TEST_F(VmrReaderTest, UnknownRowEndsTheProcess) {
  for (const std::string row : {"8~1", "x", "~1", "   ", "22~1", "<META>"}) {
    ASSERT_EQ(Open(Write(HEADER + TimeRow(0) + row + "\n" + TimeRow(1))), 1);
    EXPECT_EXIT(
        {
          dup2(STDERR_FILENO, STDOUT_FILENO);  // the matcher looks there
          reader_.Next(context_);
        },
        ::testing::ExitedWithCode(1), "^Corrupt File\n$");
    reader_.Close(context_);
  }
}

// --- File set ---

TEST_F(VmrReaderTest, DaySetStopsAtTheFirstMissingNumber) {
  for (const int number : {1, 2, 4}) Write(HEADER + TimeRow(0), number);
  Write(HEADER + TimeRow(0), 1, "2012Feb23");
  const std::string path = Write(HEADER + TimeRow(0));
  EXPECT_EQ(Open(path), 2);
  reader_.Close(context_);
  EXPECT_EQ(Open(path, NOON, NOON + 86400), 3);
}

TEST_F(VmrReaderTest, LastSampleOfAFileIsDeliveredWhenAnotherFollows) {
  Write(HEADER + TimeRow(0) + Processor(1), 1);
  Write(HEADER + TimeRow(1) + Processor(2) + TimeRow(2), 2);
  ASSERT_EQ(Open(directory_ / "qtx_node_2012Feb22_1.vmr"), 2);
  EXPECT_EQ(NextUserTimes(), Times{1});
  EXPECT_EQ(result_, 1);
  EXPECT_EQ(NextUserTimes(), Times{2});
  EXPECT_EQ(context_.dataPath, directory_ / "qtx_node_2012Feb22_2.vmr");
}

// A name in the directory that is part of every expected path must not be found without end.
TEST_F(VmrReaderTest, FileSetIsFiniteWhateverTheNames) {
  const std::string name = "longer-than-ten.vmr";
  std::filesystem::create_directory(directory_ / name);
  const std::string path = (directory_ / name) + "/" + name;
  std::ofstream(path) << HEADER << TimeRow(0);
  EXPECT_EQ(Open(path), 1);
  NextUserTimes();
  EXPECT_EQ(result_, -1);
}

// --- Handlers ---

TEST_F(VmrReaderTest, ProcessorsAreNewestFirstAndTheTotalStays) {
  const VmrContext& context =
      Deliver("2~238\n5~6~142~144~696~698~1\n4~1~2\n6~50~20~10~4~2~9\n4~_Total~2\n6~20\n4~none\n6~5~1\n3\n");
  ASSERT_EQ(context.processors.primary.size(), 3U);
  auto cpu = context.processors.primary.begin();
  EXPECT_TRUE(std::isinf(cpu->userTime));  // an instance without samples has no mean
  ++cpu;
  // The counter row is longer than this data row.
  EXPECT_EQ(Figures(cpu->cpuId, cpu->idleTime, cpu->userTime), Figures(0, 90, 0));
  ++cpu;
  EXPECT_EQ(
      Figures(cpu->cpuId, cpu->idleTime, cpu->userTime, cpu->systemTime, cpu->dpcTime, cpu->interruptTime),
      Figures(1, 75, 10, 5, 2, 1));
}

TEST_F(VmrReaderTest, DisksAreNamedAndTimed) {
  const VmrContext& context = Deliver(
      "2~234\n5~214~216~220~222~1400~1482\n4~_Total~1\n6~1~1~1~1~1~1\n"
      "4~0 C: D:~2\n6~20~60~4096~8192~40000000~100\n4~1 E:~1\n6~0~0~0~0~70000000~0\n3\n");
  ASSERT_EQ(context.disks.primary.size(), 2U);
  const DiskRecord& idle = context.disks.primary.head();
  EXPECT_EQ(idle.deviceName, "DISK1-E");
  EXPECT_EQ(Figures(idle.busyFraction, idle.servicePerIo, idle.waitPerIo), Figures(1, 0, 0));
  const DiskRecord& disk = *std::next(context.disks.primary.begin());
  EXPECT_EQ(disk.deviceName, "DISK0-C-D");
  EXPECT_EQ(Figures(disk.ioRate, disk.totalBytesRate, disk.queueLength), Figures(40, 6144, 2));
  EXPECT_EQ(Figures(disk.busyFraction, disk.servicePerIo, disk.waitPerIo), Figures(0.5, 12.5, 50));
}

TEST_F(VmrReaderTest, ProcessLivesForItsShareOfTheSamples) {
  const VmrContext& context = Deliver(
      "2~230\n5~684~6~174~682~784\n4~_Total~12\n6~1~1\n4~short~3\n6~999~30~7000000000~25~3000\n"
      "4~long~13\n6~0~13\n4~odd~1\n6~0~inf~1e30~nan~-1e30\n3\n");
  ASSERT_EQ(context.processes.primary.size(), 3U);
  auto process = context.processes.primary.begin();
  EXPECT_TRUE(std::isinf(process->cpuPercent));  // numbers out of range are harmless
  EXPECT_EQ(process->priority, 0);
  ++process;
  EXPECT_EQ(process->elapsedSeconds, 60.0F);  // not 65
  ++process;
  EXPECT_EQ(process->name, "short");
  // The size is a number that a 32-bit float holds.
  EXPECT_EQ(Figures(process->elapsedSeconds, process->cpuPercent, process->sizeVirtual, process->priority,
                    process->processId),
            Figures(15, 10, 7000000000 / 3, 8, 1000));
}

TEST_F(VmrReaderTest, ProcessWithoutSamplesShowsWhatItsRecordHeld) {
  const std::string first = "2~230\n5~6~784\n4~a~1\n6~5~77\n3\n";
  const std::string second = "2~230\n5~6~784\n4~b~0\n6~9~88\n3\n";
  ASSERT_EQ(Open(Write(HEADER + TimeRow(0) + first + TimeRow(1) + second + TimeRow(2))), 1);
  reader_.Next(context_);
  reader_.Next(context_);
  ASSERT_EQ(context_.processes.primary.size(), 1U);
  EXPECT_EQ(context_.processes.primary.head().name, "b");
  EXPECT_EQ(context_.processes.primary.head().processId, 77);
}

// An object row without a count takes the samples of an interval; a negative count is one sample.
TEST_F(VmrReaderTest, ObjectSamplesDivideTheValues) {
  const auto faults = [&](const std::string& objectRow) {
    return DeliverMemory(objectRow + "\n5~28\n6~24\n3\n").pageFaultRate;
  };
  EXPECT_EQ(Figures(faults("2~4"), faults("2~4~6"), faults("2~4~-3")), Figures(2, 4, 24));
  EXPECT_TRUE(std::isinf(faults("2~4~")));
}

TEST_F(VmrReaderTest, MemoryComesInPages) {
  const MemoryRecord memory = DeliverMemory("2~4~2\n5~24~66~70~74~76\n6~16384~8192~8192~16384~24576\n3\n");
  EXPECT_EQ(Figures(memory.freePages, memory.kernelPages), Figures(2, 1 + 1 + 2 + 3));
}

TEST_F(VmrReaderTest, CommittedPercentIsWorkedOutWhereItIsZero) {
  const auto percent = [&](const std::string& values) {
    return DeliverMemory("2~4~1\n5~26~30~1406\n6~" + values + "\n3\n").committedPercent;
  };
  EXPECT_EQ(Figures(percent("4096~16384~0"), percent("4096~16384~40"), percent("4096~0~0")),
            Figures(25, 40, 0));
}

TEST_F(VmrReaderTest, ProtocolsShareOneRecordAndSomeNumbers) {
  const NetworkRecord& network =
      *Deliver(
           "2~546~1\n5~438~446~442\n6~1~2~3\n3\n2~658~1\n5~438~446~442\n6~4~5~6\n3\n2~638~1\n5~640\n6~7\n")
           .network;
  EXPECT_EQ(Figures(network.ipDatagramsPerSecond, network.ipReceivedPerSecond, network.ipSentPerSecond),
            Figures(1, 2, 3));
  EXPECT_EQ(Figures(network.udpDatagramsPerSecond, network.udpReceivedPerSecond, network.udpSentPerSecond,
                    network.tcpSegmentsPerSecond),
            Figures(4, 5, 6, 7));
}

TEST_F(VmrReaderTest, ConnectionTotalsBecomeChanges) {
  std::string text = HEADER;
  int minute = 0;
  for (const char* totals : {"100~0~5", "130~40~5", "90~50~5", "90~0~5"}) {
    text += TimeRow(minute++) + "2~638~1\n5~644~646~642\n6~" + totals + "\n3\n";
  }
  for (int walk = 0; walk < 2; ++walk) {  // another walk has no totals to compare with
    ASSERT_EQ(Open(Write(text + TimeRow(minute))), 1);
    for (const Figures& changes :
         {Figures(0, 0, 5), Figures(30, 0, 5), Figures(-40, 10, 5), Figures(0, -50, 5)}) {
      ASSERT_EQ(reader_.Next(context_), 1);
      const NetworkRecord& network = *context_.network;
      EXPECT_EQ(Figures(network.tcpConnectionsActive, network.tcpConnectionsPassive,
                        network.tcpConnectionsEstablished),
                changes);
    }
    reader_.Close(context_);
  }
}

}  // namespace
}  // namespace ozmo::testing
