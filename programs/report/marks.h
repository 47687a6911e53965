// Marks: moments that a page names in all charts, from a text file.
#pragma once

#include <string>
#include <vector>

#include "runtime/times.h"

namespace ozmo::report {

struct Mark {
  Seconds time = 0;
  std::string text;
};

struct MarksResult {
  std::vector<Mark> marks;         // in the order of their times
  std::vector<std::string> wrong;  // a line for each line of the file that is no mark, or for the file itself
};

// Reads a line a mark: a time as the options take it, without a blank in it, a blank, and a text. Empty lines
// and those that begin with "#" don't count. A page shows MOST_MARKS, the first of the file.
inline constexpr size_t MOST_MARKS = 500;
MarksResult ReadMarks(const std::string& path);

}  // namespace ozmo::report
