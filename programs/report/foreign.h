// Recordings of other programs, imported for one page.
#pragma once

#include <string>

namespace ozmo::report {

// Whether a file is a recording of another program that the importer knows, by its content.
bool IsForeign(const std::string& path);

// Imports `recording` into a directory of its own, in the temporary directory, and calls `show` with the path
// of the first data file, in a process of its own: when that ends, in whatever way, the directory is removed.
// Signals that end this process end that one first. Returns the exit status.
int ShowForeign(const std::string& recording, int (*show)(const std::string& dataFile, void* context),
                void* context);

}  // namespace ozmo::report
