#include "readers/formats.h"

namespace ozmo {
namespace {

struct FormatRow {
  ReaderKind kind;
  const CollectorFormat* format;
};

constexpr FormatRow FORMATS[] = {
    {ReaderKind::SOLARIS, &solaris_files::FORMAT}, {ReaderKind::HPUX, &hpux_files::FORMAT},
    {ReaderKind::AIX, &aix_files::FORMAT},         {ReaderKind::LINUX, &linux_files::FORMAT},
    {ReaderKind::TRU64, &tru64_files::FORMAT},
};

}  // namespace

const CollectorFormat* FormatOf(ReaderKind kind) {
  for (const FormatRow& row : FORMATS) {
    if (row.kind == kind) return row.format;
  }
  return nullptr;
}

}  // namespace ozmo
