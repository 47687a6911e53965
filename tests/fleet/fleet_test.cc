// ozmo_fleet on data files, summaries and what is neither: what it takes for what, what it does again, whom
// it names.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "programs/fleet/inputs.h"
#include "programs/fleet/kept.h"
#include "programs/fleet/limit.h"
#include "programs/fleet/page.h"
#include "programs/fleet/table.h"
#include "programs/sample/kinds.h"
#include "tests/end_to_end/process.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo::fleet {
namespace {

namespace fs = std::filesystem;
using report::Figure;
using report::Summary;

Summary Busy() {
  constexpr Seconds BEGIN = 1329868800;  // 2012-02-22, UTC
  const auto line = [&](Figure figure, const char* name, double mean, double p95, double peak) {
    return report::SummaryLine{.figure = figure,
                               .name = name,
                               .mean = mean,
                               .p95 = p95,
                               .peak = peak,
                               .peakTime = BEGIN + 3660,
                               .busiestHour = BEGIN + 3600,
                               .hours = {1, 2}};
  };
  return {.host = "forge",
          .system = "Linux",
          .processors = 8,
          .begin = BEGIN,
          .end = BEGIN + 7200,
          .missing = 7,
          .lines = {line(Figure::CPU, "", 50, 90, 99), line(Figure::DISK, "sda", 10, 70, 80),
                    line(Figure::DISK, "sdb", 20, 60, 95), line(Figure::FILE_SYSTEM, "/", 60, 61, 62),
                    line(Figure::FILE_SYSTEM, "/tmp", 40, 90, 99)}};
}

TEST(FleetLimit, IsHeldAgainstEachLineOfItsFigure) {
  const testing::ScopedVariable zone("TZ", "UTC");
  struct Case {
    const char* text;
    std::vector<std::string> lines;
  };
  const Case cases[] = {
      {"cpu p95 > 90", {}},
      {"cpu p95>=90", {"forge, 2012-02-22: cpu p95>=90: 90.00 %, busiest from 01:00"}},
      {"disk peak > 79",
       {"forge, 2012-02-22: disk peak > 79: sda 80.00 %, at 01:01",
        "forge, 2012-02-22: disk peak > 79: sdb 95.00 %, at 01:01"}},
      {"disk mean < 10.5", {"forge, 2012-02-22: disk mean < 10.5: sda 10.00 %, busiest from 01:00"}},
      {" missing <= 7 ", {"forge, 2012-02-22:  missing <= 7 : 7 minutes without data"}},
      {"response mean > 0", {}},
  };
  for (const Case& test : cases) {
    const std::optional<Limit> limit = LimitOf(test.text);
    ASSERT_TRUE(limit) << test.text;
    EXPECT_EQ(LinesOver(*limit, Busy()), test.lines);
  }
  for (const char* text :
       {"", "cpu", "cpu p95", "cpu > 90", "cpu p95 > ", "cpu p95 > x", "cpu p95 > 9 0", "gpu p95 > 1",
        "missing mean > 1", "cpu p95 peak > 1", "cpu p95 > nan", "cpu p95 = 1"}) {
    EXPECT_FALSE(LimitOf(text)) << text;
  }
}

TEST(FleetTable, ARowShowsTheHighestOfItsKind) {
  const testing::ScopedVariable zone("TZ", "UTC");
  const std::string text = TableText({{Busy(), ""}});
  const std::vector<Column> columns = Columns();
  const std::vector<std::string> cells = CellsOf(Busy());
  ASSERT_EQ(columns.size(), cells.size());
  const auto cell = [&](const std::string& key) {
    return cells[static_cast<size_t>(std::ranges::find(columns, key, &Column::key) - columns.begin())];
  };
  EXPECT_EQ(cell("disk_name") + cell("disk_p95"), "sdb60.00");
  EXPECT_EQ(cell("filesystem_name"), "/tmp");
  EXPECT_EQ(cell("image_mean"), "");
  EXPECT_EQ(cell("cpu_busiest_hour"), "2012-02-22T01:00");
  EXPECT_TRUE(text.starts_with("host\tday\tsystem\t"));
  EXPECT_EQ(std::ranges::count(text, '\t'), 2 * static_cast<int>(columns.size() - 1));
}

TEST(FleetPage, HoursOfTheMapFollowTheClockWhereItIsSet) {
  const testing::ScopedVariable zone("TZ", "Europe/Berlin");
  struct Case {
    Seconds begin;
    size_t hours;
    const char* said;
  };
  const Case cases[] = {
      {1332630000, 23, "\"clock\":[[0,0],[2,1]]"},   // 2012-03-25
      {1351375200, 25, "\"clock\":[[0,0],[3,-1]]"},  // 2012-10-28
      {1332549000, 60, "\"clock\":[[0,1],[25,2]]"},  // 2012-03-24T01:30
      {1329865200, 24, "\"clock\":[[0,0]]"},
  };
  for (const Case& test : cases) {
    Summary summary = Busy();
    summary.begin = test.begin;
    for (report::SummaryLine& line : summary.lines) line.hours.assign(test.hours, 1);
    EXPECT_NE(PageOf({{summary, ""}}, {}, "fleet.html", "").find(test.said), std::string::npos) << test.said;
  }
}

class Fleet : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return directory_ / name; }

  void Write(const std::string& name, const std::string& text) const {
    fs::create_directories(fs::path(Path(name)).parent_path());
    std::ofstream(Path(name)) << text;
  }

  // An hour of a sample host, in two files where the kind has day sets.
  std::vector<std::string> Sample(const char* kind, const char* directory) const {
    sample::SampleOptions options;
    options.directory = Path(directory);
    options.startHour = 8;
    options.hours = 1;
    options.filesPerDay = 2;
    const sample::SampleResult written = sample::WriteSample(*sample::FindSampleKind(kind), options);
    EXPECT_EQ(written.error, "");
    return written.files;
  }

  ProcessResult Run(std::vector<std::string> words) {
    words.insert(words.begin(), OZMO_BINARY_DIR "/ozmo_fleet");
    return RunProcess(words, {{"TZ", "UTC"}, {"VELTRIX_LIBRARY", OZMO_SOURCE_DIR}}, directory_.path(),
                      scratch_.path());
  }

  testing::TempDirectory directory_;
  testing::TempDirectory scratch_;
};

