// Names of users by their numbers.
#pragma once

#include <map>
#include <string>

namespace ozmo::import {

class UserNames {
 public:
  // Without a file the names are those of this host, for recordings of this host only.
  // Results are empty, or the text of a failure.
  [[nodiscard]] std::string Load(const std::string& passwdFile);

  // The name of that user on the host `node`; the number where there is no name for it.
  std::string NameOf(const std::string& number, const std::string& node);

 private:
  bool isLoaded_ = false;
  std::map<std::string, std::string> names_;  // by number
};

}  // namespace ozmo::import
