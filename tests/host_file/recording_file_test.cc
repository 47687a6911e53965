// A recording that another program takes hold of.
#include "programs/host_file/recording_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "tests/support/temp_directory.h"

namespace ozmo::host_file {
namespace {

namespace fs = std::filesystem;

TEST(RecordingFile, NoticesThatItIsNotWhatWasWritten) {
  struct Case {
    std::function<void(const std::string& path)> attack;
    std::string said;
  };
  const Case cases[] = {
      {[](const std::string& path) { fs::remove(path); }, " was removed"},
      {[](const std::string& path) {
         fs::rename(path, path + ".x");
         fs::copy(path + ".x", path);
       },
       " was replaced"},
      {[](const std::string& path) { fs::resize_file(path, 3); }, " was cut"},
      {[](const std::string& path) { std::ofstream(path, std::ios::app) << "x"; }, " was written to"},
  };
  for (const Case& row : cases) {
    const testing::TempDirectory directory;
    RecordingFile file;
    ASSERT_EQ(file.Create(directory.path(), "n", 1329897600), "");
    ASSERT_EQ(file.Append("a record") + file.Append(", and one more"), "");
    EXPECT_EQ(file.GiveUpIfLost(), "");
    row.attack(file.Path());
    EXPECT_EQ(file.GiveUpIfLost(), file.Path() + row.said + " by another program");
    EXPECT_FALSE(file.IsOpen());
  }
}

}  // namespace
}  // namespace ozmo::host_file
