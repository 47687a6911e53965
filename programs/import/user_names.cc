#include "programs/import/user_names.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstring>

#include "runtime/stream.h"

namespace ozmo::import {
namespace {

std::string ThisHost() {
  char name[256] = "";
  gethostname(name, sizeof name - 1);
  return name;
}

// The host's own name for a user; the number where it has none.
std::string NameHere(const std::string& number) {
  uid_t user = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), user);
  if (error != std::errc() || end != number.data() + number.size()) return number;
  const passwd* entry = getpwuid(user);
  return entry != nullptr ? entry->pw_name : number;
}

}  // namespace

std::string UserNames::Load(const std::string& passwdFile) {
  const Stream file(std::fopen(passwdFile.c_str(), "re"));
  if (!file) return passwdFile + ": " + std::strerror(errno);
  isLoaded_ = true;
  while (const passwd* entry = fgetpwent(file.get())) {
    names_.try_emplace(std::to_string(entry->pw_uid), entry->pw_name);
  }
  return "";
}

std::string UserNames::NameOf(const std::string& number, const std::string& node) {
  static const std::string here = ThisHost();
  if (!isLoaded_ && node != here) return number;
  const auto [found, isNew] = names_.try_emplace(number, number);
  if (isNew && !isLoaded_) found->second = NameHere(number);
  return found->second;
}

}  // namespace ozmo::import
