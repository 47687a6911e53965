// The page of a fleet: one HTML file, which opens offline.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "programs/fleet/table.h"

namespace ozmo::fleet {

// The whole page. Links to the pages of hosts are relative to `pageFile`.
std::string PageOf(const std::vector<Host>& hosts, const std::vector<std::string>& problems,
                   const std::string& pageFile, const std::string& versionText);

// The page's frame, with marks where texts and data go; put into the program by the build.
std::string_view PageTemplate();

}  // namespace ozmo::fleet
