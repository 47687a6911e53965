#include "output/number_text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

namespace ozmo {

namespace {

// The largest double has 309 digits before the point; nobody asks for more than 9 behind it.
constexpr int TEXT_ROOM = 400;

}  // namespace

std::string NumberText(const char* format, double value) {
  char text[TEXT_ROOM];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

std::string NumberText(double value, int decimals) {
  char text[TEXT_ROOM];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

int ToInt(double value) {
  if (std::isnan(value)) {
    return 0;
  }
  constexpr double lowest = std::numeric_limits<int>::min();
  constexpr double highest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(value, lowest, highest));
}

}  // namespace ozmo
