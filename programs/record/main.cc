// ozmo_record: records the host it runs on into a Linux collector file, for ozmo_graph to draw.
#include <unistd.h>

#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "programs/record/notices.h"
#include "programs/record/options.h"
#include "programs/record/recorder.h"
#include "readers/file_kind.h"
#include "runtime/console.h"
#include "runtime/identity.h"
#include "runtime/terminal_text.h"

namespace {

using namespace ozmo::record;

enum Status { DONE = 0, FAILED = 1, USAGE = 2 };

std::string HostName() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

// What is wrong with a node name; it becomes part of file names.
std::string CheckNode(const std::string& node) {
  constexpr size_t LONGEST = 64;
  if (node.empty()) return "this host has no name; --node gives one";
  if (node.size() > LONGEST) return "node name " + node + " has more than 64 bytes";
  for (const char letter : node) {
    if (letter == '/') return "node name " + node + " has a slash, which no file name can have";
  }
  if (ozmo::PrintableText(node) != node) return "node name has a control character";
  return "";
}

// The kind of a file is known by its path. A mark of another kind in it would have every reader take the
// recording for one of that.
std::string CheckPath(const RecorderOptions& options) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(options.directory.c_str(), nullptr),
                                                         std::free);
  for (const std::string& directory : {options.directory, std::string(real ? real.get() : "")}) {
    const std::string path = directory + "/qtxl_" + options.node;
    if (ozmo::ReaderKindOf(path) == ozmo::ReaderKind::LINUX) continue;
    return path +
           " would be read as a file of another system, for one of \"qtxs_\", \"qtxsx_\", \"qtxh_\" and " +
           "\"qtxa_\" in its path";
  }
  return "";
}

int Fail(const std::string& reason) {
  PrintError(reason);
  return FAILED;
}

int Run(int argc, char** argv) {
  std::setlocale(LC_CTYPE, "");  // the letters of commands and users
  ParsedOptions parsed = ParseOptions(argc, argv);
  if (!parsed.failure.empty()) {
    PrintError(parsed.failure);
    std::fputs("ozmo_record --help says more.\n", stderr);
    return USAGE;
  }
  if (parsed.action == Action::HELP) {
    std::fputs(HelpText().c_str(), stdout);
    return DONE;
  }
  if (parsed.action == Action::VERSION) {
    std::printf("ozmo_record %s\n", ozmo::ProductIdentityInit().versionText.c_str());
    return DONE;
  }
  if (parsed.options.node.empty()) parsed.options.node = HostName();
  if (const std::string wrong = CheckNode(parsed.options.node); !wrong.empty()) return Fail(wrong);
  if (const std::string wrong = CheckPath(parsed.options); !wrong.empty()) return Fail(wrong);
  const std::string failure = Record(parsed.options);
  return failure.empty() ? DONE : Fail(failure);
}

}  // namespace

int main(int argc, char** argv) {
  ozmo::OpenStandardStreams();
  return ozmo::CloseOutput("ozmo_record", Run(argc, argv));
}
