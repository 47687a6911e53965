#include "output/temp_map.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ozmo {
namespace {

constexpr const char* TEMP_MAP_NAME = "/tmp/temp.ppm";
constexpr mode_t TEMP_MAP_MODE = 0666;  // less the file creation mask

// A second name of the file could be one that someone else laid here for us to overwrite.
bool IsOurs(int file) {
  struct stat status = {};
  return fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid() &&
         status.st_nlink == 1;
}

}  // namespace

Stream TempMapCreate() {
  // Cut to nothing only once it is known to be ours. Without O_NONBLOCK a pipe of this name would hang us.
  const int file =
      open(TEMP_MAP_NAME, O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, TEMP_MAP_MODE);
  if (file < 0) return nullptr;
  if (!IsOurs(file) || ftruncate(file, 0) != 0) {
    close(file);
    return nullptr;
  }
  return StreamOf(file, "w");
}

Stream TempMapOpen() {
  const int file = open(TEMP_MAP_NAME, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return nullptr;
  if (!IsOurs(file)) {
    close(file);
    return nullptr;
  }
  return StreamOf(file, "rb");
}

int TempMapDelete() { return unlink(TEMP_MAP_NAME); }

}  // namespace ozmo
