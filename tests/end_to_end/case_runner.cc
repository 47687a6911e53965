#include "tests/end_to_end/case_runner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <filesystem>

#include "tests/end_to_end/collector_script.h"

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

// The bytes of "hex:ffd8"; any other word as it stands.
std::string Unhex(const std::string& word) {
  if (!word.starts_with("hex:")) return word;
  std::string bytes;
  for (size_t i = 4; i + 1 < word.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(word.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

// The first of `wanted` that doesn't follow the ones ahead of it in `text`, other lines between them allowed.
std::optional<std::string> FirstMissing(const std::string& text, const std::vector<std::string>& wanted) {
  size_t position = 0;
  for (const std::string& line : wanted) {
    const size_t found = ("\n" + text).find("\n" + line + "\n", position);
    if (found == std::string::npos) return line;
    position = found + line.size() + 1;
  }
  return std::nullopt;
}

}  // namespace

const CaseRunner::Action CaseRunner::ACTIONS[] = {
    {"day", 1, &CaseRunner::Day},
    {"env", 1, &CaseRunner::Env},
    {"lock-temp-map", 0, &CaseRunner::LockTempMap},
    {"dir", 1, &CaseRunner::Dir},
    {"text", 1, &CaseRunner::TextFile},
    {"file", 2, &CaseRunner::File},
    {"copy", 3, &CaseRunner::Copy},
    {"run", 0, &CaseRunner::RunTool},
    {"exit", 1, &CaseRunner::Exit, true},
    {"stdout", 0, &CaseRunner::Stdout, true},
    {"stdout-holds", 0, &CaseRunner::StdoutHolds, true},
    {"stderr", 0, &CaseRunner::Stderr, true},
    {"stderr-holds", 0, &CaseRunner::StderrHolds, true},
    {"stderr-begins", 1, &CaseRunner::StderrBegins, true},
    {"output", 1, &CaseRunner::Output, true},
    {"output-holds", 1, &CaseRunner::OutputHolds, true},
    {"output-begins", 2, &CaseRunner::OutputBegins, true},
    {"absent", 1, &CaseRunner::Absent, true},
};

CaseRunner::CaseRunner(std::string path, std::string directory)
    : path_(std::move(path)), directory_(std::move(directory)), files_(directory_ + "/files") {
  fs::remove_all(directory_);
  fs::create_directories(files_);
  environment_ = {{"TZ", "UTC"},
                  {"HOME", files_},
                  {"PATH", "/usr/bin:/bin"},
                  {"VELTRIX_LIBRARY", OZMO_SOURCE_DIR},
                  // A sanitizer's report must not pass for the tool's own status 1.
                  {"ASAN_OPTIONS", "exitcode=99"},
                  {"UBSAN_OPTIONS", "exitcode=99:print_stacktrace=1"}};
}

CaseRunner::~CaseRunner() { fs::remove_all(directory_); }

void CaseRunner::Fail(const Statement& statement, const std::string& what) const {
  ADD_FAILURE_AT(path_.c_str(), statement.line) << what;
}

void CaseRunner::Run() {
  std::vector<Statement> statements = ReadCaseFile(path_);
  for (Statement& statement : statements) {
    for (std::string& word : statement.words) ReplaceAll(word, "{DIR}", files_);
    for (std::string& line : statement.text) ReplaceAll(line, "{DIR}", files_);
    if (IsCollectorStatement(statement)) {
      if (openScript_ == nullptr) return Fail(statement, "no file is open for this record");
      openScript_->push_back(statement);
      continue;
    }
    if (closeScript_) closeScript_();
    closeScript_ = nullptr;
    openScript_ = nullptr;
    const Action* action = std::find_if(std::begin(ACTIONS), std::end(ACTIONS),
                                        [&](const Action& row) { return statement.keyword == row.keyword; });
    if (action == std::end(ACTIONS)) return Fail(statement, "unknown statement " + statement.keyword);
    if (statement.words.size() < action->words) return Fail(statement, "a word is missing");
    if (action->looksAtResult && !result_) return Fail(statement, "nothing has been run");
    (this->*action->apply)(statement);
  }
  EXPECT_TRUE(result_) << path_ << " runs nothing";
  FinishRun();
}

void CaseRunner::Day(const Statement& statement) {
  std::tm date{};
  if (strptime(statement.words[0].c_str(), "%Y-%m-%d", &date) == nullptr)
    return Fail(statement, "not a date");
  midnight_ = timegm(&date);
}

void CaseRunner::Env(const Statement& statement) {
  for (const std::string& word : statement.words) {
    const size_t equals = word.find('=');
    if (equals == std::string::npos) {
      environment_.erase(word);
      continue;
    }
    environment_[word.substr(0, equals)] = word.substr(equals + 1);
  }
}

void CaseRunner::LockTempMap(const Statement&) { tempMapGuard_.emplace(); }

// A name is relative to the directory of the case, unless it is absolute.
std::string CaseRunner::PathOf(const std::string& name) const { return fs::path(files_) / name; }

void CaseRunner::Dir(const Statement& statement) { fs::create_directories(PathOf(statement.words[0])); }

void CaseRunner::WriteFile(const std::string& name, const std::string& bytes) {
  fs::create_directories(fs::path(PathOf(name)).parent_path());
  EXPECT_TRUE(sample::WriteWholeFile(PathOf(name), bytes)) << name;
}

void CaseRunner::TextFile(const Statement& statement) {
  WriteFile(statement.words[0], Joined(statement.text));
}

void CaseRunner::WriteCollector(const Statement& statement, const std::string& name, const std::string& order,
                                const std::vector<Statement>& script) {
  if (order != "big" && order != "little") return Fail(statement, "a file is big or little");
  const CollectorBytes file = WriteCollectorFile(
      script, order == "big" ? sample::ByteOrder::BIG : sample::ByteOrder::LITTLE, midnight_);
  if (!file.error.empty()) Fail(statement, file.error);
  WriteFile(name, file.bytes);
}

void CaseRunner::File(const Statement& statement) {
  const std::string name = statement.words[0];
  openScript_ = &scripts_[name];
  openScript_->clear();
  closeScript_ = [this, statement, name] {
    WriteCollector(statement, name, statement.words[1], scripts_[name]);
  };
}

// A copy takes statements of its own behind the ones it copies.
void CaseRunner::Copy(const Statement& statement) {
  const auto source = scripts_.find(statement.words[0]);
  if (source == scripts_.end()) return Fail(statement, "no such file to copy");
  const std::string name = statement.words[1];
  scripts_[name] = source->second;
  openScript_ = &scripts_[name];
  closeScript_ = [this, statement, name] {
    WriteCollector(statement, name, statement.words[2], scripts_[name]);
  };
}

void CaseRunner::RunTool(const Statement& statement) {
  FinishRun();
  std::vector<std::string> arguments = {OZMO_BINARY_DIR "/ozmo_graph"};
  arguments.insert(arguments.end(), statement.words.begin(), statement.words.end());
  result_ = RunProcess(arguments, environment_, files_, directory_);
  run_ = statement;
  exitChecked_ = false;
  stderrChecked_ = false;
}

// What holds for a run unless the case says otherwise: exit status 1 and nothing on standard error.
void CaseRunner::FinishRun() {
  if (!result_) return;
  if (!exitChecked_) {
    EXPECT_EQ(1, result_->exitStatus) << path_ << ":" << run_.line << ", signal " << result_->signal;
  }
  if (!stderrChecked_) {
    EXPECT_EQ("", result_->standardError) << path_ << ":" << run_.line;
  }
}

void CaseRunner::Exit(const Statement& statement) {
  exitChecked_ = true;
  if (std::to_string(result_->exitStatus) != statement.words[0]) {
    Fail(statement, "exit status is " + std::to_string(result_->exitStatus));
  }
}

void CaseRunner::ExpectText(const Statement& statement, const std::string& actual) {
  EXPECT_EQ(Joined(statement.text), actual) << path_ << ":" << statement.line;
}

void CaseRunner::ExpectLines(const Statement& statement, const std::string& actual) {
  if (const std::optional<std::string> missing = FirstMissing(actual, statement.text)) {
    Fail(statement, "no line \"" + *missing + "\" at its place in:\n" + actual);
  }
}

void CaseRunner::ExpectBeginning(const Statement& statement, const std::string& actual,
                                 const std::string& wanted) {
  if (!actual.starts_with(wanted)) Fail(statement, "it begins with " + actual.substr(0, wanted.size()));
}

void CaseRunner::Stdout(const Statement& statement) { ExpectText(statement, result_->standardOutput); }

void CaseRunner::StdoutHolds(const Statement& statement) { ExpectLines(statement, result_->standardOutput); }

void CaseRunner::Stderr(const Statement& statement) {
  stderrChecked_ = true;
  ExpectText(statement, result_->standardError);
}

void CaseRunner::StderrHolds(const Statement& statement) {
  stderrChecked_ = true;
  ExpectLines(statement, result_->standardError);
}

void CaseRunner::StderrBegins(const Statement& statement) {
  stderrChecked_ = true;
  ExpectBeginning(statement, result_->standardError, statement.words[0]);
}

void CaseRunner::Output(const Statement& statement) {
  ExpectText(statement, ReadWholeFile(PathOf(statement.words[0])));
}

void CaseRunner::OutputHolds(const Statement& statement) {
  ExpectLines(statement, ReadWholeFile(PathOf(statement.words[0])));
}

void CaseRunner::OutputBegins(const Statement& statement) {
  ExpectBeginning(statement, ReadWholeFile(PathOf(statement.words[0])), Unhex(statement.words[1]));
}

void CaseRunner::Absent(const Statement& statement) {
  if (fs::exists(PathOf(statement.words[0]))) Fail(statement, statement.words[0] + " is there");
}

}  // namespace ozmo
