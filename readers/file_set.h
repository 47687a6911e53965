// The files of a day set: a collector starts a new file each day and numbers the files of a day,
// <stem>_<date>.<word><separator><n>, such as qtxs_node_2012Feb22.dat_1.
#pragma once

#include <string>
#include <vector>

#include "runtime/times.h"

namespace ozmo {

// The paths that stand in a path's directory under the names of its series, day by day from the day of
// `start` to the day of `end`, each day counted from 1 up to the first number that is missing. Empty when
// `dataPath` isn't such a name or names no directory.
std::vector<std::string> ReaderFileSet(const std::string& dataPath, Seconds start, Seconds end);

// The entries of a directory whose names are longer than 10 characters. An empty name lists nothing.
std::vector<std::string> ListDirectory(const std::string& directory);

// The directory part of a path, without its "/"; empty where the path has none.
std::string DirectoryOf(const std::string& path);

}  // namespace ozmo
