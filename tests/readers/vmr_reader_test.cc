// Monitor text files: lines, head, the walk through samples and files, and what the row handlers deliver.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <fstream>
#include <string>
#include <vector>

#include "readers/vmr/node_files.h"
#include "readers/vmr/reader.h"
#include "tests/support/environment.h"
#include "tests/support/interval_text.h"
#include "tests/support/sample_day.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {
namespace {

// Node, an interval of 60 seconds with 12 samples, the date.
const std::string HEADER = "<HEADER>~~~node~60~5000~~2012~2~22~12~0~0\n";

// A time row of today's noon and some minutes.
std::string TimeRow(int minute) { return "1~x~12~" + std::to_string(minute) + "~0\n"; }

// A processor sample that is known by its user time.
std::string Processor(int user) { return "2~238~1\n5~142\n4~0~1\n6~" + std::to_string(user) + "\n3\n"; }

// Samples of minutes after noon.
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
    head_ = reader_.EntryPass(path);
    EXPECT_TRUE(head_);
    context_.periodStart = start;
    context_.periodEnd = end;
    return reader_.Open(context_);
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
  VmrReader reader_;
  VmrContext context_;
  std::optional<FileHead> head_;
  ReaderResult result_ = ReaderResult::NOTHING;
};

using Times = std::vector<double>;

using Fields = std::vector<std::string>;

// --- Lines ---

TEST(VmrLineTest, LineIsCutAndItsNumbersAreRead) {
  using std::string_view_literals::operator""sv;
  const std::pair<std::string_view, Fields> lines[] = {
      {"6~a~~b~\n", {"6", "a", "", "b", ""}},
      {"alone\n", {"alone"}},
      {"6~1.5\r\n", {"6", "1.5"}},
      {"4~a\tb\0c\xe9\x7f\n"sv, {"4", "a b c  "}},
      {"  \n", {"  "}},
      {"\r\n", {}},
      {"\n", {}},
  };
  VmrLine line;
  for (const auto& [text, wanted] : lines) {
    Fields fields;
    for (size_t i = 0; line.Assign(text) && i < line.FieldCount(); ++i) fields.push_back(line.Text(i));
    EXPECT_EQ(fields, wanted) << text;
  }
  ASSERT_TRUE(line.Assign("x~~-7~99999999999999999999~ 12abc~\t+1e3z~1e999\n"));
  std::vector<double> numbers;
  for (size_t i = 0; i < 5; ++i) numbers.push_back(line.Integer(i));
  for (const size_t i : {5U, 0U, 77U, 6U}) numbers.push_back(line.Number(i));
  EXPECT_EQ(numbers, (std::vector<double>{0, 0, -7, 2147483647, 12, 1000, 0, 0, INFINITY}));
}

TEST_F(VmrReaderTest, LongLinesAreReadInPieces) {
  VmrFile file;
  file.Open(Write(std::string(2046, 'a') + "-bcd\n\n\ne\n"));
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
      "-----BEGIN X\n1~~1~1~1\n-----END X\njunk~1\n<META>\n1~~1~1~1\n<HEADER>~~~liar~1~1000\n<ENDMETA>\n"
      "<CONFIG>\n1~~1~1~1\n7~box~Windows~6.1~~~x64~~~8~1023\n<ENDCONFIG>\n" +
      HEADER + TimeRow(3) + TimeRow(4));
  ASSERT_EQ(Open(path, NOON), 1);
  EXPECT_EQ(head_->nodeName, "node");
  EXPECT_EQ(head_->firstRecordTime, NOON);
  EXPECT_FALSE(context_.config.has_value());  // the entry pass has no context
  EXPECT_EQ(reader_.Next(context_), ReaderResult::DONE);
  EXPECT_EQ(IntervalTexts(context_, true).at(0),
            "config cpuCount 8 memoryMb 1024 pageSize 4096 intervalSeconds 60");
  EXPECT_EQ(context_.config->configNode + context_.config->configText[6], "boxx64");
}

