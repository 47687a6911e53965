// ozmo_report beside ozmo_graph on sample files: the same figures, its exit statuses, and names that stay
// texts.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "programs/report/data_day.h"
#include "programs/report/marks.h"
#include "programs/report/options.h"
#include "programs/report/pieces.h"
#include "programs/report/series.h"
#include "programs/report/text.h"
#include "programs/sample/kinds.h"
#include "tests/end_to_end/process.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo::report {
namespace {

namespace fs = std::filesystem;

constexpr const char* REPORT = OZMO_BINARY_DIR "/ozmo_report";
constexpr const char* IMPORT = OZMO_BINARY_DIR "/ozmo_import";
constexpr const char* TOOL = OZMO_BINARY_DIR "/ozmo_graph";
// A search for leaks takes longer than most of these runs; tests in one process have it.
const std::map<std::string, std::string> ENVIRONMENT = {
    {"TZ", "UTC"}, {"VELTRIX_LIBRARY", OZMO_SOURCE_DIR}, {"ASAN_OPTIONS", "detect_leaks=0"}};

class Report : public ::testing::Test {
 protected:
  // An hour of a sample host; the path of its file.
  std::string Sample(const sample::SampleKind& kind) {
    sample::SampleOptions options;
    options.directory = directory_.path();
    options.startHour = 8;
    options.hours = 1;
    const sample::SampleResult written = sample::WriteSample(kind, options);
    EXPECT_EQ(written.error, "");
    return written.files.at(0);
  }

  ProcessResult Run(std::vector<std::string> words, const char* program = REPORT) {
    words.insert(words.begin(), program);
    return RunProcess(words, ENVIRONMENT, directory_.path(), scratch_.path());
  }

  std::string Path(const std::string& name) const { return directory_.path() + "/" + name; }

