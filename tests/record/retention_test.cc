// Which files of a directory stay, and as what, when a recorder has begun a day.
#include "programs/record/retention.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <set>

#include "programs/host_file/collector_records.h"
#include "programs/host_file/compressed_recording.h"
#include "tests/end_to_end/process.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {
namespace {

using record::Retention;
namespace fs = std::filesystem;

class RetentionTest : public ::testing::Test {
 protected:
  // A recording of `node` with some text for its size.
  void Write(const std::string& name, const std::string& node = "a_b", size_t size = 1000) {
    host_file::Configuration configuration;
    configuration.node = node;
    std::ofstream(directory / name) << host_file::HeadRecords(configuration) << std::string(size, 'x');
  }
  void WriteDays(int first, int last) {
    for (int day = first; day <= last; ++day) Write("qtxl_a_b_2012Feb" + std::to_string(day) + ".dat_1");
  }
  // A recorder with these options begins a file of that day, and has time for all steps.
  void Begin(const std::string& date, bool dayHasPassed, const record::RetentionOptions& options) {
    record::Notices notices;
    Retention retention(directory.path(), "a_b", options, notices);
    retention.BeginFile(date, dayHasPassed);
    for (int step = 0; step < 40; ++step) retention.Step();
  }
  // The days of February that have files, and what other files there are.
  std::string Left() {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(directory.path())) names.insert(entry.path().filename());
    std::string text;
    for (const std::string& name : names) {
      const bool isUsual = name.starts_with("qtxl_a_b_2012Feb") && name.ends_with(".dat_1");
      text += (isUsual ? name.substr(16, 2) : name) + " ";
    }
    return text;
  }

  TempDirectory directory;
};

TEST_F(RetentionTest, KeepsSoManyRecordedDaysBeforeThePresentOne) {
  const record::RetentionOptions three{3, 0, false};
  WriteDays(20, 26);
  Write("qtxl_a_b_2012Feb20.dat_2");
  Begin("2012Feb26", true, three);
  EXPECT_EQ(Left(), "23 24 25 26 ");
  Begin("2012Feb27", false, three);  // a start: one more
  EXPECT_EQ(Left(), "23 24 25 26 ");
  Begin("2012Mar26", false, three);  // the clock was set a month ahead, or the host was off for so long
  EXPECT_EQ(Left(), "23 24 25 26 ");
  Write("qtxl_a_b_2012Mar26.dat_1");
  Begin("2012Feb26", true, three);  // the clock is right again: what lies ahead neither counts nor goes
  EXPECT_EQ(Left(), "23 24 25 26 qtxl_a_b_2012Mar26.dat_1 ");
  Begin("2009Jan01", true, three);
  EXPECT_EQ(Left(), "23 24 25 26 qtxl_a_b_2012Mar26.dat_1 ");
}

TEST_F(RetentionTest, RemovesTheOldestDaysAboveASize) {
  WriteDays(20, 26);
  Begin("2012Feb26", true, {0, 8000, false});
  const std::string left = Left();
  EXPECT_TRUE(left.ends_with(" 25 26 ") && !left.starts_with("20")) << left;
  Begin("2012Feb26", true, {0, 1, false});
  EXPECT_EQ(Left(), "26 ");  // the day that is being written stays
}

TEST_F(RetentionTest, LeavesEverythingElseAlone) {
  Write("qtxl_a_b_2012Feb20.dat_1", "other");  // renamed: its head counts
  Write("qtxl_other_2012Feb20.dat_1", "other");
  Write("qtxl_a_b_2012Feb21.dat_1x");
  Write("qtxl_a_b_2012Feb31.dat_1");
  Write("qtxl_a_b_2012Feb22.dat_01.txt");
  std::ofstream(directory / "qtxl_a_b_2012Feb23.dat_1") << "no recording";
  fs::create_directory(directory / "qtxl_a_b_2012Feb24.dat_1");
  Write("elsewhere");
  fs::create_symlink(directory / "elsewhere", directory / "qtxl_a_b_2012Feb25.dat_1");
  const std::string before = Left();
  Begin("2012Feb28", true, {1, 1, true});
  EXPECT_EQ(Left(), before);
}

TEST_F(RetentionTest, CompressesFinishedDaysAndKnowsThemAgain) {
  if (!host_file::CanCompress()) GTEST_SKIP() << "built without libzstd";
  WriteDays(20, 22);
  const std::string first = directory / "qtxl_a_b_2012Feb20.dat_1";
  // A run was killed with the compressed file in place; of another day there is one that holds something
  // else.
  fs::copy_file(first, directory / "copy");
  ASSERT_EQ(host_file::CompressRecording(first), "");
  fs::rename(directory / "copy", first);
  Write("qtxl_a_b_2012Feb21.dat_1.zst", "a_b", 1);
  Begin("2012Feb22", true, {});
  EXPECT_EQ(Left(), "qtxl_a_b_2012Feb20.dat_1.zst 21 qtxl_a_b_2012Feb21.dat_1.zst 22 ");
  Begin("2012Feb22", true, {1, 0, true});
  EXPECT_EQ(Left(), "21 qtxl_a_b_2012Feb21.dat_1.zst 22 ");
}

// A file that may not grow takes the place of a full disk.
TEST_F(RetentionTest, AFullDiskLeavesThePlainFileAndNoDraft) {
  if (!host_file::CanCompress()) GTEST_SKIP() << "built without libzstd";
  const std::string path = directory / "qtxl_a_b_2012Feb20.dat_1";
  Write("qtxl_a_b_2012Feb20.dat_1");
  std::ofstream(path, std::ios::app) << ReadWholeFile(OZMO_BINARY_DIR "/ozmo_record").substr(0, 1 << 19);
  const std::string before = ReadWholeFile(path);
  rlimit room{};
  getrlimit(RLIMIT_FSIZE, &room);
  const rlimit little{4096, room.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &little);
  Begin("2012Feb21", true, {});
  setrlimit(RLIMIT_FSIZE, &room);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(Left(), "20 ");
  EXPECT_EQ(ReadWholeFile(path), before);
  Begin("2012Feb21", true, {});  // and there is room again
  EXPECT_EQ(Left(), "qtxl_a_b_2012Feb20.dat_1.zst ");
}

}  // namespace
}  // namespace ozmo::testing
