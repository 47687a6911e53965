// What ozmo_import takes from the texts of atop and sadf, and what it does with damaged ones.
#include "programs/import/import.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "programs/import/minutes.h"
#include "programs/import/source.h"
#include "programs/import/whole_disks.h"
#include "tests/support/temp_directory.h"

namespace ozmo::import {
namespace {

// "@" is the words that all lines have: of a sample of 60 seconds, and of node "web".
std::string AtopLines(std::string text, const std::string& time = "1329897660") {
  const std::string head = " web " + time + " 2012/02/22 08:01:00 60 ";
  for (size_t place = 0; (place = text.find(" @ ", place)) != std::string::npos;)
    text.replace(place, 3, head);
  return text;
}

const std::string ATOP_SAMPLE =
    "CPU @ 100 2 1 1 1 1 1 0 0 0 0\n"
    "cpu @ 1000 3 1000 20000 3000 30000 400 50 60 7 8 2400 100\n"
    "MEM @ 4096 1000 100 300 50 9 9 9 0 40 30 0\n"
    "PAG @ 4096 9 9 0 11 12 0 0 0 0 17 18\n"
    "LVM @ vg0 9 9 9 9 9 0 0 0 1.0\n"
    "DSK @ sda 200 30 4000 10 500 -1 -1 7 2.50\n"
    "NET @ upper 101 102 103 104 105 106 107 108 109 110 111 112 113 114 115 116\n"
    "NET @ eth0 11 1200 13 1400 1000 1\n"
    "NET @ eth9 0 0 0 0 0 0\n"
    "PRG @ 70 (x) S 1 (y) S 0 0 70 2 0 1329890000 (/bin/x) 1 2 3 4 5 6 7 8 9 y n (a b) 12 1 0 0 33 0 0 0 0 0 "
    "0 y 0 0 - N (/a)\n"
    "PRG @ 71 (thread) S 0 0 70 1 0 1329890000 () 12 1 0 0 33 0 0 0 0 0 0 n 0 0 - N ()\n"
    "PRG @ 72 (kworker/0:1) I 0 0 72 1 0 1329890000 () 2 0 0 1 0 0 0 0 0 0 0 y 0 0 - N ()\n"
    "PRG @ 73 (cc1) E 33 33 73 0 0 1329890000 () 12 0 0 0 0 0 0 0 0 0 5 y\n"
    "PRC @ 70 (x) S 1 (y) S 1000 50 60 0 120 0 0 1 0 70 y 0 () 0\n"
    "PRC @ 71 (thread) S 1000 900 900 0 120 0 0 1 0 70 n 0 () 0\n"
    "PRC @ 72 (kworker/0:1) I 1000 0 70 0 120 0 0 1 0 72 y 0 () 0\n"
    "PRC @ 73 (cc1) E 1000 500 600 0 0 0 0 -1 0 73 y\n"
    "PRM @ 70 (x) S 1 (y) S 4096 2000 300 10 0 0 44 55 0 0 0 0 70 y\n"
    "PRM @ 71 (thread) S 4096 2000 300 10 0 0 9 9 0 0 0 0 70 n\n"
    "PRM @ 72 (kworker/0:1) I 4096 0 0 0 0 0 0 0 0 0 0 0 72 y\n"
    "PRM @ 73 (cc1) E 4096 0 0 0 0 0 6 7 0 0 0 0 73 y\n"
    "SEP\n";

class ImportTest : public ::testing::Test {
 protected:
  std::string Write(const std::string& name, const std::string& text) {
    const std::string path = directory_ / name;
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }

  // The samples of a text, and the failure that ended it.
  std::vector<Sample> SamplesOf(const Source& source, const std::string& text) {
    Texts texts;
    EXPECT_EQ(texts.emplace_back().OpenFile(Write("text", text)), "");
    UserNames users;
    EXPECT_EQ(users.Load(Write("passwd", "www:x:33:33::/:/bin/sh\n")), "");
    std::vector<Sample> samples;
    failure_ = source.readText(texts, users, [&](const Sample& sample) {
      samples.push_back(sample);
      return "";
    });
    return samples;
  }

  ImportResult Run(const std::string& text) { return RunAll({text}); }
  ImportResult RunAll(const std::vector<std::string>& texts, std::optional<int64_t> begin = std::nullopt) {
    Options options;
    options.directory = directory_ / "data";
    options.begin = begin;
    for (const std::string& text : texts) {
      options.sources.push_back(Write("recording" + std::to_string(options.sources.size()), text));
    }
    return ImportRecordings(options, nullptr);
  }

  std::vector<std::string> DataFiles() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory_ / "data")) {
      names.push_back(entry.path().filename().string() + "=" + std::to_string(entry.file_size()));
    }
    std::ranges::sort(names);
    return names;
  }

  testing::TempDirectory directory_;
  std::string failure_;
};

