#include "programs/host_file/recording_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "runtime/times.h"

namespace ozmo::host_file {
namespace {

constexpr mode_t FILE_MODE = 0666;  // less what the umask takes

}  // namespace

DirectoryLock::~DirectoryLock() {
  if (file_ >= 0) close(file_);
}

std::string DirectoryLock::Take(const std::string& directory, const std::string& node) {
  const std::string path = directory + "/.qtxl_" + node + ".lock";
  file_ = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, FILE_MODE);
  if (file_ < 0) return "can't write in " + directory + ": " + std::strerror(errno);
  if (flock(file_, LOCK_EX | LOCK_NB) == 0) return "";
  if (errno == EWOULDBLOCK) return directory + ": another recorder of " + node + " is writing here";
  return path + ": " + std::strerror(errno);
}

RecordingFile::~RecordingFile() {
  if (file_ >= 0) close(file_);
}

std::string RecordingFile::Create(const std::string& directory, const std::string& node, int64_t time) {
  date_ = FileDate(time);
  const std::string stem = directory + "/qtxl_" + node + "_" + date_ + ".dat_";
  for (int number = 1; file_ < 0; ++number) {
    path_ = stem + std::to_string(number);
    if (access((path_ + ".zst").c_str(), F_OK) == 0) continue;
    file_ = open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, FILE_MODE);
    if (file_ < 0 && errno != EEXIST) return Failure();
  }
  return "";
}

std::string RecordingFile::Append(std::string_view bytes) {
  const off_t end = lseek(file_, 0, SEEK_END);
  if (end < 0) return Failure();
  while (!bytes.empty()) {
    const ssize_t written = write(file_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) {
      std::string failure = Failure();
      // What stands half goes away again. If that fails too, readers stop at the piece.
      if (ftruncate(file_, end) != 0) return failure + "; the last sample is cut off";
      return failure;
    }
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return "";
}

std::string RecordingFile::Close() {
  std::string failure;
  if (fsync(file_) != 0) failure = Failure();
  if (close(file_) != 0 && failure.empty()) failure = Failure();
  file_ = -1;
  return failure;
}

void RecordingFile::Remove() {
  unlink(path_.c_str());
  close(file_);
  file_ = -1;
}

std::string RecordingFile::Failure() const { return path_ + ": " + std::strerror(errno); }

std::string FileDate(int64_t time) { return TimeFormat(time, "%Y%b%d"); }

}  // namespace ozmo::host_file
