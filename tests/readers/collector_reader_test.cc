// The frame that all binary formats share, driven through the Solaris format.
#include "readers/collector_reader.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <vector>

#include "readers/formats.h"
#include "runtime/runtime.h"
#include "tests/readers/solaris_file.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {
namespace {

constexpr Seconds NOON = 1329912000;  // 22-Feb-2012 12:00:00 UTC

class CollectorReaderTest : public ::testing::Test {
 protected:
  std::string Write(const CollectorWriter& writer, int number = 1) {
    const std::string path = directory_ / ("qtxs_node_2012Feb22.dat_" + std::to_string(number));
    EXPECT_TRUE(writer.WriteFile(path));
    return path;
  }

  int Enter(const std::string& path) { return reader_.EntryPass(path, node_, first_); }

  // Enters the file and opens a walk over the span.
  int Open(const std::string& path, Seconds start, Seconds end) {
    EXPECT_EQ(Enter(path), 1);
    context_.periodStart = start;
    context_.periodEnd = end;
    return reader_.Open(context_);
  }

  // The user time of each processor record of the next interval, newest first.
  std::vector<double> NextUserTimes() {
    std::vector<double> times;
    result_ = reader_.Next(context_);
    for (const ProcessorRecord& processor : context_.processors.primary) times.push_back(processor.userTime);
    return times;
  }

