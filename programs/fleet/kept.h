// Summaries kept from one run to the next, in a directory beside the page, each with a line that says what it
// was made from. It is used again as long as that line would be the same; whoever removes the directory has
// all worked out anew.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "programs/fleet/inputs.h"
#include "programs/report/summary.h"

namespace ozmo::fleet {

// Ends the name of such a directory. One that lies in a directory of data isn't looked into.
inline constexpr const char* KEPT_ENDING = ".summaries";

// That line: sizes and times of the data files, the version of this program and the zone.
std::string StampOf(const DataFiles& data);

// The summary of a kept file; absent where there is none of that stamp, or it is damaged.
std::optional<report::Summary> ReadKept(const std::string& path, const std::string& stamp);

// Returns what went wrong.
[[nodiscard]] std::string WriteKept(const std::string& path, const std::string& stamp,
                                    const std::string& summaryText);

// The names under which summaries and pages of data files are kept, in their order: that of the file, and
// where two have the same, with a mark of the path.
std::vector<std::string> KeptNames(const std::vector<DataFiles>& data);

}  // namespace ozmo::fleet
