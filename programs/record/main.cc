// ozmo_record: records the host it runs on into a Linux collector file, for ozmo_graph to draw.
#include <unistd.h>

#include <array>
#include <clocale>
#include <cstdio>

#include "programs/host_file/node_name.h"
#include "programs/record/notices.h"
#include "programs/record/options.h"
#include "programs/record/recorder.h"
#include "runtime/console.h"
#include "runtime/identity.h"

namespace {

using namespace ozmo::record;

std::string HostName() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

int Fail(const std::string& reason) {
  PrintError(reason);
  return ozmo::FAILED_STATUS;
}

int Run(int argc, char** argv) {
  std::setlocale(LC_CTYPE, "");  // the letters of commands and users
  ParsedOptions parsed = ParseOptions(argc, argv);
  if (!parsed.failure.empty()) {
    PrintError(parsed.failure);
    std::fputs("ozmo_record --help says more.\n", stderr);
    return ozmo::USAGE_STATUS;
  }
  if (parsed.action == Action::HELP) {
    std::fputs(HelpText().c_str(), stdout);
    return ozmo::DONE_STATUS;
  }
  if (parsed.action == Action::VERSION) {
    std::printf("ozmo_record %s\n", ozmo::ProductIdentityInit().versionText.c_str());
    return ozmo::DONE_STATUS;
  }
  if (parsed.options.node.empty()) parsed.options.node = HostName();
  if (const std::string wrong = ozmo::host_file::CheckNode(parsed.options.node); !wrong.empty())
    return Fail(wrong);
  if (const std::string wrong = ozmo::host_file::CheckPath(parsed.options.directory, parsed.options.node);
      !wrong.empty()) {
    return Fail(wrong);
  }
  const std::string failure = Record(parsed.options);
  return failure.empty() ? ozmo::DONE_STATUS : Fail(failure);
}

}  // namespace

int main(int argc, char** argv) {
  ozmo::OpenStandardStreams();
  return ozmo::CloseOutput("ozmo_record", Run(argc, argv));
}
