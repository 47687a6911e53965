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
  const auto start = [&] {
    const size_t place = next++;
    Running run{place, Stream(std::tmpfile()), Stream(std::tmpfile())};
    if (!run.output || !run.complaints) return done(place, {-1, "", {std::strerror(errno)}});
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) RunReport(works[place], run);
    if (child < 0)
      return done(place, {-1, "", {std::string("can't start a process: ") + std::strerror(errno)}});
    running.emplace(child, std::move(run));
  };
  for (;;) {
    while (next < works.size() && running.size() < static_cast<size_t>(jobs)) start();
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
