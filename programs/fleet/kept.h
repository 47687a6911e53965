// Summaries kept from one run to the next, in a directory beside the page, each with lines that say what it
// was made from. It is used again as long as they would be the same; whoever removes the directory has
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

// The first of these lines: sizes and times of the data files, the version of this program and the zone.
std::string StampOf(const DataFiles& data);

struct Kept {
  report::Summary summary;
  bool hasPage = false;  // the run that made it made the page too
};

// What a file keeps; absent where there is nothing of that stamp, or it is damaged. `page` is the page that
// goes with it: one that an earlier run made, of data that have changed, isn't it.
std::optional<Kept> ReadKept(const std::string& path, const std::string& stamp, const std::string& page);

// `page` is empty where none was made. Returns what went wrong.
[[nodiscard]] std::string WriteKept(const std::string& path, const std::string& stamp,
                                    const std::string& page, const std::string& summaryText);

// The names under which summaries and pages of data files are kept, in their order: that of the file before
// it was compressed, and where two have the same, with a mark of the path.
std::vector<std::string> KeptNames(const std::vector<DataFiles>& data);

}  // namespace ozmo::fleet
