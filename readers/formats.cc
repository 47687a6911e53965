#include "readers/formats.h"

#include <iterator>

namespace ozmo {
namespace {

struct FormatRow {
  ReaderKind kind;
  const CollectorFormat* format;
};

constexpr FormatRow FORMATS[] = {
    {ReaderKind::SOLARIS, &solaris_files::FORMAT},
    {ReaderKind::HPUX, &hpux_files::FORMAT},
    {ReaderKind::AIX, &aix_files::FORMAT},
    {ReaderKind::LINUX, &linux_files::FORMAT},
    {ReaderKind::VMR, nullptr},  // text
    {ReaderKind::TRU64, &tru64_files::FORMAT},
};

constexpr bool FormatsAreInTheOrderOfKinds() {
  for (size_t i = 0; i < std::size(FORMATS); ++i) {
    if (static_cast<size_t>(FORMATS[i].kind) != i) return false;
  }
  return std::size(FORMATS) == KIND_COUNT;
}
static_assert(FormatsAreInTheOrderOfKinds());

}  // namespace

const CollectorFormat* FormatOf(ReaderKind kind) { return FORMATS[static_cast<size_t>(kind)].format; }

}  // namespace ozmo
