// sysstat's daily files, by the text that `sadf -p` prints of them: see sadf(1) and sar(1).
//
// A line is host, interval, time, device, field and value, with tabs between. sadf prints one kind of figure
// after the other, each over the whole day, so the samples of a file are held until its end; without
// processes they are small. Percentages and rates are turned back into counts of the interval.
#pragma once

#include "programs/import/source.h"

namespace ozmo::import {

extern const Source SYSSTAT;

}  // namespace ozmo::import