TEST_F(ImportTest, AtopFieldsGoWhereTheyBelong) {
  const std::vector<Sample> samples = SamplesOf(
      *FindSource("atop"), "RESET\n" + AtopLines(ATOP_SAMPLE, "1329897600") + AtopLines(ATOP_SAMPLE));
  EXPECT_EQ(failure_, "");
  ASSERT_EQ(samples.size(), 1U);  // what is since boot is no interval
  const Sample& sample = samples[0];
  EXPECT_EQ(sample.node + " " + std::to_string(sample.time) + " " + std::to_string(sample.seconds),
            "web 1329897660 60");
  const host_file::HostFigures& host = sample.figures;
  ASSERT_EQ(host.processors.size(), 1U);
  const auto& cpu = host.processors[0];
  EXPECT_EQ((std::vector<uint64_t>{cpu.user, cpu.nice, cpu.system, cpu.idle, cpu.wait}),
            (std::vector<uint64_t>{2000, 300, 100 + 5 + 6, 3000, 40}));
  EXPECT_EQ(cpu.id, 3);
  const auto& memory = host.memory;
  EXPECT_EQ((std::vector<uint64_t>{memory.total, memory.free, memory.shared, memory.buffers, memory.cached}),
            (std::vector<uint64_t>{4000, 400, 160, 200, 1040}));
  const auto& paging = host.paging;
  EXPECT_EQ((std::vector<uint64_t>{paging.pagedIn, paging.pagedOut, paging.swappedIn, paging.swappedOut}),
            (std::vector<uint64_t>{17, 18, 11, 12}));
  ASSERT_EQ(host.disks.size(), 1U);
  EXPECT_EQ(host.disks[0].figures,
            (std::array<uint64_t, 11>{30, 0, 4000, 375, 10, 0, 500, 125, 7, 200, 500}));
  ASSERT_EQ(host.adapters.size(), 1U);
  EXPECT_EQ(host.adapters[0].figures, (std::array<uint64_t, 7>{11, 1200, 0, 13, 1400, 0, 0}));
  EXPECT_EQ(
      (std::vector<uint64_t>{host.protocols[2], host.protocols[49], host.protocols[53], host.protocols[60]}),
      (std::vector<uint64_t>{105, 111, 113, 104}));

  ASSERT_EQ(host.processes.size(), 3U);  // no thread; one record for what ended
  const auto& process = host.processes[0];
  EXPECT_EQ(process.command + " " + process.user, "/bin/x) 1 2 3 4 5 6 7 8 9 y n (a b www");
  EXPECT_EQ((std::vector<uint64_t>{process.own.userTicks, process.own.systemTicks, process.own.minorFaults,
                                   process.own.majorFaults, process.virtualBytes, process.residentBytes}),
            (std::vector<uint64_t>{5, 6, 44, 55, 2000 * 1024, 300 * 1024}));
  EXPECT_EQ(host.processes[1].command + " " + host.processes[1].user, "[kworker/0:1] 0");
  EXPECT_EQ(host.processes[2].command + " " + host.processes[2].user, "cc1 www");
  EXPECT_EQ(host.processes[2].own.systemTicks, 60U);
}

TEST_F(ImportTest, SysstatRatesBecomeCounts) {
  // A line each, after what all of them begin with.
  std::istringstream rows(
      "all %usr 99\ncpu1 %usr 10.5\ncpu1 %guest 1\ncpu1 %irq 0.5\ncpu1 %sys 2\ncpu1 %idle 86\n"
      "- kbmemfree 1000\n- kbmemused 2000\n- kbslab 5\n- pgpgin/s 8\n- irec/s 2\nsda tps 4\n"
      "sda rkB/s 3\nsda wkB/s 1\nsda await 5\nsda %util 50\neth0 rxkB/s 2\nlo rxpck/s 0\n"
      "/dev/sda1 MBfsfree 40\n/dev/sda1 MBfsused 60\n/dev/sda1 %ufsused 75\n36 all 329\n");
  std::string text = "web\t-1\t1329890000\tLINUX-RESTART\t(2 CPU)\n";
  for (std::string row; std::getline(rows, row);) {
    std::ranges::replace(row, ' ', '\t');
    text += "web\t60\t1329897660\t" + row + "\n";
  }
  const std::vector<Sample> samples = SamplesOf(*FindSource("sysstat"), text);
  ASSERT_EQ(samples.size(), 1U) << failure_;
  const host_file::HostFigures& host = samples[0].figures;
  ASSERT_EQ(host.processors.size() + host.disks.size() + host.adapters.size() + host.fileSystems.size(), 4U);
  EXPECT_EQ(host.processors[0].user, 690U);
  EXPECT_EQ(host.processors[0].system, 150U);
  EXPECT_EQ(host.memory.total, 3005U);
  EXPECT_EQ(host.paging.pagedIn, 120U);
  EXPECT_EQ(host.protocols[2], 120U);
  EXPECT_EQ(host.disks[0].figures,
            (std::array<uint64_t, 11>{180, 0, 360, 900, 60, 0, 120, 300, 0, 30000, 0}));
  EXPECT_EQ(host.adapters[0].figures[1], 122880U);
  EXPECT_EQ(host.fileSystems[0].availableBlocks, 25U);
}

