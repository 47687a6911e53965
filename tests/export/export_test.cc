// ozmo_export on sample files: what both formats hold of each kind, and what becomes of awkward input. That
// stores take it and give it back is the matter of scripts/check-export.
#include "programs/export/export.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "programs/sample/kinds.h"
#include "tests/end_to_end/process.h"
#include "tests/support/sample_day.h"
#include "tests/support/temp_directory.h"

namespace ozmo::exporting {
namespace {

namespace fs = std::filesystem;

constexpr const char* EXPORT = OZMO_BINARY_DIR "/ozmo_export";
constexpr const char* DAY = "out/day=2012-02-22/host=";

class Export : public ::testing::Test {
 protected:
  // The data files of a sample host from 8:00 on, with these options changed.
  std::vector<std::string> Sample(const char* kind,
                                  const std::function<void(sample::SampleOptions&)>& change = {}) {
    sample::SampleOptions options;
    options.directory = Path("data");
    options.startHour = 8;
    options.hours = 1;
    if (change) change(options);
    const sample::SampleResult written = sample::WriteSample(*sample::FindSampleKind(kind), options);
    EXPECT_EQ(written.error, "");
    return written.files;
  }

  ProcessResult Run(const char* format, const std::vector<std::string>& files) {
    std::vector<std::string> words = {EXPORT, "--to", format, "-o", Path("out")};
    words.insert(words.end(), files.begin(), files.end());
    return RunProcess(words, {{"TZ", "UTC"}, {"VELTRIX_LIBRARY", OZMO_SOURCE_DIR}}, directory_.path(),
                      scratch_.path());
  }

  std::string Path(const std::string& name) const { return directory_.path() + "/" + name; }
  std::vector<std::string> Lines(const std::string& name) const {
    std::vector<std::string> lines;
    std::istringstream text(ReadWholeFile(Path(name)));
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
  }
  // The files below the output directory, without it.
  std::set<std::string> Written() const {
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(Path("out"))) {
      if (entry.is_regular_file()) names.insert(fs::relative(entry.path(), Path("out")).string());
    }
    return names;
  }

