#include "cli/entry.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

using Words = std::vector<std::string>;

constexpr const char* BANNER = "ozmo_graph V10.0-001\n";

// Runs in a directory of its own, with the message file of the source tree.
class EntryTest : public ::testing::Test {
 protected:
  void Run(Words words) {
    words.insert(words.begin(), "ozmo_graph");
    const Words required = {"-item", "Overall CPU Utilization", "-graph_file", "out.csv", "-type", "csv"};
    words.insert(words.end(), required.begin(), required.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    status_ = RunEntry(static_cast<int>(words.size()), argv.data());
    output_ = ::testing::internal::GetCapturedStdout();
    errors_ = ::testing::internal::GetCapturedStderr();
  }

  bool WroteFile() const { return std::filesystem::exists("out.csv"); }
  std::string Printed() const { return output_ + errors_; }

  testing::TempDirectory work_;
  testing::ScopedVariable library_{"VELTRIX_LIBRARY", OZMO_SOURCE_DIR};
  testing::ScopedVariable home_{"HOME", work_.path()};
  testing::ScopedDirectory directory_{work_.path()};
  int status_ = -1;
  std::string output_;
  std::string errors_;
};

TEST_F(EntryTest, WithoutADataFileReportsThatAndEndsWithStatus1) {
  Run({});
  EXPECT_EQ(output_.substr(0, output_.find('\n') + 1), BANNER);
  EXPECT_NE(Printed().find("Data not found."), std::string::npos);
  EXPECT_EQ(status_, 1);
  EXPECT_FALSE(WroteFile());
}

TEST_F(EntryTest, ADataFileGivenTwiceIsAsIfNoneWereGiven) {
  Run({"-vmrunix", "a.vmr", "-vmrunix", "b.vmr"});
  EXPECT_NE(Printed().find("Data not found."), std::string::npos);
  EXPECT_EQ(Printed().find("Cannot open"), std::string::npos);  // no reader runs
}

TEST_F(EntryTest, MwPrintsOnlyTheBanner) {
  Run({"-mw", "file"});
  EXPECT_EQ(Printed(), BANNER);
  EXPECT_EQ(status_, 1);
  EXPECT_FALSE(WroteFile());
}

TEST_F(EntryTest, MwGivenTwiceIsAsIfItWereNotGiven) {
  Run({"-mw", "file", "-mw", "file"});
  EXPECT_NE(Printed().find("Data not found."), std::string::npos);
}

TEST_F(EntryTest, MwWithADataFileMakesTheFirstPassAndNothingElse) {
  Run({"-mw", "file", "-vmrunix", "qtxl_none.dat_1"});
  EXPECT_NE(errors_.find("qtxl_none.dat_1"), std::string::npos);
  EXPECT_EQ(Printed().find("Data not found."), std::string::npos);
  EXPECT_EQ(status_, 1);
}

TEST_F(EntryTest, SixteenMwOptionsAddUpToADataFileThatIsNotThere) {
  Words words;
  for (int count = 0; count < 16; ++count) words.insert(words.end(), {"-mw", "file"});
  Run(words);
  EXPECT_EQ(errors_, "ozmo_graph: no data file\n");
  EXPECT_EQ(status_, 2);
}

TEST_F(EntryTest, ResourcesAreReadWithoutADataFileToo) {
  std::filesystem::create_directory("there");
  const testing::ScopedVariable directory("YX_DEFAULT", "there");
  Run({"-mw", "file"});
  EXPECT_EQ(std::filesystem::current_path().filename(), "there");
}

}  // namespace
}  // namespace ozmo
