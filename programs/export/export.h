// Exports data files day by day. A day's catalog is the most that is held at a time.
#pragma once

#include <string>
#include <string_view>

#include "programs/export/options.h"
#include "runtime/runtime.h"

namespace ozmo::exporting {

struct ExportResult {
  int days = 0;         // of hosts, written
  bool isWhole = true;  // false: there was a line of `program` on standard error
};

// Goes on after a file that fails. Recordings of other programs come last and are imported into `scratch`,
// all of them before the first is exported, since a day may be in several; it is empty where there are none.
ExportResult ExportFiles(const char* program, const Options& options, const std::string& scratch,
                         Runtime& runtime);

// "day=2012-02-22/host=forge": what a path of that day and host ends with. A byte of the name that isn't a
// letter or digit of ASCII, ".", "_" or "-" is written as % and two hexadecimal digits, which readers of such
// paths turn back.
std::string PartitionOf(Seconds day, std::string_view host);

}  // namespace ozmo::exporting
