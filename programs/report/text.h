// Names made fit to be shown. They come from monitored hosts and may hold any bytes.
#pragma once

#include <string>
#include <string_view>

namespace ozmo::report {

// Valid UTF-8 that stays on its line and in its direction: a byte that is no UTF-8, a control character, a
// line or paragraph separator and a mark that turns the direction of text each become U+FFFD.
std::string CleanText(std::string_view bytes);

// The text for HTML, between tags or in a quoted attribute. `bytes` is cleaned first.
std::string HtmlText(std::string_view bytes);

// The text as a JSON string with its quotes. Nothing in it can end a script element. `bytes` is cleaned
// first.
std::string JsonText(std::string_view bytes);

}  // namespace ozmo::report