  testing::TempDirectory directory_;
  testing::TempDirectory scratch_;
};

// The titles of --list that -item finds under that name.
std::set<std::string> Titles(const std::string& list) {
  std::set<std::string> titles;
  std::istringstream lines(list);
  for (std::string line; std::getline(lines, line);) titles.insert(line.substr(0, line.find('\t')));
  return titles;
}

std::string TitleOf(const std::string& csv) {
  constexpr std::string_view MARK = "Main Overlay: ";
  const size_t begin = csv.find(MARK) + MARK.size();
  return csv.substr(begin, csv.find('\n', begin) - begin);
}

class ReportCsv : public Report, public ::testing::WithParamInterface<const sample::SampleKind*> {};

TEST_P(ReportCsv, FilesHoldTheBytesThatTheToolWrites) {
  const std::string data = Sample(*GetParam());
  const ProcessResult listed = Run({data, "--list"});
  ASSERT_EQ(listed.exitStatus, 0) << listed.standardError;
  const ProcessResult written =
      Run({data, "--csv", "csv", "--begin", "2012-02-22T08:00", "--end", "2012-02-22T08:50"});
  ASSERT_EQ(written.exitStatus, 0) << written.standardError;
  // Adapters have three graphs of one title, of which the tool finds the first.
  std::set<std::string> titles = Titles(listed.standardOutput);
  ASSERT_GT(titles.size(), 40U);
  const ProcessResult drawn =
      Run({data, "--graphs", "pictures", "--type", "jpeg", "--size", "360x280", "--item", *titles.begin(),
           "--end", "2012-02-22T08:50", "--begin", "2012-02-22T08:00"});
  ASSERT_EQ(drawn.exitStatus, 0) << drawn.standardError;
  Run({"-vmrunix", data, "-begin", "22-Feb-2012:08:00:00", "-end", "22-Feb-2012:08:50:00", "-item",
       *titles.begin(), "-graph_file", "graph.jpg", "-type", "jpg", "-width", "360pix", "-height", "280pix"},
      TOOL);
  std::set<std::string> pictures;
  for (const fs::directory_entry& file : fs::directory_iterator(Path("pictures"))) {
    pictures.insert(ReadWholeFile(file.path()));
  }
  EXPECT_EQ(pictures.count(ReadWholeFile(Path("graph.jpg"))), 1U) << *titles.begin();
  std::map<std::string, std::set<std::string>> tables;
  for (const fs::directory_entry& file : fs::directory_iterator(Path("csv"))) {
    const std::string csv = ReadWholeFile(file.path());
    tables[TitleOf(csv)].insert(csv);
  }
  size_t place = 0;
  for (const std::string& title : titles) {
    if (place++ % 4 != 0) continue;  // a quarter of the items
    Run({"-vmrunix", data, "-begin", "22-Feb-2012:08:00:00", "-end", "22-Feb-2012:08:50:00", "-item", title,
         "-graph_file", "graph.csv", "-type", "csv"},
        TOOL);
    EXPECT_EQ(tables[title].count(ReadWholeFile(Path("graph.csv"))), 1U) << title;
  }
}

// 1329868800 is the midnight before the day in the file's name.
TEST_F(Report, ADayMayBeginOnTheEveningBeforeAndHaveNoProcesses) {
  std::ofstream text(Path("text"));
  for (const char* time : {"1329869100", "1329869700", "1329870300"}) {
    text << "cpu web " << time << " 2012/02/22 00:05:00 600 100 0 1 6000 1 54000 1 1 1\nSEP\n";
  }
  text.close();
  const ProcessResult imported = Run({"text"}, IMPORT);
  ASSERT_EQ(imported.standardOutput, "./qtxl_web_2012Feb22.dat_1\n") << imported.standardError;
  const ProcessResult listed = Run({"qtxl_web_2012Feb22.dat_1", "--list"});
  EXPECT_EQ(listed.exitStatus, 0) << listed.standardError;
  EXPECT_NE(listed.standardOutput.find("Overall CPU Utilization"), std::string::npos);
  // It has no processes: the page says so, and has no sections of them.
  EXPECT_EQ(listed.standardOutput.find("Top 10 Images"), std::string::npos);
  Run({"qtxl_web_2012Feb22.dat_1", "-o", "page.html"});
  EXPECT_NE(ReadWholeFile(Path("page.html")).find("no process is recorded"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ReportCsv,
                         ::testing::ValuesIn(sample::SampleKinds().begin(), sample::SampleKinds().end()));

TEST_F(Report, StatusIsForDoneFailedOrMisused) {
  const std::string data = Sample(*sample::SampleKinds().front());
  const std::string empty = Path("qtxs_empty.dat_1");
  std::fclose(std::fopen(empty.c_str(), "w"));
  struct Case {
    std::vector<std::string> words;
    int status;
    std::string said;  // in standard output for status 0, in standard error else
  };
  const Case cases[] = {
      {{"-h"}, 0, "usage: ozmo_report"},
      {{"--version"}, 0, "ozmo_report V"},
      {{data, "-o", "page.html", "--item", "overall cpu utilization"}, 0, "page.html: 1 graph, "},
      {{data, "--summary"}, 0, "\n# end "},
      {{"--summary=sums.tsv", "-o", "page.html", data}, 0, "page.html: "},
      {{"--summary=" + data, data}, 1, "is read by this run"},
      {{"./missing.vmr"}, 1, "No such file or directory"},
      {{empty}, 1, "qtxs_empty.dat_1: the file is empty"},
      {{data, "--begin", "2013-01-01"}, 1, "its first record is of 2012-02-22 08:00:"},
      {{data, "--begin", "1970-01-02", "--end", "2037-01-01"}, 1, "Cannot allocate"},
      {{data, "-o", "/dev/full"}, 1, "No space left on device"},
      {{data, "--item", "no such graph"}, 1, "no item \"no such graph\""},
      {{data, "-o", data}, 1, "is read by this run"},
      {{data, "-o", "no_directory/page.html"}, 1, "No such file or directory"},
      {{data, "--classes", empty}, 1, "no workload class"},
      {{data, "-o", "noted.html", "--baseline", "1d"}, 1, "no baseline: "},
      {{data, "-o", "noted.html", "--baseline", empty}, 1, "no baseline: "},
      {{data, "-o", "noted.html", "--marks", data}, 1, ": no mark: "},
      {{data, "-o", "noted.html", "--marks", "missing"}, 1, "missing: No such file"},
      {{data, "--classes", "nofile"}, 1, "nofile: No such file or directory"},
      {{data, "--graphs", "pictures", "--type", "png"}, 2, "--type takes gif, ps or jpeg"},
      {{data, "--baseline", "7x"}, 2, "a time back of days or weeks as 1d, 7d or 2w"},
      {{data, "--baseline", "0d"}, 2, "not \"0d\""},
      {{data, "--baseline", "523w"}, 2, "3660 days at most"},
      {{data, "--csv", "tables", "--item", "process count"}, 0, "tables: 1 CSV file"},
      {{data, "--csv", "new/tables"}, 1, "new/tables: No such file or directory"},
      {{data, "--csv", data + "/tables"}, 1, "Not a directory"},
      {{data, "--graphs", "pictures", "--size", "720"}, 2, "--size takes width and height"},
      {{}, 2, "no data file"},
      {{data, "--begin", "22.2.2012"}, 2, "--begin takes a time"},
      {{data, "--begin", "2012-02-30"}, 2, "--begin takes a time"},
      {{data, "--begin", "2012-02-22T09:00", "--end", "2012-02-22T08:00"}, 2, "--end is not after --begin"},
      {{data, "-graph_file", "x.gif"}, 2, "unknown option -graph_file"},
      {{data, "-list"}, 2, "unknown option -list; did you mean --list?"},
      {{data, "--clases=x"}, 2, "did you mean --classes?"},
  };
  for (const Case& test : cases) {
    const ProcessResult result = Run(test.words);
    const std::string& text = test.status == 0 ? result.standardOutput : result.standardError;
    EXPECT_EQ(result.exitStatus, test.status) << test.said << text;
    EXPECT_NE(text.find(test.said), std::string::npos) << text;
  }
  EXPECT_EQ(ReadWholeFile(Path("sums.tsv")), Run({data, "--summary", "-o", "page.html"}).standardOutput);
  EXPECT_EQ(ReadWholeFile(Path("page.html")).find("role=\"note\""), std::string::npos);
  EXPECT_NE(ReadWholeFile(Path("noted.html")).find("role=\"note\">missing: No such"), std::string::npos);
}

// Work that fails or ends its process is one number less, however many there are of it.
TEST(ReportProcesses, GoOnWithoutTheWorkThatEndsOne) {
  constexpr size_t COUNT = 40;
  const PiecesResult result = RunInProcesses(COUNT, [](size_t number) {
    if (number % 8 == 1) std::_Exit(0);
    if (number % 8 == 5) std::raise(SIGKILL);
    return number % 3 != 0;
  });
  EXPECT_EQ(result.failure, "");
  for (size_t number = 0; number < COUNT; ++number) {
    EXPECT_EQ(result.done[number], number % 8 != 1 && number % 8 != 5 && number % 3 != 0) << number;
  }
}

// A picture that can't be written leaves the others, and a link of a picture's name is replaced.
TEST_F(Report, APictureThatCannotBeWrittenLeavesTheOthers) {
  const std::string data = Sample(*sample::SampleKinds().front());
  const std::string before = ReadWholeFile(data);
  fs::create_directories(Path("pictures/overall_cpu_utilization.gif"));
  fs::create_symlink(data, Path("pictures/process_count.gif"));
  const ProcessResult result = Run({data, "--graphs", "pictures", "--type", "gif", "--size", "90x70"});
  EXPECT_EQ(result.exitStatus, 1);
  EXPECT_NE(result.standardError.find("/overall_cpu_utilization.gif: not drawn"), std::string::npos)
      << result.standardError;
  const auto isPicture = [](const fs::directory_entry& file) {
    return file.is_regular_file() && !file.is_symlink() && ReadWholeFile(file.path()).starts_with("GIF8");
  };
  const auto pictures = std::count_if(fs::directory_iterator(Path("pictures")), {}, isPicture);
  EXPECT_NE(result.standardOutput.find("pictures: " + std::to_string(pictures) + " pictures"),
            std::string::npos)
      << result.standardOutput;
  EXPECT_GT(pictures, 40);
  EXPECT_EQ(ReadWholeFile(data), before);
}

// All files of the set, the class file and what a link in the directory of tables leads to.
TEST_F(Report, WhatIsReadOrLinkedIsNeverWrittenOver) {
  const std::string data = Sample(*sample::SampleKinds().front());
  const std::string second = data.substr(0, data.size() - 1) + "2";
  fs::copy_file(data, second);
  const std::string link = Path("csv") + "/overall_cpu_utilization.csv";
  ASSERT_TRUE(fs::create_directory(Path("csv")));
  fs::create_symlink(data, link);
  std::ofstream(Path("classes")) << "QTX_MEMORY_VERSION 1\n100\nclass_name 1 \"all\"\nclass_catch_all 1 1\n";
  for (const std::string& output : {second, Path("classes")}) {
    const std::string before = ReadWholeFile(output);
    EXPECT_EQ(Run({data, "--classes", "classes", "-o", output}).exitStatus, 1) << output;
    EXPECT_EQ(ReadWholeFile(output), before) << output;
  }
  const std::string before = ReadWholeFile(data);
  EXPECT_EQ(Run({data, "--item", "overall cpu utilization", "--csv", "csv"}).exitStatus, 0);
  EXPECT_EQ(ReadWholeFile(data), before);
  EXPECT_FALSE(fs::is_symlink(link));
}

TEST_F(Report, ManyBrokenFilesOfADayGiveAFewLines) {
  const std::string data = Sample(*sample::SampleKinds().front());
  const std::string stem = data.substr(0, data.size() - 1);
  for (int number = 2; number < 60; ++number)
    std::fclose(std::fopen((stem + std::to_string(number)).c_str(), "w"));
  const ProcessResult result = Run({data, "-o", "page.html"});
  EXPECT_LE(std::count(result.standardError.begin(), result.standardError.end(), '\n'), 12);
  EXPECT_NE(result.standardError.find("more problems like these"), std::string::npos) << result.standardError;
}

// What is laid beside a day and doesn't fit it gives a line, and the page comes all the same.
TEST_F(Report, WhatDoesNotFitTheDayGivesALine) {
  const std::string data = Sample(*sample::SampleKinds().front());
  const std::string other = Sample(*sample::SampleKinds().back());
  const auto write = [&](const std::string& name, const std::string& content) {
    fs::create_directories(Path("other"));
    std::ofstream(Path("other/" + name), std::ios::binary) << content;
    return Path("other/" + name);
  };
  const std::string whole = ReadWholeFile(data);
  const std::string cut = write(fs::path(data).filename(), whole.substr(0, whole.size() / 3));
  std::string many;
  for (size_t i = 0; i <= MOST_MARKS; ++i) many += "2012-02-22T08:30 again\n";
  sample::SampleOptions late;
  late.directory = Path("late");
  late.startHour = 14;
  late.hours = 1;
  const std::string afternoon = sample::WriteSample(*sample::SampleKinds().front(), late).files.at(0);
  struct Case {
    std::vector<std::string> words;
    int status;
    std::string said;
  };
  const Case cases[] = {
      {{"--baseline", other}, 0, ""},
      {{"--baseline", cut}, 0, " only, the report from 2012-02-22 08:0"},
      {{"--baseline", afternoon, "--begin", "2012-02-22"}, 0, ": no minute of the day has both"},
      {{"--baseline", Path("other")}, 1, "no baseline: "},
      {{"--marks", write("old", "1999-01-01T00:00 long ago\n")}, 0, "1 mark outside the span"},
      {{"--marks", write("many", many)}, 1, "1 more marks than the 500"},
      {{"--marks", write("loose", "08:30 no day\n")}, 1, "loose:1: no mark: "},
  };
  for (const Case& test : cases) {
    std::vector<std::string> words = {data, "-o", "page.html"};
    words.insert(words.end(), test.words.begin(), test.words.end());
    const ProcessResult result = Run(words);
    EXPECT_EQ(result.exitStatus, test.status) << test.said << result.standardError;
    EXPECT_NE(result.standardError.find(test.said), std::string::npos) << test.said << result.standardError;
    EXPECT_EQ(result.standardError.empty(), test.said.empty()) << result.standardError;
    const std::string page = ReadWholeFile(Path("page.html"));
    EXPECT_EQ(page.find("role=\"note\"") == std::string::npos, test.said.empty());
    EXPECT_TRUE(page.ends_with("</html>\n")) << test.said;
    fs::remove(Path("page.html"));
  }
}

TEST(ReportDay, DaysLaterReadTheSameOnTheClock) {
  const testing::ScopedVariable zone("TZ", "Europe/Berlin");
  struct Case {
    const char* begin;
    const char* end;
    int days;
    const char* moved;
  };
  const Case cases[] = {
      {"2012-03-26T00:00:00", "2012-03-26T23:59:59", -1, "25 00:00:00 to 25 23:59:59"},
      {"2012-03-25T01:30:00", "2012-03-25T04:30:00", 7, "01 01:30:00 to 01 04:30:00"},
      {"2012-10-22T08:00:00", "2012-10-23T08:00:00", 6, "28 08:00:00 to 29 08:00:00"},
  };
  for (const Case& test : cases) {
    const Span moved = DaysLater({*ozmo::TimeOf(test.begin), *ozmo::TimeOf(test.end)}, test.days);
    EXPECT_EQ(TimeFormat(moved.begin, "%d %H:%M:%S to ") + TimeFormat(moved.end, "%d %H:%M:%S"), test.moved);
  }
}

TEST(ReportText, NothingOfANameIsMarkupOrScript) {
  const std::string hostile = "</script><img src=x onerror=\"a('&')\">\n\x1b[2J\xff\xe2\x80\xae";
  EXPECT_EQ(
      HtmlText(hostile),
      "&lt;/script&gt;&lt;img src=x onerror=&quot;a(&#39;&amp;&#39;)&quot;&gt;\xEF\xBF\xBD\xEF\xBF\xBD[2J"
      "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(JsonText(hostile).find_first_of("<>\n\x1b\xff"), std::string::npos);
}

TEST(ReportSeries, IsCarriedByTheChangesOfItsHundredths) {
  const std::vector<int64_t> values =
      HundredthsOf(std::vector<float>{0.0F, 0.0F, 0.0F, 12.345F, NAN, 12.34F, 1e20F});
  EXPECT_EQ(values, (std::vector<int64_t>{0, 0, 0, 1235, NO_VALUE, 1234, 1'000'000'000'000'000}));
  EXPECT_EQ(EncodeSeries(std::span(values).first(6)), "ACmtC!B");
  const TraceFigures figures = FiguresOf(values, 0, 5);
  EXPECT_EQ(std::tuple(figures.mean, figures.peak, figures.peakPoint), std::tuple(4.938, 12.35, 3));
}

TEST(ReportTimes, AreLocalAndInTheCalendar) {
  const testing::ScopedVariable zone("TZ", "UTC");
  constexpr Seconds EIGHT = 1329897600;
  EXPECT_EQ(TimeOf("2012-02-22 08:00:00", DayEdge::BEGIN), EIGHT);
  EXPECT_EQ(TimeOf("2012-02-22", DayEdge::BEGIN), EIGHT - 8 * 3600);
  EXPECT_EQ(TimeOf("2012-02-22", DayEdge::END), EIGHT + 16 * 3600 - 1);
  EXPECT_EQ(TimeOf("2012-02-22T08:00x", DayEdge::END), std::nullopt);
}

}  // namespace
}  // namespace ozmo::report
