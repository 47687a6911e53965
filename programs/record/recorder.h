// The course of a recording.
#pragma once

#include <cstdint>
#include <string>

#include "programs/record/retention.h"

namespace ozmo::record {

struct RecorderOptions {
  std::string directory;
  std::string node;
  int32_t intervalSeconds = 60;
  int64_t count = 0;  // samples; 0: no limit
  int64_t until = 0;  // seconds since 1970; 0: no limit
  RetentionOptions retention;
};

// Records this host until a limit is reached or a signal comes. Prints the path of each file when it is
// begun. Empty, or why the recording has ended before its time.
[[nodiscard]] std::string Record(const RecorderOptions& options);

}  // namespace ozmo::record
