// An import from begin to end: recordings in, day files out.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "programs/import/options.h"

namespace ozmo::import {

struct ImportResult {
  std::string failure;             // empty when all went well
  std::vector<std::string> files;  // that were made, also before a failure
  std::vector<std::string> notes;  // what the user should know: days that were there, groups that are empty
};

// Called with the host and time of a sample now and then.
using ImportProgress = std::function<void(const std::string& node, int64_t time)>;

// Takes the recordings in the order of time, and ends at the first that fails. A recording without a sample
// in the span is a failure only where no other has one.
ImportResult ImportRecordings(const Options& options, const ImportProgress& progress);

// The recordings by when their first samples end, which takes a look into each. As they are where standard
// input is one of them, since that can be read but once. Those without a sample come last.
std::vector<std::string> InOrderOfTime(std::vector<std::string> recordings);

// Whether a file is a recording of another program, by its content.
bool IsForeignRecording(const std::string& path);

// What the paths of a recording's files have in common: an archive of Performance Co-Pilot is "pcp.0",
// "pcp.index" and "pcp.meta". The path itself where a recording is one file.
std::string RecordingOf(const std::string& path);

}  // namespace ozmo::import
