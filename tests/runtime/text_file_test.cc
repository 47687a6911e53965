#include "runtime/text_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <vector>

#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

TEST(TextFile, WhatIsNoPlainFileIsMissing) {
  const testing::TempDirectory directory;
  const std::string pipe = directory / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& path : {pipe, directory.path(), std::string("/dev/zero"), directory / "none"}) {
    EXPECT_EQ(TextFileOpen(path), nullptr) << path;
  }
  std::ofstream(directory / "file") << "text";
  std::filesystem::create_symlink(directory / "file", directory / "link");
  EXPECT_NE(TextFileOpen(directory / "link"), nullptr);
}

TEST(TextFile, ALineThatIsTooLongGoesOnAsTheNext) {
  const testing::TempDirectory directory;
  std::ofstream(directory / "file") << "abcdef\n\nabc\nx";
  const Stream file = TextFileOpen(directory / "file");
  std::vector<std::string> lines;
  for (std::string line; TextFileReadLine(file.get(), 3, line);) lines.push_back(line);
  EXPECT_EQ(lines, (std::vector<std::string>{"abc", "def", "", "", "abc", "", "x"}));
}

}  // namespace
}  // namespace ozmo
