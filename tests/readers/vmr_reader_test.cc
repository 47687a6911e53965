// Monitor text files: lines, head, the walk through samples and files, and what the row handlers deliver.
#include "readers/vmr_reader.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <vector>

#include "runtime/runtime.h"
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
  for (size_t i = 0; i < line.FieldCount(); ++i) fields.emplace_back(line.Field(i));
  return fields;
}

using Fields = std::vector<std::string>;

// --- Lines ---

TEST(VmrLineTest, SeparatorsCutFields) {
  VmrLine line;
  EXPECT_EQ(FieldsOf(line, "6~a~~b~\n"), (Fields{"6", "a", "", "b", ""}));
  EXPECT_EQ(FieldsOf(line, "alone\n"), (Fields{"alone"}));
  EXPECT_STREQ(line.Field(1), "");
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
  EXPECT_EQ(line.Integer(0), 0);
  EXPECT_EQ(line.Integer(1), 0);
  EXPECT_EQ(line.Integer(2), -7);
  EXPECT_EQ(line.Integer(3), 2147483647);
  EXPECT_EQ(line.Integer(4), 12);
  EXPECT_EQ(line.Number(5), 1000.0F);
  EXPECT_EQ(line.Number(0), 0.0F);
  EXPECT_EQ(line.Number(77), 0.0F);
  EXPECT_TRUE(std::isinf(line.Number(6)));
}

TEST_F(VmrReaderTest, LongLinesAreReadInPieces) {
  const std::string path = directory_ / "long";
  std::ofstream(path) << std::string(2046, 'a') << "-bcd\n\n\ne\n";
  VmrFile file;
  file.Open(path);
  ASSERT_TRUE(file.ReadLine());
  EXPECT_EQ(std::string(file.line().Field(0)), std::string(2046, 'a'));
  ASSERT_TRUE(file.ReadLine());
  EXPECT_STREQ(file.line().Field(0), "bcd");
  ASSERT_TRUE(file.ReadLine());
  EXPECT_STREQ(file.line().Field(0), "e");
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
  EXPECT_EQ(context_.config->configNode, "box");
  EXPECT_EQ(context_.config->configText[6], "x64");
  EXPECT_EQ(context_.config->cpuCount, 8);
  EXPECT_EQ(context_.config->memoryMb, 1024.0F);
  EXPECT_EQ(context_.config->pageSize, 4096);
  EXPECT_EQ(context_.config->intervalSeconds, 60.0F);
}

TEST_F(VmrReaderTest, HeadWithoutATimeRowFails) {
  EXPECT_EQ(reader_.EntryPass(Write(HEADER), node_, first_), 0);
  EXPECT_EQ(reader_.EntryPass(Write(HEADER + "<META>\n" + TimeRow(0)), node_, first_), 0);
  EXPECT_EQ(reader_.EntryPass(Write(HEADER + "<CONFIG>\n" + TimeRow(0)), node_, first_), 0);
  EXPECT_EQ(reader_.EntryPass(Write(""), node_, first_), 0);
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
  const std::string path = Write(HEADER + TimeRow(0) + Processor(1) + TimeRow(1) + Processor(2) + TimeRow(2) +
                                 Processor(3) + TimeRow(3) + Processor(4));
  ASSERT_EQ(Open(path), 1);
  EXPECT_EQ(NextUserTimes(), Times{1});
  EXPECT_EQ(context_.periodEnd, NOON);
  EXPECT_EQ(context_.periodStart, NOON - 60);
  EXPECT_EQ(NextUserTimes(), Times{2});
  EXPECT_EQ(context_.periodEnd, NOON + 60);
  EXPECT_EQ(NextUserTimes(), Times{3});
  EXPECT_EQ(result_, 1);
  EXPECT_EQ(NextUserTimes(), Times{4});  // the last sample meets the end of the file
  EXPECT_EQ(context_.periodEnd, NOON + 180);
  EXPECT_EQ(result_, -1);
}

