// Layouts, the cutting of a span into files, and what a simulated host must keep true.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "programs/sample/kinds.h"

namespace ozmo::sample {
namespace {

std::vector<FileOfDay> HourlySamples(int startHour, int hours, int filesPerDay) {
  SampleOptions options;
  options.startHour = startHour;
  options.hours = hours;
  options.intervalSeconds = 3600;
  options.filesPerDay = filesPerDay;
  return CutIntoFiles(options, 7);
}

TEST(DayFilesTest, EachDayHasFilesOfItsOwnAndNoSampleIsLost) {
  std::string names;
  std::vector<int64_t> times;
  for (const FileOfDay& file : HourlySamples(20, 11, 2)) {
    names += FileDate(file.date) + "_" + std::to_string(file.number) + " ";
    times.insert(times.end(), file.times.begin(), file.times.end());
  }
  EXPECT_EQ(names, "2012Feb22_1 2012Feb22_2 2012Feb23_1 2012Feb23_2 ");
  ASSERT_EQ(times.size(), 11U);
  for (size_t i = 1; i < times.size(); ++i) EXPECT_EQ(times[i] - times[i - 1], 3600);
}

constexpr int64_t MIDNIGHT = 1329868800;  // Wednesday, 22-Feb-2012

TEST(HostModelTest, TimesAddUpInEveryInterval) {
  for (const SampleKind* kind : SampleKinds()) {
    const HostDescription& host = kind->host;
    for (int64_t time = MIDNIGHT; time < MIDNIGHT + 86400; time += 7200) {
      const HostSample sample = SampleHost(host, 3, time, 60);
      const CpuSample all = sample.AllProcessors();
      EXPECT_NEAR(all.user + all.nice + all.system + all.wait + all.idle, host.processors * 60, 1e-6);
      EXPECT_GE(all.idle, host.foldedProcessors * 60);
      double processes = 0;
      for (const ProcessSample& process : sample.processes) {
        EXPECT_LE(process.userSeconds + process.systemSeconds, process.aliveSeconds + 1e-9);
        EXPECT_LE(process.aliveSeconds, 60);
        processes += process.userSeconds + process.systemSeconds;
      }
      EXPECT_LE(processes, all.user + all.nice + all.system + 1e-9);
      for (const DiskSample& disk : sample.disks) EXPECT_LT(disk.BusySeconds(), 60);
    }
  }
}

}  // namespace
}  // namespace ozmo::sample
