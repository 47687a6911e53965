// Runs of ozmo_report, several at a time, each a process of its own: what a broken file does to one of them
// takes nothing along.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace ozmo::fleet {

// The words after the program's name.
using Work = std::vector<std::string>;

struct WorkResult {
  int status = 0;  // of ozmo_report; -1 where a signal ended it or it didn't start
  std::string output;
  std::vector<std::string> complaints;  // lines of standard error, without the program's name
};

// Calls `done` for each, as they end. Fewer than `jobs` run where the limits of this process on files and
// processes leave room for no more. The runs end with this process.
void RunAll(std::span<const Work> works, int jobs,
            const std::function<void(size_t place, const WorkResult& result)>& done);

}  // namespace ozmo::fleet
