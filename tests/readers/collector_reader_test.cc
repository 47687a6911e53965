// The frame that all binary formats share, driven through the Solaris format.
#include "readers/collector_reader.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <vector>

#include "programs/sample/collector_writer.h"
#include "readers/formats.h"
#include "runtime/runtime.h"
#include "tests/support/environment.h"
#include "tests/support/sample_day.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {
namespace {

using sample::CollectorWriter;
using sample::Int32;
using sample::Int64;
using sample::Text;

struct SolarisConfig {
  std::string version = "P730";
  int64_t utcOffset = 0;
  int64_t interval = 60;
};

void WriteSolarisLists(CollectorWriter& writer) {
  writer.OrderList(5, {501, 506, 507, 514, 503, 505}).DivisorList(5, {1, 1, 1, 1, 1, 1});
  writer.OrderList(7, {701}).DivisorList(7, {1});
  writer.OrderList(6, {601, 605, 606, 607, 613}).DivisorList(6, {1, 1, 1, 1, 1});
}

void WriteSolarisConfig(CollectorWriter& writer, const SolarisConfig& config = {}) {
  writer.Record(5, {Text(config.version), Text("node"), Int32(config.utcOffset), Int32(config.interval),
                    Int64(int64_t{1024} * 1024), Int32(2)});
}

void WriteSolarisTime(CollectorWriter& writer, int64_t seconds) { writer.Record(7, {Int32(seconds)}); }

void WriteProcessor(CollectorWriter& writer, int64_t cpuId, int64_t user, int64_t idle = 0) {
  writer.Record(6, {Int32(cpuId), Int64(user), Int64(0), Int64(idle), Int64(0)});
}

class CollectorReaderTest : public ::testing::Test {
 protected:
  std::string Write(const CollectorWriter& writer, int number = 1) {
    const std::string path = directory_ / ("qtxs_node_2012Feb22.dat_" + std::to_string(number));
    EXPECT_TRUE(writer.WriteFile(path));
    return path;
  }

  // Enters the file and opens a walk over the span.
  int Open(const std::string& path, Seconds start, Seconds end) {
    EXPECT_TRUE(reader_.EntryPass(path));
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
  CollectorReader reader_{solaris_files::FORMAT, runtime_};
  VmrContext context_;
  ReaderResult result_ = ReaderResult::NOTHING;
};

using Times = std::vector<double>;

CollectorWriter Samples(const std::vector<Seconds>& times, SolarisConfig config = {}) {
  CollectorWriter writer(sample::WrittenOrder::BIG);
  WriteSolarisLists(writer);
  WriteSolarisConfig(writer, config);
  for (size_t i = 0; i < times.size(); ++i) {
    WriteSolarisTime(writer, times[i]);
    WriteProcessor(writer, 0, static_cast<int64_t>(i + 1));
  }
  return writer;
}

// Ready for the records of noon.
CollectorWriter Beginning() {
  CollectorWriter writer(sample::WrittenOrder::BIG);
  WriteSolarisLists(writer);
  WriteSolarisConfig(writer);
  WriteSolarisTime(writer, NOON - 60);
  WriteSolarisTime(writer, NOON);
  return writer;
}

TEST_F(CollectorReaderTest, EntryPassFindsNodeAndFirstTimeInTheReadersZone) {
  const std::optional<FileHead> head = reader_.EntryPass(Write(Samples({NOON}, {.utcOffset = -18000})));
  ASSERT_TRUE(head);
  EXPECT_EQ(head->nodeName, "node");
  EXPECT_EQ(head->firstRecordTime, NOON - 18000);
  EXPECT_FALSE(reader_.EntryPass(Write(Samples({NOON}, {.version = ""}))));
}

TEST_F(CollectorReaderTest, StartIsAlignedToTheInterval) {
  const std::string path = Write(Samples({NOON, NOON + 300, NOON + 600, NOON + 900}, {.interval = 300}));
  ASSERT_EQ(Open(path, NOON + 450, NOON + 3600), 1);
  NextUserTimes();
  EXPECT_EQ(context_.periodStart, NOON + 300);
  EXPECT_EQ(context_.periodEnd, NOON + 600);
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
    CollectorWriter record(sample::WrittenOrder::BIG);
    append(record.RecordWithLength(LENGTH, type, {Int32(601), Int32(605), Int32(7)}), LENGTH);
  }
  CollectorWriter last(sample::WrittenOrder::BIG);
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
TEST_F(CollectorReaderTest, ReadErrorIsReportedAndCutFileEnds) {
  constexpr int RECORDS = 20000;
  CollectorWriter writer = Beginning();
  WriteProcessor(writer, 0, 1);
  writer.Record(77, {Int32(0)});  // ends the interval
  for (int i = 0; i < RECORDS; ++i) WriteProcessor(writer, 0, 2);
  for (const bool isCut : {false, true}) {
    const std::string path = Write(writer);
    ASSERT_TRUE(reader_.EntryPass(path));
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
    EXPECT_EQ(result_, ReaderResult::END_OF_FILE);
    EXPECT_EQ(said, isCut ? "File " + path + " has become shorter while it was read\n" : "");
    EXPECT_EQ(code, isCut ? "" : "NOREAD");
    reader_.Close(context_);
  }
}

TEST_F(CollectorReaderTest, FirstDifferenceInAFollowingFileSpansTheGap) {
  Write(Samples({NOON - 60, NOON, NOON + 60}), 1);
  CollectorWriter second = Samples({NOON + 600}, {.interval = 0});
  second.Record(77, {Int32(0)});  // ends the pass after the only sample
  Write(second, 2);
  ASSERT_EQ(Open(directory_ / "qtxs_node_2012Feb22.dat_1", NOON, NOON + 3600), 2);
  EXPECT_EQ(NextUserTimes(), (Times{1}));
  EXPECT_EQ(reader_.state().intervalSeconds, 540);
}

}  // namespace
}  // namespace ozmo::testing
