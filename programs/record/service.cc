#include "programs/record/service.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <limits>

#ifdef OZMO_HAS_SYSTEMD
#include <systemd/sd-daemon.h>
#endif

namespace ozmo::record {

#ifdef OZMO_HAS_SYSTEMD

void SayReady(const std::string& path) { sd_notify(0, ("READY=1\nSTATUS=Recording into " + path).c_str()); }
void SayAlive() { sd_notify(0, "WATCHDOG=1"); }
void SayStopping() { sd_notify(0, "STOPPING=1"); }

int64_t AliveInterval() {
  constexpr int64_t NANOSECONDS_OF_HALF_A_MICROSECOND = 500;
  uint64_t microseconds = 0;
  if (sd_watchdog_enabled(0, &microseconds) <= 0) return std::numeric_limits<int64_t>::max();
  return static_cast<int64_t>(microseconds) * NANOSECONDS_OF_HALF_A_MICROSECOND;
}

#else

void SayReady(const std::string& /*path*/) {}
void SayAlive() {}
void SayStopping() {}
int64_t AliveInterval() { return std::numeric_limits<int64_t>::max(); }

#endif

// systemd names the device and inode of the stream that it has connected to the journal.
bool LogsToJournal() {
  const char* stream = std::getenv("JOURNAL_STREAM");
  struct stat status {};
  return stream != nullptr && fstat(STDERR_FILENO, &status) == 0 &&
         stream == std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

}  // namespace ozmo::record
