#include "tests/record/story.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string_view>

#include "readers/data_reader.h"
#include "runtime/runtime.h"
#include "tests/support/environment.h"
#include "tests/support/interval_text.h"

namespace ozmo::testing {
namespace {

namespace fs = std::filesystem;

void WriteFile(const fs::path& path, const std::string& text) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

void WriteProcess(const fs::path& proc, std::istringstream& words) {
  std::string id;
  words >> id;
  std::map<std::string, std::string> values;
  for (std::string word; words >> word;) {
    const size_t equals = word.find('=');
    std::string value = word.substr(equals + 1);
    if (word.starts_with("cmd=")) {
      std::string rest;
      std::getline(words, rest);
      value += rest;
    }
    values[word.substr(0, equals)] = value;
  }
  const auto number = [&](const char* name) { return values.count(name) != 0 ? values[name] : "0"; };
  std::ostringstream stat;
  stat << id << " (" << values["comm"] << ") " << (values.count("state") != 0 ? values["state"] : "S") << ' '
       << number("ppid") << " 1 1 0 -1";
  for (const char* name :
       {"flags", "minflt", "cminflt", "majflt", "cmajflt", "utime", "stime", "cutime", "cstime"}) {
    stat << ' ' << number(name);
  }
  stat << " 20 0 1 0 " << number("starttime") << ' ' << number("vsize") << ' ' << number("rss");
  for (int i = 0; i < 28; ++i) stat << " 0";
  WriteFile(proc / id / "stat", stat.str() + "\n");
  std::string command = values["cmd"];
  std::replace(command.begin(), command.end(), ' ', '\0');
  WriteFile(proc / id / "cmdline", command.empty() ? command : command + '\0');
}

void RemoveProcesses(const fs::path& proc) {
  if (!fs::exists(proc)) return;
  std::vector<fs::path> processes;
  for (const auto& entry : fs::directory_iterator(proc)) {
    if (isdigit(entry.path().filename().string()[0]) != 0) processes.push_back(entry.path());
  }
  for (const fs::path& process : processes) fs::remove_all(process);
}

}  // namespace

Story::Story(const std::string& text) {
  fs::create_directories(directory_ / "data");
  std::istringstream lines(text);
  fs::path root;
  std::string file;
  int moment = -1;
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string word;
    words >> word;
    if (word == "at") {
      const fs::path before = root;
      root = directory_ / ("host/" + std::to_string(++moment));
      if (!before.empty()) fs::copy(before, root, fs::copy_options::recursive);
      RemoveProcesses(root / "proc");
      std::string clocks;
      std::getline(words, clocks);
      WriteFile(root / "clock", clocks + "\n");
    } else if (word == "file") {
      words >> file;
      WriteFile(root / file, "");
    } else if (word == "|") {
      std::ofstream(root / file, std::ios::app)
          << line.substr(std::min(line.find('|') + 2, line.size())) << '\n';
    } else if (word == "process") {
      WriteProcess(root / "proc", words);
    }
  }
}

ProcessResult Story::Record(const std::vector<std::string>& options, const std::string& limits) {
  std::string command = limits + " && exec " OZMO_BINARY_DIR "/tests/ozmo_record_replayed data --node node";
  for (const std::string& option : options) command += " '" + option + "'";
  ProcessResult result =
      RunProcess({"/bin/sh", "-c", command}, {{"TZ", "UTC"}, {"REPLAYED_HOST", directory_ / "host"}},
                 directory_.path(), directory_.path());
  // That the kernel reports no ends, as it does on all these hosts.
  constexpr std::string_view NO_REPORTS = "ozmo_record: ended processes: ";
  const size_t begin = result.standardError.find(NO_REPORTS);
  if (begin != std::string::npos) {
    result.standardError.erase(begin, result.standardError.find('\n', begin) + 1 - begin);
  }
  return result;
}

namespace {

std::string ThisUser() {
  const passwd* user = getpwuid(geteuid());
  return user == nullptr ? std::to_string(geteuid()) : user->pw_name;
}

// "me" for this user, so that a test knows the texts.
void PrintInterval(const VmrContext& context, std::ostream& out) {
  out << TimeFormat(context.periodEnd, "%d %H:%M:%S") << " of " << context.config.value().intervalSeconds
      << " s\n";
  if (context.processors.primary.empty()) return;
  out << "  host " << context.config->cpuCount << ' ' << context.config->memoryMb << '\n';
  for (std::string line : IntervalTexts(context, false)) {
    const std::string user = " " + ThisUser() + " ";
    const size_t at = line.find(user);
    if (line.starts_with("process ") && at != std::string::npos) line.replace(at, user.size(), " me ");
    out << "  " << line << '\n';
  }
}

}  // namespace

void WalkRecording(const std::string& path, int64_t begin, int64_t end,
                   const std::function<void(const VmrContext&)>& take) {
  Runtime runtime;
  DataReader reader(path, runtime);
  ::testing::internal::CaptureStdout();
  if (reader.Head()) {
    VmrContext context;
    context.periodStart = begin;
    context.periodEnd = end;
    const bool isOpen = reader.Open(context) > 0;
    while (isOpen && reader.Next(context) == ReaderResult::DONE) take(context);
    reader.Close(context);
  }
  ::testing::internal::GetCapturedStdout();
}

std::string Story::Delivered(const std::string& name, const std::string& begin,
                             const std::string& end) const {
  const ScopedVariable zone("TZ", "UTC");
  const auto secondsOf = [](const std::string& text) {
    std::tm time{};
    TimeParse(time, text, TimeFormatNumber::DAY_MONTH_YEAR_TIME);
    return TimeToSeconds(time);
  };
  std::ostringstream out;
  WalkRecording(DataPath(name), secondsOf(begin), secondsOf(end),
                [&](const VmrContext& context) { PrintInterval(context, out); });
  return out.str();
}

}  // namespace ozmo::testing
