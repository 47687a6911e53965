// The command line of ozmo_record.
#pragma once

#include <string>

#include "programs/record/recorder.h"

namespace ozmo::record {

enum class Action { RECORD, HELP, VERSION };

struct ParsedOptions {
  Action action = Action::RECORD;
  RecorderOptions options;
  std::string failure;  // what is wrong with the command line; empty when nothing is
};

// Takes the words after the program's name. Options and the directory may come in any order.
ParsedOptions ParseOptions(int argc, char* const argv[]);

// The text of --help.
std::string HelpText();

}  // namespace ozmo::record