TEST_F(VmrReaderTest, HeadWithoutATimeRowFails) {
  for (const std::string& text :
       {std::string(), HEADER, HEADER + "<META>\n" + TimeRow(0), HEADER + "<CONFIG>\n" + TimeRow(0)}) {
    EXPECT_FALSE(reader_.EntryPass(Write(text))) << text;
  }
  EXPECT_FALSE(reader_.EntryPass(directory_ / "missing.vmr"));
}

TEST_F(VmrReaderTest, ShortSamplingPeriodEndsTheProcess) {
  const std::string path = Write("<HEADER>~~~node~60~999~~2012~2~22~12~0~0\n" + TimeRow(0));
  EXPECT_EXIT(reader_.EntryPass(path), ::testing::ExitedWithCode(1), path);
}

// --- Samples ---

TEST_F(VmrReaderTest, RowsBelongToTheTimeRowBeforeThem) {
  ASSERT_EQ(Open(Write(Samples(0, 3))), 1);
  for (const int minute : {0, 1, 2, 3}) {
    EXPECT_EQ(NextUserTimes(), Times{static_cast<double>(minute)});
    EXPECT_EQ(context_.periodStart, NOON + (minute - 1) * 60);
    EXPECT_EQ(context_.periodEnd, NOON + minute * 60);
    EXPECT_EQ(result_, minute == 3 ? ReaderResult::END_OF_FILE
                                   : ReaderResult::DONE);  // the last sample meets the end of the file
  }
}

// The first sample is the one whose interval starts at the span's minute or after it; what is before it
// isn't looked at. The last is the first beyond the span.
TEST_F(VmrReaderTest, WalkGoesFromTheSpansMinuteToTheFirstSampleBeyond) {
  const std::string skipped = HEADER + TimeRow(0) + "junk\n";
  ASSERT_EQ(Open(Write(skipped + Samples(1, 8).substr(HEADER.size())), NOON + 179, NOON + 299), 1);
  for (const double minute : {3, 4, 5}) {
    EXPECT_EQ(NextUserTimes(), Times{minute});
    EXPECT_EQ(result_, ReaderResult::DONE);
  }
  EXPECT_EQ(NextUserTimes(), Times{});
  EXPECT_EQ(result_, ReaderResult::NOTHING);
  reader_.Close(context_);

  ASSERT_EQ(Open(Write(Samples(0, 1)), NOON - 7200, NOON - 61), 1);
  NextUserTimes();
  EXPECT_EQ(result_, ReaderResult::OUTSIDE_WINDOW);
}

TEST_F(VmrReaderTest, TimeGoesBackAfterMidnight) {
  ASSERT_EQ(Open(Write(HEADER + "1~~23~59~0\n" + "1~~0~0~0\n1~~0~1~0\n"), NOON, NOON + 86400), 1);
  NextUserTimes();
  EXPECT_EQ(context_.periodEnd, MIDNIGHT + 86340);
  NextUserTimes();
  EXPECT_EQ(context_.periodEnd, MIDNIGHT);
}

TEST_F(VmrReaderTest, UnknownRowEndsTheProcess) {
  for (const std::string row : {"8~1", "~1", "   ", "22~1", "<META>"}) {
    ASSERT_EQ(Open(Write(HEADER + TimeRow(0) + row + "\n" + TimeRow(1))), 1);
    EXPECT_EXIT(
        {
          dup2(STDERR_FILENO, STDOUT_FILENO);  // the matcher looks there
          result_ = reader_.Next(context_);
        },
        ::testing::ExitedWithCode(1), "^Corrupt File\n$");
    reader_.Close(context_);
  }
}

// --- File set ---

