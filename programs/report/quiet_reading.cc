#include "programs/report/quiet_reading.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "runtime/console.h"
#include "runtime/messages.h"

namespace ozmo::report {
namespace {

// Shows how far the walk has come, on a terminal only.
class Progress {
 public:
  explicit Progress(Runtime& runtime)
      : sink_(runtime.progressSink, [this](Seconds time) { Show(time); }),
        shown_(isatty(STDERR_FILENO) == 1) {}
  ~Progress() {
    if (last_ != 0) std::fputs("\r\033[K", stderr);
  }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

 private:
  static constexpr Seconds STEP = 900;

  void Show(Seconds time) {
    if (!shown_ || time / STEP == last_ / STEP) return;
    last_ = time;
    std::fprintf(stderr, "\rreading %s ", TimeFormat(time, "%Y-%m-%d %H:%M").c_str());
  }

  const ScopedSink<ProgressSink> sink_;
  bool shown_;
  Seconds last_ = 0;
};

// While it lives, standard output goes nowhere: readers report there which file they read, and the output of
// this program is its own.
class SilentOutput {
 public:
  SilentOutput() : kept_(dup(STDOUT_FILENO)) {
    std::fflush(stdout);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0) return;
    dup2(nowhere, STDOUT_FILENO);
    close(nowhere);
  }
  ~SilentOutput() {
    std::fflush(stdout);
    if (kept_ < 0) return;
    dup2(kept_, STDOUT_FILENO);
    close(kept_);
  }
  SilentOutput(const SilentOutput&) = delete;
  SilentOutput& operator=(const SilentOutput&) = delete;

 private:
  int kept_;
};

// What readers report. A day of thousands of bad files must not fill a terminal or a page: the first few are
// kept and said, at once, as the process ends after the message of a failed allocation; the others are
// counted.
class Problems {
 public:
  explicit Problems(const char* program) : program_(program) {}
  void Take(const ReadyMessage& message) {
    if (++count_ > MOST && message.code != "NOALLOC") return;
    Complain(program_, message.text);
    texts_.push_back(message.text);
  }
  void Finish() {
    if (count_ <= MOST) return;
    const int more = count_ - MOST;
    texts_.push_back(std::to_string(more) +
                     (more == 1 ? " more problem like these" : " more problems like these"));
    Complain(program_, texts_.back());
  }
  const std::vector<std::string>& texts() const { return texts_; }

 private:
  static constexpr int MOST = 10;
  const char* program_;
  int count_ = 0;
  std::vector<std::string> texts_;
};

// What is read right now, for the end of the process.
const Reading* current = nullptr;

void SayWhereReadingEnded() {
  if (current != nullptr) Complain(current->program, current->file + ": reading it has ended the run");
}

class CurrentReading {
 public:
  explicit CurrentReading(const Reading& reading) {
    static const bool IS_SAID = std::atexit(SayWhereReadingEnded) == 0;
    if (IS_SAID) current = &reading;
  }
  ~CurrentReading() { current = nullptr; }
  CurrentReading(const CurrentReading&) = delete;
  CurrentReading& operator=(const CurrentReading&) = delete;
};

}  // namespace

std::vector<std::string> RunQuietly(const Reading& reading, Runtime& runtime,
                                    const std::function<void()>& work) {
  Problems problems(reading.program);
  const ScopedSink<MessageSink> sink(runtime.messageSink, [&](const ReadyMessage& message) {
    // A plain message says what is being read, and nothing of the data.
    if (message.isProblem && message.code != PLAIN_MESSAGE) problems.Take(message);
  });
  const SilentOutput silent;
  const Progress progress(runtime);
  const CurrentReading now(reading);
  work();
  problems.Finish();
  return problems.texts();
}

}  // namespace ozmo::report
