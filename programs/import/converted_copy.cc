#include "programs/import/converted_copy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "programs/import/spawn.h"

namespace ozmo::import {

Stream ConvertedCopy(const std::vector<std::string>& command) {
  Stream copy(std::tmpfile());
  if (!copy) return nullptr;
  const int file = fileno(copy.get());
  fcntl(file, F_SETFD, FD_CLOEXEC);
  pid_t program = 0;
  int status = 0;
  const bool isDone = Spawn(command, file, Messages::DROPPED, program) == 0 &&
                      waitpid(program, &status, 0) == program && WIFEXITED(status) &&
                      WEXITSTATUS(status) == 0;
  struct stat facts = {};
  return isDone && fstat(file, &facts) == 0 && facts.st_size > 0 ? std::move(copy) : nullptr;
}

std::string PathOf(const Stream& copy) {
  return "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(fileno(copy.get()));
}

}  // namespace ozmo::import
