// ozmo_record on the host that runs the tests. OZMO_LIVE_SECONDS asks for more than the few seconds of a
// check.
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <thread>

#include "tests/end_to_end/process.h"
#include "tests/record/story.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {
namespace {

using std::chrono::system_clock;

// Ticks of all processors by mode: user, nice, system with interrupts, idle, wait.
using Modes = std::array<double, 5>;

Modes KernelModes() {
  std::ifstream file("/proc/stat");
  std::string name;
  Modes modes{};
  double irq = 0;
  double softirq = 0;
  file >> name >> modes[0] >> modes[1] >> modes[2] >> modes[3] >> modes[4] >> irq >> softirq;
  modes[2] += irq + softirq;
  return modes;
}

// The kernel's modes at each full second, the moments of the recorder's samples.
std::map<int64_t, Modes> WatchKernel(int64_t until) {
  std::map<int64_t, Modes> watched;
  for (int64_t second = 0; second < until;) {
    second = system_clock::to_time_t(system_clock::now()) + 1;
    std::this_thread::sleep_until(system_clock::from_time_t(second));
    watched[second] = KernelModes();
  }
  return watched;
}

TEST(LiveRecordTest, AgreesWithTheKernel) {
  constexpr int INTERVAL = 2;
  const char* asked = std::getenv("OZMO_LIVE_SECONDS");
  const int samples = (asked == nullptr ? 8 : std::atoi(asked)) / INTERVAL;
  const ScopedVariable zone("TZ", "UTC");
  const TempDirectory directory;
  const int64_t begin = system_clock::to_time_t(system_clock::now());
  ProcessResult result;
  std::thread recorder([&] {
    result = RunProcess({OZMO_BINARY_DIR "/ozmo_record", directory.path(), "--interval",
                         std::to_string(INTERVAL), "--count", std::to_string(samples), "--node", "live"},
                        {{"TZ", "UTC"}}, directory.path(), directory.path());
  });
  std::map<int64_t, Modes> kernel = WatchKernel(begin + (samples + 2) * INTERVAL);
  recorder.join();
  ASSERT_EQ(result.exitStatus, 0) << result.standardError;
  const std::string path = result.standardOutput.substr(0, result.standardOutput.find('\n'));

  Modes recorded{};
  int64_t seconds = 0;
  int64_t last = 0;
  WalkRecording(path, begin - 60, begin + 3600, [&](const VmrContext& context) {
    const double ticks = context.config->intervalSeconds * 100.0;
    for (const ProcessorRecord& r : context.processors.primary) {
      const Modes part = {r.userTime, r.niceTime, r.systemTime, r.idleTime, r.waitTime};
      for (size_t mode = 0; mode < part.size(); ++mode) recorded[mode] += part[mode] * ticks;
    }
    seconds += static_cast<int64_t>(context.config->intervalSeconds);
    last = context.periodEnd - INTERVAL / 2;  // stamps lie in the middle of the readers' windows
  });
  EXPECT_GE(seconds, samples * INTERVAL);
  ASSERT_EQ(kernel.count(last - seconds) + kernel.count(last), 2U);
  // Both read the kernel at nearly the same moment.
  const double tolerance = 20 + 10 * std::thread::hardware_concurrency();
  for (size_t mode = 0; mode < recorded.size(); ++mode) {
    EXPECT_NEAR(recorded[mode], kernel[last][mode] - kernel[last - seconds][mode], tolerance)
        << "mode " << mode;
  }
}

}  // namespace
}  // namespace ozmo::testing
