#include "programs/export/entry.h"

#include <algorithm>
#include <cstdio>

#include "programs/export/export.h"
#include "programs/import/import.h"
#include "programs/report/foreign.h"
#include "programs/report/page.h"
#include "runtime/console.h"
#include "runtime/memory.h"
#include "runtime/terminal_text.h"

namespace ozmo::exporting {
namespace {

constexpr const char* PROGRAM = "ozmo_export";

int Export(const Options& options, const std::string& scratch) {
  Runtime runtime;
  MemAttach(runtime, FAILED_STATUS);
  const ExportResult result = ExportFiles(PROGRAM, options, scratch, runtime);
  MemDetach();
  std::printf("%s: %s of %s\n", PrintableText(options.directory).c_str(),
              report::CountText(result.days, "day").c_str(), result.days == 1 ? "a host" : "hosts");
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
  const Options& options = parsed.options;
  if (std::ranges::none_of(options.dataFiles, import::IsForeignRecording)) return Export(options, "");
  return report::RunInScratch(PROGRAM, [&](const std::string& scratch) { return Export(options, scratch); });
}

}  // namespace ozmo::exporting
