#include "programs/record/file_systems.h"

#include <libmount/libmount.h>

#include <algorithm>
#include <cstdlib>
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

// What distinguishes a file system from others. A device may be mounted in parts that have numbers of their
// own.
std::string IdentityOf(libmnt_fs* mount) {
  const std::string source = TextOf(mnt_fs_get_source(mount));
  return source.starts_with("/dev/") ? source : std::to_string(mnt_fs_get_devno(mount));
}

struct MountedFileSystem {
  std::string device;
  std::string mountPoint;
  std::string identity;
};

std::vector<MountedFileSystem> FileSystemsOnDisks(Notices& notices) {
  std::vector<MountedFileSystem> mounted;
  libmnt_table* table = mnt_new_table();
  libmnt_iter* iterator = mnt_new_iter(MNT_ITER_FORWARD);
  const int failure = mnt_table_parse_file(table, MOUNTS);
  if (failure != 0) {
    notices.SayOnce(std::string(MOUNTS) + ": " + std::strerror(std::abs(failure)) +
                    "; no file systems are recorded");
  }
  libmnt_fs* mount = nullptr;
  while (failure == 0 && mnt_table_next_fs(table, iterator, &mount) == 0) {
    const std::string mountPoint = TextOf(mnt_fs_get_target(mount));
    if (!IsOnDisk(mount) && mountPoint != "/") continue;
    mounted.push_back({TextOf(mnt_fs_get_source(mount)), mountPoint, IdentityOf(mount)});
  }
  mnt_free_iter(iterator);
  mnt_unref_table(table);
  return mounted;
}

// Empty for a reply that is given or has not been waited for.
std::string ReasonOf(const FileSystemReply& reply) {
  if (reply.state == FileSystemReply::FAILED) return std::strerror(reply.reason);
  return reply.state == FileSystemReply::SILENT ? "doesn't respond" : "";
}

std::string NotRecorded(const std::string& mountPoint, const std::string& reason) {
  return mountPoint + ": " + reason + "; the file system is not recorded";
}

}  // namespace

std::vector<host_file::FileSystemFigures> ReadFileSystems(FileSystemProbe& probe, Notices& notices) {
  const std::vector<MountedFileSystem> mounted = FileSystemsOnDisks(notices);
  std::vector<std::string> mountPoints;
  mountPoints.reserve(mounted.size());
  for (const MountedFileSystem& mount : mounted) mountPoints.push_back(mount.mountPoint);
  const std::vector<FileSystemReply> replies = probe.Ask(mountPoints);

  std::vector<host_file::FileSystemFigures> fileSystems;
  std::set<std::string> seen;
  for (size_t i = 0; i < mounted.size(); ++i) {
    const auto& [device, mountPoint, identity] = mounted[i];
    if (seen.count(identity) != 0) continue;
    if (const std::string reason = ReasonOf(replies[i]); !reason.empty()) {
      notices.SayOnce(NotRecorded(mountPoint, reason));
    }
    const struct statvfs& figures = replies[i].figures;
    if (replies[i].state != FileSystemReply::GIVEN || figures.f_blocks == 0) continue;
    seen.insert(identity);
    fileSystems.push_back({device, mountPoint, figures.f_frsize, figures.f_blocks, figures.f_bfree,
                           figures.f_bavail, figures.f_files, figures.f_ffree});
  }
  return fileSystems;
}

}  // namespace ozmo::record
