// What to say of a command line that getopt_long has refused.
#pragma once

#include <getopt.h>

#include <string>

namespace ozmo {

// The line on what getopt_long has just refused: `result` is the '?' or ':' that it returned, for a string of
// short options that begins with ":". Names the word as it was typed, and the long option that is nearest to
// it.
//
// getopt reads "-count" as the letters c, o, u, n and t, and stays at that word while letters are left; a
// word that it is done with is the one before `optind`.
std::string RefusedOption(int result, int argc, char* const argv[], const option* longOptions);

}  // namespace ozmo