// The start of the file is below the span's start, so samples go until the interval's start reaches it.
TEST_F(VmrReaderTest, WalkBeginsAtTheSpansMinute) {
  std::string text = HEADER;
  for (int minute = 1; minute < 9; ++minute) text += TimeRow(minute) + Processor(minute);
  ASSERT_EQ(Open(Write(text), NOON + 3 * 60 + 59), 1);
  EXPECT_EQ(NextUserTimes(), Times{4});
  EXPECT_EQ(context_.periodStart, NOON + 180);
}

TEST_F(VmrReaderTest, WalkEndsBehindTheFirstSampleBeyondTheSpan) {
  std::string text = HEADER;
  for (int minute = 0; minute < 9; ++minute) text += TimeRow(minute) + Processor(minute);
  ASSERT_EQ(Open(Write(text), NOON, NOON + 119), 1);
  EXPECT_EQ(NextUserTimes(), Times{0});
  EXPECT_EQ(NextUserTimes(), Times{1});
  EXPECT_EQ(NextUserTimes(), Times{2});  // its predecessor wasn't beyond
  EXPECT_EQ(result_, 1);
  EXPECT_EQ(NextUserTimes(), Times{});
  EXPECT_EQ(result_, 0);
}

TEST_F(VmrReaderTest, SpanAheadOfTheFileDeliversNothing) {
  ASSERT_EQ(Open(Write(HEADER + TimeRow(0) + TimeRow(1)), NOON - 7200, NOON - 61), 1);
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
      Deliver("2~238\n5~6~142~144~696~698~1\n4~1~2\n6~50~20~10~4~2~9\n4~_Total~2\n6~20\n3\n");
  ASSERT_EQ(context.processors.primary.size(), 2U);
  const ProcessorRecord& total = context.processors.primary.head();
  EXPECT_EQ(total.cpuId, 0);
  EXPECT_EQ(total.idleTime, 90.0);
  EXPECT_EQ(total.userTime, 0.0);  // the counter row is longer than this data row
  const ProcessorRecord& processor = *std::next(context.processors.primary.begin());
  EXPECT_EQ(processor.cpuId, 1);
  EXPECT_EQ(processor.idleTime, 75.0);
  EXPECT_EQ(processor.userTime, 10.0);
  EXPECT_EQ(processor.systemTime, 5.0);
  EXPECT_EQ(processor.dpcTime, 2.0);
  EXPECT_EQ(processor.interruptTime, 1.0);
}

TEST_F(VmrReaderTest, DisksAreNamedAndTimed) {
  const VmrContext& context = Deliver(
      "2~234\n5~214~216~220~222~1400~1482\n4~_Total~1\n6~1~1~1~1~1~1\n"
      "4~0 C: D:~2\n6~20~60~4096~8192~40000000~100\n4~1 E:~1\n6~0~0~0~0~70000000~0\n3\n");
  ASSERT_EQ(context.disks.primary.size(), 2U);
  const DiskRecord& idle = context.disks.primary.head();
  EXPECT_EQ(idle.deviceName, "DISK1-E");
  EXPECT_EQ(idle.busyFraction, 1.0F);
  EXPECT_EQ(idle.servicePerIo, 0.0F);
  EXPECT_EQ(idle.waitPerIo, 0.0F);
  const DiskRecord& disk = *std::next(context.disks.primary.begin());
  EXPECT_EQ(disk.deviceName, "DISK0-C-D");
  EXPECT_EQ(disk.ioRate, 40.0F);
  EXPECT_EQ(disk.totalBytesRate, 6144.0F);
  EXPECT_EQ(disk.queueLength, 2.0F);
  EXPECT_EQ(disk.busyFraction, 0.5F);
  EXPECT_EQ(disk.servicePerIo, 12.5F);
  EXPECT_EQ(disk.waitPerIo, 50.0F);
}

