// Output files in the making. Until it is finished a file is a draft, and whatever ends the run takes the
// draft away with it: a failure on the way, the end of the process from somewhere deep inside a library, or
// one of the signals SIGHUP, SIGINT and SIGTERM, and SIGXCPU and SIGXFSZ of a limit. So a run leaves a
// whole file or none.
#pragma once

#include <csignal>
#include <string>

namespace ozmo {

struct DraftSlot;

class DraftFile {
 public:
  DraftFile() = default;
  ~DraftFile() { Remove(); }
  DraftFile(const DraftFile&) = delete;
  DraftFile& operator=(const DraftFile&) = delete;

  // Takes `path`, which is open as `file`, for a draft from now on. Only a plain file is one: nobody wants a
  // device or a pipe taken away. Of a link it is the file that it leads to. A process may
  // have any number of drafts.
  void Watch(const std::string& path, int file);

  // From now on only a signal takes the file away.
  void KeepOnExit();

  // The file stays.
  void Finish();

  // Takes the file away, unless another one has its name by now.
  void Remove();

 private:
  DraftSlot* slot_ = nullptr;
};

// Holds the signals back that take drafts away: between the making of a file and Watch none may slip in.
class SignalsHeld {
 public:
  SignalsHeld();
  ~SignalsHeld();
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

 private:
  sigset_t before_{};
};

}  // namespace ozmo
