#include "catalog/platforms.h"

#include <iterator>

namespace ozmo {
namespace {

struct PlatformRow {
  ReaderKind kind;
  const PlatformSpec* platform;
};

constexpr PlatformRow PLATFORMS[] = {
    {ReaderKind::SOLARIS, &SOLARIS_PLATFORM}, {ReaderKind::HPUX, &HPUX_PLATFORM},
    {ReaderKind::AIX, &AIX_PLATFORM},         {ReaderKind::LINUX, &LINUX_PLATFORM},
    {ReaderKind::VMR, &VMR_PLATFORM},         {ReaderKind::TRU64, &TRU64_PLATFORM},
};

constexpr bool RowsStandInTheOrderOfKinds() {
  for (size_t i = 0; i < std::size(PLATFORMS); ++i) {
    if (static_cast<size_t>(PLATFORMS[i].kind) != i) return false;
  }
  return true;
}
static_assert(RowsStandInTheOrderOfKinds());

}  // namespace

const PlatformSpec& PlatformOf(ReaderKind kind) { return *PLATFORMS[static_cast<size_t>(kind)].platform; }

}  // namespace ozmo
