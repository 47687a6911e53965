// Runs the built tool on the cases of tests/cases. Each case is one test, in a directory of its own.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "tests/end_to_end/case_runner.h"

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
  RunCase(OZMO_SOURCE_DIR "/tests/cases/" + GetParam() + ".case", directory);
}

INSTANTIATE_TEST_SUITE_P(Cases, EndToEnd, ::testing::ValuesIn(CaseNames()),
                         [](const auto& parameter) { return parameter.param; });

}  // namespace
}  // namespace ozmo
