// The message catalog: every message of the tool's own machinery is kept outside the program, in the text
// file db/veltrix_messages.msg below the library directory, under a short upper-case code.
//
// A line of the file holds a code, a severity word and a text in double quotes; the text is a printf
// format. The file is opened and closed for each message, so an edited file acts at once.
#pragma once

#include <initializer_list>
#include <string>
#include <variant>

namespace ozmo {

struct Runtime;

// What a message's format may ask for: a text for %s, an integer for %d.
using MessageArgument = std::variant<std::string, long long>;

// The code of a message that says what its one argument says.
inline constexpr const char* PLAIN_MESSAGE = "UNDEFINED";

// Looks `code` up, fills `arguments` into its text and prints the line on the stream of its severity, or
// hands it to the runtime's sink. Returns 1 when the code was found and printed, 0 otherwise (the failure
// itself is then printed).
int MessageEmit(Runtime& runtime, const std::string& code,
                std::initializer_list<MessageArgument> arguments = {});

}  // namespace ozmo
