// Records that look the same in all formats and versions that have them.
#pragma once

#include "readers/version_layouts.h"

namespace ozmo {

inline constexpr FieldRun LOAD_ITEM[] = {Text(1), Int8(2, 7)};
inline constexpr FieldRun LAN[] = {Text(1501), Int8(1502, 1508)};
inline constexpr FieldRun SUMMARY[] = {Int8(1, 8)};

}  // namespace ozmo
