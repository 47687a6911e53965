#include "runtime/user_resources.h"

#include <gtest/gtest.h>

#include <deque>
#include <fstream>

#include "runtime/runtime.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

namespace fs = std::filesystem;
using testing::ScopedDirectory;
using testing::ScopedVariable;
using testing::TempDirectory;

TEST(ParseResourceLine, CutsFromTheRight) {
  struct Case {
    const char* line;
    std::optional<std::string> group;
    const char *key, *value;  // null: the line means nothing
  };
  for (const Case& row : {Case{"Yx.model.StepSize:\t10\n", "model", "stepsize", "10"},
                          {"a.b:c.Main. Study Name :  x y \n", "main", "study name", "x y"},
                          {"Yx.StepSize: 10", std::nullopt, "stepsize", "10"},
                          {"Yx.model.StepSize 10", {}, nullptr, nullptr},
                          {"! remark: no key", {}, nullptr, nullptr},
                          {"", {}, nullptr, nullptr}}) {
    const std::optional<ResourceLine> line = ParseResourceLine(row.line);
    ASSERT_EQ(line.has_value(), row.key != nullptr) << row.line;
    if (!line) continue;
    EXPECT_EQ(line->group, row.group);
    EXPECT_EQ(line->key, row.key);
    EXPECT_EQ(line->value, row.value);
  }
}

// A home directory, a working directory and a library directory, all empty.
class UserResourcesTest : public ::testing::Test {
 protected:
  void Write(const std::string& path, const std::string& text) { std::ofstream(path) << text; }
  void SetVariable(const std::string& name, const std::string& value) {
    variables_.emplace_back(name, value);
  }

  // Returns what was printed on standard error.
  std::string Read() {
    ::testing::internal::CaptureStderr();
    UserResourcesRead(resources_, runtime_, ".yxrc");
    return ::testing::internal::GetCapturedStderr();
  }

  const UserSettings& settings() const { return resources_.settings; }

  TempDirectory home_;
  TempDirectory work_;
  TempDirectory library_;
  ScopedVariable homeVariable_{"HOME", home_.path()};
  ScopedVariable libraryVariable_{"VELTRIX_LIBRARY", library_.path()};
  ScopedDirectory directory_{work_.path()};
  std::deque<ScopedVariable> variables_;
  Runtime runtime_;
  UserResources resources_;
};

TEST_F(UserResourcesTest, FileIsTheOneHereThenAtHomeThenInTheLibrary) {
  const TempDirectory other;
  const std::string files[] = {library_ / ".yxrc", home_ / ".yxrc", work_ / ".yxrc"};
  for (int n = 0; n < 3; ++n) {
    Write(files[n], "anything.MODEL.stepsize: " + std::to_string(n + 1) + "\n");
    EXPECT_EQ(Read(), "");
    EXPECT_EQ(settings().stepSize, n + 1);
  }
  fs::remove(files[2]);
  Write(other / ".yxrc", "Yx.model.StepSize: 4\n");
  SetVariable(".yxrc", other.path() + "/");
  Read();
  EXPECT_EQ(settings().stepSize, 4) << "a variable of the file's name takes the role of the home directory";
}

TEST_F(UserResourcesTest, VariablesReplaceWhatTheFileSays) {
  Write(".yxrc",
        "rubbish\nYx.nogroup.StepSize: 1\nYx.model.StepSize: 4\nYx.model.CpuThreshold: "
        "50\nYx.model.DTRFilePtr: x\n");
  SetVariable("YX_STEP", "6");
  SetVariable("YX_SATURATE_CPU", "70.9");
  SetVariable("YX_SATURATE_DISK", "1e300");
  SetVariable("YX_NAME", std::string(2000, 'n'));
  Read();
  EXPECT_EQ(settings().stepSize, 6);
  EXPECT_EQ(settings().cpuThreshold, 70);
  EXPECT_EQ(settings().diskThreshold, INT32_MAX);
  EXPECT_EQ(settings().studyName, std::string(2000, 'n'));
  EXPECT_EQ(settings().dtrFilePtr, std::nullopt);
}

}  // namespace
}  // namespace ozmo
