// Libjpeg's errors in a fuzz build: where they would end the process they throw, as the tool's own do.
#include <cstdio>
#include <cstdlib>

// clang-format off
#include <jpeglib.h>
// clang-format on

#include "runtime/process_end.h"

namespace {

// What libjpeg does, without the end of the process.
[[noreturn]] void FailJpeg(j_common_ptr object) {
  object->err->output_message(object);
  jpeg_destroy(object);
  ozmo::EndProcess(EXIT_FAILURE);
}

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
// The linker puts these around libjpeg's function.
extern "C" jpeg_error_mgr* __real_jpeg_std_error(jpeg_error_mgr* errors);
extern "C" jpeg_error_mgr* __wrap_jpeg_std_error(jpeg_error_mgr* errors) {
  __real_jpeg_std_error(errors);
  errors->error_exit = FailJpeg;
  return errors;
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
