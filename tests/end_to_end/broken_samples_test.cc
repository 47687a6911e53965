// The built tool on sample files of every kind with bytes changed, lengths that lie and tails cut off: it
// ends by itself, in time, and with no report of a sanitizer.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>

#include "runtime/whole_file.h"
#include "sample/collector_writer.h"
#include "sample/kinds.h"
#include "tests/end_to_end/process.h"
#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

constexpr int ROUNDS = 24;
constexpr const char* TOOL = OZMO_BINARY_DIR "/ozmo_graph";

class Damage {
 public:
  explicit Damage(unsigned seed) : random_(seed) {}

  void Do(std::string& bytes) {
    switch (random_() % 4) {
      case 0:
        bytes.resize(Place(bytes));
        break;  // cut off
      case 1:
        bytes.erase(Place(bytes), random_() % 9);
        break;  // shifted
      case 2:
        bytes.insert(Place(bytes), random_() % 9, static_cast<char>(0xFF));
        break;  // filled
      default:
        break;
    }
    // Changed bytes, half of them at the head, where lists and configuration stand.
    const size_t head = std::min<size_t>(bytes.size(), 4096);
    for (unsigned n = random_() % 8; n > 0 && head > 0; --n) {
      const size_t place = n % 2 == 0 ? random_() % head : random_() % bytes.size();
      bytes[place] = static_cast<char>(random_());
    }
  }

 private:
  size_t Place(const std::string& bytes) { return random_() % (bytes.size() + 1); }

  std::mt19937 random_;
};

class BrokenSamples : public ::testing::TestWithParam<const sample::SampleKind*> {};

TEST_P(BrokenSamples, EndByThemselves) {
  const testing::TempDirectory directory;
  sample::SampleOptions options;
  options.directory = directory.path();
  options.hours = 1;
  options.intervalSeconds = 300;
  options.startHour = 8;
  const sample::SampleResult sample = sample::WriteSample(*GetParam(), options);
  ASSERT_EQ(sample.files.size(), 1U) << sample.error;
  const std::string whole = ReadWholeFile(sample.files[0]);

  Damage damage(20120222);
  for (int round = 0; round < ROUNDS; ++round) {
    std::string bytes = whole;
    damage.Do(bytes);
    ASSERT_TRUE(WriteWholeFile(sample.files[0], bytes));
    const ProcessResult result = RunProcess(
        {TOOL, "-vmrunix", sample.files[0], "-begin", "22-Feb-2012:08:00:00", "-end", "22-Feb-2012:09:00:00",
         "-item", "Top 10 Images by CPU Utilization", "-graph_file", "out.csv", "-type", "csv"},
        {{"TZ", "UTC"},
         {"VELTRIX_LIBRARY", OZMO_SOURCE_DIR},
         {"ASAN_OPTIONS", "exitcode=99"},
         {"UBSAN_OPTIONS", "halt_on_error=1:exitcode=99"}},
        directory.path(), directory.path());
    EXPECT_EQ(result.signal, 0) << "round " << round;
    EXPECT_TRUE(result.exitStatus == 0 || result.exitStatus == 1)
        << "round " << round << result.standardError;
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, BrokenSamples, ::testing::ValuesIn(sample::SampleKinds()),
                         [](const auto& parameter) { return std::string(parameter.param->name); });

}  // namespace
}  // namespace ozmo