TEST_F(Fleet, InADirectoryNamesAndContentsSayWhatAFileIs) {
  for (const char* name :
       {"d/qtxl_a_2012Feb22.dat_2", "d/qtxl_a_2012Feb22.dat_1", "d/qtxl_a_2012Feb23.dat_1.zst",
        "d/below/osf_q_2012Feb22.dat_1", "d/X.VMR;3", "d/qtxl_a_2012Feb22.dat_1.html", "d/notes",
        "d/.qtxl_b_2012Feb22.dat_1", "d/fleet.summaries/sum", "d/qtxl_2012Feb.dat_1"}) {
    Write(name, "x");
  }
  Write("d/sum", "# ozmo_summary 1\n");
  const Inputs found = FindInputs({Path("d"), Path("d/qtxl_a_2012Feb22.dat_2"), Path("none")});
  std::vector<std::string> data;
  for (const DataFiles& day : found.data) data.push_back(day.path.substr(Path("d/").size()));
  EXPECT_EQ(data, (std::vector<std::string>{"X.VMR;3", "below/osf_q_2012Feb22.dat_1",
                                            "qtxl_a_2012Feb22.dat_1", "qtxl_a_2012Feb23.dat_1.zst"}));
  EXPECT_EQ(found.data[2].files.size(), 2U);
  ASSERT_EQ(found.summaries.size(), 1U);
  EXPECT_EQ(found.summaries.front().path, Path("d/sum"));
  EXPECT_EQ(found.steppedOver, 3);
  EXPECT_EQ(found.problems, std::vector<std::string>{Path("none") + ": No such file or directory"});
  // A file alone is read with its day.
  EXPECT_EQ(FindInputs({Path("d/qtxl_a_2012Feb22.dat_2")}).data.front().files.size(), 2U);
}

TEST_F(Fleet, DoesAgainWhatIsNewAndNothingElse) {
  const std::vector<std::string> linux_files = Sample("linux", "data");
  Sample("aix", "data/below");
  Write("data/qtxl_broken_2012Feb22.dat_1", "no data");
  const std::vector<std::string> words = {"-j", "2", "--pages", "pages", "--tsv", "table.tsv", "data"};
  struct Step {
    const char* what;
    const char* said;
    std::function<void()> change;
  };
  const Step steps[] = {
      {"all is new", "2 days of hosts, 2 new of 2 data files", [] {}},
      {"nothing is new", "2 days of hosts, 0 new of 2 data files", [] {}},
      {"a second file of a day has grown", "1 new of 2 data files",
       [&] { std::ofstream(linux_files[1], std::ios::app) << '\0'; }},
      {"a kept summary was cut", "1 new of 2 data files",
       [&] { fs::resize_file(Path("fleet.summaries/qtxl_forge_2012Feb22.dat_1.tsv"), 2000); }},
      {"a page is gone", "1 new of 2 data files",
       [&] { fs::remove(Path("pages/qtxa_granite_2012Feb22.dat_1.html")); }},
      {"a page is of data before they grew", "1 new of 2 data files",
       [&] {
         std::ofstream(linux_files[1], std::ios::app) << '\0';
         Run({"data"});
       }},
  };
  std::string table;
  for (const Step& step : steps) {
    step.change();
    const ProcessResult result = Run(words);
    EXPECT_EQ(result.exitStatus, 1) << step.what;
    EXPECT_NE(result.standardOutput.find(step.said), std::string::npos) << step.what << result.standardOutput;
    EXPECT_NE(result.standardError.find("qtxl_broken_2012Feb22.dat_1"), std::string::npos)
        << result.standardError;
    if (table.empty()) table = ReadWholeFile(Path("table.tsv"));
    EXPECT_EQ(ReadWholeFile(Path("table.tsv")), table) << step.what;
  }
  EXPECT_NE(ReadWholeFile(Path("fleet.html")).find("\"link\":\"pages/qtxl_forge_2012Feb22.dat_1.html\""),
            std::string::npos);
  EXPECT_EQ(fs::exists(Path("fleet.summaries/qtxl_broken_2012Feb22.dat_1.tsv")), false);
}

