// The message file and its formats: a file with a text for each of a few codes, and the whole of it as a
// format.
#include <sys/stat.h>

#include "fuzz/harness.h"
#include "runtime/message_format.h"
#include "runtime/runtime.h"

namespace {

// Made once; the target's own library directory is the working directory.
void EnterLibrary() {
  static const bool done = [] {
    mkdir("db", 0700);
    setenv("VELTRIX_LIBRARY", ".", 1);
    return true;
  }();
  static_cast<void>(done);
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace ozmo::fuzz;
  EnterLibrary();
  const std::string_view text = TextOf(data, size);
  WriteScratch("db/veltrix_messages.msg", text);
  ozmo::Runtime runtime;
  ozmo::MessageEmit(runtime, "NOOPEN", {std::string("./qtxs_f_2012Feb22.dat_1")});
  ozmo::MessageEmit(runtime, "NOALLOC", {-1LL});
  ozmo::MessageEmit(runtime, "A");
  const ozmo::MessageArgument arguments[] = {std::string("text"), 4294967297LL, std::string(300, 'x'), -7LL};
  ozmo::FormatMessage(text, arguments);
  return 0;
}