TEST_F(VmrReaderTest, DaySetHoldsThePathsThatANameIsIn) {
  const std::string day = "qtx_node_2012Feb22_";
  struct Case {
    Fields names;  // in the directory, beside some of yesterday and the day before
    std::string node;
    size_t files;
  };
  const Case cases[] = {
      {{day + "1.vmr", day + "2.vmr", day + "4.vmr", "qtx_node_2012Feb23_1.vmr"}, "node", 3},
      {{day + "1.VMR", day + "1.vmr;1", "1.vmr"}, "node", 0},
      // The end of a path is enough, of both days.
      {{"zz" + day + "1.vmr", "de_2012Feb22_1.vmr", "_2012Feb23_2.vmr", "_2012Feb23_1.vmr"}, "node", 3},
      // A name that every path holds doesn't make a set without end.
      {{"longer-than.vmr", "no_such_file.vmr"}, "/longer-than.vmr", 4},
  };
  for (const Case& c : cases) {
    const TempDirectory directory;
    for (const std::string& name : c.names) std::ofstream(directory / name).close();
    EXPECT_EQ(VmrNodeFiles(directory / "any", c.node, NOON, NOON + 86400).size(), c.files) << c.names[0];
  }
}

TEST_F(VmrReaderTest, LastSampleOfAFileIsDeliveredWhenAnotherFollows) {
  Write(HEADER + TimeRow(0) + Processor(1), 1);
  Write(HEADER + TimeRow(1) + Processor(2) + TimeRow(2), 2);
  ASSERT_EQ(Open(directory_ / "qtx_node_2012Feb22_1.vmr"), 2);
  EXPECT_EQ(NextUserTimes(), Times{1});
  EXPECT_EQ(result_, ReaderResult::DONE);
  EXPECT_EQ(NextUserTimes(), Times{2});
  EXPECT_EQ(context_.dataPath, directory_ / "qtx_node_2012Feb22_2.vmr");
}

// A file longer than what is read at once fails in its middle, with its descriptor put on a directory.
TEST_F(VmrReaderTest, ReadErrorIsReportedAndEndsTheFile) {
  std::string text = Samples(0, 0) + TimeRow(1);
  while (text.size() < size_t{1024} * 1024) text += Processor(2);
  const std::string path = Write(text);
  ASSERT_EQ(Open(path), 1);
  const int descriptor = dup(STDIN_FILENO);  // the number that the next file opened will have
  close(descriptor);
  EXPECT_EQ(NextUserTimes(), Times{0});
  const int directory = open("/", O_RDONLY | O_DIRECTORY);
  dup2(directory, descriptor);
  close(directory);
  ::testing::internal::CaptureStderr();
  EXPECT_GT(NextUserTimes().size(), 1U);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Can't read file " + path + ": Is a directory\n");
  EXPECT_EQ(result_, ReaderResult::END_OF_FILE);
}

// --- Handlers ---

