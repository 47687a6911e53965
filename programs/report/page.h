// The page: one HTML file with everything in it.
#pragma once

#include <string>

#include "programs/report/page_data.h"

namespace ozmo::report {

// The whole file. What comes from the data is in it as escaped text or in a block of JSON that no script
// element runs. `json` is what the scripts show of it (page_json.h).
std::string PageOf(const PageData& data, const std::string& json, const std::string& versionText);

// "forge, 22 February 2012", or both days.
std::string TitleOf(const PageData& data);

// "1 graph", "2 graphs".
std::string CountText(int count, const char* thing);

// "1.4 MB", in units of 1000.
std::string SizeText(size_t bytes);

// The page's frame with its style and scripts, made when the program is built. Words between "%%" are places
// for what a report puts there; each is there once.
std::string_view PageTemplate();

}  // namespace ozmo::report