  ScopedVariable zone_{"TZ", "UTC"};
  TempDirectory directory_;
  Runtime runtime_;
  CollectorReader reader_{SOLARIS_FORMAT, runtime_};
  VmrContext context_;
  std::string node_;
  Seconds first_ = 0;
  int result_ = 0;
};

using Times = std::vector<double>;

CollectorWriter Samples(const std::vector<Seconds>& times, SolarisConfig config = {}) {
  CollectorWriter writer(sample::ByteOrder::BIG);
  WriteSolarisLists(writer);
  WriteSolarisConfig(writer, config);
  for (size_t i = 0; i < times.size(); ++i) {
    WriteSolarisTime(writer, times[i]);
    WriteProcessor(writer, 0, static_cast<int64_t>(i + 1));
  }
  return writer;
}

// Ready for the records of noon.
CollectorWriter Beginning(sample::ByteOrder order = sample::ByteOrder::BIG) {
  CollectorWriter writer(order);
  WriteSolarisLists(writer);
  WriteSolarisConfig(writer);
  WriteSolarisTime(writer, NOON - 60);
  WriteSolarisTime(writer, NOON);
  return writer;
}

TEST_F(CollectorReaderTest, EntryPassFindsNodeAndFirstTimeInTheReadersZone) {
  EXPECT_EQ(Enter(Write(Samples({NOON}, {.utcOffset = -18000}))), 1);
  EXPECT_EQ(node_, "node");
  EXPECT_EQ(first_, NOON - 18000);
  EXPECT_EQ(Enter(Write(Samples({NOON}, {.version = ""}))), 0);
}

TEST_F(CollectorReaderTest, WindowTakesTheRecordsBehindTheStampThatEndedTheLast) {
  const std::string path = Write(Samples({NOON - 60, NOON, NOON + 60, NOON + 120, NOON + 180}));
  ASSERT_EQ(Open(path, NOON, NOON + 600), 1);
  // The first window holds both its ends; what lies ahead of it is skipped.
  EXPECT_EQ(NextUserTimes(), (Times{3, 2}));
  EXPECT_EQ(context_.periodEnd, NOON + 60);
  EXPECT_EQ(NextUserTimes(), (Times{4}));
  EXPECT_EQ(context_.periodEnd, NOON + 120);
  // The last interval meets the end of the file and isn't delivered.
  NextUserTimes();
  EXPECT_EQ(result_, -1);
}

TEST_F(CollectorReaderTest, IntervalThatEndsWithTheSpanIsNotDelivered) {
  const std::string path = Write(Samples({NOON - 60, NOON, NOON + 60, NOON + 120, NOON + 180, NOON + 240}));
  ASSERT_EQ(Open(path, NOON, NOON + 120), 1);
  EXPECT_EQ(NextUserTimes(), (Times{3, 2}));
  NextUserTimes();
  EXPECT_EQ(result_, -1);
}

TEST_F(CollectorReaderTest, StartIsAlignedToTheInterval) {
  const std::string path = Write(Samples({NOON, NOON + 300, NOON + 600, NOON + 900}, {.interval = 300}));
  ASSERT_EQ(Open(path, NOON + 450, NOON + 3600), 1);
  NextUserTimes();
  EXPECT_EQ(context_.periodStart, NOON + 300);
  EXPECT_EQ(context_.periodEnd, NOON + 600);
}

TEST_F(CollectorReaderTest, SpanAheadOfTheFileDeliversNothing) {
  ASSERT_EQ(Open(Write(Samples({NOON})), NOON - 7200, NOON - 3600), 1);
  NextUserTimes();
  EXPECT_EQ(result_, READER_OUTSIDE_WINDOW);
}

TEST_F(CollectorReaderTest, RepeatedTimeStampGivesTheDefaultInterval) {
  const std::string path = Write(Samples({NOON - 60, NOON, NOON, NOON + 60, NOON + 300}));
  ASSERT_EQ(Open(path, NOON, NOON + 600), 1);
  NextUserTimes();
  EXPECT_EQ(reader_.state().intervalSeconds, 240);  // measured from the stamp that ended the window
  const std::string repeated = Write(Samples({NOON - 60, NOON + 120, NOON + 120, NOON + 120}));
  reader_.Close(context_);
  ASSERT_EQ(Open(repeated, NOON, NOON + 600), 1);
  NextUserTimes();
  EXPECT_EQ(reader_.state().intervalSeconds, 180);
  NextUserTimes();
  EXPECT_EQ(reader_.state().intervalSeconds, 120);
}

// A record that ends in the middle of a field keeps the fields ahead of it. A list that is no multiple of
// four bytes loses the odd ones. Fields outside the table take no bytes.
TEST_F(CollectorReaderTest, OddRecordsKeepWhatTheyHold) {
  CollectorWriter writer = Beginning();
  writer.Record(6, {Int32(1), Int64(7), Int32(0)});
  writer.Record(600, {Int32(601), Int32(605), sample::Raw("ab")}).Record(6, {Int32(1), Int64(9)});
  writer.OrderList(6, {9999, 601, 605}).Record(6, {Int32(3), Int64(8)});
  WriteSolarisTime(writer, NOON + 120);
  ASSERT_EQ(Open(Write(writer), NOON, NOON + 3600), 1);
  EXPECT_EQ(NextUserTimes(), (Times{8, 9, 7}));
  EXPECT_EQ(context_.processors.primary.head().cpuId, 3);
}

TEST_F(CollectorReaderTest, RecordBeyondTheEndEndsThePassAndWhatWasReadStands) {
  CollectorWriter writer = Beginning();
  WriteProcessor(writer, 0, 1);
  writer.RecordWithLength(0xFFFFFFFF, 6, {Int32(1), Int64(2)});
  ASSERT_EQ(Open(Write(writer), NOON, NOON + 3600), 1);
  EXPECT_EQ(NextUserTimes(), (Times{1}));
}

// What a record is decides how much of it is read, whatever its length says: each of these is 1 GiB long.
TEST_F(CollectorReaderTest, LongRecordsCostNoMemory) {
  constexpr uint32_t LENGTH = 1U << 30U;
  constexpr int64_t MOST_KILOBYTES = 64 * 1024;
  const std::string path = Write(Beginning());
  auto end = static_cast<std::streamoff>(std::filesystem::file_size(path));
  const auto append = [&](const CollectorWriter& record, std::streamoff length) {
    std::ofstream file(path, std::ios::binary | std::ios::in);
    file.seekp(end);
    file << record.Bytes();
    end += length;
  };
  for (const uint32_t type : {6U, 60U, 600U, 4U, 77U}) {
    CollectorWriter record(sample::ByteOrder::BIG);
    append(record.RecordWithLength(LENGTH, type, {Int32(601), Int32(605), Int32(7)}), LENGTH);
  }
  CollectorWriter last(sample::ByteOrder::BIG);
  last.Record(6, {Int32(3), Int64(8)});
  append(last, static_cast<std::streamoff>(last.Bytes().size()));

  rusage before{};
  getrusage(RUSAGE_SELF, &before);
  ASSERT_EQ(Open(path, NOON, NOON + 3600), 1);
  EXPECT_EQ(NextUserTimes(), (Times{static_cast<double>(int64_t{605} << 32 | 7)}));  // 77 ends the interval
  EXPECT_EQ(NextUserTimes(), (Times{8.0 / 605}));
  rusage after{};
  getrusage(RUSAGE_SELF, &after);
  EXPECT_LT(after.ru_maxrss - before.ru_maxrss, MOST_KILOBYTES);
}

// A file longer than what is read at once fails in its middle: the descriptor is put on a directory, or the
// file is cut.
TEST_F(CollectorReaderTest, ReadErrorIsToldAndCutFileEnds) {
  constexpr int RECORDS = 20000;
  CollectorWriter writer = Beginning();
  WriteProcessor(writer, 0, 1);
  writer.Record(77, {Int32(0)});  // ends the interval
  for (int i = 0; i < RECORDS; ++i) WriteProcessor(writer, 0, 2);
  for (const bool isCut : {false, true}) {
    const std::string path = Write(writer);
    ASSERT_EQ(Enter(path), 1);
    const int descriptor = dup(STDIN_FILENO);  // the number that the next file opened will have
    close(descriptor);
    ASSERT_EQ(Open(path, NOON, NOON + 3600), 1);
    EXPECT_EQ(NextUserTimes(), (Times{1}));
    if (isCut) {
      std::filesystem::resize_file(path, 4096);
    } else {
      const int directory = open("/", O_RDONLY | O_DIRECTORY);
      dup2(directory, descriptor);
      close(directory);
    }
    std::string code;
    runtime_.messageSink = [&](const ReadyMessage& message) { code = message.code; };
    ::testing::internal::CaptureStderr();
    NextUserTimes();
    const std::string said = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(result_, READER_END_OF_FILE);
    EXPECT_EQ(said, isCut ? "File " + path + " has become shorter while it was read\n" : "");
    EXPECT_EQ(code, isCut ? "" : "NOREAD");
    reader_.Close(context_);
  }
}

// What isn't wanted is stepped over and changes nothing else, also where a record ends ahead of what is
// wanted.
TEST_F(CollectorReaderTest, UnwantedRecordsAndFieldsAreSteppedOver) {
  CollectorWriter writer(sample::ByteOrder::BIG);
  WriteSolarisLists(writer);
  writer.OrderList(4, {402, 415, 413, 410, 409, 411, 421, 423}).DivisorList(4, {1, 1, 1, 1, 1, 2, 1, 1});
  WriteSolarisConfig(writer);
  WriteSolarisTime(writer, NOON - 60);
  WriteSolarisTime(writer, NOON);
  WriteProcessor(writer, 0, 1);
  writer.Record(4, {Int32(7), Text("first"), Int64(5), Int64(3000000000), Int32(6), Int64(4000000000),
                    Text("ann"), Int32(9)});
  writer.Record(4, {Int32(8), Text("cut"), Int64(5), Int64(1000000000), sample::Raw("abc")});
  WriteSolarisTime(writer, NOON + 120);
  const std::string path = Write(writer);
  for (const bool isAll : {true, false}) {
    context_.kinds = isAll ? RecordKinds::All() : RecordKinds{RecordKind::PROCESSES};
    ASSERT_EQ(Open(path, NOON, NOON + 3600), 1);
    EXPECT_EQ(NextUserTimes(), isAll ? Times{1} : Times{});
    ASSERT_EQ(context_.processes.primary.size(), 2U);
    const ProcessRecord& cut = context_.processes.primary.head();
    EXPECT_EQ(cut.name, "cut");
    EXPECT_EQ(cut.userCpuSeconds, 1.0F);
    EXPECT_EQ(cut.userName, "");
    const ProcessRecord& first = *std::next(context_.processes.primary.begin());
    EXPECT_EQ(first.name + " " + first.userName, "first ann");
    EXPECT_EQ(first.userCpuSeconds, 3.0F);
    EXPECT_EQ(first.systemCpuSeconds, 2.0F);
    EXPECT_EQ(first.processId, isAll ? 7 : 0);
    reader_.Close(context_);
  }
}

TEST_F(CollectorReaderTest, DivisorActsOnlyWhereTheListHoldsOne) {
  CollectorWriter writer = Beginning();
  writer.DivisorList(6, {1, 10, 0}).Record(6, {Int32(0), Int64(50), Int64(50), Int64(50), Int64(50)});
  ASSERT_EQ(Open(Write(writer), NOON, NOON + 3600), 1);
  EXPECT_EQ(NextUserTimes(), (Times{5}));
  const ProcessorRecord& processor = context_.processors.primary.head();
  EXPECT_EQ(processor.systemTime, 50.0);  // divisor 0
  EXPECT_EQ(processor.idleTime, 50.0);    // beyond the list
}

TEST_F(CollectorReaderTest, FileSetNeedsADirectoryAndASeriesName) {
  EXPECT_EQ(Open(Write(Samples({NOON})), NOON, NOON), 1);
  reader_.Close(context_);
  const std::string plain = directory_ / "qtxs_node.dat";
  ASSERT_TRUE(Samples({NOON}).WriteFile(plain));
  EXPECT_EQ(Open(plain, NOON, NOON + 60), 0);
  NextUserTimes();
  EXPECT_EQ(result_, -1);
}

TEST_F(CollectorReaderTest, FileThatEndsAheadOfTheWindowIsPassedOverSilently) {
  Write(Samples({NOON - 720, NOON - 660, NOON - 600}), 1);
  Write(Samples({NOON - 60, NOON, NOON + 60, NOON + 120}), 2);
  ASSERT_EQ(Open(directory_ / "qtxs_node_2012Feb22.dat_1", NOON, NOON + 3600), 2);
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(NextUserTimes(), (Times{3, 2}));
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_F(CollectorReaderTest, FirstDifferenceInAFollowingFileSpansTheGap) {
  Write(Samples({NOON - 60, NOON, NOON + 60}), 1);
  CollectorWriter second = Samples({NOON + 600}, {.interval = 0});
  second.Record(77, {Int32(0)});  // ends the pass behind the only sample
  Write(second, 2);
  ASSERT_EQ(Open(directory_ / "qtxs_node_2012Feb22.dat_1", NOON, NOON + 3600), 2);
  EXPECT_EQ(NextUserTimes(), (Times{1}));
  EXPECT_EQ(reader_.state().intervalSeconds, 540);
}

TEST_F(CollectorReaderTest, TimeFarOutsideTheCalendarEndsTheWindow) {
  const std::string path = Write(Samples({NOON, 0xFFFFFFFF, NOON + 60}));
  ASSERT_EQ(Open(path, NOON, NOON + 3600), 1);
  for (int i = 0; i < 5 && reader_.Next(context_) >= 1; ++i) {
  }
}

TEST_F(CollectorReaderTest, NameTellsTheByteOrder) {
  for (const bool little : {false, true}) {
    CollectorWriter writer = Beginning(little ? sample::ByteOrder::LITTLE : sample::ByteOrder::BIG);
    WriteProcessor(writer, 5, 0x100000002);
    const std::string path = directory_ / (std::string(little ? "qtxsx" : "qtxs") + "_node_2012Feb22.dat_1");
    ASSERT_TRUE(writer.WriteFile(path));
    ASSERT_EQ(Open(path, NOON, NOON + 3600), 1);
    EXPECT_EQ(NextUserTimes(), (Times{4294967298.0}));
    EXPECT_EQ(context_.processors.primary.head().cpuId, 5);
    reader_.Close(context_);
  }
}

}  // namespace
}  // namespace ozmo::testing
