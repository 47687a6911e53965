#include "runtime/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace ozmo {
namespace {

constexpr off_t LARGEST_FILE = off_t{64} << 20;  // bytes: nobody writes as many classes or messages

}  // namespace

Stream TextFileOpen(const std::string& path) {
  // Without O_NONBLOCK the opening of a pipe waits for its writer.
  const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (file < 0) return nullptr;
  struct stat status = {};
  if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > LARGEST_FILE) {
    close(file);
    return nullptr;
  }
  return StreamOf(file, "r");
}

bool TextFileReadLine(std::FILE* file, size_t longest, std::string& line) {
  line.clear();
  int c = 0;
  while (line.size() < longest && (c = getc_unlocked(file)) != EOF && c != '\n') {
    line += static_cast<char>(c);
  }
  return c != EOF || !line.empty();
}

}  // namespace ozmo
