#include "programs/report/text.h"

#include <cstdint>
#include <optional>

namespace ozmo::report {
namespace {

constexpr std::string_view REPLACEMENT = "\xEF\xBF\xBD";

struct Character {
  uint32_t code = 0;
  size_t length = 1;
};

// The forms of a character of two to four bytes.
struct Form {
  unsigned char mask;  // of the first byte
  unsigned char head;
  size_t length;
  uint32_t smallest;  // a smaller code has a shorter form, which is the only valid one
};
constexpr Form FORMS[] = {{0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}};

// The first character of `bytes`; absent when no UTF-8 starts there.
std::optional<Character> FirstCharacter(std::string_view bytes) {
  const auto first = static_cast<unsigned char>(bytes.front());
  if (first < 0x80) return Character{first, 1};
  for (const Form& form : FORMS) {
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

bool IsControl(uint32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

// Separators of lines and paragraphs, marks of direction.
bool IsLayoutMark(uint32_t code) {
  return code == 0x61C || code == 0x200E || code == 0x200F || (code >= 0x2028 && code <= 0x202E) ||
         (code >= 0x2066 && code <= 0x2069);
}

void AppendHtml(std::string& target, char c) {
  switch (c) {
    case '&':
      target += "&amp;";
      return;
    case '<':
      target += "&lt;";
      return;
    case '>':
      target += "&gt;";
      return;
    case '"':
      target += "&quot;";
      return;
    case '\'':
      target += "&#39;";
      return;
    default:
      target += c;
  }
}

void AppendJson(std::string& target, char c) {
  switch (c) {
    case '"':
      target += "\\\"";
      return;
    case '\\':
      target += "\\\\";
      return;
    case '<':
      target += "\\u003c";
      return;
    case '>':
      target += "\\u003e";
      return;
    case '&':
      target += "\\u0026";
      return;
    default:
      target += c;
  }
}

}  // namespace

std::string CleanText(std::string_view bytes) {
  std::string clean;
  clean.reserve(bytes.size());
  while (!bytes.empty()) {
    const std::optional<Character> character = FirstCharacter(bytes);
    const size_t length = character ? character->length : 1;
    const bool shown = character && !IsControl(character->code) && !IsLayoutMark(character->code);
    clean += shown ? bytes.substr(0, length) : REPLACEMENT;
    bytes.remove_prefix(length);
  }
  return clean;
}

std::string HtmlText(std::string_view bytes) {
  std::string html;
  for (char c : CleanText(bytes)) AppendHtml(html, c);
  return html;
}

std::string JsonText(std::string_view bytes) {
  std::string json = "\"";
  for (char c : CleanText(bytes)) AppendJson(json, c);
  return json + '"';
}

}  // namespace ozmo::report
