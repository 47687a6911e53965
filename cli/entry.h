// One run of the tool, from the first line it prints to its exit status.
#pragma once

namespace ozmo {

// Prints the banner, parses the command line, makes the first pass over the data file, reads the user's
// resources and writes the graph. Returns the exit status: always 1, which says nothing about success. A
// wrapper looks for the output file.
int RunEntry(int argc, char* const argv[]);

}  // namespace ozmo
