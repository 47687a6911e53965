#include "runtime/draft_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <climits>
#include <cstdlib>

namespace ozmo {
namespace {

constexpr std::array ENDING_SIGNALS = {SIGHUP, SIGINT, SIGTERM, SIGXCPU, SIGXFSZ};

enum State : sig_atomic_t { FREE, ON_SIGNAL, ON_EXIT };

}  // namespace

// What a signal handler can work with: no storage that may be on the move. Slots are used again and never
// freed, so that a handler can walk them at any moment.
struct DraftSlot {
  volatile sig_atomic_t state = FREE;
  char path[PATH_MAX] = {};
  dev_t device = 0;
  ino_t inode = 0;
  DraftSlot* next = nullptr;
};

namespace {

// Process-wide, as handlers of signals and of exit() have no argument that could carry it.
std::atomic<DraftSlot*> slots = nullptr;
static_assert(std::atomic<DraftSlot*>::is_always_lock_free);

DraftSlot* FreeSlot() {
  for (DraftSlot* slot = slots; slot != nullptr; slot = slot->next) {
    if (slot->state == FREE) return slot;
  }
  auto* slot = new DraftSlot;
  slot->next = slots;
  slots = slot;
  return slot;
}

// Calls only what may be called from a signal handler.
void RemoveSlot(DraftSlot& slot) {
  struct stat status = {};
  if (lstat(slot.path, &status) == 0 && status.st_dev == slot.device && status.st_ino == slot.inode) {
    unlink(slot.path);
  }
  slot.state = FREE;
}

void RemoveFrom(State weakest) {
  for (DraftSlot* slot = slots; slot != nullptr; slot = slot->next) {
    if (slot->state >= weakest) RemoveSlot(*slot);
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
  DraftSlot* slot = FreeSlot();
  if (realpath(path.c_str(), slot->path) == nullptr) {
    slot->path[path.copy(slot->path, sizeof slot->path - 1)] = '\0';
  }
  slot->device = status.st_dev;
  slot->inode = status.st_ino;
  slot->state = ON_EXIT;
  slot_ = slot;
  InstallHandlers();
}

void DraftFile::KeepOnExit() {
  if (slot_ != nullptr) slot_->state = ON_SIGNAL;
}

void DraftFile::Finish() {
  if (slot_ != nullptr) slot_->state = FREE;
  slot_ = nullptr;
}

void DraftFile::Remove() {
  if (slot_ != nullptr) RemoveSlot(*slot_);
  slot_ = nullptr;
}

SignalsHeld::SignalsHeld() {
  sigset_t signals;
  sigemptyset(&signals);
  for (int signal : ENDING_SIGNALS) sigaddset(&signals, signal);
  sigprocmask(SIG_BLOCK, &signals, &before_);
}

SignalsHeld::~SignalsHeld() { sigprocmask(SIG_SETMASK, &before_, nullptr); }

}  // namespace ozmo
