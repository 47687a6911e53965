// The command line. The parser is a sequence of tests over the words, and calls are written for the order of
// the tests and for what follows from it: see ParseCommandLine.
#pragma once

#include <string_view>

#include "cli/run_request.h"

namespace ozmo {

// Fills `request`. Returns, or ends the process: after the usage text with status 1 without arguments or
// with -help, after a requirement line with status 0 if -item, -graph_file or -type is missing, and after
// one line on standard error with status 2 if the value of an option is missing.
//
// Each word is put to all tests in order. A test that takes a value moves on to it, so the tests after it
// look at that value: a value that looks like a later option acts as that option as well. A word that no test
// knows is skipped.
void ParseCommandLine(int argc, char* const argv[], RunRequest& request);

// `argument` is an abbreviation of `option`: a prefix of at least `minimum` characters, dash included.
bool OptionMatches(std::string_view argument, std::string_view option, size_t minimum);

void PrintUsage();

}  // namespace ozmo
