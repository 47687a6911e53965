// The files of a node, which lie in one directory: qtx_<node>_<date>_<n>.vmr, with n counted from 1 for each
// day.
#pragma once

#include <string>
#include <vector>

#include "runtime/times.h"

namespace ozmo {

// The paths to be read of a node, day by day from the day of `start` to the day of `end`, each day up to the
// first number whose path the directory of `dataPath` doesn't hold. Empty where `dataPath` names no
// directory.
//
// The directory holds a path if one of its names is anywhere in it: as a rule at its end, but a name that
// is part of the directory's or the node's name makes it hold all of them. Then a day has as many paths as
// the directory has names.
std::vector<std::string> VmrNodeFiles(const std::string& dataPath, const std::string& nodeName, Seconds start,
                                      Seconds end);

}  // namespace ozmo
