// What a recorder says to its user on standard error: lines of printable text, whatever names are in them.
#pragma once

#include <set>
#include <string>

namespace ozmo::record {

// In the journal the three have the priorities of an error, a warning and an information.
void PrintError(const std::string& text);
void PrintWarning(const std::string& text);
void PrintNotice(const std::string& text);

// Words on what is left out of a recording. Each is said once, however often it is met.
class Notices {
 public:
  void SayOnce(const std::string& text);

 private:
  std::set<std::string> said_;
};

}  // namespace ozmo::record
