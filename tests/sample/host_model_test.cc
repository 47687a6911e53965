// Layouts, the cutting of a span into files, and what a simulated host must keep true.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sample/kinds.h"

namespace ozmo::sample {
namespace {

TEST(LayoutTest, TwinsFollowTheirBasesAndTakeTheirFields) {
  static constexpr RecordLayout RECORDS[] = {
      {17, 1, 1, ""}, {18, 2, 1, "9:4"}, {1, 0, 1, "3:8"}, {2, 0, 3, "4:8"}};
  const std::vector<ExpandedRecord> rows = ExpandLayout(RECORDS, 1);
  ASSERT_EQ(rows.size(), 4U);
  EXPECT_EQ(rows[0].recordType, 1U);
  EXPECT_EQ(rows[2].recordType, 17U);
  EXPECT_EQ(rows[2].fields.at(0).fieldId, 3);
  EXPECT_EQ(rows[3].fields.at(0).fieldId, 9);
  EXPECT_EQ(ExpandLayout(RECORDS, 2).size(), 1U);
}

TEST(LayoutTest, ExactVersionWinsOverOneThatIsContained) {
  const std::span<const VersionLayout> versions = FindSampleKind("linux")->versions;
  EXPECT_EQ(FindVersion(versions, "P730")->text, "P730");
  EXPECT_EQ(FindVersion(versions, "P730_64 build 7")->text, "P730_64");
  EXPECT_EQ(FindVersion(versions, "P999"), nullptr);
}

std::vector<DayFile> HourlySamples(int startHour, int hours, int filesPerDay) {
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
  for (const DayFile& file : HourlySamples(20, 11, 2)) {
    names += FileDate(file.date) + "_" + std::to_string(file.number) + " ";
    times.insert(times.end(), file.times.begin(), file.times.end());
  }
  EXPECT_EQ(names, "2012Feb22_1 2012Feb22_2 2012Feb23_1 2012Feb23_2 ");
  ASSERT_EQ(times.size(), 11U);
  for (size_t i = 1; i < times.size(); ++i) EXPECT_EQ(times[i] - times[i - 1], 3600);
}

TEST(DayFilesTest, NoFileIsEmpty) { EXPECT_EQ(HourlySamples(0, 3, 24).size(), 3U); }

class HostModelTest : public ::testing::Test {
 protected:
  static constexpr ProgramDescription PROGRAMS[] = {
      {"server", "root", 3, 5.0, 0, 100},
      {"editor", "anna", 9, 1.0, 7, 20, Shift::DAY},
      {"backup", "root", 4, 3.0, 20, 20, Shift::NIGHT},
  };
  static constexpr DiskDescription DISKS[] = {{"disk0", 100, 0.5, 5, 16, 1000},
                                              {"busy", 1000, 0.5, 50, 16, 1000}};
  static constexpr Work WORKS[] = {{Shift::DAY, Days::WORKDAYS, 9, 17, 1, 0.6},
                                   {Shift::NIGHT, Days::ALL, 23, 26.5, 0.5, 0.5}};
  static constexpr HostDescription HOST{.name = "host",
                                        .processors = 4,
                                        .foldedProcessors = 1,
                                        .memoryMb = 1024,
                                        .second = 7,
                                        .idleLoad = 0.05,
                                        .systemShare = 0.2,
                                        .waitShare = 0.3,
                                        .cacheShare = 0.5,
                                        .pagesPerSecond = 50,
                                        .opensPerSecond = 5,
                                        .works = WORKS,
                                        .programs = PROGRAMS,
                                        .disks = DISKS,
                                        .fileSystems = {},
                                        .adapters = {}};
  static constexpr int64_t MIDNIGHT = 1329868800;  // 22-Feb-2012

  static int Count(const HostSample& sample, std::string_view image) {
    int count = 0;
    for (const ProcessSample& process : sample.processes) count += process.image == image ? 1 : 0;
    return count;
  }
};

TEST_F(HostModelTest, TimesAddUpInEveryInterval) {
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

TEST_F(HostModelTest, TheDayRisesAndFallsAndProcessesComeAndGo) {
  const int64_t office = MIDNIGHT + 10 * 3600 + 1800;
  const int64_t saturday = office + 3 * 86400;
  const int64_t night = MIDNIGHT + 2 * 3600;  // what began the evening before goes on
  const int64_t dawn = MIDNIGHT + 5 * 3600;
  EXPECT_GT(LoadAt(HOST, 1, office), 2 * LoadAt(HOST, 1, dawn));
  EXPECT_GT(LoadAt(HOST, 1, office), 2 * LoadAt(HOST, 1, saturday));
  EXPECT_NE(LoadAt(HOST, 1, office), LoadAt(HOST, 2, office));
  EXPECT_GT(LoadAt(HOST, 1, night), 2 * LoadAt(HOST, 1, dawn));
  EXPECT_GT(Count(SampleHost(HOST, 1, office, 60), "editor"), 2);
  EXPECT_EQ(Count(SampleHost(HOST, 1, office, 60), "backup"), 0);
  EXPECT_GT(Count(SampleHost(HOST, 1, night, 60), "backup"), 0);
  EXPECT_EQ(Count(SampleHost(HOST, 1, dawn, 60), "server"), 3);
}

}  // namespace
}  // namespace ozmo::sample
