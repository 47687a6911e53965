// What the decoders of the binary formats leave in the context, where a rule has a trap: the cases of
// decoders/, a file a format.
//
// "interval VERSION", with "every=SECONDS" for another configured interval than 60, begins a case: a file of
// that version with time stamps at 11:59 and 12:00, the records that follow, written as in tests/cases, and a
// stamp at 12:10. Without a version the records are all of the file. "gives" is a record of the first
// interval delivered; "next" is one of the second. The configuration is compared where a "gives" names it.
#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <sstream>

#include "readers/collector_reader.h"
#include "readers/formats.h"
#include "runtime/runtime.h"
#include "runtime/whole_file.h"
#include "tests/end_to_end/collector_script.h"
#include "tests/support/environment.h"
#include "tests/support/interval_text.h"
#include "tests/support/sample_day.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {
namespace {

struct Kind {
  const CollectorFormat& format;
  sample::WrittenOrder order;
  const char* fileName;
  const char* timeRecord;  // type and field
  const char *configOrder, *config, *versionField, *intervalField;
};
constexpr auto BIG = sample::WrittenOrder::BIG;
constexpr auto LITTLE = sample::WrittenOrder::LITTLE;
const std::map<std::string, Kind> KINDS = {
    {"aix",
     {aix_files::FORMAT, BIG, "qtxa_node_2012Feb22.dat_1", "6 601", "5 501:text 507:text 508 514",
      "5 507=node", "501", "514"}},
    {"hpux",
     {hpux_files::FORMAT, BIG, "qtxh_node_2012Feb22.dat_1", "6 601", "5 503:8 507:text 501:text 508 514",
      "5 503=1048576 507=node", "501", "514"}},
    {"linux",
     {linux_files::FORMAT, LITTLE, "qtxl_node_2012Feb22.dat_1", "9 901", "5 504:text 505:text 507 513",
      "5 504=node", "505", "513"}},
    {"solaris",
     {solaris_files::FORMAT, BIG, "qtxs_node_2012Feb22.dat_1", "7 701",
      "5 501:text 506:text 507 514 503:8 505", "5 506=node 503=1048576 505=2", "501", "514"}},
    {"tru64",
     {tru64_files::FORMAT, LITTLE, "node_2012Feb22.dat_1", "9 901", "5 501 504:text 505:text 507 513",
      "5 501=2048000 504=node", "505", "513"}},
};

struct DecoderCase {
  int line = 0;
  std::vector<std::string> versions;  // none: the script is all of the file
  std::string every = "60";
  std::vector<Statement> script;
  std::vector<std::string> gives, next;
};

std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

std::vector<DecoderCase> CasesOf(const std::string& path) {
  std::vector<DecoderCase> cases;
  for (const Statement& statement : ReadCaseFile(path)) {
    std::string joined;
    for (const std::string& word : statement.words) joined += (joined.empty() ? "" : " ") + word;
    if (statement.keyword == "interval") {
      cases.emplace_back();
      cases.back().line = statement.line;
      cases.back().versions = statement.words;
      std::vector<std::string>& versions = cases.back().versions;
      if (versions.empty() || !versions.back().starts_with("every=")) continue;
      cases.back().every = versions.back().substr(6);
      versions.pop_back();
    } else if (statement.keyword == "gives") {
      cases.back().gives.push_back(joined);
    } else if (statement.keyword == "next") {
      cases.back().next.push_back(joined);
    } else {
      EXPECT_TRUE(IsCollectorStatement(statement)) << path << ":" << statement.line;
      cases.back().script.push_back(statement);
    }
  }
  return cases;
}

// A disk after a record of each type that is known and comes to nothing: they don't end the interval.
DecoderCase StepOver(std::initializer_list<int> types) {
  DecoderCase test;
  test.versions = {"P730"};
  test.gives = {"disk sda"};
  for (const int type : types) test.script.push_back({0, "record", {std::to_string(type)}, {}});
  test.script.push_back({0, "order", {"2", "201:text"}, {}});
  test.script.push_back({0, "record", {"2", "201=sda"}, {}});
  return test;
}

// The case's file of a version: what all files of the kind begin and end with, around the case's own records.
std::vector<Statement> ScriptOf(const DecoderCase& test, const Kind& kind, const std::string& version) {
  const std::string time = kind.timeRecord;
  std::vector<Statement> script = {
      {0, "order", WordsOf(time + (version.find("_64") != version.npos ? ":8" : "")), {}},
      {0, "order", WordsOf(kind.configOrder), {}},
      {0, "divisors", WordsOf("5 1 1 1 1 1 1"), {}},
      {0, "record", WordsOf(kind.config), {}},
      {0, "stamps", WordsOf(time + " 11:59 12:00"), {}}};
  std::vector<std::string>& config = script[3].words;
  config.push_back(std::string(kind.versionField) + "=" + version);
  config.push_back(std::string(kind.intervalField) + "=" + test.every);
  script.insert(script.end(), test.script.begin(), test.script.end());
  script.push_back({0, "stamps", WordsOf(time + " 12:10"), {}});
  return script;
}

class Decoders : public ::testing::TestWithParam<std::string> {};

TEST_P(Decoders, LeaveWhatTheCasesSay) {
  const ScopedVariable zone("TZ", "UTC");
  const TempDirectory directory;
  const Kind& kind = KINDS.at(GetParam());
  const std::string path = directory / kind.fileName;
  const auto expectInterval = [&](const std::vector<Statement>& script, const DecoderCase& test) {
    const CollectorBytes file = WriteCollectorFile(script, kind.order, NOON - 12 * 3600);
    EXPECT_EQ(file.error, "");
    ASSERT_EQ(WriteWholeFile({path}, file.bytes), "");
    Runtime runtime;
    CollectorReader reader(kind.format, runtime);
    VmrContext context;
    EXPECT_TRUE(reader.EntryPass(path));
    context.periodStart = NOON;
    context.periodEnd = NOON + 3600;
    EXPECT_EQ(reader.Open(context), 1);
    EXPECT_EQ(reader.Next(context), ReaderResult::DONE);
    EXPECT_EQ(IntervalTexts(context, !test.gives.empty() && test.gives[0].starts_with("config")), test.gives);
    if (test.next.empty()) return;
    EXPECT_EQ(reader.Next(context), ReaderResult::DONE);
    EXPECT_EQ(IntervalTexts(context, false), test.next);
  };
  std::vector<DecoderCase> cases = CasesOf(OZMO_SOURCE_DIR "/tests/readers/decoders/" + GetParam() + ".case");
  cases.push_back(StepOver({16, 17, 18, 19, 21, 22, 23, 24, 25, 26}));
  if (GetParam() != "tru64") cases.push_back(StepOver({13, 29}));
  for (const DecoderCase& test : cases) {
    SCOPED_TRACE(GetParam() + ".case:" + std::to_string(test.line));
    if (test.versions.empty()) expectInterval(test.script, test);
    for (const std::string& version : test.versions) expectInterval(ScriptOf(test, kind, version), test);
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, Decoders, ::testing::Values("aix", "hpux", "linux", "solaris", "tru64"),
                         [](const auto& parameter) { return parameter.param; });

}  // namespace
}  // namespace ozmo::testing
