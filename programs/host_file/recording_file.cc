#include "programs/host_file/recording_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "readers/file_kind.h"
#include "runtime/file_identity.h"
#include "runtime/times.h"

namespace ozmo::host_file {
namespace {

// Less what the umask takes. The arguments of all processes are in a recording, and not for everybody.
constexpr mode_t FILE_MODE = 0640;
constexpr mode_t LOCK_MODE = 0600;  // who can open a lock can hold it

bool IsOwnPlainFile(int file) {
  struct stat status {};
  return fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink == 1 &&
         status.st_uid == geteuid();
}

}  // namespace

DirectoryLock::~DirectoryLock() {
  if (file_ >= 0) close(file_);
}

std::string DirectoryLock::Take(const std::string& directory, const std::string& node) {
  const std::string path = directory + "/.qtxl_" + node + ".lock";
  // Others may have laid something else in its place. Without O_NONBLOCK a pipe could hold us up.
  file_ = open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, LOCK_MODE);
  if (file_ < 0 ? errno == ELOOP : !IsOwnPlainFile(file_)) {
    return path + " is no plain file of this user alone, and can't be the lock";
  }
  if (file_ < 0) return "can't write in " + directory + ": " + std::strerror(errno);
  if (fchmod(file_, LOCK_MODE) != 0) return path + ": " + std::strerror(errno);
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
    if (access((path_ + std::string(COMPRESSED_ENDING)).c_str(), F_OK) == 0) continue;
    file_ = open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, FILE_MODE);
    if (file_ < 0 && errno != EEXIST) return Failure();
  }
  size_ = 0;
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
      // What was written in part is cut off again. If that fails too, readers stop at the piece.
      size_ = end;
      if (ftruncate(file_, end) != 0) return failure + "; the last sample is cut off";
      return failure;
    }
    bytes.remove_prefix(static_cast<size_t>(written));
    size_ += written;
  }
  return "";
}

std::string RecordingFile::GiveUpIfLost() {
  struct stat status {};
  std::string lost;
  if (lstat(path_.c_str(), &status) != 0) {
    lost = " was removed";
  } else if (IdentityOf(status) != IdentityOf(file_)) {
    lost = " was replaced";
  } else if (status.st_size != size_) {
    lost = status.st_size < size_ ? " was cut" : " was written to";
  }
  if (lost.empty()) return "";
  close(file_);
  file_ = -1;
  return path_ + lost + " by another program";
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
