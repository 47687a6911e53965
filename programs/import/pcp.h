// Archives of Performance Co-Pilot, by its library libpcp: see PMAPI(3).
//
// pmlogger writes a record for each group of figures at its own interval, processes each minute and the rest
// more often by default. A sample ends with a record of processes, or where an archive has none, a minute
// after the one before. Where the archive has a mark, as where two were merged or the logger was restarted,
// the next sample begins anew.
#pragma once

#include "programs/import/source.h"

namespace ozmo::import {

extern const Source PCP;

}  // namespace ozmo::import
