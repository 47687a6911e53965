#include "fuzz/day_kind.h"

namespace ozmo::fuzz {

const std::string_view DAY_KIND = OZMO_FUZZ_KIND;

}  // namespace ozmo::fuzz
