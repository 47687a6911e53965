#include "catalog/platforms.h"

#include <iterator>

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

constexpr bool RowsAreInTheOrderOfKinds() {
  for (size_t i = 0; i < std::size(PLATFORMS); ++i) {
    if (static_cast<size_t>(PLATFORMS[i].kind) != i) return false;
  }
  return std::size(PLATFORMS) == KIND_COUNT;
}
static_assert(RowsAreInTheOrderOfKinds());

}  // namespace

const PlatformSpec& PlatformOf(ReaderKind kind) { return *PLATFORMS[static_cast<size_t>(kind)].platform; }

}  // namespace ozmo
