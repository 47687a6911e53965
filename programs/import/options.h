// The command line of ozmo_import.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ozmo::import {

enum class Action { IMPORT, HELP, VERSION };

struct Options {
  Action action = Action::IMPORT;
  std::string directory = ".";
  std::string from;                  // the source's name; empty: by content
  std::string node;                  // in place of the one in the recording
  std::string passwdFile;            // names of users; empty: this host's, for recordings of this host
  std::optional<int64_t> begin;      // samples that end before are left out
  std::optional<int64_t> end;        // and those that end after
  std::vector<std::string> sources;  // paths; "-" is standard input
};

struct ParsedOptions {
  Options options;
  std::string failure;  // what is wrong with the command line; empty when nothing is
};

ParsedOptions ParseOptions(int argc, char* const argv[]);

// The text of --help.
std::string HelpText();

}  // namespace ozmo::import
