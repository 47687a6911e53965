#include "output/label_text.h"

namespace ozmo {
namespace {

// Libplot knows no escape for the character, as "\\\\" draws two of them; this is its glyph in HersheySans,
// the one font that we use.
constexpr std::string_view BACKSLASH_GLYPH = "\\#H4002";

}  // namespace

std::string LabelText(std::string_view text) {
  std::string label;
  label.reserve(text.size());
  for (char c : text) {
    if (c == '\\') {
      label += BACKSLASH_GLYPH;
    } else {
      label += c;
    }
  }
  return label;
}

}  // namespace ozmo
