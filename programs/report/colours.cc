#include "programs/report/colours.h"

#include "catalog/model.h"

namespace ozmo::report {
namespace {

struct NamedColour {
  std::string_view name;
  std::string_view code;
};
constexpr NamedColour COLOURS[] = {
    {"Blue", "#0000ff"},        {"Red", "#ff0000"},      {"Green", "#00ff00"},  {"LimeGreen", "#32cd32"},
    {"LightBlue", "#add8e6"},   {"DarkBlue", "#00008b"}, {"Purple", "#a020f0"}, {"Cyan", "#00ffff"},
    {"Orange", "#ffa500"},      {"HotPink", "#ff69b4"},  {"Wheat", "#f5deb3"},  {"DarkSeaGreen", "#8fbc8f"},
    {"DeepSkyBlue", "#00bfff"}, {"Gold", "#ffd700"},     {"Salmon", "#fa8072"}, {"ForestGreen", "#228b22"},
    {"Maroon", "#b03060"},
};
constexpr std::string_view UNKNOWN = "#808080";

}  // namespace

std::string ColourOf(std::string_view name) {
  for (const NamedColour& colour : COLOURS) {
    if (colour.name == name) return std::string(colour.code);
  }
  return std::string(UNKNOWN);
}

std::string ColourOfSet(int set) { return ColourOf(Palette()[static_cast<size_t>(set) % Palette().size()]); }

}  // namespace ozmo::report
