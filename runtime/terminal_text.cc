#include "runtime/terminal_text.h"

#include <unistd.h>

#include <algorithm>
#include <cstdint>

namespace ozmo {
namespace {

uint8_t ByteAt(std::string_view text, size_t index) { return static_cast<uint8_t>(text[index]); }

bool IsControl(uint8_t byte) { return byte < 0x20 || (byte >= 0x7f && byte < 0xa0); }

// Bytes of the UTF-8 character that `text` starts with; 0 if it starts with none of more than one byte.
size_t Utf8Length(std::string_view text) {
  const uint8_t first = ByteAt(text, 0);
  const size_t length = first >= 0xc2 && first < 0xe0 ? 2 : first >= 0xe0 && first < 0xf0 ? 3 : 4;
  if (first < 0xc2 || first >= 0xf5 || text.size() < length) return 0;
  for (size_t i = 1; i < length; ++i) {
    if ((ByteAt(text, i) & 0xc0) != 0x80) return 0;
  }
  return length;
}

// The characters U+0080 to U+009F are control characters too.
bool IsUtf8Control(std::string_view character) {
  return ByteAt(character, 0) == 0xc2 && IsControl(ByteAt(character, 1));
}

}  // namespace

std::string TextFor(std::FILE* stream, std::string_view text) {
  return isatty(fileno(stream)) == 1 ? PrintableText(text) : std::string(text);
}

std::string PrintableText(std::string_view text) {
  std::string shown(text);
  for (size_t i = 0; i < text.size();) {
    const size_t length = std::max<size_t>(Utf8Length(text.substr(i)), 1);
    const std::string_view character = text.substr(i, length);
    if (length == 1 ? IsControl(ByteAt(character, 0)) : IsUtf8Control(character)) {
      shown.replace(i, length, length, '?');
    }
    i += length;
  }
  return shown;
}

}  // namespace ozmo
