// Hosts that a test makes up, and recordings of them as the readers see them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "readers/vmr_context.h"
#include "tests/end_to_end/process.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {

// A host described moment by moment. A statement is on a line of its own:
//
//   at WALL STEADY        begins a moment: seconds of both clocks; the files of the moment before stay
//   file PATH             its lines follow, each after a bar
//   process ID NAME=...   a process of this moment, of this user: the names of /proc/ID/stat, and last
//                         cmd= with the whole command
//
// The recorder sleeps from the first moment to the second, where it takes its first reading.
class Story {
 public:
  explicit Story(const std::string& text);

  // Records the host into files of node "node", below the story's directory in "data".
  ProcessResult Record(const std::vector<std::string>& options, const std::string& limits = "true");
  // What the readers deliver from a file of "data" and those after it, for times as ozmo_graph takes them: a
  // line for each interval and each of its records, in the recorder's order.
  std::string Delivered(const std::string& name, const std::string& begin, const std::string& end) const;
  std::string DataPath(const std::string& name) const { return directory_ / ("data/" + name); }

 private:
  TempDirectory directory_;
};

// Calls `take` with each interval that the readers deliver of that span.
void WalkRecording(const std::string& path, int64_t begin, int64_t end,
                   const std::function<void(const VmrContext&)>& take);

}  // namespace ozmo::testing
