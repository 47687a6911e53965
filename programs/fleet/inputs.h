// What the inputs of a fleet are: data files, found in directories too, and summaries.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ozmo::fleet {

// A day of a host: the file that names it, and all files that the day has.
struct DataFiles {
  std::string path;                // the one with the lowest number
  std::vector<std::string> files;  // that one too
};

struct SummaryFile {
  std::string path;
  std::optional<std::string> text;  // of a pipe, which can be read once alone
};

struct Inputs {
  std::vector<DataFiles> data;         // in the order of their paths, each day once
  std::vector<SummaryFile> summaries;  // in the order given
  std::vector<std::string> problems;   // a line each
  int steppedOver = 0;                 // files of directories that are neither
};

// Looks into directories and those below them. A file in a directory counts by its name, as a collector or
// monitor gives it, or by its content, as a summary or another program's recording; one that is named itself
// counts in any case. Hidden files don't count in a directory, nor do links to other directories.
Inputs FindInputs(const std::vector<std::string>& paths);

}  // namespace ozmo::fleet
