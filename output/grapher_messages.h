// The grapher's own lines on standard error. They start with its program word and not with the tool's name.
#pragma once

#include <string>

namespace ozmo {

// Prints "graph: " and the text.
void GrapherWarn(const std::string& text);

// Prints "graph: error: " and the text.
void GrapherError(const std::string& text);

// The same, and ends the process with status 1.
[[noreturn]] void GrapherFail(const std::string& text);

}  // namespace ozmo
