// What ozmo_sample says and how it ends: each wrong argument is reported with the reason and what would be
// right, and no file is written over unasked.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/end_to_end/process.h"
#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

class SampleProgramTest : public ::testing::Test {
 protected:
  ProcessResult Run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), OZMO_BINARY_DIR "/ozmo_sample");
    return RunProcess(arguments, {}, directory_.path(), scratch_.path());
  }

  const testing::TempDirectory directory_;
  const testing::TempDirectory scratch_;
};

TEST_F(SampleProgramTest, SaysWhatIsWrong) {
  struct Row {
    std::vector<std::string> arguments;
    int status;
    std::string reason;  // a part of what it says
  };
  const Row rows[] = {
      {{}, 2, "a kind and a directory are wanted"},
      {{"linux"}, 2, "a kind and a directory are wanted"},
      {{"bsd", "d"}, 2, "unknown kind \"bsd\"; there are solaris linux"},
      {{"linux", "d", "--version", "P999"}, 2, "has no collector version P999; it has P730_64, P730"},
      {{"linux", "d", "--little-endian"}, 2, "linux files have one byte order only"},
      {{"vmr", "d", "--collector", "P730"}, 2, "vmr files have no collector version"},
      {{"vmr", "d", "--utc-offset", "3600"}, 2, "vmr files hold no offset"},
      {{"linux", "d", "--node", "a/b"}, 2, "holds no \"/\""},
      {{"linux", "d", "--node", ""}, 2, "--node takes a name"},
      {{"linux", "d", "--date", "2012-02-30"}, 2, "--date takes a day from 1971 to 2037 as 2012-02-22"},
      {{"linux", "d", "--hours", "24x"}, 2, "--hours takes a whole number from 1 to 8784, and not \"24x\""},
      {{"linux", "d", "--files", "0"}, 2, "--files takes a whole number from 1"},
      {{"linux", "d", "--hours"}, 2, "--hours takes a value"},
      {{"linux", "d", "--colour", "red"}, 2, "unknown option --colour"},
      {{"linux", "/dev/null/d"}, 1, "/dev/null/d: Not a directory"},
  };
  for (const Row& row : rows) {
    const ProcessResult result = Run(row.arguments);
    EXPECT_EQ(result.exitStatus, row.status) << row.reason;
    EXPECT_NE(result.standardError.find(row.reason), std::string::npos) << result.standardError;
    EXPECT_EQ(result.standardOutput, "");
  }
  EXPECT_TRUE(std::filesystem::is_empty(directory_.path()));
  for (const auto& [option, said] : {std::pair("--help", "usage: ozmo_sample"),
                                     {"--version", "ozmo_sample V"},
                                     {"--list", "\nvmr      OFFICE  \n"}}) {
    const ProcessResult result = Run({option});
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_NE(result.standardOutput.find(said), std::string::npos) << option;
  }
}

TEST_F(SampleProgramTest, ReplacesADaysFilesOnlyWhenAsked) {
  const std::vector<std::string> day = {"linux", "a/b", "--hours", "2", "--interval", "600", "--files"};
  const auto run = [&](std::vector<std::string> more) {
    more.insert(more.begin(), day.begin(), day.end());
    return Run(more);
  };
  const std::string start = "a/b/qtxl_forge_2012Feb22.dat_";
  EXPECT_EQ(run({"3"}).standardOutput, start + "1\n" + start + "2\n" + start + "3\n");
  const std::string second = ReadWholeFile(directory_ / (start + "2"));
  EXPECT_GT(second.size(), 1000U);

  const ProcessResult refused = run({"2", "--seed", "0"});
  EXPECT_EQ(refused.exitStatus, 1);
  EXPECT_EQ(refused.standardError, "ozmo_sample: " + start + "1: File exists; --force replaces it\n");
  EXPECT_EQ(ReadWholeFile(directory_ / (start + "2")), second);

  EXPECT_EQ(run({"2", "--force"}).standardOutput, start + "1\n" + start + "2\n");
  EXPECT_NE(ReadWholeFile(directory_ / (start + "2")), second);
  EXPECT_FALSE(std::filesystem::exists(directory_ / (start + "3")));
  EXPECT_EQ(run({"3", "-f"}).exitStatus, 0);
  EXPECT_EQ(ReadWholeFile(directory_ / (start + "2")), second);  // the same arguments, the same bytes
}

}  // namespace
}  // namespace ozmo
