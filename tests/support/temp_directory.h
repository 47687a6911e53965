// A directory of its own for a test, gone at the end.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace ozmo::testing {

class TempDirectory {
 public:
  TempDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "ozmo_test_XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~TempDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempDirectory(const TempDirectory&) = delete;
  TempDirectory& operator=(const TempDirectory&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};

}  // namespace ozmo::testing
