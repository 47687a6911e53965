// Directories that a user names for a program's output.
#pragma once

#include <string>

namespace ozmo {

// Makes the directory unless it is there. What it lies in has to be there: a path that was mistyped shall not
// become a tree of directories. Returns what went wrong: the path and the reason.
[[nodiscard]] std::string MakeOutputDirectory(const std::string& path);

// Why a file can't be made at `path`, as far as its directory goes; empty where there is one. For a program
// that would work for long before it opens the file.
[[nodiscard]] std::string CheckDirectoryOf(const std::string& path);

}  // namespace ozmo
