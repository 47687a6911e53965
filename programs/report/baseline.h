// What a page is compared with: another file, or an earlier time of the same host.
#pragma once

#include <optional>
#include <set>
#include <string>

#include "programs/report/data_day.h"
#include "programs/report/page_data.h"

namespace ozmo::report {

// Days of a text such as "1d" or "2w"; absent for any other text.
std::optional<int> DaysBack(const std::string& text);

// Why `text` can be neither a time back nor the name of a file that is there, where it looks like a time
// back: "7x", "0d". Empty for all others.
std::string BadTimeBack(const std::string& text);

// The request for the day that `day`, read from `request`, is compared with. `what` is a data file, or a time
// back: then it is the same file's day set by so many days of the calendar before.
DayRequest BaselineRequest(const std::string& what, const DayRequest& request, const DataDay& day);

// The part of a baseline that the graphs of `page` can show: only these have figures and points. The titles
// of all others are in `only`.
struct Baseline {
  PageData data;
  std::string what;  // "forge, 21 February 2012"
  std::vector<std::string> only;
};
Baseline BaselineOf(const DataDay& day, const PageData& page);

// Where the baseline's data leave a part of the report's minutes without one, as of a file that is cut off;
// empty where they don't.
std::string CoverageText(const PageData& baseline, const PageData& page);

}  // namespace ozmo::report
