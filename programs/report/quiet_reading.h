// Reading for a program whose standard output is its own.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "runtime/runtime.h"

namespace ozmo::report {

// Who reads what.
struct Reading {
  const char* program;
  std::string file;
};

// Runs `work`, which reads a data file. Meanwhile progress is shown on a terminal, problems are lines of the
// program on standard error, and whatever else readers report goes nowhere, as does all that `work` prints on
// standard output. Returns the problems. Where a reader ends the process, as it does in the middle of a
// corrupt monitor text file, a line says in which file.
std::vector<std::string> RunQuietly(const Reading& reading, Runtime& runtime,
                                    const std::function<void()>& work);

}  // namespace ozmo::report
