// What a program beside the tool does with its standard streams: at its start, with a line on what went
// wrong, and at its end.
//
//   int main(int argc, char** argv) {
//     ozmo::OpenStandardStreams();
//     ...
//     ozmo::Complain("ozmo_import", path + ": " + std::strerror(errno));
//     ...
//     return ozmo::CloseOutput("ozmo_import", status);
//   }
#pragma once

#include <string_view>

namespace ozmo {

// What such a program ends with.
inline constexpr int DONE_STATUS = 0;
inline constexpr int FAILED_STATUS = 1;  // some of it at least
inline constexpr int USAGE_STATUS = 2;

// Opens those that were closed at the start on /dev/null: the next file to be opened would have their number,
// and what is printed would land in it.
void OpenStandardStreams();

// "PROGRAM: TEXT" as one line on standard error, printable whatever names are in the text.
void Complain(std::string_view program, std::string_view text);

// Has all that was printed leave the program. Returns `status`; when it is 0 and something could not be
// written, `FAILED_STATUS`, after a line that says so. A reader that has closed its pipe has had enough, and
// is no failure.
int CloseOutput(std::string_view program, int status);

}  // namespace ozmo
