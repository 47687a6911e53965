// Summaries as text, for other programs and for the page of a fleet. docs/fleet.md describes the format to
// users.
//
//   # ozmo_summary 1
//   host <tab> system <tab> ...       the names of the columns
//   forge <tab> Linux <tab> ...       a line a figure and name
//   # end 37                          how many lines there were
//
// A text may hold several, one after the other, as the outputs of many runs put together do. The end line
// shows a summary that was cut. In names a backslash, a tab and any other control character are written as
// \xHH, so that a name stays in its column.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "programs/report/summary.h"

namespace ozmo::report {

inline constexpr std::string_view SUMMARY_MARK = "# ozmo_summary ";

std::string SummaryText(const Summary& summary);

struct SummariesResult {
  std::vector<Summary> summaries;  // those that are whole
  std::vector<std::string> wrong;  // a line for each that isn't: "line 7: no number: \"x\""
};

// Reads all summaries of a text. Empty lines and lines that begin with "#" and are none of the two above
// don't count.
SummariesResult ReadSummaries(std::string_view text);

// A name as it is in a summary, and back; other characters stay as they are.
std::string EscapedName(std::string_view name);
std::string UnescapedName(std::string_view text);

}  // namespace ozmo::report
