// The text files that the tool reads beside the data: messages, resources, workload classes.
//
// Whoever runs the tool doesn't always choose them, as they lie in a working or a library directory. So a
// name that leads to something else than a plain file (a pipe, a device, a directory), or for one of more
// than 64 MiB, counts as a missing file, and a line has a greatest length: no file can make the tool wait or
// hold more than it has use for.
#pragma once

#include <string>

#include "runtime/stream.h"

namespace ozmo {

// Null if there is no such plain file, or it may not be read.
Stream TextFileOpen(const std::string& path);

// One line without its line feed, or as much of it as `longest` characters: the rest comes as the next line.
// False at the end of the file.
bool TextFileReadLine(std::FILE* file, size_t longest, std::string& line);

}  // namespace ozmo
