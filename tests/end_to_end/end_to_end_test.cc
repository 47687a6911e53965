// Runs the built tool on the cases of tests/cases. Each case is one test, in a directory of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "tests/end_to_end/case_runner.h"
#include "tests/end_to_end/process.h"
#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

std::vector<std::string> CaseNames() {
  std::vector<std::string> names;
  for (const std::filesystem::directory_entry& entry :
       std::filesystem::directory_iterator(OZMO_SOURCE_DIR "/tests/cases")) {
    if (entry.path().extension() == ".case") names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

class EndToEnd : public ::testing::TestWithParam<std::string> {};

TEST_P(EndToEnd, Case) {
  const std::string directory =
      ::testing::TempDir() + "/ozmo_case_" + GetParam() + "_" + std::to_string(getpid());
  CaseRunner(OZMO_SOURCE_DIR "/tests/cases/" + GetParam() + ".case", directory).Run();
}

INSTANTIATE_TEST_SUITE_P(Cases, EndToEnd, ::testing::ValuesIn(CaseNames()),
                         [](const auto& parameter) { return parameter.param; });

TEST(Streams, KeepTheOrderOfTheirLinesWhereTheyAreOne) {
  const testing::TempDirectory directory;
  const ProcessResult result = RunProcess(
      {"/bin/sh", "-c", OZMO_BINARY_DIR "/ozmo_graph -vmrunix none -item I -graph_file F -type csv 2>&1"},
      {{"VELTRIX_LIBRARY", OZMO_SOURCE_DIR}}, directory.path(), directory.path());
  EXPECT_THAT(result.standardOutput, ::testing::StartsWith("ozmo_graph V10.0-001\nVELTRIX-ERROR  "));
}

}  // namespace
}  // namespace ozmo
