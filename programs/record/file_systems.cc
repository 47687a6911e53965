#include "programs/record/file_systems.h"

#include <libmount/libmount.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <set>
#include <string_view>

namespace ozmo::record {
namespace {

constexpr const char* MOUNTS = "/proc/self/mountinfo";
constexpr std::string_view IMAGE_TYPES[] = {"squashfs", "erofs", "iso9660", "udf", "cramfs", "romfs"};

// Texts of libmount may be missing.
std::string TextOf(const char* text) { return text == nullptr ? "" : text; }

// Only a device or a pool of them is on a disk; a source of another kind is a server, a program or the
// kernel.
bool IsOnDisk(libmnt_fs* mount) {
  const std::string type = TextOf(mnt_fs_get_fstype(mount));
  const bool isImage =
      std::find(std::begin(IMAGE_TYPES), std::end(IMAGE_TYPES), type) != std::end(IMAGE_TYPES);
  return !isImage && (type == "zfs" || TextOf(mnt_fs_get_source(mount)).starts_with("/dev/"));
}

// What tells a file system from others. A device may be mounted in parts that have numbers of their own.
std::string IdentityOf(libmnt_fs* mount) {
  const std::string source = TextOf(mnt_fs_get_source(mount));
  return source.starts_with("/dev/") ? source : std::to_string(mnt_fs_get_devno(mount));
}

bool TakeFigures(const std::string& device, const std::string& mountPoint, Notices& notices,
                 std::vector<host_file::FileSystemFigures>& fileSystems) {
  struct statvfs figures {};
  if (statvfs(mountPoint.c_str(), &figures) != 0) {
    notices.SayOnce(mountPoint + ": " + std::strerror(errno) + "; the file system is not recorded");
    return false;
  }
  if (figures.f_blocks == 0) return false;
  fileSystems.push_back({device, mountPoint, figures.f_frsize, figures.f_blocks, figures.f_bfree,
                         figures.f_bavail, figures.f_files, figures.f_ffree});
  return true;
}

}  // namespace

std::vector<host_file::FileSystemFigures> ReadFileSystems(Notices& notices) {
  std::vector<host_file::FileSystemFigures> fileSystems;
  libmnt_table* table = mnt_new_table();
  libmnt_iter* iterator = mnt_new_iter(MNT_ITER_FORWARD);
  const int failure = mnt_table_parse_file(table, MOUNTS);
  if (failure != 0) {
    notices.SayOnce(std::string(MOUNTS) + ": " + std::strerror(std::abs(failure)) +
                    "; no file systems are recorded");
  }
  std::set<std::string> seen;
  libmnt_fs* mount = nullptr;
  while (failure == 0 && mnt_table_next_fs(table, iterator, &mount) == 0) {
    const std::string mountPoint = TextOf(mnt_fs_get_target(mount));
    if (!IsOnDisk(mount) && mountPoint != "/") continue;
    const std::string identity = IdentityOf(mount);
    if (seen.count(identity) != 0) continue;
    if (TakeFigures(TextOf(mnt_fs_get_source(mount)), mountPoint, notices, fileSystems)) {
      seen.insert(identity);
    }
  }
  mnt_free_iter(iterator);
  mnt_unref_table(table);
  return fileSystems;
}

}  // namespace ozmo::record
