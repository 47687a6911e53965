// The command line of ozmo_export.
#pragma once

#include <string>
#include <vector>

#include "programs/export/formats.h"

namespace ozmo::exporting {

enum class Action { EXPORT, HELP, VERSION };

struct Options {
  Action action = Action::EXPORT;
  std::vector<std::string> dataFiles;
  const Format* format = nullptr;
  std::string directory = ".";
};

struct ParsedOptions {
  Options options;
  std::string failure;  // what is wrong with the command line; empty when nothing is
};

// Takes the words after the program's name. Options and files may be in any order.
ParsedOptions ParseOptions(int argc, char* const argv[]);

std::string HelpText();

}  // namespace ozmo::exporting
