#include "runtime/library_path.h"

#include <cstdlib>

#include "runtime/runtime.h"

namespace ozmo {
namespace {

constexpr const char* DEFAULT_ROOT = OZMO_LIBRARY_DIRECTORY;  // as configured for the installation

std::string WithSlash(std::string directory) {
  if (!directory.ends_with('/')) directory += '/';
  return directory;
}

std::string FindRoot(const std::string& variable) {
  const char* value = std::getenv(variable.c_str());
  if (value == nullptr) return DEFAULT_ROOT;
  std::string root = value;
  if (root.size() > 1 && root.ends_with('/')) root.pop_back();
  return root;
}

}  // namespace

std::string LibraryDirectory(Runtime& runtime, std::string_view kind) {
  LibraryDirectoryCache& cache = runtime.library;
  const std::string variable = runtime.identity.upperPrefix + "LIBRARY";
  if (const char* value = std::getenv(variable.c_str())) {
    if (!cache.fromVariable) cache.fromVariable = WithSlash(value);
    return *cache.fromVariable;
  }
  if (!cache.root) cache.root = FindRoot(kind == "nabber" ? "NABBER_LIBRARY" : "VELTRIX_LIBRARY");
  return *cache.root + "/";
}

std::optional<std::string> LibraryPathGet(Runtime& runtime) {
  std::string directory = LibraryDirectory(runtime, "veltrix");
  if (directory.empty()) return std::nullopt;
  return directory;
}

}  // namespace ozmo
