#include "output/output_file.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>

#include "runtime/process_end.h"
#include "runtime/terminal_text.h"

namespace ozmo {
namespace {

constexpr mode_t OUTPUT_MODE = 0666;  // less the file creation mask

// Opens the file and has it watched. -1 and ENXIO for a pipe that has no reader.
int OpenWatched(const GraphJob& job, DraftFile& draft) {
  const SignalsHeld held;
  // Cut to nothing only once it is known not to be a file that we read.
  const int file = open(job.graphFile.c_str(), O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, OUTPUT_MODE);
  if (file < 0) return -1;
  if (const std::optional<FileIdentity> identity = IdentityOf(file)) {
    if (std::ranges::count(job.inputs, *identity) != 0) OutputIsInput(job.graphFile);
    if (ftruncate(file, 0) != 0) {
      close(file);
      return -1;
    }
    draft.Watch(job.graphFile, file);
  }
  fcntl(file, F_SETFL, fcntl(file, F_GETFL) & ~O_NONBLOCK);
  return file;
}

}  // namespace

Stream OutputFileOpen(const GraphJob& job, DraftFile& draft) {
  int file = OpenWatched(job, draft);
  // Only a signal may end the wait for the reader of a pipe, so none is held.
  if (file < 0 && errno == ENXIO) file = open(job.graphFile.c_str(), O_WRONLY | O_CLOEXEC);
  return file < 0 ? nullptr : StreamOf(file, "w");
}

void OutputIsInput(const std::string& path) {
  std::fprintf(stderr, "ozmo_graph: %s is read by this run and can't be its output file\n",
               TextFor(stderr, path).c_str());
  EndProcess(1);
}

bool StreamIsSound(std::FILE* stream) { return std::fflush(stream) == 0 && std::ferror(stream) == 0; }

}  // namespace ozmo
