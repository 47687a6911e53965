// The file that a graph is written to.
#pragma once

#include <string>

#include "output/graph_job.h"
#include "runtime/draft_file.h"
#include "runtime/stream.h"

namespace ozmo {

// Opens the job's file, empty, and has it watched as a draft. Null if it can't be opened. A file that the run
// reads ends the process with a line on standard error and status 1, and is not touched.
Stream OutputFileOpen(const GraphJob& job, DraftFile& draft);

// Says that `path` is a file that the run reads, and ends the process with status 1.
[[noreturn]] void OutputIsInput(const std::string& path);

// Whether all that was written has reached the file.
bool StreamIsSound(std::FILE* stream);

}  // namespace ozmo
