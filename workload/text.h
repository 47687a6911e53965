// Small operations on the text of a class file. Letters are those of ASCII, whatever the locale.
#pragma once

#include <string>
#include <string_view>

namespace ozmo {

inline std::string LowerText(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return result;
}

inline std::string UpperText(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return result;
}

inline std::string_view SkipBlanks(std::string_view text) {
  const size_t start = text.find_first_not_of(' ');
  return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

inline std::string_view TrimText(std::string_view text) {
  const size_t start = text.find_first_not_of(" \t");
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(" \t") - start + 1);
}

// Takes the next word, ended by a blank, off the front of `text`; empty when there is none.
inline std::string_view TakeWord(std::string_view& text) {
  const std::string_view rest = SkipBlanks(text);
  const std::string_view word = rest.substr(0, rest.find(' '));
  text = rest.substr(word.size());
  return word;
}

// Whether `word` is `keyword` or an abbreviation of it of at least `shortest` characters.
inline bool Abbreviates(std::string_view word, std::string_view keyword, size_t shortest) {
  return word.size() >= shortest && keyword.starts_with(word);
}

}  // namespace ozmo
