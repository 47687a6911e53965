// Texts that come from a host or a data file: names, paths, versions, mount points. A control character in
// one of them could move the cursor, begin a line that looks like another program's, or worse; a mark of
// direction has the rest of a line read backwards.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace ozmo {

// `text` as it is to be written to `stream`: as it is into a pipe or file, PrintableText to a terminal.
// For the messages of the tool, which scripts compare; any other line is PrintableText wherever it goes.
std::string TextFor(std::FILE* stream, std::string_view text);

// `text` with a "?" for each byte of a character that isn't printable, be it ASCII, Latin-1 or UTF-8. Other
// bytes stay, whatever the encoding.
std::string PrintableText(std::string_view text);

struct Character {
  uint32_t code = 0;
  size_t length = 1;  // bytes
};

// The UTF-8 character that `bytes`, which aren't empty, begin with; absent when none does.
std::optional<Character> FirstCharacter(std::string_view bytes);

// False for control characters, separators of lines and paragraphs, and marks of direction.
bool IsPrintable(uint32_t code);

}  // namespace ozmo
