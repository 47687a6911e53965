// What a page shows, as JSON that is fit to be put into a script element.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "programs/report/baseline.h"
#include "programs/report/marks.h"
#include "programs/report/page_data.h"

namespace ozmo::report {

// Marks are those within the span of the data.
std::string JsonOf(const PageData& data, const std::optional<Baseline>& baseline,
                   const std::vector<Mark>& marks);

// Removes the marks outside the span of the data; gives how many there were.
size_t DropOutside(std::vector<Mark>& marks, const PageData& data);

}  // namespace ozmo::report
