#include "catalog/platforms.h"

#include "runtime/ordered_rows.h"

namespace ozmo {
namespace {

struct PlatformRow {
  ReaderKind kind;
  const PlatformSpec* platform;
};

constexpr PlatformRow PLATFORMS[] = {
    {ReaderKind::SOLARIS, &solaris_catalog::PLATFORM}, {ReaderKind::HPUX, &hpux_catalog::PLATFORM},
    {ReaderKind::AIX, &aix_catalog::PLATFORM},         {ReaderKind::LINUX, &linux_catalog::PLATFORM},
    {ReaderKind::VMR, &vmr_catalog::PLATFORM},         {ReaderKind::TRU64, &tru64_catalog::PLATFORM},
};

static_assert(RowsAreInOrder(PLATFORMS, &PlatformRow::kind, KIND_COUNT));

}  // namespace

const PlatformSpec& PlatformOf(ReaderKind kind) { return *PLATFORMS[static_cast<size_t>(kind)].platform; }

}  // namespace ozmo
