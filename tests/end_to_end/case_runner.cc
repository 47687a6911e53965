#include "tests/end_to_end/case_runner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "runtime/whole_file.h"
#include "tests/end_to_end/case_file.h"
#include "tests/end_to_end/collector_script.h"
#include "tests/end_to_end/csv_expectation.h"
#include "tests/end_to_end/process.h"
#include "tests/support/temp_map_guard.h"

namespace ozmo {
namespace {

namespace fs = std::filesystem;

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

// The bytes of "hex:ffd8"; any other word as it is.
std::string Unhex(const std::string& word) {
  if (!word.starts_with("hex:")) return word;
  std::string bytes;
  for (size_t i = 4; i + 1 < word.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(word.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

constexpr const char* TOOL_TIME = "%d-%b-%Y:%H:%M:%S";

// Seconds since 1970 of a time as the tool takes it, in UTC.
int64_t SecondsOf(const std::string& time) {
  std::tm parts{};
  return strptime(time.c_str(), TOOL_TIME, &parts) != nullptr ? timegm(&parts) : 0;
}

// The host that a data file is named after.
std::string HostOf(const std::string& file) {
  std::string name = fs::path(file).filename();
  if (name.starts_with("qtx")) name.erase(0, name.find('_') + 1);
  return name.substr(0, name.find('_'));
}

// Words of the form name=value, to be taken one by one.
class NamedWords {
 public:
  template <class Iterator>
  NamedWords(Iterator word, Iterator end) {
    for (; word != end; ++word) values_[word->substr(0, word->find('='))] = word->substr(word->find('=') + 1);
  }
  std::string Take(const std::string& name, const std::string& usual) {
    const auto value = values_.extract(name);
    return value.empty() ? usual : value.mapped();
  }
  // The name of one that nobody has taken.
  std::string Left() const { return values_.empty() ? "" : values_.begin()->first; }

 private:
  std::map<std::string, std::string> values_;
};

// The first of `wanted` that doesn't follow the ones before it in `text`, other lines between them allowed.
std::optional<std::string> FirstMissing(const std::string& text, const std::vector<std::string>& wanted) {
  size_t position = 0;
  for (const std::string& line : wanted) {
    const size_t found = ("\n" + text + "\n").find("\n" + line + "\n", position);
    if (found == std::string::npos) return line;
    position = found + line.size() + 1;
  }
  return std::nullopt;
}

class CaseRunner {
 public:
  // `directory` is made anew and removed in the end; the case's files are below it.
  CaseRunner(std::string path, std::string directory)
      : path_(std::move(path)), directory_(std::move(directory)), files_(directory_ + "/files") {
    fs::remove_all(directory_);
    fs::create_directories(files_);
    environment_ = {{"TZ", "UTC"},
                    {"HOME", files_},
                    {"PATH", "/usr/bin:/bin"},
                    {"VELTRIX_LIBRARY", OZMO_SOURCE_DIR},
                    // A sanitizer's report must not pass for the tool's own status 1. Leaks of whole runs are
                    // what the fuzz targets find; looking for them takes longer than a run.
                    {"ASAN_OPTIONS", "exitcode=99:detect_leaks=0"},
                    {"UBSAN_OPTIONS", "exitcode=99:print_stacktrace=1"}};
  }

  ~CaseRunner() { fs::remove_all(directory_); }

  CaseRunner(const CaseRunner&) = delete;
  CaseRunner& operator=(const CaseRunner&) = delete;

  void Run() {
    std::vector<Statement> statements = ReadCaseFile(path_);
    for (Statement& statement : statements) {
      for (std::string& word : statement.words) ReplaceAll(word, "{DIR}", files_);
      for (std::string& line : statement.text) ReplaceAll(line, "{DIR}", files_);
      if (IsCollectorStatement(statement)) {
        if (openScript_ == nullptr) return Fail(statement, "no file is open for this record");
        AddRecord(statement);
        continue;
      }
      if (closeScript_) closeScript_();
      closeScript_ = nullptr;
      openScript_ = nullptr;
      const Action* action = FindAction(statement.keyword);
      if (action == nullptr) {
        if (!result_ || !Expect(statement))
          return Fail(statement, "not a statement, or nothing has been run");
        continue;
      }
      if (statement.words.size() < action->words) return Fail(statement, "a word is missing");
      (this->*action->apply)(statement);
    }
    EXPECT_TRUE(result_) << path_ << " runs nothing";
    FinishRun();
  }

 private:
  // A statement of the case itself; those of a collector file, and what is expected of a run, are
  // elsewhere.
  struct Action {
    std::string_view keyword;
    size_t words;  // at least
    void (CaseRunner::*apply)(const Statement&);
  };

  // Null where no statement has that keyword.
  static const Action* FindAction(const std::string& keyword) {
    static constexpr Action ACTIONS[] = {
        {"day", 1, &CaseRunner::Day},
        {"env", 1, &CaseRunner::Env},
        {"lock-temp-map", 0, &CaseRunner::LockTempMap},
        {"dir", 1, &CaseRunner::Dir},
        {"text", 1, &CaseRunner::TextFile},
        {"file", 2, &CaseRunner::File},
        {"copy", 3, &CaseRunner::Copy},
        {"records", 1, &CaseRunner::Records},
        {"span", 2, &CaseRunner::Span},
        {"csv", 1, &CaseRunner::Csv},
        {"graphs", 1, &CaseRunner::Graphs},
        {"no-graph", 1, &CaseRunner::NoGraph},
        {"run", 0, &CaseRunner::RunTool},
        {"exit", 1, &CaseRunner::Exit},
        {"absent", 1, &CaseRunner::Absent},
    };

    const Action* action = std::ranges::find(ACTIONS, keyword, &Action::keyword);
    return action == std::end(ACTIONS) ? nullptr : action;
  }

  void Fail(const Statement& statement, const std::string& what) const {
    ADD_FAILURE_AT(path_.c_str(), statement.line) << what;
  }

  void Day(const Statement& statement) {
    std::tm date{};
    if (strptime(statement.words[0].c_str(), "%Y-%m-%d", &date) == nullptr)
      return Fail(statement, "not a date");
    midnight_ = timegm(&date);
  }

  void Env(const Statement& statement) {
    for (const std::string& word : statement.words) {
      const size_t equals = word.find('=');
      if (equals == std::string::npos) {
        environment_.erase(word);
        continue;
      }
      environment_[word.substr(0, equals)] = word.substr(equals + 1);
    }
  }

  void LockTempMap(const Statement&) { tempMapGuard_.emplace(); }

  // A name is relative to the directory of the case, unless it is absolute.
  std::string PathOf(const std::string& name) const { return fs::path(files_) / name; }

  void Dir(const Statement& statement) { fs::create_directories(PathOf(statement.words[0])); }

  void WriteFile(const std::string& name, const std::string& bytes) {
    fs::create_directories(fs::path(PathOf(name)).parent_path());
    EXPECT_EQ(WriteWholeFile({PathOf(name)}, bytes), "");
  }

  void TextFile(const Statement& statement) {
    WriteFile(statement.words[0], Joined(statement.text));
    if (statement.words[0].ends_with(".vmr")) lastFile_ = statement.words[0];
  }

  // The file takes the records that follow, and is written when they are all there.
  void OpenFile(const Statement& statement, const std::string& name, const std::string& order) {
    if (order != "big" && order != "little") return Fail(statement, "a file is big or little");
    lastFile_ = name;
    openScript_ = &scripts_[name];
    closeScript_ = [this, statement, name, order] {
      const auto byteOrder = order == "big" ? sample::WrittenOrder::BIG : sample::WrittenOrder::LITTLE;
      const CollectorBytes file = WriteCollectorFile(scripts_[name], byteOrder, midnight_);
      if (!file.error.empty()) Fail(statement, file.error);
      WriteFile(name, file.bytes);
    };
  }

  void File(const Statement& statement) {
    scripts_[statement.words[0]].clear();
    OpenFile(statement, statement.words[0], statement.words[1]);
  }

  // A copy takes statements of its own after the ones it copies.
  void Copy(const Statement& statement) {
    const auto source = scripts_.find(statement.words[0]);
    if (source == scripts_.end()) return Fail(statement, "no such file to copy");
    scripts_[statement.words[1]] = source->second;
    OpenFile(statement, statement.words[1], statement.words[2]);
  }

  void Records(const Statement& statement) {
    openScript_ = &groups_[statement.words[0]];
    openScript_->clear();
  }

  // Adds a statement to the open file. An "include" adds all that have its name, of the case or of a
  // file beside it.
  void AddRecord(const Statement& statement) {
    if (statement.keyword != "include") return openScript_->push_back(statement);
    if (statement.words.empty()) return Fail(statement, "a word is missing");
    const std::string& name = statement.words[0];
    auto group = groups_.find(name);
    if (group == groups_.end()) {
      const fs::path file = fs::path(path_).replace_filename(name + ".records");
      group = groups_.emplace(name, ReadCaseFile(file)).first;
    }
    if (group->second.empty()) Fail(statement, "no records of that name");
    for (const Statement& line : group->second) AddRecord(line);
  }

  void RunTool(const Statement& statement) { RunWith(statement, statement.words); }

  void RunWith(const Statement& statement, const std::vector<std::string>& words) {
    FinishRun();
    std::vector<std::string> arguments = {OZMO_BINARY_DIR "/ozmo_graph"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    result_ = RunProcess(arguments, environment_, files_, directory_);
    run_ = statement;
    exitChecked_ = false;
    stderrChecked_ = false;
  }

  // Times of the day, or of any day as the tool takes them.
  void Span(const Statement& statement) {
    span_ = statement.words;
    for (std::string& time : span_) {
      if (time.find('-') != std::string::npos) continue;
      int hour = 0;
      int minute = 0;
      int second = 0;
      if (std::sscanf(time.c_str(), "%d:%d:%d", &hour, &minute, &second) < 2)
        return Fail(statement, "not a time");
      const std::time_t seconds = midnight_ + hour * 3600 + minute * 60 + second;
      std::tm parts{};
      gmtime_r(&seconds, &parts);
      char text[40];
      std::strftime(text, sizeof text, TOOL_TIME, &parts);
      time = text;
    }
  }

  // The arguments of a run over the span for graph.csv.
  std::vector<std::string> CsvCommand(const std::string& file, const std::string& item) const {
    return {"-vmrunix",    file.starts_with('/') ? file : "./" + file,
            "-begin",      span_[0],
            "-end",        span_[1],
            "-item",       item,
            "-graph_file", "graph.csv",
            "-type",       "csv"};
  }

  // Runs the tool for a CSV file and compares all of it, the graph's path being the case's own.
  void Csv(const Statement& statement) {
    if (span_.size() < 2) return Fail(statement, "no span");
    if (statement.text.empty()) return Fail(statement, "no columns");
    const std::string& item = statement.words[0];
    const auto options = std::find_if(statement.words.begin() + 1, statement.words.end(),
                                      [](const std::string& word) { return word.starts_with('-'); });
    NamedWords given(statement.words.begin() + 1, options);
    const std::string file = given.Take("file", lastFile_);
    const std::string overlay = given.Take("overlay", "");
    const std::string output = PathOf((fs::path(given.Take("in", "")) / "graph.csv").string());

    std::vector<std::string> words = CsvCommand(file, item);
    if (!overlay.empty()) words.insert(words.end(), {"-overlay", overlay});
    words.insert(words.end(), options, statement.words.end());
    fs::remove(output);
    RunWith(statement, words);

    const CsvText expected =
        WriteCsv({.host = given.Take("host", HostOf(file)),
                  .title = given.Take("title", item),
                  .overlayTitle = overlay.substr(0, overlay.find('@')),
                  .first = SecondsOf(span_[0]) / 60 * 60,
                  .last = SecondsOf(span_[1]) / 60 * 60 + 60 * std::stoi(given.Take("late", "2")),
                  .columns = statement.text[0],
                  .rows = {statement.text.begin() + 1, statement.text.end()}});
    if (!given.Left().empty()) Fail(statement, "unknown word " + given.Left());
    if (!expected.error.empty()) Fail(statement, expected.error);
    EXPECT_EQ(expected.text, ReadWholeFile(output)) << path_ << ":" << statement.line;
  }

  // A csv statement for each line of the text, with the same words but for the minutes.
  void Graphs(const Statement& statement) {
    std::vector<std::string> minutes;
    std::vector<std::string> rest;
    for (const std::string& word : statement.words) {
      (word.find('=') == std::string::npos ? minutes : rest).push_back(word);
    }
    for (const std::string& line : statement.text) {
      Statement csv = CsvOfGraphLine(line, minutes);
      csv.line = statement.line;
      csv.words.insert(csv.words.end(), rest.begin(), rest.end());
      Csv(csv);
    }
  }

  // A run an item, which finds no graph; the text gives another message than the usual one.
  void NoGraph(const Statement& statement) {
    if (span_.size() < 2) return Fail(statement, "no span");
    Statement expected = {statement.line, "stdout-holds", {}, statement.text};
    if (expected.text.empty()) expected.text = {"VELTRIX-INFO  Specified main graph not found."};
    const auto options = std::find_if(statement.words.begin(), statement.words.end(),
                                      [](const std::string& word) { return word.starts_with('-'); });
    for (auto item = statement.words.begin(); item != options; ++item) {
      std::vector<std::string> words = CsvCommand(lastFile_, *item);
      words.insert(words.end(), options, statement.words.end());
      fs::remove(PathOf("graph.csv"));
      RunWith(statement, words);
      Expect(expected);
      if (fs::exists(PathOf("graph.csv"))) Fail(statement, "there is a graph of " + *item);
    }
  }

  // What holds for a run unless the case says otherwise: exit status 1 and nothing on standard error.
  void FinishRun() {
    if (!result_) return;
    if (!exitChecked_) {
      EXPECT_EQ(1, result_->exitStatus) << path_ << ":" << run_.line << ", signal " << result_->signal;
    }
    if (!stderrChecked_) {
      EXPECT_EQ("", result_->standardError) << path_ << ":" << run_.line;
    }
  }

  void Exit(const Statement& statement) {
    if (!result_) return Fail(statement, "nothing has been run");
    exitChecked_ = true;
    if (std::to_string(result_->exitStatus) != statement.words[0]) {
      Fail(statement, "exit status is " + std::to_string(result_->exitStatus));
    }
  }

  // "stdout", "stderr" or "output NAME", alone for all of it, with "-holds" for some lines, "-begins" for the
  // first bytes.
  bool Expect(const Statement& statement) {
    const size_t dash = statement.keyword.find('-');
    const std::string source = statement.keyword.substr(0, dash);
    const std::string how = dash == std::string::npos ? "" : statement.keyword.substr(dash);
    const size_t names = source == "output" ? 1 : 0;
    if (source != "stdout" && source != "stderr" && source != "output") return false;
    if (statement.words.size() != names + (how == "-begins" ? 1 : 0)) return false;
    if (source == "stderr") stderrChecked_ = true;
    const std::string actual = source == "output"   ? ReadWholeFile(PathOf(statement.words[0]))
                               : source == "stdout" ? result_->standardOutput
                                                    : result_->standardError;
    if (how.empty()) {
      EXPECT_EQ(Joined(statement.text), actual) << path_ << ":" << statement.line;
    } else if (how == "-holds") {
      if (const std::optional<std::string> missing = FirstMissing(actual, statement.text))
        Fail(statement, "no line \"" + *missing + "\" at its place in:\n" + actual);
    } else if (how == "-begins") {
      const std::string wanted = Unhex(statement.words[names]);
      if (!actual.starts_with(wanted)) Fail(statement, "it begins with " + actual.substr(0, wanted.size()));
    } else {
      return false;
    }
    return true;
  }

  void Absent(const Statement& statement) {
    if (fs::exists(PathOf(statement.words[0]))) Fail(statement, statement.words[0] + " is there");
  }

  std::string path_;
  std::string directory_;
  std::string files_;
  std::map<std::string, std::string> environment_;
  int64_t midnight_ = 0;
  std::vector<std::string> span_;                          // begin and end as the tool takes them
  std::map<std::string, std::vector<Statement>> scripts_;  // of the collector files so far, by name
  std::map<std::string, std::vector<Statement>> groups_;   // of records, by name
  std::string lastFile_;                                   // of the collector files
  std::vector<Statement>* openScript_ = nullptr;
  std::function<void()> closeScript_;

  std::optional<testing::TempMapGuard> tempMapGuard_;
  std::optional<ProcessResult> result_;
  Statement run_;
  bool exitChecked_ = false;
  bool stderrChecked_ = false;
};

}  // namespace

void RunCase(const std::string& path, const std::string& directory) { CaseRunner(path, directory).Run(); }

}  // namespace ozmo
