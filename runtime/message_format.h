// The printf formats of the message file, filled in by ourselves: the file is written by whoever installs the
// tool, so a format must never reach printf, where it could ask for arguments that nobody gave.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "runtime/messages.h"

namespace ozmo {

// Fills `arguments` into `format` in order. Flags, width, precision and length modifiers act as in printf;
// a number without a length modifier is taken as 32 bits. Where format and arguments differ nothing breaks:
// %s of a number is its decimal form, a numeric conversion of a text is the text, a conversion without an
// argument and %n write nothing, and an unknown conversion stays as it is.
std::string FormatMessage(std::string_view format, std::span<const MessageArgument> arguments);

}  // namespace ozmo
