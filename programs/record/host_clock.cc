#include "programs/record/host_clock.h"

#include <fcntl.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <ctime>

namespace ozmo::record {
namespace {

int64_t Read(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  // 64 bits of nanoseconds end in the year 2262.
  return std::min<int64_t>(now.tv_sec, LAST_STAMP) * NANOSECONDS + now.tv_nsec;
}

// How far stamps are kept from the ends of readers' windows.
int64_t MarginOf(int64_t intervalSeconds) {
  constexpr int64_t LARGEST = 15;
  return std::min(LARGEST, (intervalSeconds + 2) / 4) * NANOSECONDS;
}

// Without those that whoever started the recorder has it ignore, as nohup does.
sigset_t HeldSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    if (action.sa_handler != SIG_IGN) sigaddset(&signals, signal);
  }
  return signals;
}

// Whether the process was started with a terminal of its own; a terminal that is gone can't be asked any
// more.
const bool HAD_TERMINAL = [] {
  const int terminal = open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY);
  if (terminal >= 0) close(terminal);
  return terminal >= 0;
}();

}  // namespace

Moment Now() { return {Read(CLOCK_REALTIME), Read(CLOCK_MONOTONIC)}; }

int64_t BeginOf(const Moment& moment, int64_t intervalSeconds) {
  const int64_t interval = intervalSeconds * NANOSECONDS;
  const int64_t margin = MarginOf(intervalSeconds);
  // The next whole second; with a margin of more than none, the next one far enough from both ends.
  int64_t wall = (moment.wall + NANOSECONDS - 1) / NANOSECONDS * NANOSECONDS;
  const int64_t phase = wall % interval;
  if (phase < margin) wall += margin - phase;
  if (phase > interval - margin) wall += interval - phase + margin;
  return moment.steady + wall - moment.wall;
}

int64_t DueAfter(int64_t due, const Moment& last, int64_t intervalSeconds) {
  const int64_t interval = intervalSeconds * NANOSECONDS;
  const int64_t shortest = interval - std::max(MarginOf(intervalSeconds), NANOSECONDS) / 2;
  const int64_t missed = std::max<int64_t>(last.steady - due, 0) / interval;
  due += (missed + 1) * interval;
  return due - last.steady < shortest ? due + interval : due;
}

void HoldSignals() {
  const sigset_t signals = HeldSignals();
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  // A file that may not grow is a failed write, and no one need be left to read the paths.
  for (const int signal : {SIGXFSZ, SIGPIPE}) std::signal(signal, SIG_IGN);
}

int HeldSignalsFile() {
  static const int FILE = [] {
    const sigset_t signals = HeldSignals();
    return signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
  }();
  return FILE;
}

Wake SleepUntil(int64_t steady) {
  const sigset_t signals = HeldSignals();
  for (;;) {
    const int64_t left = std::max<int64_t>(steady - Read(CLOCK_MONOTONIC), 0);
    const timespec time{left / NANOSECONDS, left % NANOSECONDS};
    const int signal = sigtimedwait(&signals, nullptr, &time);
    if (signal == SIGHUP && !HAD_TERMINAL) return Wake::NEW_FILE;
    if (signal > 0) return Wake::STOP;
    if (Read(CLOCK_MONOTONIC) >= steady) return Wake::DUE;
  }
}

}  // namespace ozmo::record
