// ozmo_record: records the host it runs on into a Linux collector file, for ozmo_graph to draw.
#include <unistd.h>

#include <array>
#include <clocale>
#include <cstdio>

#include "programs/record/notices.h"
#include "programs/record/options.h"
#include "programs/record/recorder.h"
#include "runtime/identity.h"

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
    if (static_cast<unsigned char>(letter) < ' ') return "node name has a control character";
  }
  return "";
}

int Fail(const std::string& reason) {
  PrintError(reason);
  return FAILED;
}

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_CTYPE, "");  // the letters of commands and users
  ParsedOptions parsed = ParseOptions(argc, argv);
  if (!parsed.failure.empty()) {
    PrintError(parsed.failure + "\nozmo_record --help says more.");
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
  const std::string failure = Record(parsed.options);
  return failure.empty() ? DONE : Fail(failure);
}
