#include "programs/report/marks.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>

#include "programs/report/options.h"

namespace ozmo::report {
namespace {

constexpr size_t LONGEST_TEXT = 200;
constexpr size_t MOST_WRONG = 5;  // lines that are named

}  // namespace

MarksResult ReadMarks(const std::string& path) {
  MarksResult result;
  std::ifstream file(path);
  int number = 0;
  size_t wrong = 0;
  size_t late = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.ends_with('\r')) line.pop_back();
    if (line.empty() || line.front() == '#') continue;
    const size_t blank = std::min(line.find_first_of(" \t"), line.size());
    const std::optional<Seconds> time = TimeOf(line.substr(0, blank), DayEdge::BEGIN);
    const size_t text = line.find_first_not_of(" \t", blank);
    if (time && text != std::string::npos && result.marks.size() == MOST_MARKS) {
      ++late;
    } else if (time && text != std::string::npos) {
      result.marks.push_back({*time, line.substr(text, LONGEST_TEXT)});
    } else if (++wrong <= MOST_WRONG) {
      result.wrong.push_back(path + ':' + std::to_string(number) +
                             ": no mark: a line has a time as 2012-02-22T14:05, a blank and a text");
    }
  }
  if (!file.eof()) result.wrong.push_back(path + ": " + std::strerror(errno));
  if (wrong > MOST_WRONG) {
    result.wrong.push_back(path + ": " + std::to_string(wrong - MOST_WRONG) + " more lines are no marks");
  }
  if (late > 0) {
    result.wrong.push_back(path + ": " + std::to_string(late) + " more marks than the " +
                           std::to_string(MOST_MARKS) + " that a page shows");
  }
  std::ranges::stable_sort(result.marks, {}, &Mark::time);
  return result;
}

}  // namespace ozmo::report
