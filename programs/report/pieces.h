// Work that is cut into numbered pieces, done by several processes of this program.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace ozmo::report {

struct PiecesResult {
  std::vector<bool> done;  // by number: `work` returned true
  std::string failure;     // why there was no process at all
};

// Runs `work` on each number below `count`, in as many processes as this one may use processors. Each takes
// one number after the other. Where `work` returns false or ends its process, nothing of that process is used
// again: another one goes on with the rest. What `work` changes is lost but for files.
PiecesResult RunInProcesses(size_t count, const std::function<bool(size_t number)>& work);

}  // namespace ozmo::report
