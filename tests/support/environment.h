// Settings of the process that a test changes and that are back as they were after it.
#pragma once

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>

namespace ozmo::testing {

// An environment variable set, or unset where there is no value.
class ScopedVariable {
 public:
  ScopedVariable(const std::string& name, const std::optional<std::string>& value) : name_(name) {
    if (const char* before = std::getenv(name.c_str())) before_ = before;
    Set(value);
  }
  ~ScopedVariable() { Set(before_); }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  void Set(const std::optional<std::string>& value) {
    if (value) {
      setenv(name_.c_str(), value->c_str(), 1);
    } else {
      unsetenv(name_.c_str());
    }
  }

  std::string name_;
  std::optional<std::string> before_;
};

class ScopedDirectory {
 public:
  explicit ScopedDirectory(const std::string& path) : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(path);
  }
  ~ScopedDirectory() { std::filesystem::current_path(before_); }
  ScopedDirectory(const ScopedDirectory&) = delete;
  ScopedDirectory& operator=(const ScopedDirectory&) = delete;

 private:
  std::filesystem::path before_;
};

}  // namespace ozmo::testing
