// Recordings of other programs, imported for one run.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace ozmo::report {

// Runs `work` with a new directory in the temporary directory, in a process of its own: when that ends, in
// whatever way, the directory is removed. Signals that end this process end that one first. Returns the exit
// status.
int RunInScratch(const std::string& program, const std::function<int(const std::string& directory)>& work);

struct ImportedFiles {
  std::vector<std::string> paths;  // of data files, a day each
  std::string failure;             // empty when all went well
  std::vector<std::string> notes;  // what was said of it
};

// Imports a recording into `directory`. What the user should know of it is a line of `program`. Where a day
// is there already, its file is another of that day's set; there is at least one file where nothing failed
// and the directory had none of its days.
ImportedFiles ImportForeign(const std::string& program, const std::string& recording,
                            const std::string& directory);

}  // namespace ozmo::report