  testing::TempDirectory directory_;
  testing::TempDirectory scratch_;
};

struct KindCase {
  const char* kind;
  const char* host;
  const char* process;  // a line of its table after the time
};

class ExportOfKind : public Export, public ::testing::WithParamInterface<KindCase> {};

// Each item has a name as a metric, families and series are whole, and no point is there twice.
TEST_P(ExportOfKind, HasEachItemInBothFormats) {
  const std::vector<std::string> files = Sample(GetParam().kind);
  for (const char* format : {"openmetrics", "csv"}) {
    const ProcessResult run = Run(format, files);
    EXPECT_EQ(run.exitStatus, 0) << run.standardError;
    EXPECT_EQ(run.standardError, "");
  }
  const std::vector<std::string> metrics = Lines(std::string(DAY) + GetParam().host + "/items.om");
  std::set<std::string> families;
  std::set<std::string> series;
  std::string family;
  std::string last;  // series
  Seconds lastTime = 0;
  size_t points = 0;
  for (const std::string& line : metrics) {
    if (line.starts_with("# TYPE ")) {
      family = line.substr(7, line.find(' ', 7) - 7);
      EXPECT_TRUE(families.insert(family).second) << line;
    }
    if (line.starts_with("#")) continue;
    ++points;
    const size_t end = line.rfind("} ") + 1;
    const Seconds time = std::stoll(line.substr(line.rfind(' ')));
    EXPECT_TRUE(line.starts_with(family + "{host=\"" + GetParam().host + "\",system=\"")) << line;
    if (line.substr(0, end) == last) {
      EXPECT_EQ(time, lastTime + SECONDS_PER_MINUTE) << line;
    } else {
      last = line.substr(0, end);
      EXPECT_TRUE(series.insert(last).second) << line;
      EXPECT_LE(time, testing::MIDNIGHT + 8 * 3600 + 180) << line;  // no minutes before the file's first
    }
    lastTime = time;
  }
  EXPECT_EQ(metrics.back(), "# EOF");
  EXPECT_GT(families.size(), 25U);
  EXPECT_EQ(Lines(std::string(DAY) + GetParam().host + "/items.csv").size(), points + 1);

  const std::vector<std::string> processes = Lines(std::string(DAY) + GetParam().host + "/processes.csv");
  EXPECT_EQ(processes.at(0), "ts,host,pid,parent,user,image,command,cpu,resident,faults");
  EXPECT_EQ(processes.at(1).substr(processes.at(1).find(',') + 1), GetParam().process);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ExportOfKind,
    ::testing::Values(KindCase{"solaris", "ledger", "ledger,21057,55,webservd,httpd,httpd,0.4643,13096,0.03"},
                      KindCase{"linux", "forge", "forge,2239,72,build,ctest,ctest,0.175,72664,1.32"},
                      KindCase{"aix", "granite", "granite,13401,42,root,sshd,sshd,0.1187,4350,0.85"},
                      KindCase{"hpux", "harbor",
                               "harbor,27380,16,backup,omniback,omniback,3.7073,35648,18.97"},
                      KindCase{"tru64", "quasar", "quasar,11120,8,lucia,charmm,charmm,1.1579,172684,"},
                      KindCase{"vmr", "OFFICE", "OFFICE,511,,,w3wp,w3wp,1.4392,121409,2.44"}),
    [](const auto& row) { return row.param.kind; });

TEST_F(Export, WritesTheSameBytesAgainAndReadsThePartsOfADayOnce) {
  const std::vector<std::string> files = Sample("linux", [](auto& options) {
    options.hours = 2;
    options.filesPerDay = 3;
  });
  ASSERT_EQ(files.size(), 3U);
  EXPECT_EQ(Run("csv", {files[1], files[0], files[2]}).standardOutput, Path("out") + ": 1 day of a host\n");
  const std::string items = std::string(DAY) + "forge/items.csv";
  const std::string before = ReadWholeFile(Path(items));
  EXPECT_NE(before.find("T09:59:00Z"), std::string::npos);
  EXPECT_EQ(Run("csv", {files[0]}).exitStatus, 0);
  EXPECT_EQ(ReadWholeFile(Path(items)), before);
  EXPECT_EQ(Written().size(), 2U);
}

// A host that was down isn't one that idled.
TEST_F(Export, LeavesOutMinutesWithoutData) {
  const std::string text = ReadWholeFile(Sample("vmr").at(0));
  const std::string noon = Sample("vmr", [](auto& options) {
                             options.replace = true;
                             options.startHour = 12;
                           }).at(0);
  constexpr std::string_view END_OF_HEAD = "<ENDCONFIG>\n";
  const std::string noonText = ReadWholeFile(noon);
  std::ofstream(noon) << text << noonText;
  const ProcessResult corrupt = Run("csv", {noon});
  EXPECT_EQ(corrupt.exitStatus, 1);
  EXPECT_EQ(corrupt.standardError, "ozmo_export: " + noon + ": reading it has ended the run\n");

  std::ofstream(noon) << text << noonText.substr(noonText.find(END_OF_HEAD) + END_OF_HEAD.size());
  EXPECT_EQ(Run("csv", {noon}).standardOutput, Path("out") + ": 1 day of a host\n");
  const std::string items = ReadWholeFile(Path(std::string(DAY) + "OFFICE/items.csv"));
  EXPECT_NE(items.find("T08:30:00Z"), std::string::npos);
  EXPECT_NE(items.find("T12:30:00Z"), std::string::npos);
  EXPECT_EQ(items.find("T10:30:00Z"), std::string::npos);
}

// Texts of a host are data in whatever is made of them.
TEST_F(Export, EscapesNames) {
  const std::vector<std::string> files =
      Sample("linux", [](auto& options) { options.node = "a\"b\\c,<d\te\n"; });
  EXPECT_EQ(Run("openmetrics", files).standardError, "");
  EXPECT_EQ(Run("csv", files).standardError, "");
  const std::string directory = "day=2012-02-22/host=a%22b%5Cc%2C%3Cd%09e%0A/";
  EXPECT_EQ(Written(), (std::set<std::string>{directory + "items.csv", directory + "items.om",
                                              directory + "processes.csv"}));
  EXPECT_NE(ReadWholeFile(Path("out/" + directory + "items.om"))
                .find("{host=\"a\\\"b\\\\c,<d\xEF\xBF\xBD"
                      "e\xEF\xBF\xBD\",system="),
            std::string::npos);
  EXPECT_NE(ReadWholeFile(Path("out/" + directory + "processes.csv"))
                .find(",\"a\"\"b\\c,<d\xEF\xBF\xBD"
                      "e\xEF\xBF\xBD\","),
            std::string::npos);
}

TEST_F(Export, GoesOnAfterAFileThatFails) {
  const std::string good = Sample("linux").at(0);
  const std::string other = Path("more/") + fs::path(good).filename().string();
  fs::create_directory(Path("more"));
  fs::copy_file(good, other);
  const ProcessResult run = Run("csv", {Path("qtxl_none_2012Feb22.dat_1"), good, other});
  EXPECT_EQ(run.exitStatus, 1);
  EXPECT_EQ(run.standardError, "ozmo_export: " + Path("qtxl_none_2012Feb22.dat_1") +
                                   ": No such file or directory\n" + "ozmo_export: " + other +
                                   ": day=2012-02-22/host=forge is exported from " + good + " already\n");
  EXPECT_EQ(Written().size(), 2U);
  // A day is of the file that has it, and not of one that was cut after its head.
  const std::string monitor = Sample("vmr").at(0);
  const std::string cut = Path("more/") + fs::path(monitor).filename().string();
  std::ofstream(cut) << ReadWholeFile(monitor).substr(0, 3000);
  const ProcessResult both = Run("csv", {cut, monitor});
  EXPECT_EQ(both.standardOutput, Path("out") + ": 1 day of a host\n");
  EXPECT_TRUE(both.standardError.starts_with("ozmo_export: " + cut + ": no data")) << both.standardError;
}

// One level is made; what a mistyped path names isn't.
TEST_F(Export, MakesItsDirectoryAndNoneAboveIt) {
  const std::string file = Sample("vmr").at(0);
  std::ofstream(Path("file")) << "x";
  for (const char* directory : {"none/out", "file", "file/out"}) {
    const ProcessResult run = RunProcess({EXPORT, "--to", "csv", "-o", directory, file}, {{"TZ", "UTC"}},
                                         directory_.path(), scratch_.path());
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_TRUE(run.standardError.starts_with("ozmo_export: " + std::string(directory) + ": N"))
        << run.standardError;
  }
  EXPECT_FALSE(fs::exists(Path("none")));
}

TEST_F(Export, RefusesAWrongCommandLine) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"--to", "xml", "file"}, {"file"}, {"--to", "csv"}, {"-o", "", "file"}}) {
    std::vector<std::string> all = {EXPORT};
    all.insert(all.end(), words.begin(), words.end());
    const ProcessResult run = RunProcess(all, {}, directory_.path(), scratch_.path());
    EXPECT_EQ(run.exitStatus, 2);
    EXPECT_TRUE(run.standardError.ends_with("\nozmo_export --help says more\n")) << run.standardError;
  }
}

}  // namespace
}  // namespace ozmo::exporting
