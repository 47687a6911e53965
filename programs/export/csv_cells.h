// Cells of CSV tables, as RFC 4180 has them.
#pragma once

#include <string>
#include <string_view>

#include "runtime/times.h"

namespace ozmo::exporting {

// A text as a cell: made valid UTF-8 without control characters, and quoted where it needs that.
std::string CsvCell(std::string_view bytes);

// 2012-02-22T08:00:00Z.
std::string UtcText(Seconds time);

}  // namespace ozmo::exporting
