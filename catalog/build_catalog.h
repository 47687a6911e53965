// Turns one data file and one requested span into a catalog of graphs.
//
// There is one driver for all platforms; the PlatformSpec of the reader's kind says what is particular to
// one.
#pragma once

#include <memory>

#include "catalog/model.h"
#include "catalog/processes.h"
#include "readers/data_reader.h"
#include "runtime/runtime.h"
#include "runtime/times.h"
#include "workload/workload.h"

namespace ozmo {

// The catalog of the reader's file over the span, with the graphs of these titles. Never null: when no
// interval fell into the span all series are 0. Classes are loaded if they aren't yet. `processes` gets the
// processes of each interval on the way, see BuildSteps.
std::unique_ptr<GraphCatalog> BuildCatalog(DataReader& reader, const Span& span, WorkloadClassList& classes,
                                           const WantedTitles& titles, Runtime& runtime,
                                           const ProcessSink& processes = {});

}  // namespace ozmo
