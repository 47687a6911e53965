// The recordings of other programs that can be imported, one row each.
//
// Adding a source is a file of its own, with a row in source.cc. A source is known by its content, never by a
// name.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "programs/import/line_source.h"
#include "programs/import/sample.h"
#include "programs/import/user_names.h"

namespace ozmo::import {

struct Source {
  std::string_view name;     // as --from takes it
  std::string_view package;  // that has the program
  // Whether a file that begins with these bytes is a recording of that program.
  bool (*isRecording)(std::string_view head);
  // Whether this is the first line of the program's text.
  bool (*isText)(std::string_view line);
  // A recording is read as text that the program prints, or else by a library.
  // The commands that print a recording as text. The first one's messages and status are those of all: where
  // there are more, each prints a part of the figures, and fails if that wasn't recorded.
  std::vector<std::vector<std::string>> (*commands)(const std::string& path);
  // The command that prints a recording of an older version in the form that those read, and nothing for any
  // other; null where there is none.
  std::vector<std::string> (*conversion)(const std::string& path);
  // Reads what the commands print, or the one text that somebody has printed, and hands each interval on.
  // Returns what went wrong, or nothing.
  std::string (*readText)(Texts& texts, UserNames& users, const SampleSink& sink);
  // Reads a recording by a library, and hands each interval on; null where it is read as text.
  std::string (*readRecording)(const std::string& path, const SampleSink& sink);
  bool isInParts = false;  // files that differ by what is after the last dot, each of which names them all
};

std::span<const Source* const> Sources();

// Null where none fits.
const Source* SourceOfRecording(std::string_view head);
const Source* SourceOfText(std::string_view line);
const Source* FindSource(std::string_view name);

// As many bytes of a file as isRecording looks at.
constexpr size_t HEAD_SIZE = 64;

}  // namespace ozmo::import
