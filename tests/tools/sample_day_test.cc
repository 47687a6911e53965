// Layout texts, the cutting of a span into files, and what a simulated host must keep true.
#include "tools/sample_day.h"

#include <gtest/gtest.h>

#include "tools/layouts.h"
#include "tools/workload_model.h"

namespace ozmo::sample {
namespace {

TEST(LayoutTest, FieldsAreSpelledOutWithUnitAndDivisor) {
  const std::vector<FieldLayout> fields = ExpandFields("421:t 401-403:4*100 5:8*2/10");
  ASSERT_EQ(fields.size(), 5U);
  EXPECT_EQ(fields[0].encoding, Encoding::TEXT);
  EXPECT_EQ(fields[3].fieldId, 403);
  EXPECT_EQ(fields[3].encoding, Encoding::INT32);
  EXPECT_EQ(fields[3].unit, 100);
  EXPECT_EQ(fields[3].divisor, 1);
  EXPECT_EQ(fields[4].encoding, Encoding::INT64);
  EXPECT_EQ(fields[4].unit, 2);
  EXPECT_EQ(fields[4].divisor, 10);
}

TEST(LayoutTest, TwinsFollowTheirBasesAndTakeTheirFields) {
  static constexpr RecordLayout RECORDS[] = {
      {17, 1, 1, ""}, {18, 2, 1, "9:4"}, {1, 0, 1, "3:8"}, {2, 0, 3, "4:8"}};
  static constexpr VersionLayout VERSIONS[] = {{"new", 1}, {"old", 2}};
  const CollectorLayout layout{VERSIONS, RECORDS};
  const std::vector<ExpandedRecord> rows = ExpandLayout(layout, 1);
  ASSERT_EQ(rows.size(), 4U);
  EXPECT_EQ(rows[0].recordType, 1U);
  EXPECT_EQ(rows[2].recordType, 17U);
  EXPECT_EQ(rows[2].fields.at(0).fieldId, 3);
  EXPECT_EQ(rows[3].fields.at(0).fieldId, 9);
  EXPECT_EQ(ExpandLayout(layout, 2).size(), 1U);
}

TEST(LayoutTest, ExactVersionWinsOverOneThatIsContained) {
  EXPECT_EQ(FindVersion(LinuxLayout(), "P730")->text, "P730");
  EXPECT_EQ(FindVersion(LinuxLayout(), "P730_64 build 7")->text, "P730_64");
  EXPECT_EQ(FindVersion(LinuxLayout(), "P999"), nullptr);
}

TEST(DayFilesTest, EachDayHasFilesOfItsOwnAndNoSampleIsLost) {
  SampleOptions options;
  options.startHour = 20;
  options.hours = 11;
  options.intervalSeconds = 3600;
  options.filesPerDay = 2;
  const std::vector<DayFile> files = CutIntoFiles(options);
  ASSERT_EQ(files.size(), 4U);
  EXPECT_EQ(FileDate(files[1].date), "2012Feb22");
  EXPECT_EQ(files[1].number, 2);
  EXPECT_EQ(FileDate(files[2].date), "2012Feb23");
  EXPECT_EQ(files[2].number, 1);
  std::vector<int64_t> times;
  for (const DayFile& file : files) times.insert(times.end(), file.times.begin(), file.times.end());
  ASSERT_EQ(times.size(), 11U);
  for (size_t i = 1; i < times.size(); ++i) EXPECT_EQ(times[i] - times[i - 1], 3600);
}

TEST(DayFilesTest, NoFileIsEmpty) {
  SampleOptions options;
  options.hours = 3;
  options.intervalSeconds = 3600;
  options.filesPerDay = 24;
  EXPECT_EQ(CutIntoFiles(options).size(), 3U);
}

class WorkloadModelTest : public ::testing::Test {
 protected:
  static constexpr ProgramDescription PROGRAMS[] = {
      {"server", "root", 3, 5.0, 0, 100, Shift::ALWAYS},
      {"editor", "anna", 9, 1.0, 7, 20, Shift::OFFICE},
      {"backup", "root", 4, 3.0, 20, 20, Shift::NIGHT},
  };
  static constexpr DiskDescription DISKS[] = {{"disk0", 100, 0.5, 5, 16, 1000},
                                              {"busy", 1000, 0.5, 50, 16, 1000}};
  static constexpr HostDescription HOST{4, 1, 1024, PROGRAMS, DISKS, {}, {}};
  static constexpr int64_t MIDNIGHT = 1329868800;  // 22-Feb-2012

  static int Count(const HostSample& sample, std::string_view image) {
    int count = 0;
    for (const ProcessSample& process : sample.processes) count += process.image == image ? 1 : 0;
    return count;
  }
};

TEST_F(WorkloadModelTest, TimesAddUpInEveryInterval) {
  for (int64_t time = MIDNIGHT; time < MIDNIGHT + 86400; time += 1200) {
    const HostSample sample = SampleHost(HOST, 3, time, 60);
    const CpuSample all = sample.AllProcessors();
    EXPECT_NEAR(all.user + all.nice + all.system + all.wait + all.idle, 4 * 60, 1e-6);
    EXPECT_GE(all.idle, 60);  // the folded processor
    double processes = 0;
    for (const ProcessSample& process : sample.processes) {
      EXPECT_LE(process.userSeconds + process.systemSeconds, process.aliveSeconds + 1e-9);
      EXPECT_LE(process.aliveSeconds, 60);
      processes += process.userSeconds + process.systemSeconds;
    }
    EXPECT_LE(processes, all.user + all.nice + all.system);
    for (const DiskSample& disk : sample.disks) EXPECT_LT(disk.BusySeconds(), 60);
  }
}

TEST_F(WorkloadModelTest, TheDayRisesAndFallsAndProcessesComeAndGo) {
  const int64_t office = MIDNIGHT + 10 * 3600 + 1800;
  const int64_t night = MIDNIGHT + 2 * 3600 + 700;
  const int64_t dawn = MIDNIGHT + 5 * 3600;
  EXPECT_GT(LoadAt(1, office), 2 * LoadAt(1, dawn));
  EXPECT_GT(LoadAt(1, night), 2 * LoadAt(1, dawn));
  EXPECT_GT(Count(SampleHost(HOST, 1, office, 60), "editor"), 2);
  EXPECT_EQ(Count(SampleHost(HOST, 1, office, 60), "backup"), 0);
  EXPECT_GT(Count(SampleHost(HOST, 1, night, 60), "backup"), 0);
  EXPECT_EQ(Count(SampleHost(HOST, 1, dawn, 60), "server"), 3);
}

TEST_F(WorkloadModelTest, TheSeedMakesTheDay) {
  const auto busy = [](uint64_t seed) {
    const CpuSample all = SampleHost(HOST, seed, MIDNIGHT + 36000, 60).AllProcessors();
    return all.user + all.system;
  };
  EXPECT_EQ(busy(1), busy(1));
  EXPECT_NE(busy(1), busy(2));
}

}  // namespace
}  // namespace ozmo::sample
