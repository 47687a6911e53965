// The platforms whose data files become catalogs. One more is one more folder and one more row in
// platforms.cc.
#pragma once

#include "catalog/platform.h"
#include "readers/file_kind.h"

namespace ozmo {

extern const PlatformSpec SOLARIS_PLATFORM;
extern const PlatformSpec HPUX_PLATFORM;
extern const PlatformSpec AIX_PLATFORM;
extern const PlatformSpec LINUX_PLATFORM;
extern const PlatformSpec TRU64_PLATFORM;
extern const PlatformSpec VMR_PLATFORM;

// The platform whose files are of this kind.
const PlatformSpec& PlatformOf(ReaderKind kind);

}  // namespace ozmo
