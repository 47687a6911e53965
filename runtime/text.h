// Small operations on texts. Letters are those of ASCII, whatever the locale.
#pragma once

#include <string>
#include <string_view>

namespace ozmo {

inline char LowerLetter(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
inline char UpperLetter(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

inline bool IsDigit(int c) { return c >= '0' && c <= '9'; }
inline bool EndsInDigit(std::string_view text) { return !text.empty() && IsDigit(text.back()); }

inline std::string LowerText(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = LowerLetter(c);
  return result;
}

inline std::string UpperText(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = UpperLetter(c);
  return result;
}

inline std::string_view SkipBlanks(std::string_view text, std::string_view blanks = " ") {
  const size_t start = text.find_first_not_of(blanks);
  return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

inline std::string_view TrimText(std::string_view text, std::string_view blanks = " \t") {
  const std::string_view rest = SkipBlanks(text, blanks);
  return rest.substr(0, rest.find_last_not_of(blanks) + 1);
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
