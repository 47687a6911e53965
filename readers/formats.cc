#include "readers/formats.h"

namespace ozmo {
namespace {

struct FormatRow {
  ReaderKind kind;
  const CollectorFormat* format;
};

constexpr FormatRow FORMATS[] = {
    {ReaderKind::SOLARIS, &SOLARIS_FORMAT}, {ReaderKind::HPUX, &HPUX_FORMAT},
    {ReaderKind::AIX, &AIX_FORMAT},         {ReaderKind::LINUX, &LINUX_FORMAT},
    {ReaderKind::TRU64, &TRU64_FORMAT},
};

}  // namespace

const CollectorFormat* FormatOf(ReaderKind kind) {
  for (const FormatRow& row : FORMATS) {
    if (row.kind == kind) return row.format;
  }
  return nullptr;
}

}  // namespace ozmo
