// The figures of file systems, none of which may hold up the recorder: a dying disk or a server of a
// mount can keep whoever asks it waiting for ever, out of reach of signals.
#pragma once

#include <sys/statvfs.h>
#include <sys/types.h>

#include <string>
#include <vector>

namespace ozmo::record {

struct FileSystemReply {
  enum State { GIVEN, FAILED, SILENT, NOT_WAITED_FOR };
  State state = NOT_WAITED_FOR;
  int reason = 0;             // errno, of FAILED
  struct statvfs figures {};  // of GIVEN
};

// A process of its own asks the file systems one after the other, as only a process can be given up while
// it hangs. One that hasn't had its reply in two seconds is given up; its file system isn't asked again
// before that process has ended, which it does once it is answered.
class FileSystemProbe {
 public:
  // A reply for each mount point, in their order. A signal that SleepUntil takes ends the wait.
  std::vector<FileSystemReply> Ask(const std::vector<std::string>& mountPoints);

 private:
  struct LeftBehind {
    pid_t process;
    std::string mountPoint;
  };

  bool IsLeftBehind(const std::string& mountPoint) const;
  size_t AskFrom(size_t place, const std::vector<std::string>& mountPoints,
                 std::vector<FileSystemReply>& replies);

  std::vector<LeftBehind> leftBehind_;
};

}  // namespace ozmo::record
