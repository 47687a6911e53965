// The files of a day set: a collector starts a new file each day and numbers the files of a day,
// <stem>_<date>.<word><separator><n>, such as qtxs_node_2012Feb22.dat_1.
//
// A file may be there compressed, with ".zst" after its name. It has its place in the set, and is taken where
// the plain one isn't there.
#pragma once

#include <string>
#include <vector>

#include "runtime/times.h"

namespace ozmo {

// The name without ".zst" at its end, where it has that.
std::string WithoutCompressedEnding(std::string name);

// The path under which the data file `path` is there, given with or without ".zst": itself, or the other one
// where only that is there.
std::string DataFilePath(const std::string& path);

// The paths that are in a path's directory under the names of its series, day by day from the day of
// `start` to the day of `end`, each day counted from 1 up to the first number that is missing. Empty when
// `dataPath` isn't such a name, with or without ".zst", or names no directory.
std::vector<std::string> ReaderFileSet(const std::string& dataPath, Seconds start, Seconds end);

// The entries of a directory whose names are longer than 10 characters. An empty name lists nothing.
std::vector<std::string> ListDirectory(const std::string& directory);

// The directory part of a path, without its "/"; empty where the path has none.
std::string DirectoryOf(const std::string& path);

}  // namespace ozmo
