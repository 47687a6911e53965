#include "programs/report/text.h"

#include <optional>

#include "runtime/terminal_text.h"

namespace ozmo::report {
namespace {

constexpr std::string_view REPLACEMENT = "\xEF\xBF\xBD";

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
    const bool shown = character && IsPrintable(character->code);
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
