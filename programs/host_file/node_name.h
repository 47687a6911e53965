// The names of hosts that a data file's name and head can have.
#pragma once

#include <string>

namespace ozmo::host_file {

// What is wrong with a node name, which becomes part of file names; empty where nothing is.
std::string CheckNode(const std::string& node);

// The kind of a file is known by its path. A mark of another kind in it would have every reader take the
// file for one of that: this says so of the files of `node` in `directory`, and is empty where there is none.
std::string CheckPath(const std::string& directory, const std::string& node);

}  // namespace ozmo::host_file
