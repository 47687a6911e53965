// One run of ozmo_export, from its command line to its exit status.
#pragma once

namespace ozmo::exporting {

// 0: done. 1: a failure, with a line on standard error; what could be exported is there. 2: a wrong command
// line.
int ExportEntry(int argc, char* const argv[]);

}  // namespace ozmo::exporting