TEST_F(VmrReaderTest, ProcessLivesForItsShareOfTheSamples) {
  const VmrContext& context = Deliver(
      "2~230\n5~684~6~174~682~784\n4~_Total~12\n6~1~1\n4~short~3\n6~999~30~7000000000~25~3000\n"
      "4~long~13\n6~0~13\n3\n");
  ASSERT_EQ(context.processes.primary.size(), 2U);
  EXPECT_EQ(context.processes.primary.head().elapsedSeconds, 60.0F);  // not 65
  const ProcessRecord& process = *std::next(context.processes.primary.begin());
  EXPECT_EQ(process.name, "short");
  EXPECT_EQ(process.elapsedSeconds, 15.0F);
  EXPECT_EQ(process.cpuPercent, 10.0F);
  EXPECT_EQ(process.sizeVirtual, 7000000000 / 3);  // a number that a 32-bit float holds
  EXPECT_EQ(process.priority, 8);
  EXPECT_EQ(process.processId, 1000);
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
    const float mean = Deliver(objectRow + "\n5~28\n6~24\n3\n").memory.primary->pageFaultsPerSecond;
    reader_.Close(context_);
    return mean;
  };
  EXPECT_EQ(faults("2~4"), 2.0F);
  EXPECT_EQ(faults("2~4~6"), 4.0F);
  EXPECT_EQ(faults("2~4~-3"), 24.0F);
  EXPECT_TRUE(std::isinf(faults("2~4~")));
}

TEST_F(VmrReaderTest, CommittedPercentIsWorkedOutWhereItIsZero) {
  const auto percent = [&](const std::string& values) {
    const float result = Deliver("2~4~1\n5~26~30~1406\n" + values + "\n3\n").memory.primary->committedPercent;
    reader_.Close(context_);
    return result;
  };
  EXPECT_EQ(percent("6~4096~16384~0"), 25.0F);
  EXPECT_EQ(percent("6~4096~16384~40"), 40.0F);
  EXPECT_EQ(percent("6~4096~0~0"), 0.0F);
}

TEST_F(VmrReaderTest, ProtocolsShareOneRecordAndSomeNumbers) {
  const VmrContext& context = Deliver(
      "2~546~1\n5~438~446~442\n6~1~2~3\n3\n2~658~1\n5~438~446~442\n6~4~5~6\n3\n2~638~1\n5~640\n6~7\n");
  ASSERT_TRUE(context.network.has_value());
  EXPECT_EQ(context.network->ipDatagramsPerSecond, 1.0F);
  EXPECT_EQ(context.network->ipReceivedPerSecond, 2.0F);
  EXPECT_EQ(context.network->ipSentPerSecond, 3.0F);
  EXPECT_EQ(context.network->udpDatagramsPerSecond, 4.0F);
  EXPECT_EQ(context.network->udpReceivedPerSecond, 5.0F);
  EXPECT_EQ(context.network->udpSentPerSecond, 6.0F);
  EXPECT_EQ(context.network->tcpSegmentsPerSecond, 7.0F);
}

TEST_F(VmrReaderTest, ConnectionTotalsBecomeChanges) {
  std::string text = HEADER;
  int minute = 0;
  for (const char* totals : {"100~0~5", "130~40~5", "90~50~5", "90~0~5"}) {
    text += TimeRow(minute++) + "2~638~1\n5~644~646~642\n6~" + totals + "\n3\n";
  }
  ASSERT_EQ(Open(Write(text + TimeRow(minute))), 1);
  std::vector<float> active;
  std::vector<float> passive;
  while (reader_.Next(context_) == 1) {
    active.push_back(context_.network->tcpConnectionsActive);
    passive.push_back(context_.network->tcpConnectionsPassive);
    EXPECT_EQ(context_.network->tcpConnectionsEstablished, 5.0F);
  }
  EXPECT_EQ(active, (std::vector<float>{0, 30, -40, 0}));
  EXPECT_EQ(passive, (std::vector<float>{0, 0, 10, -50}));

  // Another walk has no totals to compare with.
  reader_.Close(context_);
  ASSERT_EQ(Open(Write(text + TimeRow(minute))), 1);
  reader_.Next(context_);
  EXPECT_EQ(context_.network->tcpConnectionsActive, 0.0F);
}

}  // namespace
}  // namespace ozmo::testing
