#include "runtime/terminal_text.h"

#include <unistd.h>

namespace ozmo {
namespace {

// The forms of a character of two to four bytes.
struct CharacterForm {
  unsigned char mask;  // of the first byte
  unsigned char head;
  size_t length;
  uint32_t smallest;  // a smaller code has a shorter form, which is the only valid one
};
constexpr CharacterForm CHARACTER_FORMS[] = {
    {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}};

bool IsControl(uint32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

// Separators of lines and paragraphs, marks of direction.
bool IsLayoutMark(uint32_t code) {
  return code == 0x61C || code == 0x200E || code == 0x200F || (code >= 0x2028 && code <= 0x202E) ||
         (code >= 0x2066 && code <= 0x2069);
}

}  // namespace

std::optional<Character> FirstCharacter(std::string_view bytes) {
  const auto first = static_cast<unsigned char>(bytes.front());
  if (first < 0x80) return Character{first, 1};
  for (const CharacterForm& form : CHARACTER_FORMS) {
    if ((first & form.mask) != form.head) continue;
    if (bytes.size() < form.length) return std::nullopt;
    uint32_t code = first & static_cast<unsigned char>(~form.mask);
    for (size_t i = 1; i < form.length; ++i) {
      const auto next = static_cast<unsigned char>(bytes[i]);
      if ((next & 0xC0) != 0x80) return std::nullopt;
      code = code << 6 | (next & 0x3F);
    }
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < form.smallest || code > 0x10FFFF || surrogate) return std::nullopt;
    return Character{code, form.length};
  }
  return std::nullopt;
}

bool IsPrintable(uint32_t code) { return !IsControl(code) && !IsLayoutMark(code); }

std::string TextFor(std::FILE* stream, std::string_view text) {
  return isatty(fileno(stream)) == 1 ? PrintableText(text) : std::string(text);
}

std::string PrintableText(std::string_view text) {
  std::string shown(text);
  for (size_t i = 0; i < text.size();) {
    // A byte that is no UTF-8 is taken as Latin-1.
    const Character character =
        FirstCharacter(text.substr(i)).value_or(Character{static_cast<unsigned char>(text[i]), 1});
    if (!IsPrintable(character.code)) shown.replace(i, character.length, character.length, '?');
    i += character.length;
  }
  return shown;
}

}  // namespace ozmo
