#include "runtime/output_directory.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace ozmo {
namespace {

// The number of the error that the path of a directory gives; 0 where it is one.
int DirectoryError(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) return errno;
  return S_ISDIR(status.st_mode) ? 0 : ENOTDIR;
}

std::string Failure(const std::string& path, int error) {
  return error == 0 ? "" : path + ": " + std::strerror(error);
}

}  // namespace

std::string MakeOutputDirectory(const std::string& path) {
  if (mkdir(path.c_str(), 0777) == 0) return "";
  return Failure(path, errno == EEXIST ? DirectoryError(path) : errno);
}

std::string CheckDirectoryOf(const std::string& path) {
  const std::string directory = std::filesystem::path(path).parent_path().string();
  return Failure(path, directory.empty() ? 0 : DirectoryError(directory));
}

}  // namespace ozmo
