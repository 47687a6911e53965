// Small helpers around numbers that end in texts or in 32-bit integers.
#pragma once

#include <string>

namespace ozmo {

// `value` by a printf format of one double, "%e" or "%.9f".
std::string NumberText(const char* format, double value);

// `value` with so many digits after the point.
std::string NumberText(double value, int decimals);

// Cut towards zero; a value that no int holds becomes the nearest one, and what is not a number becomes 0.
int ToInt(double value);

}  // namespace ozmo
