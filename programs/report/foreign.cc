#include "programs/report/foreign.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <utility>

#include "programs/import/import.h"
#include "runtime/console.h"

namespace ozmo::report {
namespace {

constexpr int ENDING_SIGNALS[] = {SIGHUP, SIGINT, SIGTERM};

volatile sig_atomic_t worker = 0;  // the process that imports and shows

void PassOn(int signal) {
  if (worker > 0) kill(worker, signal);
}

void SetHandlers(void (*handler)(int)) {
  for (const int signal : ENDING_SIGNALS) {
    struct sigaction before = {};
    sigaction(signal, nullptr, &before);
    if (before.sa_handler == SIG_IGN) continue;  // as under nohup
    struct sigaction action = {};
    action.sa_handler = handler;
    sigaction(signal, &action, nullptr);
  }
}

// The status of a process that has ended; a signal that ended it ends this one too.
int StatusOf(int ending) {
  if (!WIFSIGNALED(ending)) return WEXITSTATUS(ending);
  std::signal(WTERMSIG(ending), SIG_DFL);
  std::raise(WTERMSIG(ending));
  return FAILED_STATUS;
}

}  // namespace

int RunInScratch(const std::string& program, const std::function<int(const std::string& directory)>& work) {
  std::error_code error;
  std::string directory = (std::filesystem::temp_directory_path(error) / (program + "_XXXXXX")).string();
  sigset_t ending;
  sigset_t before;
  sigemptyset(&ending);
  for (const int signal : ENDING_SIGNALS) sigaddset(&ending, signal);
  sigprocmask(SIG_BLOCK, &ending, &before);  // none may come between the directory and its keeper
  if (error || mkdtemp(directory.data()) == nullptr) {
    Complain(program, directory + ": " + (error ? error.message() : std::strerror(errno)));
    return FAILED_STATUS;
  }
  std::fflush(stdout);
  worker = fork();
  if (worker == 0) {
    sigprocmask(SIG_SETMASK, &before, nullptr);
    std::exit(CloseOutput(program, work(directory)));
  }
  int status = FAILED_STATUS << 8;
  if (worker < 0) {
    Complain(program, std::string("can't start a process: ") + std::strerror(errno));
  } else {
    SetHandlers(PassOn);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    while (waitpid(worker, &status, 0) < 0 && errno == EINTR) continue;
  }
  std::filesystem::remove_all(directory, error);
  return StatusOf(status);
}

ImportedFiles ImportForeign(const std::string& program, const std::string& recording,
                            const std::string& directory) {
  import::Options options;
  options.directory = directory;
  options.sources = {recording};
  import::ImportResult result = import::ImportRecordings(options, nullptr);
  for (std::string& note : result.notes) {
    // A file that was made for this run is the recording's.
    if (note.starts_with(directory)) note.replace(0, directory.size() + 1, recording + ": ");
    Complain(program, note);
  }
  return {std::move(result.files), std::move(result.failure), std::move(result.notes)};
}

}  // namespace ozmo::report
