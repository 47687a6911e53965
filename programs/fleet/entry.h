// One run of ozmo_fleet, from its command line to its exit status.
#pragma once

namespace ozmo::fleet {

// 0: done. 1: something couldn't be read or written, with a line on standard error for each; what could be
// read is on the page all the same. 2: a wrong command line. 3: somebody is over a limit, whatever else there
// was.
int FleetEntry(int argc, char* const argv[]);

}  // namespace ozmo::fleet
