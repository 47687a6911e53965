// From the request to the written graph: catalog, selection, output.
#pragma once

#include "cli/run_request.h"

namespace ozmo {

class DataReader;
struct Runtime;

// Builds the catalog of the request's data file, selects the graph of -item and the trace of -overlay and
// writes them as the request says. Failures are reported here and nothing is returned.
//
// `reader` is the data file's, null when the request has none.
void BuildGraphJob(const RunRequest& request, DataReader* reader, Runtime& runtime);

}  // namespace ozmo
