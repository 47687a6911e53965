// From inputs to the hosts of a fleet: kept summaries, runs of ozmo_report for what is new, and summaries
// that were made elsewhere.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "programs/fleet/inputs.h"
#include "programs/fleet/table.h"

namespace ozmo::fleet {

struct GatherRequest {
  std::string keptDirectory;   // is there; empty: nothing is kept
  std::string pagesDirectory;  // is there; empty: hosts get no pages of their own
  int jobs = 1;
  std::function<void(size_t done, size_t all)> progress;  // may be empty
};

struct Fleet {
  std::vector<Host> hosts;            // in the order of their names and days, each once
  std::vector<std::string> problems;  // a line each: what couldn't be read, or is there twice
  std::vector<std::string> notes;     // a line each: what was said of files that were read all the same
  size_t workedOut = 0;
  size_t kept = 0;
};

Fleet Gather(const Inputs& inputs, const GatherRequest& request);

}  // namespace ozmo::fleet