TEST(WholeDisksTest, NothingIsCountedTwice) {
  std::vector<host_file::DiskFigures> disks;
  for (const char* name : {"sda", "sda1", "sdb1", "sdaa", "nvme0n1", "nvme0n1p2", "nvme0n12", "dm-0", "md127",
                           "loop3", "zram0", "mdisk", "p1", "0p1"}) {
    disks.push_back({name, {}});
  }
  KeepWholeDisks(disks);
  std::string text;
  for (const host_file::DiskFigures& disk : disks) text += disk.name + " ";
  EXPECT_EQ(text, "sda sdb1 sdaa nvme0n1 nvme0n12 mdisk p1 0p1 ");
}

// Each sample as its end and its length, with the ticks of a processor that has one a second.
TEST(MinutesTest, ShortSamplesBecomeMinutes) {
  struct Case {
    std::vector<std::pair<int64_t, int64_t>> samples;  // end and length
    const char* minutes;
  };
  const Case cases[] = {
      {{{600, 600}, {660, 60}, {719, 59}}, "600/600=600 660/60=60 719/59=59 "},  // a minute, with its slack
      {{{625, 20}, {645, 20}, {665, 20}, {685, 20}, {705, 20}, {725, 20}, {745, 20}, {765, 20}, {770, 5}},
       "645/40=40 705/60=60 770/65=65 "},  // what is left at the end counts with the last
      {{{640, 10}, {650, 10}}, "650/20=20 "},
      {{{690, 30}, {720, 30}, {900, 30}, {1500, 600}, {1510, 10}, {1505, 5}},
       "720/60=60 900/30=30 1500/600=600 1510/10=10 1505/5=5 "},  // a gap, a long one, an older one
      {{{645, 45}, {690, 45}, {735, 45}, {780, 45}, {825, 45}, {870, 45}},
       "645/45=45 735/90=90 780/45=45 870/90=90 "},
      {{{631, 31}, {662, 31}, {693, 31}, {724, 31}, {755, 31}}, "662/62=62 755/93=93 "},
  };
  for (const Case& one : cases) {
    std::string text;
    const Minutes::Sink sink = [&](const Sample& sample, int64_t interval) {
      text += std::to_string(sample.time) + "/" + std::to_string(sample.seconds) + "=" +
              std::to_string(sample.figures.processors[0].user) + " ";
      EXPECT_GE(interval, std::min<int64_t>(sample.seconds, 60));
      return "";
    };
    Minutes minutes;
    for (const auto& [time, seconds] : one.samples) {
      Sample sample{.node = "web", .time = time, .seconds = seconds, .figures = {}};
      sample.figures.processors.push_back({.id = 0, .user = static_cast<uint64_t>(seconds)});
      EXPECT_EQ(minutes.Add(sample, sink), "");
    }
    EXPECT_EQ(minutes.Finish(sink), "");
    EXPECT_EQ(text, one.minutes);
  }
}

