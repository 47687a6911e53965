#include "cli/entry.h"

#include <cstdio>
#include <optional>

#include "cli/build_graph_job.h"
#include "cli/command_line.h"
#include "output/output_file.h"
#include "readers/data_reader.h"
#include "readers/file_set.h"
#include "runtime/console.h"
#include "runtime/memory.h"
#include "runtime/runtime.h"
#include "runtime/user_resources.h"

namespace ozmo {
namespace {

constexpr int RUN_DONE_STATUS = 1;
constexpr int NO_DATA_FILE_STATUS = 2;

// Takes note of the data file, and ends the process if it is the output file too.
void NoteDataFile(const RunRequest& request, Runtime& runtime) {
  const std::optional<FileIdentity> data = IdentityOf(DataFilePath(*request.vmrUnixFile));
  if (!data) return;
  if (data == IdentityOf(*request.graphFile)) OutputIsInput(*request.graphFile);
  runtime.inputs.push_back(*data);
}

// Everything after the banner. Returns the exit status.
int Run(Runtime& runtime, int argc, char* const argv[]) {
  RunRequest request;
  ParseCommandLine(argc, argv, request);

  std::optional<DataReader> reader;
  if ((request.requestFlags & REQUEST_VMRUNIX) != 0) {
    if (!request.vmrUnixFile) {  // sixteen -mw options add up to the bit of -vmrunix
      std::fputs("ozmo_graph: no data file\n", stderr);
      return NO_DATA_FILE_STATUS;
    }
    NoteDataFile(request, runtime);
    reader.emplace(*request.vmrUnixFile, runtime);
    // A file without a head is no reason to stop: the walk opens its day set all the same.
    if (const std::optional<FileHead>& head = reader->Head()) request.hostName = head->nodeName;
  }

  UserResources resources;
  UserResourcesRead(resources, runtime, ".yxrc");
  BuildGraphJob(request, reader ? &*reader : nullptr, runtime);
  return RUN_DONE_STATUS;
}

}  // namespace

int RunEntry(int argc, char* const argv[]) {
  OpenStandardStreams();
  // By lines also into a pipe or file, so that a line on standard error comes after what was printed before.
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
  Runtime runtime;
  MemAttach(runtime);
  LibraryPathGet(runtime);  // the directory that the variables name now holds for the whole run
  std::printf("ozmo_graph %s\n", runtime.identity.versionText.c_str());
  const int status = Run(runtime, argc, argv);
  MemDetach();
  return status;
}

}  // namespace ozmo
