#include "runtime/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace ozmo {
namespace {

constexpr mode_t MODE_BITS = 0777;

mode_t UserMask() {
  const mode_t mask = umask(0);
  umask(mask);
  return mask;
}

// Gives the draft the rights of the file that it is to replace, or those of a new one. What can't be given
// away stays with this user.
bool TakeRights(int draft, const std::string& target, mode_t newFileMode) {
  struct stat older = {};
  if (lstat(target.c_str(), &older) != 0 || !S_ISREG(older.st_mode)) {
    return fchmod(draft, newFileMode & ~UserMask()) == 0;
  }
  if (fchown(draft, older.st_uid, older.st_gid) != 0 && errno != EPERM) return false;
  return fchmod(draft, older.st_mode & MODE_BITS) == 0;
}

bool IsLinkOfOthers(const struct stat& link) { return link.st_uid != geteuid() && link.st_uid != 0; }

}  // namespace

std::string WholeFile::Failure(int reason) const { return path_ + ": " + std::strerror(reason); }

std::string WholeFile::Open(const WholeFilePlace& place) {
  path_ = place.path;
  onDisk_ = place.onDisk;
  links_ = place.links;
  mode_ = place.mode;
  if (std::string failure = FindTarget(); !failure.empty()) return failure;
  struct stat older = {};
  const bool isThere = lstat(target_.c_str(), &older) == 0;
  if (isThere && links_ == LinkRule::NEW) return Failure(EEXIST);
  if (isThere) {
    const std::optional<FileIdentity> identity = IdentityOf(older);
    if (identity && std::ranges::count(place.inputs, *identity) != 0) {
      return path_ + " is read by this run and can't be its output file";
    }
  }
  if (!isThere || S_ISREG(older.st_mode)) return OpenDraft();
  if (S_ISDIR(older.st_mode)) return Failure(EISDIR);
  return links_ == LinkRule::REPLACE ? OpenDraft() : OpenInPlace();
}

std::string WholeFile::FindTarget() {
  target_ = path_;
  struct stat link = {};
  if (links_ != LinkRule::FOLLOW || lstat(path_.c_str(), &link) != 0 || !S_ISLNK(link.st_mode)) return "";
  if (IsLinkOfOthers(link)) return path_ + " is a link of another user, which isn't followed";
  struct stat status = {};
  if (stat(path_.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) return "";  // written in place
  const std::unique_ptr<char, decltype(&std::free)> path(realpath(path_.c_str(), nullptr), std::free);
  if (!path) return Failure(errno);
  target_ = path.get();
  return "";
}

std::string WholeFile::OpenDraft() {
  // Writing into a file takes the right to write to it; a rename wouldn't ask.
  struct stat older = {};
  if (lstat(target_.c_str(), &older) == 0 && S_ISREG(older.st_mode) && access(target_.c_str(), W_OK) != 0) {
    return Failure(errno);
  }
  draftPath_ = target_.substr(0, target_.rfind('/') + 1) + ".ozmo-XXXXXX";
  const SignalsHeld held;
  const int file = mkostemp(draftPath_.data(), O_CLOEXEC);
  if (file < 0) return Failure(errno);
  draft_.Watch(draftPath_, file);
  if (!TakeRights(file, target_, mode_)) {
    std::string failure = Failure(errno);
    close(file);
    draft_.Remove();
    return failure;
  }
  stream_ = StreamOf(file, "w");
  return stream_ ? "" : Failure(errno);
}

std::string WholeFile::OpenInPlace() {
  target_.clear();
  const int file = open(path_.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
  if (file < 0) return Failure(errno);
  stream_ = StreamOf(file, "w");
  return stream_ ? "" : Failure(errno);
}

std::string WholeFile::Commit() {
  // The reason of an earlier failed write is the last one there was.
  if (std::ferror(stream_.get()) != 0 || std::fflush(stream_.get()) != 0) return Failure(errno);
  if (!target_.empty() && onDisk_ && fsync(fileno(stream_.get())) != 0) return Failure(errno);
  if (std::fclose(stream_.release()) != 0) return Failure(errno);
  if (target_.empty()) return "";
  if (links_ == LinkRule::NEW) {
    // Another name for the draft, since that never replaces anything; the draft's own then goes.
    if (link(draftPath_.c_str(), target_.c_str()) != 0) return Failure(errno);
    draft_.Remove();
    return "";
  }
  if (std::rename(draftPath_.c_str(), target_.c_str()) != 0) return Failure(errno);
  draft_.Finish();
  return "";
}

std::string WriteWholeFile(const WholeFilePlace& place, std::string_view bytes) {
  WholeFile file;
  if (std::string failure = file.Open(place); !failure.empty()) return failure;
  std::fwrite(bytes.data(), 1, bytes.size(), file.stream());  // Commit sees the stream's errors
  return file.Commit();
}

}  // namespace ozmo
