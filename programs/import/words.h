// The words of a line of text, and numbers in them.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <vector>

namespace ozmo::import {

// Splits `line` at each `separator`. The words are views into the line.
inline void SplitWords(std::string_view line, char separator, std::vector<std::string_view>& words) {
  words.clear();
  for (size_t begin = 0; begin <= line.size();) {
    const size_t end = std::min(line.find(separator, begin), line.size());
    words.push_back(line.substr(begin, end - begin));
    begin = end + 1;
  }
}

// A number without a sign. False where the word is something else.
inline bool IsCount(std::string_view word, uint64_t& number) {
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  return error == std::errc() && end == word.data() + word.size();
}

// The same, 0 where it is something else: "-1" is what a kernel doesn't count.
inline uint64_t CountOf(std::string_view word) {
  uint64_t number = 0;
  return IsCount(word, number) ? number : 0;
}

}  // namespace ozmo::import
