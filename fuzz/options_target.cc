// The command line: one word a line.
#include <vector>

#include "cli/build_graph_job.h"
#include "cli/command_line.h"
#include "fuzz/harness.h"
#include "runtime/runtime.h"
#include "runtime/times.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace ozmo::fuzz;
  std::string_view lines = TextOf(data, size);
  std::vector<std::string> words = {"ozmo_graph"};
  while (!lines.empty()) words.emplace_back(CutUpTo(lines, '\n'));
  std::vector<char*> arguments = ArgumentsOf(words);
  AsRun([&] {
    ozmo::RunRequest request;
    ozmo::ParseCommandLine(static_cast<int>(words.size()), arguments.data(), request);
    ozmo::DayList(ozmo::TimeToSeconds(request.beginTime), ozmo::TimeToSeconds(request.endTime), "%Y%b%d");
    ozmo::Runtime runtime;
    ozmo::BuildGraphJob(request, nullptr, runtime);  // no file is touched without a reader
  });
  return 0;
}
