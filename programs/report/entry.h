// One run of ozmo_report, from its command line to its exit status.
#pragma once

namespace ozmo::report {

// 0: done. 1: nothing to show, or a failure, with a line on standard error that says what. What could be read
// was still written if only a part of it failed. 2: a wrong command line.
int ReportEntry(int argc, char* const argv[]);

}  // namespace ozmo::report
