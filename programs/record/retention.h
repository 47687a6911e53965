// What becomes of the recordings of finished days.
#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "programs/record/notices.h"

namespace ozmo::record {

struct RetentionOptions {
  int32_t keepDays = 0;   // 0: all
  int64_t keepBytes = 0;  // 0: no limit
  bool compresses = true;
};

// Which days are removed:
//
// - Only whole days, the oldest first, and of them the files that a recorder of this node has written, by
//   their names and their heads. Links, other files and the day that is being written stay.
// - A day is as old as the number of days with recordings after it, whatever the calendar says, so that a
//   clock which is set ahead makes none older. The day being written isn't counted, nor are days that lie
//   after it, which a clock that was ahead has left.
// - At a start, and where the clock was set or the host was suspended, nobody knows whether the day before
//   has really passed, and one day more is kept.
//
// Days are compressed a file at a time, after a sample each, so that no sample waits long. The day being
// written stays plain.
class Retention {
 public:
  Retention(const std::string& directory, const std::string& node, const RetentionOptions& options,
            Notices& notices)
      : directory_(directory), node_(node), options_(options), notices_(notices) {}

  // A file of the day of `date` (2012Feb22) has been begun; `dayHasPassed`, since a day of recording was
  // over. Removes the days above --keep, and notes what is to be compressed.
  void BeginFile(const std::string& date, bool dayHasPassed);

  // One step of what is left to do: compresses a file, or removes the days above --keep-size.
  void Step();

 private:
  void RemoveDays(size_t daysKept, int64_t bytesKept);

  std::string directory_;
  std::string node_;
  RetentionOptions options_;
  Notices& notices_;
  std::string date_;
  std::deque<std::string> plainPaths_;  // to be compressed
  bool sizeIsDue_ = false;
};

}  // namespace ozmo::record
