// A made-up host, linked into ozmo_record before the C library: the recorder and its libraries
// read the files of a recorded host, and its clocks go as recorded.
//
// The environment's REPLAYED_HOST names a directory with a directory for each moment, numbered from 0. Below
// that are the files of /proc and /sys, "clock" with the seconds of the wall clock and the steady clock,
// and "statvfs" with a line for each file system: mount point, block size, and blocks, free, available,
// files, free files, or the number of an error, or 0 for one that never responds. Each sleep ends at the next
// moment, after the last one comes SIGTERM.
//
// The files of the present moment are copied to the directory "now", over those of the moment before: a
// library may keep a file open and read it again.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

struct nl_sock;

namespace {

namespace fs = std::filesystem;

// The C library's function of a name.
template <class Function>
Function* Real(Function* /*standIn*/, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

const fs::path HOST = getenv("REPLAYED_HOST");
const fs::path NOW = HOST / "now";

// False after the last moment.
bool NextMoment() {
  static int moment = 0;
  const fs::path files = HOST / std::to_string(moment++);
  if (!fs::exists(files)) return false;
  fs::create_directories(NOW / "proc");
  for (const auto& entry : fs::directory_iterator(NOW / "proc")) {
    if (entry.is_directory()) fs::remove_all(entry);  // a process
  }
  fs::copy(files, NOW, fs::copy_options::recursive | fs::copy_options::overwrite_existing);
  return true;
}

const bool STARTED = NextMoment();

std::string Replayed(const char* path) {
  const std::string name = path;
  return name == "/proc" || name.starts_with("/proc/") || name.starts_with("/sys/") ? NOW.string() + name
                                                                                    : name;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return Real(&open, "open")(Replayed(path).c_str(), flags, mode);
}

FILE* fopen(const char* path, const char* mode) {
  return Real(&fopen, "fopen")(Replayed(path).c_str(), mode);
}

DIR* opendir(const char* path) { return Real(&opendir, "opendir")(Replayed(path).c_str()); }

int stat(const char* path, struct stat* result) noexcept {
  return Real(&stat, "stat")(Replayed(path).c_str(), result);
}

int access(const char* path, int mode) noexcept {
  return Real(&access, "access")(Replayed(path).c_str(), mode);
}

int statvfs(const char* path, struct statvfs* result) noexcept {
  std::ifstream lines(NOW / "statvfs");
  std::string mountPoint;
  while (lines >> mountPoint) {
    *result = {};
    lines >> result->f_frsize;
    if (lines.peek() == '\n' && result->f_frsize == 0 && mountPoint == path) pause();
    if (lines.peek() == '\n') {
      errno = static_cast<int>(result->f_frsize);
      if (mountPoint == path) return -1;
      continue;
    }
    lines >> result->f_blocks >> result->f_bfree >> result->f_bavail >> result->f_files >> result->f_ffree;
    if (mountPoint == path) return 0;
  }
  errno = ENOENT;
  return -1;
}

int clock_gettime(clockid_t clock, timespec* result) noexcept {
  double wall = 0;
  double steady = 0;
  std::ifstream(NOW / "clock") >> wall >> steady;
  const double seconds = clock == CLOCK_REALTIME ? wall : steady;
  result->tv_sec = static_cast<time_t>(seconds);
  result->tv_nsec = static_cast<long>((seconds - static_cast<double>(result->tv_sec)) * 1e9);
  return 0;
}

int sigtimedwait(const sigset_t* /*signals*/, siginfo_t* /*info*/, const timespec* /*time*/) {
  if (!NextMoment()) return SIGTERM;
  errno = EAGAIN;
  return -1;
}

// libnl's: the real kernel's processes are no business of this host.
int genl_connect(nl_sock* /*socket*/) {  // NOLINT(readability-identifier-naming)
  constexpr int NOT_SUPPORTED = 10;      // NLE_OPNOTSUPP
  return -NOT_SUPPORTED;
}

}  // extern "C"
