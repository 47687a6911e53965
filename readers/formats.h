// The binary collector formats we read. One more is one more file and one more row in formats.cc.
#pragma once

#include "readers/collector_format.h"
#include "readers/file_kind.h"

namespace ozmo {

extern const CollectorFormat SOLARIS_FORMAT;
extern const CollectorFormat LINUX_FORMAT;
extern const CollectorFormat AIX_FORMAT;
extern const CollectorFormat HPUX_FORMAT;
extern const CollectorFormat TRU64_FORMAT;

// The format of a binary kind; null for monitor text files.
const CollectorFormat* FormatOf(ReaderKind kind);

}  // namespace ozmo
