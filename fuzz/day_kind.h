// The kind of data files that a target is for.
#pragma once

#include <string_view>

namespace ozmo::fuzz {

extern const std::string_view DAY_KIND;

}  // namespace ozmo::fuzz
