#include "runtime/draft_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstdlib>

namespace ozmo {
namespace {

constexpr std::array ENDING_SIGNALS = {SIGHUP, SIGINT, SIGTERM, SIGXCPU, SIGXFSZ};

enum State : sig_atomic_t { FREE, ON_SIGNAL, ON_EXIT };

// What a signal handler can work with: no pointers to storage that may be on the move.
struct Slot {
  volatile sig_atomic_t state = FREE;
  char path[PATH_MAX] = {};
  dev_t device = 0;
  ino_t inode = 0;
};

// Process-wide, as handlers of signals and of exit() have no argument that could carry it: the picture and
// the temporary map of a JPEG run.
std::array<Slot, 2> slots;

// Calls only what may be called from a signal handler.
void RemoveSlot(Slot& slot) {
  struct stat status = {};
  if (lstat(slot.path, &status) == 0 && status.st_dev == slot.device && status.st_ino == slot.inode) {
    unlink(slot.path);
  }
  slot.state = FREE;
}

void RemoveFrom(State weakest) {
  for (Slot& slot : slots) {
    if (slot.state >= weakest) RemoveSlot(slot);
  }
}

extern "C" void RemoveAtExit() { RemoveFrom(ON_EXIT); }

// The handler is gone when it runs (SA_RESETHAND), so the signal ends the process as it would have done.
extern "C" void RemoveAtSignal(int signal) {
  RemoveFrom(ON_SIGNAL);
  raise(signal);
}

// A signal that is ignored, as under nohup, stays so.
void InstallHandlers() {
  static bool installed = false;
  if (installed) return;
  installed = true;
  std::atexit(RemoveAtExit);
  for (int signal : ENDING_SIGNALS) {
    struct sigaction action = {};
    if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler != SIG_DFL) continue;
    action.sa_handler = RemoveAtSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(signal, &action, nullptr);
  }
}

}  // namespace

void DraftFile::Watch(const std::string& path, int file) {
  const SignalsHeld held;
  struct stat status = {};
  if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return;
  for (size_t i = 0; i < slots.size() && slot_ < 0; ++i) {
    Slot& slot = slots[i];
    if (slot.state != FREE || realpath(path.c_str(), slot.path) == nullptr) continue;
    slot.device = status.st_dev;
    slot.inode = status.st_ino;
    slot.state = ON_EXIT;
    slot_ = static_cast<int>(i);
  }
  InstallHandlers();
}

void DraftFile::KeepOnExit() {
  if (slot_ >= 0) slots[static_cast<size_t>(slot_)].state = ON_SIGNAL;
}

void DraftFile::Finish() {
  if (slot_ >= 0) slots[static_cast<size_t>(slot_)].state = FREE;
  slot_ = -1;
}

void DraftFile::Remove() {
  if (slot_ >= 0) RemoveSlot(slots[static_cast<size_t>(slot_)]);
  slot_ = -1;
}

SignalsHeld::SignalsHeld() {
  sigset_t signals;
  sigemptyset(&signals);
  for (int signal : ENDING_SIGNALS) sigaddset(&signals, signal);
  sigprocmask(SIG_BLOCK, &signals, &before_);
}

SignalsHeld::~SignalsHeld() { sigprocmask(SIG_SETMASK, &before_, nullptr); }

}  // namespace ozmo
