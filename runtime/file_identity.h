// Which file a path or descriptor leads to, whatever it is called.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

namespace ozmo {

struct FileIdentity {
  dev_t device = 0;
  ino_t inode = 0;

  bool operator==(const FileIdentity&) const = default;
};

// Absent for what is no plain file: writing to a device or a pipe spoils nothing.
inline std::optional<FileIdentity> IdentityOf(const struct stat& status) {
  if (!S_ISREG(status.st_mode)) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

inline std::optional<FileIdentity> IdentityOf(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 ? IdentityOf(status) : std::nullopt;
}

inline std::optional<FileIdentity> IdentityOf(int file) {
  struct stat status = {};
  return fstat(file, &status) == 0 ? IdentityOf(status) : std::nullopt;
}

}  // namespace ozmo
