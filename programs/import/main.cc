// ozmo_import: makes Linux data files of what other programs recorded.

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>

#include "programs/import/import.h"
#include "runtime/console.h"
#include "runtime/identity.h"
#include "runtime/terminal_text.h"
#include "runtime/times.h"

namespace {

using namespace ozmo::import;

void Say(const std::string& text) { ozmo::Complain("ozmo_import", text); }

// Shows how far the import has come, on a terminal only.
class Progress {
 public:
  ~Progress() {
    if (last_ != 0) std::fputs("\r\033[K", stderr);
  }
  ImportProgress Sink() {
    if (isatty(STDERR_FILENO) != 1) return nullptr;
    return [this](const std::string& node, int64_t time) {
      constexpr int64_t STEP = 900;
      if (time / STEP == last_ / STEP) return;
      last_ = time;
      std::fprintf(stderr, "\r\033[Kimporting %s %s ", ozmo::PrintableText(node).c_str(),
                   ozmo::TimeFormat(time, "%Y-%m-%d %H:%M").c_str());
    };
  }

 private:
  int64_t last_ = 0;
};

// A text may have any number of hosts side by side, and a file is open for each.
void AllowManyFiles() {
  rlimit limit{};
  if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
  limit.rlim_cur = limit.rlim_max;
  setrlimit(RLIMIT_NOFILE, &limit);
}

int Import(const Options& options) {
  AllowManyFiles();
  ImportResult result;
  {
    Progress progress;
    result = ImportRecordings(options, progress.Sink());
  }
  for (const std::string& note : result.notes) Say(note);
  for (const std::string& file : result.files) std::printf("%s\n", ozmo::TextFor(stdout, file).c_str());
  if (!result.failure.empty()) Say(result.failure);
  return result.failure.empty() ? ozmo::DONE_STATUS : ozmo::FAILED_STATUS;
}

int Run(const ParsedOptions& parsed) {
  if (!parsed.failure.empty()) {
    Say(parsed.failure);
    std::fputs("ozmo_import --help says more.\n", stderr);
    return ozmo::USAGE_STATUS;
  }
  if (parsed.options.action == Action::HELP) {
    std::fputs(HelpText().c_str(), stdout);
    return ozmo::DONE_STATUS;
  }
  if (parsed.options.action == Action::VERSION) {
    std::printf("ozmo_import %s\n", ozmo::ProductIdentityInit().versionText.c_str());
    return ozmo::DONE_STATUS;
  }
  return Import(parsed.options);
}

}  // namespace

int main(int argc, char** argv) {
  ozmo::OpenStandardStreams();
  return ozmo::CloseOutput("ozmo_import", Run(ParseOptions(argc, argv)));
}
