#include "programs/export/entry.h"

#include <cstdio>

#include "programs/export/export.h"
#include "runtime/console.h"
#include "runtime/memory.h"
#include "runtime/terminal_text.h"

namespace ozmo::exporting {
namespace {

constexpr int DONE_STATUS = 0;
constexpr int FAILED_STATUS = 1;
constexpr int USAGE_STATUS = 2;

constexpr const char* PROGRAM = "ozmo_export";

int Export(const Options& options) {
  Runtime runtime;
  MemAttach(runtime, FAILED_STATUS);
  const ExportResult result = ExportFiles(PROGRAM, options, runtime);
  MemDetach();
  std::printf("%s: %d %s of a host\n", PrintableText(options.directory).c_str(), result.days,
              result.days == 1 ? "day" : "days");
  return result.isWhole ? DONE_STATUS : FAILED_STATUS;
}

}  // namespace

int ExportEntry(int argc, char* const argv[]) {
  const ParsedOptions parsed = ParseOptions(argc, argv);
  if (!parsed.failure.empty()) {
    Complain(PROGRAM, parsed.failure);
    std::fputs("ozmo_export --help says more\n", stderr);
    return USAGE_STATUS;
  }
  switch (parsed.options.action) {
    case Action::HELP:
      std::fputs(HelpText().c_str(), stdout);
      return DONE_STATUS;
    case Action::VERSION:
      std::printf("ozmo_export %s\n", ProductIdentityInit().versionText.c_str());
      return DONE_STATUS;
    case Action::EXPORT:
      break;
  }
  return Export(parsed.options);
}

}  // namespace ozmo::exporting
