// Runs a program to its end.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace ozmo {

struct ProcessResult {
  int exitStatus = -1;  // -1: it did not end by itself
  int signal = 0;       // that ended it
  std::string standardOutput;
  std::string standardError;
};

// Runs `arguments` (the program's path first) in `directory` with `environment` and nothing else of ours.
// What it prints goes through two files in `scratch`.
ProcessResult RunProcess(const std::vector<std::string>& arguments,
                         const std::map<std::string, std::string>& environment, const std::string& directory,
                         const std::string& scratch);

// The whole of the file at `path`; empty when it can't be read.
std::string ReadWholeFile(const std::string& path);

}  // namespace ozmo
