// The text table for spreadsheets: a block of head lines, then one line a point. Each trace is shown by its
// own value, so the running sums of the catalog are undone here. Fields are separated by a comma and two
// blanks; nothing is quoted or escaped.
#pragma once

#include <cstdio>

#include "output/graph_job.h"
#include "runtime/runtime.h"

namespace ozmo {

// Writes the table of the job to an open stream.
void WriteCsv(std::FILE* stream, const GraphJob& job);

// Writes the job's graphFile. Returns 1 when it was written, 0 when it could not be opened (a message has
// been issued then). Write errors are not looked at.
int ExportCsv(const GraphJob& job, Runtime& runtime);

}  // namespace ozmo
