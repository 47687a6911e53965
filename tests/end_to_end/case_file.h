// The lines of a case: a text file that says which files there are, what is run and what comes of it.
// tests/cases/README.md documents the statements.
#pragma once

#include <string>
#include <vector>

namespace ozmo {

// One statement of a case: a keyword, its words, and the "|" lines under it.
struct Statement {
  int line = 0;
  std::string keyword;
  std::vector<std::string> words;
  std::vector<std::string> text;
};

// The statements of the case at `path`; none when it can't be read.
std::vector<Statement> ReadCaseFile(const std::string& path);

}  // namespace ozmo
