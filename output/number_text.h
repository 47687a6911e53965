// Numbers as texts.
#pragma once

#include <string>

namespace ozmo {

// `value` by a printf format of one double, "%e" or "%.9f".
std::string NumberText(const char* format, double value);

// `value` with so many digits after the point.
std::string NumberText(double value, int decimals);

}  // namespace ozmo
