// The command line of ozmo_fleet.
#pragma once

#include <string>
#include <vector>

#include "programs/fleet/limit.h"

namespace ozmo::fleet {

enum class Action { SHOW, HELP, VERSION };

struct Options {
  Action action = Action::SHOW;
  std::string pageFile = "fleet.html";
  std::string tableFile;       // empty: no table as text
  std::string pagesDirectory;  // empty: hosts have no pages of their own
  int jobs = 0;                // 0: one for each processor
  std::vector<Limit> limits;
  std::vector<std::string> inputs;
};

struct ParsedOptions {
  Options options;
  std::string failure;  // what is wrong with the command line; empty when nothing is
};

// Takes the words after the program's name. Options and inputs may be in any order.
ParsedOptions ParseOptions(int argc, char* const argv[]);

// The text of --help.
std::string HelpText();

}  // namespace ozmo::fleet
