// Works through one case of tests/cases: writes its files, runs the built tool, compares what comes of it.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/end_to_end/case_file.h"
#include "tests/end_to_end/process.h"
#include "tests/support/temp_map_guard.h"

namespace ozmo {

class CaseRunner {
 public:
  // `directory` is made anew and removed in the end; the case's files stand below it.
  CaseRunner(std::string path, std::string directory);
  ~CaseRunner();
  CaseRunner(const CaseRunner&) = delete;
  CaseRunner& operator=(const CaseRunner&) = delete;

  void Run();

 private:
  // A statement of the case itself; those of a collector file, and what is expected of a run, stand
  // elsewhere.
  struct Action {
    const char* keyword;
    size_t words;  // at least
    void (CaseRunner::*apply)(const Statement&);
  };
  static const Action ACTIONS[];

  void Day(const Statement& statement);
  void Env(const Statement& statement);
  void LockTempMap(const Statement& statement);
  void Dir(const Statement& statement);
  void TextFile(const Statement& statement);
  void File(const Statement& statement);
  void Copy(const Statement& statement);
  void Records(const Statement& statement);
  void AddRecord(const Statement& statement);
  void Span(const Statement& statement);
  void Csv(const Statement& statement);
  void Graphs(const Statement& statement);
  void NoGraph(const Statement& statement);
  void RunTool(const Statement& statement);
  void Exit(const Statement& statement);
  void Absent(const Statement& statement);

  void WriteFile(const std::string& name, const std::string& bytes);
  void OpenFile(const Statement& statement, const std::string& name, const std::string& order);
  std::vector<std::string> CsvCommand(const std::string& file, const std::string& item) const;
  void RunWith(const Statement& statement, const std::vector<std::string>& words);
  void FinishRun();
  bool Expect(const Statement& statement);
  void Fail(const Statement& statement, const std::string& what) const;
  std::string PathOf(const std::string& name) const;

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

}  // namespace ozmo
