#include "runtime/whole_file.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

namespace ozmo {
namespace {

// A device stays.
void RemovePart(const std::string& path) {
  struct stat status = {};
  if (lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode)) std::remove(path.c_str());
}

}  // namespace

bool WriteWholeFile(const std::string& path, std::string_view bytes) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return false;
  bool isWhole = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() && std::fflush(file) == 0;
  int reason = errno;
  if (std::fclose(file) != 0 && isWhole) {
    isWhole = false;
    reason = errno;
  }
  if (!isWhole) RemovePart(path);
  errno = reason;
  return isWhole;
}

}  // namespace ozmo
