#include "output/temp_map.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <thread>

#include "output/output_file.h"

namespace ozmo {
namespace {

constexpr const char* TEMP_MAP_NAME = "/tmp/temp.ppm";
constexpr mode_t TEMP_MAP_MODE = 0600;

enum class Claim { HELD, REFUSED, GONE };

// Waits for the lock. The run that has it may have been stopped, so a longer wait is said.
bool Lock(int file) {
  using namespace std::chrono;
  constexpr auto PAUSE = milliseconds(20);
  const auto late = steady_clock::now() + seconds(3);
  int mode = LOCK_EX | LOCK_NB;
  while (flock(file, mode) != 0) {
    if (errno == EINTR) continue;
    if (errno != EWOULDBLOCK) return false;
    if (steady_clock::now() < late) {
      std::this_thread::sleep_for(PAUSE);
    } else {
      std::fprintf(stderr, "ozmo_graph: waiting for another JPEG run, which has %s\n", TEMP_MAP_NAME);
      mode = LOCK_EX;
    }
  }
  return true;
}

// Locks the file and looks whether it is ours to use. GONE: while we waited it lost its name.
Claim ClaimFile(int file) {
  struct stat status = {};
  // A second name of the file could be one that someone else laid here for us to overwrite.
  if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode) || status.st_uid != geteuid() ||
      status.st_nlink > 1) {
    return Claim::REFUSED;
  }
  if (!Lock(file)) return Claim::REFUSED;
  struct stat named = {};
  const bool isNamed = lstat(TEMP_MAP_NAME, &named) == 0 && IdentityOf(named) == IdentityOf(file);
  return isNamed ? Claim::HELD : Claim::GONE;
}

// The descriptor of the locked file; -1 if there can be none.
int OpenLocked() {
  while (true) {
    // Without O_NONBLOCK a pipe of this name would hang us.
    const int file =
        open(TEMP_MAP_NAME, O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, TEMP_MAP_MODE);
    if (file < 0) return -1;
    const Claim claim = ClaimFile(file);
    if (claim == Claim::HELD) return file;
    close(file);
    if (claim == Claim::REFUSED) return -1;
  }
}

}  // namespace

std::unique_ptr<TempMap> TempMap::Create(std::span<const FileIdentity> inputs) {
  const int file = OpenLocked();
  if (file < 0) return nullptr;
  std::unique_ptr<TempMap> map(new TempMap(file));
  if (std::ranges::count(inputs, map->Identity()) != 0) OutputIsInput(TEMP_MAP_NAME);
  // Cut to nothing only once it is known to be ours.
  if (ftruncate(file, 0) != 0 || fchmod(file, TEMP_MAP_MODE) != 0) return nullptr;
  map->draft_.Watch(TEMP_MAP_NAME, file);
  return map;
}

std::unique_ptr<TempMap> TempMap::CreateUnnamed() {
  const Stream stream(std::tmpfile());
  const int file = stream ? fcntl(fileno(stream.get()), F_DUPFD_CLOEXEC, 0) : -1;
  if (file < 0) return nullptr;
  std::unique_ptr<TempMap> map(new TempMap(file));
  map->isNamed_ = false;
  return map;
}

TempMap::TempMap(int file) : file_(file) {}

TempMap::~TempMap() {
  draft_.Remove();
  close(file_);
}

// All descriptors share one position and one lock.
Stream TempMap::Open(const char* mode) const {
  if (lseek(file_, 0, SEEK_SET) != 0) return nullptr;
  const int file = fcntl(file_, F_DUPFD_CLOEXEC, 0);
  return file < 0 ? nullptr : StreamOf(file, mode);
}

int TempMap::Delete() {
  draft_.Finish();
  return !isNamed_ ? 0 : unlink(TEMP_MAP_NAME);
}

}  // namespace ozmo
