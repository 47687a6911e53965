// The steps of one catalog build, without the reader: the driver of builder.h runs them around a walk, and a
// test can run them on records of its own.
#pragma once

#include "catalog/platform.h"

namespace ozmo {

// Makes records, tree and missing series for the span. The classes of the state are loaded by then.
void StartCatalog(BuildState& state, Seconds start, Seconds end);

// Works one interval into the catalog; one that the platform doesn't use stores nothing and moves no point.
// False: the interval was dropped, because it falls on the point of the one before (the first counts, and
// point 0 never does) or behind the span.
bool TakeInterval(BuildState& state, const VmrContext& context);

// Ranks names, finishes the classes and what else the platform has to finish.
void FinishGraphs(BuildState& state);

// Bridges gaps and stacks traces. Nothing is missing after that.
void FinishSeries(BuildState& state);

// Points of a span, its two ends included and one more; negative for a span that ends well before it starts.
int64_t PointsOf(PointCountRule rule, Seconds start, Seconds end);

// The point of a time stamp; beyond the series for one outside the span.
int PointOf(PointRule rule, Seconds start, Seconds timeStamp);

// Truncated; an undefined value is 0, and one that no int holds is at the end of the range.
int WholeNumber(double value);

// Whole minutes of a collection interval.
int MinutesOf(float seconds);

}  // namespace ozmo
