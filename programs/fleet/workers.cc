#include "programs/fleet/workers.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string_view>

#include "programs/report/entry.h"
#include "runtime/console.h"
#include "runtime/stream.h"

namespace ozmo::fleet {
namespace {

constexpr std::string_view PROGRAM_PREFIX = "ozmo_report: ";

struct Running {
  size_t place = 0;
  Stream output;
  Stream complaints;
};

std::string ContentOf(std::FILE* stream) {
  std::string content;
  std::rewind(stream);
  char block[1 << 14];
  while (const size_t size = std::fread(block, 1, sizeof block, stream)) content.append(block, size);
  return content;
}

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (line.starts_with(PROGRAM_PREFIX)) line.remove_prefix(PROGRAM_PREFIX.size());
    if (!line.empty()) lines.emplace_back(line);
  }
  return lines;
}

[[noreturn]] void RunReport(const Work& work, const Running& running) {
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  dup2(fileno(running.output.get()), STDOUT_FILENO);
  dup2(fileno(running.complaints.get()), STDERR_FILENO);
  Work words = work;
  words.insert(words.begin(), "ozmo_report");
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const int status = report::ReportEntry(static_cast<int>(words.size()), arguments.data());
  std::exit(CloseOutput("ozmo_report", status));
}

bool IsOfALimit(int failure) { return failure == EMFILE || failure == ENFILE || failure == EAGAIN; }

// Whether a run, and what takes results here, can open files of their own; errno says why not.
bool LeavesFiles() {
  constexpr int FILES = 8;
  std::vector<Stream> files;
  for (int i = 0; i < FILES; ++i) {
    if (!files.emplace_back(std::fopen("/dev/null", "r"))) return false;
  }
  return true;
}

WorkResult ResultOf(const Running& running, int ending) {
  WorkResult result;
  result.status = WIFEXITED(ending) ? WEXITSTATUS(ending) : -1;
  result.output = ContentOf(running.output.get());
  result.complaints = LinesOf(ContentOf(running.complaints.get()));
  if (WIFSIGNALED(ending)) {
    result.complaints.push_back(std::string("the run was ended by a signal: ") + strsignal(WTERMSIG(ending)));
  }
  return result;
}

}  // namespace

void RunAll(std::span<const Work> works, int jobs,
            const std::function<void(size_t place, const WorkResult& result)>& done) {
  std::map<pid_t, Running> running;
  size_t next = 0;
  // Returns 0, or why the next one didn't start.
  const auto start = [&] {
    Running run{next, Stream(std::tmpfile()), Stream(std::tmpfile())};
    if (!run.output || !run.complaints || !LeavesFiles()) return errno;
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) return errno;
    if (child == 0) {
      running.clear();  // their files count against the limit of this one
      RunReport(works[next], run);
    }
    running.emplace(child, std::move(run));
    ++next;
    return 0;
  };
  for (;;) {
    while (next < works.size() && running.size() < static_cast<size_t>(jobs)) {
      const int failure = start();
      if (IsOfALimit(failure) && !running.empty()) break;  // there is room when one of these has ended
      if (failure != 0) done(next++, {-1, "", {std::string("can't start a run: ") + std::strerror(failure)}});
    }
    if (running.empty()) return;
    int ending = 0;
    const pid_t child = waitpid(-1, &ending, 0);
    if (child < 0 && errno == EINTR) continue;
    const auto ended = running.find(child);
    if (ended == running.end()) continue;
    const Running run = std::move(ended->second);
    running.erase(ended);
    done(run.place, ResultOf(run, ending));
  }
}

}  // namespace ozmo::fleet
