#include "output/number_text.h"

#include <cstdio>

namespace ozmo {
namespace {

// The largest double has 309 digits before the point; nobody asks for more than 9 after it.
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

}  // namespace ozmo