// What one sample puts into the records, those of a list newest first.
TEST_F(VmrReaderTest, RowsFillTheirRecords) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      // An instance without samples has no mean. A data row may be shorter than the counter row.
      {"2~238\n5~6~142~144~696~698~1\n4~1~2\n6~50~20~10~4~2~9\n4~_Total~2\n6~20\n4~none\n6~5~1\n",
       {"processor userTime inf systemTime nan idleTime -inf dpcTime nan interruptTime nan",
        "processor idleTime 90",
        "processor cpuId 1 userTime 10 systemTime 5 idleTime 75 dpcTime 2 interruptTime 1"}},
      // An instance is that of any object, whichever row comes first. The end of the object takes its name,
      // and leaves its samples.
      {"4~7~2\n2~238\n5~142\n6~8\n3\n6~9\n2~238\n6~6\n",
       {"processor userTime 3", "processor cpuId 7 userTime 4"}},
      {"2~234\n5~214~216~220~222~1400~1482\n4~_Total~1\n6~1~1~1~1~1~1\n"
       "4~0 C: D:~2\n6~20~60~4096~8192~40000000~100\n4~1 E:~1\n6~0~0~0~0~70000000~0\n",
       {"disk DISK1-E busyFraction 1 queueLength 7",
        "disk DISK0-C-D readRate 10 readBytesRate 2048 writeRate 30 writeBytesRate 4096 ioRate 40 "
        "totalBytesRate 6144 busyFraction 0.5 queueLength 2 waitPerIo 50 servicePerIo 12.5"}},
      // A process lives for its samples, at most the interval. Numbers out of range are harmless; sizes are
      // what a 32-bit float holds.
      {"2~230\n5~684~6~174~682~784\n4~_Total~12\n6~1~1\n4~short~3\n6~999~30~7000000000~25~3000\n"
       "4~long~13\n6~0~13\n4~odd~1\n6~0~inf~1e30~nan~-1e30\n",
       {"process odd processId -2.147484e+09 sizeVirtual 9.223372e+18 elapsedSeconds 5 cpuPercent inf",
        "process long elapsedSeconds 60 cpuPercent 1",
        "process short processId 1000 sizeVirtual 2.333333e+09 elapsedSeconds 15 cpuPercent 10 priority 8"}},
      // An object row without a count takes the samples of an interval; a negative count is one sample.
      {"2~4\n5~28\n6~24\n", {"memory pageFaultRate 2"}},
      {"2~4~6\n5~28\n6~24\n", {"memory pageFaultRate 4"}},
      {"2~4~-3\n5~28\n6~24\n", {"memory pageFaultRate 24"}},
      {"2~4~\n5~28\n6~24\n", {"memory pageFaultRate inf"}},
      // Bytes become pages. The committed percentage is worked out where it is 0.
      {"2~4~2\n5~24~66~70~74~76\n6~16384~8192~8192~16384~24576\n", {"memory freePages 2 kernelPages 7"}},
      {"2~4~1\n5~26~30~1406\n6~4096~16384~0\n", {"memory committedPercent 25"}},
      {"2~4~1\n5~26~30~1406\n6~4096~16384~40\n", {"memory committedPercent 40"}},
      {"2~4~1\n5~26~30~1406\n6~4096~0~0\n", {"memory"}},
      // The protocols share one record and some numbers; a counter row stays in effect for the objects after
      // it.
      {"6~9\n2~546~1\n5~438~446~640\n6~1~2~3\n3\n6~9\n2~658~1\n6~4~5\n2~777~1\n6~9\n2~546~1\n6~6~7\n2~638~1\n"
       "6~8~9~10\n",
       {"memory", "network ipDatagrams 6 ipReceived 7 udpDatagrams 4 udpReceived 5 tcpSegments 10"}},
  };
  for (const auto& [rows, wanted] : cases) {
    ASSERT_EQ(Open(Write(HEADER + TimeRow(0) + rows + TimeRow(1))), 1);
    EXPECT_EQ(reader_.Next(context_), ReaderResult::DONE);
    EXPECT_EQ(IntervalTexts(context_, false), wanted) << rows;
    reader_.Close(context_);
  }
}

// A record is used again, and a process without samples leaves in it what an earlier one had.
TEST_F(VmrReaderTest, ProcessWithoutSamplesShowsWhatItsRecordHeld) {
  ASSERT_EQ(
      Open(Write(HEADER + TimeRow(0) + "2~230\n5~6~784\n4~a~1\n6~5~77\n" + TimeRow(1) + "4~b~0\n6~9~88\n")),
      1);
  EXPECT_EQ(reader_.Next(context_), ReaderResult::DONE);
  EXPECT_EQ(reader_.Next(context_), ReaderResult::END_OF_FILE);  // the last sample meets it
  const ProcessRecord& process = context_.processes.primary.head();
  EXPECT_EQ(process.name + std::to_string(process.processId), "b77");
}

TEST_F(VmrReaderTest, ConnectionTotalsBecomeChanges) {
  std::string text = HEADER;
  int minute = 0;
  for (const char* totals : {"100~0~5", "130~40~5", "90~50~5", "90~0~5"}) {
    text += TimeRow(minute++) + "2~638~1\n5~644~646~642\n6~" + totals + "\n3\n";
  }
  for (int walk = 0; walk < 2; ++walk) {  // another walk has no totals to compare with
    ASSERT_EQ(Open(Write(text + TimeRow(minute))), 1);
    for (const char* changes : {"", " tcpActive 30", " tcpActive -40 tcpPassive 10", " tcpPassive -50"}) {
      ASSERT_EQ(reader_.Next(context_), ReaderResult::DONE);
      EXPECT_EQ(IntervalTexts(context_, false).back(),
                "network" + std::string(changes) + " tcpEstablished 5");
    }
    reader_.Close(context_);
  }
}

}  // namespace
}  // namespace ozmo::testing