TEST(FleetKept, ANameOutlivesCompressionAndIsOfOneFile) {
  const auto names = [](std::vector<std::string> paths) {
    std::vector<DataFiles> data;
    for (const std::string& path : paths) data.push_back({path, {}});
    return KeptNames(data);
  };
  EXPECT_EQ(names({"d/x.dat_1.zst"}), names({"e/x.dat_1"}));
  const std::vector<std::string> same = names({"d/x.dat_1", "e/x.dat_1"});
  EXPECT_NE(same[0], same[1]);
  EXPECT_EQ(names({"d/x.dat_1.zst", "e/x.dat_1"}), same);
  const std::vector<std::string> twice = names({"d/x", "d/x.zst"});
  EXPECT_NE(twice[0], twice[1]);
}

TEST_F(Fleet, RunsFewerAtATimeWhereOnlySoManyFilesMayBeOpen) {
  const std::string first = Sample("linux", "data").front();
  for (const char* host : {"a", "b", "c", "d", "e", "f", "g"})
    fs::copy_file(first, Path(std::string("data/qtxl_") + host + "_2012Feb22.dat_1"));
  const ProcessResult result =
      RunProcess({"/bin/sh", "-c", "ulimit -n 24; exec " OZMO_BINARY_DIR "/ozmo_fleet -j 8 data"},
                 {{"TZ", "UTC"}, {"VELTRIX_LIBRARY", OZMO_SOURCE_DIR}}, directory_.path(), scratch_.path());
  EXPECT_NE(result.standardOutput.find("8 new of 8 data files"), std::string::npos) << result.standardError;
}

TEST_F(Fleet, NamesWhoIsOverALimitAndWhatItCannotUse) {
  Sample("linux", "data");
  Run({"data", "-o", "made.html"});
  const std::string whole = ReadWholeFile(Path("made.summaries/qtxl_forge_2012Feb22.dat_1.tsv"));
  Write("cut.tsv", whole.substr(0, whole.size() / 2));
  Write("other.tsv", whole);
  struct Case {
    std::vector<std::string> words;
    int status;
    std::string said;
  };
  const Case cases[] = {
      {{"--limit", "missing > 60", "data"}, 3, "forge, 2012-02-22: missing > 60: "},
      {{"--limit", "cpu peak > 100.5", "data"}, 0, ""},
      {{"data", "cut.tsv"}, 1, "cut.tsv: line "},
      {{"data", "other.tsv"}, 1, "other.tsv: forge, 2012-02-22 is there already, from data/"},
      {{"cut.tsv", "-o", "none.html"}, 1, "no host in what was given"},
      {{"data", "-o", "other.tsv", "other.tsv"}, 1, "is read by this run"},
      {{"data", "-o", "/dev/full"}, 1, "/dev/full: No space left"},
      {{"data", "-o", "x", "--tsv", "./x"}, 1, "x: can't be the page and the table"},
      {{"data", "-o", "none/fleet.html"}, 1, "none/fleet.html: No such file or directory"},
      {{"data", "--tsv", "cut.tsv/table"}, 1, "cut.tsv/table: Not a directory"},
      {{"data", "--pages", "none/pages"}, 1, "none/pages: No such file or directory"},
      {{"data", "--pages", "cut.tsv"}, 1, "cut.tsv: Not a directory"},
      {{"-j", "0", "data"}, 2, "-j takes a number"},
      {{"--limit", "cpu", "data"}, 2, "--limit takes a figure"},
      {{}, 2, "no data file"},
      {{"--pags", "x"}, 2, "did you mean --pages?"},
  };
  for (const Case& test : cases) {
    const ProcessResult result = Run(test.words);
    EXPECT_EQ(result.exitStatus, test.status) << test.said << result.standardError;
    EXPECT_NE(result.standardError.find(test.said), std::string::npos) << result.standardError;
  }
  EXPECT_FALSE(fs::exists(Path("none.html")));
  EXPECT_FALSE(fs::exists(Path("none")));
  EXPECT_FALSE(fs::exists("/dev/full.summaries"));
  EXPECT_EQ(ReadWholeFile(Path("other.tsv")), whole);
  EXPECT_FALSE(fs::exists(Path("other.summaries")));
  const ProcessResult piped =
      RunProcess({"/bin/sh", "-c",
                  "cat other.tsv | " OZMO_BINARY_DIR "/ozmo_fleet -o /dev/stdout /dev/stdin | tail -n 1"},
                 {{"TZ", "UTC"}, {"PATH", "/usr/bin:/bin"}}, directory_.path(), scratch_.path());
  EXPECT_EQ(piped.standardOutput, "</html>\n");
  EXPECT_NE(piped.standardError.find("/dev/stdout: 1 day of a host"), std::string::npos);
}

}  // namespace
}  // namespace ozmo::fleet
