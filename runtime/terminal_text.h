// Texts on their way to a terminal. Names, paths and versions come from data files, and a control character
// in one of them could move the cursor, change colours or worse.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace ozmo {

// `text` as it is to be written to `stream`: as it is into a pipe or file, PrintableText to a terminal.
std::string TextFor(std::FILE* stream, std::string_view text);

// `text` with a "?" for each byte of a control character, be it ASCII, Latin-1 or UTF-8. Other bytes stay,
// whatever the encoding.
std::string PrintableText(std::string_view text);

}  // namespace ozmo
