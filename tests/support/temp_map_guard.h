// The temporary map of a JPEG run has one fixed name on a machine. A test that makes or looks at it holds
// this guard, so that test programs running side by side wait for each other, and starts and ends without the
// file.
#pragma once

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>

namespace ozmo::testing {

inline constexpr const char* TEMP_MAP = "/tmp/temp.ppm";

class TempMapGuard {
 public:
  TempMapGuard() : lock_(open("/tmp/ozmo_test_temp_map.lock", O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
    flock(lock_, LOCK_EX);
    Remove();
  }
  ~TempMapGuard() {
    Remove();
    close(lock_);
  }
  TempMapGuard(const TempMapGuard&) = delete;
  TempMapGuard& operator=(const TempMapGuard&) = delete;

 private:
  static void Remove() {
    std::error_code ignored;
    std::filesystem::remove(TEMP_MAP, ignored);
  }

  int lock_;
};

}  // namespace ozmo::testing