TEST_F(ImportTest, ADayIsWholeOrNotThere) {
  const std::string text = AtopLines(ATOP_SAMPLE) + AtopLines(ATOP_SAMPLE, "1329897720");
  const ImportResult done = Run(text);
  EXPECT_EQ(done.failure, "");
  ASSERT_EQ(done.files.size(), 1U);
  EXPECT_EQ(done.notes, std::vector<std::string>{"not recorded, so there are no graphs of: file systems"});
  const auto size = std::filesystem::file_size(done.files[0]);
  const ImportResult again = Run(text);
  EXPECT_TRUE(again.files.empty());
  EXPECT_NE(again.notes[0].find("is there already"), std::string::npos);
  EXPECT_EQ(std::filesystem::file_size(done.files[0]), size);
  std::ofstream(done.files[0], std::ios::app) << "x";  // no longer ours: where it ends isn't known
  EXPECT_TRUE(Run(text + AtopLines(ATOP_SAMPLE, "1329897780")).files.empty());
  std::filesystem::remove(done.files[0]);

  struct Damage {
    std::string text;
    const char* failure;
  };
  const Damage damages[] = {
      {"", "the file is empty"},
      {"hello\n", "nothing that ozmo_import knows"},
      {"RESET\nPRG web 1 2 3\nSEP\n", "line 2 isn't one of atop's"},
      {text + "PRC @ 70 (x) S 1000 1 1 0\n", "line 45 isn't one of atop's"},
      {AtopLines("CPU @ 1\nPRG @ 70 (no end S 0 0\n"), "line 2 isn't one of atop's"},
      {text.substr(0, 300), "there is no sample in it"},
      {AtopLines("cpu @ 100 0 1 1 1 1 1 1 1\nSEP\n", "99999999999"), "line 1 isn't one of atop's"},
      {"cpu ../web 1329897660 2012/02/22 08:01:00 60 100 0 1 1 1 1\nSEP\n", "has a slash"},
      {"cpu qtxs_x 1329897660 2012/02/22 08:01:00 60 100 0 1 1 1 1\nSEP\n", "read as a file of Solaris"},
      {"cpu a\x1b 1329897660 2012/02/22 08:01:00 60 100 0 1 1 1 1\nSEP\n", "a control character"},
  };
  for (const Damage& damage : damages) {
    const ImportResult result = Run(damage.text);
    EXPECT_NE(result.failure.find(damage.failure), std::string::npos) << result.failure << "\n"
                                                                      << damage.failure;
    EXPECT_TRUE(DataFiles().empty());
  }
}

std::string AtopSamples(std::initializer_list<int64_t> times) {
  std::string text;
  for (const int64_t time : times) text += AtopLines(ATOP_SAMPLE, std::to_string(time));
  return text;
}

// Midnight in the zone of the tests, which may be any.
int64_t MidnightAfter(int64_t time) {
  std::tm clock{};
  const time_t start = time;
  localtime_r(&start, &clock);
  clock.tm_mday += 1;
  clock.tm_hour = clock.tm_min = clock.tm_sec = 0;
  clock.tm_isdst = -1;
  return mktime(&clock);
}

// Recordings that end a little after midnight, one a night or all at once, in any order.
TEST_F(ImportTest, ADayComesInParts) {
  const int64_t night = MidnightAfter(1329897600);
  const std::string first = AtopSamples({night - 3600, night - 60, night});
  const std::string second = AtopSamples({night + 60, night + 120, night + 180});
  for (const std::string& text : {first, second, first, second}) EXPECT_EQ(Run(text).failure, "");
  const std::vector<std::string> state = DataFiles();
  ASSERT_EQ(state.size(), 3U);
  EXPECT_NE(state[2].find("dat_2="), std::string::npos);
  std::filesystem::remove_all(directory_ / "data");
  EXPECT_EQ(RunAll({second, first}).failure, "");
  EXPECT_EQ(DataFiles(), state);

  // One that has grown since.
  const ImportResult grown = Run(second + AtopSamples({night + 240}));
  EXPECT_EQ(grown.files.size(), 1U);
  EXPECT_NE(grown.notes[0].find("samples left out up to its end: 3"), std::string::npos) << grown.notes[0];
}

TEST_F(ImportTest, AClockThatGoesBackOverMidnightCostsWhatIsCounted) {
  const int64_t night = MidnightAfter(1329897600);
  const ImportResult back = Run(AtopSamples({night - 60, night + 60, night - 20, night + 60, night + 120}));
  EXPECT_NE(back.notes[0].find("2 samples left out"), std::string::npos);
  EXPECT_EQ(back.files.size(), 2U);
}

TEST_F(ImportTest, ARecordingOutsideTheSpanIsNoFailureWhereAnotherHasSamples) {
  const std::string text = AtopSamples({1329897660});
  const std::string later = AtopSamples({1329997660});
  const ImportResult one = RunAll({text, later}, 1329990000);
  EXPECT_EQ(one.failure, "");
  EXPECT_EQ(one.files.size(), 1U);
  EXPECT_NE(one.notes[0].find("recording0: no sample in the span"), std::string::npos) << one.notes[0];
  EXPECT_EQ(RunAll({text, later}, 1339990000).failure, "nothing was recorded in the span");
}

// What no number says of a disk's queue.
TEST_F(ImportTest, AQueueWithoutADepthCountsNothing) {
  for (const char* depth : {"nan", "inf", "-inf", "x"}) {
    const std::vector<Sample> samples =
        SamplesOf(*FindSource("atop"),
                  AtopLines("DSK @ sda 0 30 4000 10 500 -1 -1 7 " + std::string(depth) + "\nSEP\n"));
    ASSERT_EQ(samples.size(), 1U);
    EXPECT_EQ(samples[0].figures.disks[0].figures[10], 0U);
  }
}

}  // namespace
}  // namespace ozmo::import
