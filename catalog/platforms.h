// The platforms whose data files become catalogs. One more is one more folder and one more row in
// platforms.cc.
#pragma once

#include "catalog/platform.h"
#include "readers/file_kind.h"

namespace ozmo {

namespace solaris_catalog {
extern const PlatformSpec PLATFORM;
}
namespace hpux_catalog {
extern const PlatformSpec PLATFORM;
}
namespace aix_catalog {
extern const PlatformSpec PLATFORM;
}
namespace linux_catalog {
extern const PlatformSpec PLATFORM;
}
namespace tru64_catalog {
extern const PlatformSpec PLATFORM;
}
namespace vmr_catalog {
extern const PlatformSpec PLATFORM;
}

// The platform whose files are of this kind.
const PlatformSpec& PlatformOf(ReaderKind kind);

}  // namespace ozmo
