#include "runtime/console.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

#include "runtime/terminal_text.h"

namespace ozmo {

void OpenStandardStreams() {
  int file = 0;
  while (file >= 0 && file <= STDERR_FILENO) file = open("/dev/null", O_RDWR);
  if (file > STDERR_FILENO) close(file);
}

void Complain(std::string_view program, std::string_view text) {
  const std::string line = std::string(program) + ": " + PrintableText(text) + "\n";
  std::fputs(line.c_str(), stderr);
}

int CloseOutput(std::string_view program, int status) {
  errno = EIO;  // for what an earlier call has met
  bool isWritten = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
  // Some file systems say only at the end that there was no room.
  if (close(STDOUT_FILENO) != 0) isWritten = false;
  if (isWritten || errno == EPIPE) return status;
  Complain(program, std::string("standard output: ") + std::strerror(errno));
  return status == DONE_STATUS ? FAILED_STATUS : status;
}

}  // namespace ozmo
