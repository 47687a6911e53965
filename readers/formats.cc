#include "readers/formats.h"

namespace ozmo {

const CollectorFormat* FormatOf(ReaderKind kind) {
  switch (kind) {
    case ReaderKind::SOLARIS:
      return &SOLARIS_FORMAT;
    case ReaderKind::HPUX:
      return &HPUX_FORMAT;
    case ReaderKind::AIX:
      return &AIX_FORMAT;
    case ReaderKind::LINUX:
      return &LINUX_FORMAT;
    case ReaderKind::TRU64:
      return &TRU64_FORMAT;
    case ReaderKind::VMR:
      break;
  }
  return nullptr;
}

}  // namespace ozmo
