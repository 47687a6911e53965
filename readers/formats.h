// The binary collector formats we read. One more is one more file and one more row in formats.cc.
#pragma once

#include "readers/collector_format.h"
#include "readers/file_kind.h"

namespace ozmo {

namespace solaris_files {
extern const CollectorFormat FORMAT;
}
namespace linux_files {
extern const CollectorFormat FORMAT;
}
namespace aix_files {
extern const CollectorFormat FORMAT;
}
namespace hpux_files {
extern const CollectorFormat FORMAT;
}
namespace tru64_files {
extern const CollectorFormat FORMAT;
}

// The format of a binary kind; null for monitor text files.
const CollectorFormat* FormatOf(ReaderKind kind);

}  // namespace ozmo
