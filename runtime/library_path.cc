#include "runtime/library_path.h"

#include <cstdlib>

#include "runtime/runtime.h"

namespace ozmo {

std::string LibraryDirectory(Runtime& runtime) {
  const char* value = std::getenv(LIBRARY_VARIABLE);
  if (value == nullptr) return OZMO_LIBRARY_DIRECTORY "/";  // as configured for the installation
  if (!runtime.libraryDirectory) {
    runtime.libraryDirectory = value;
    if (!runtime.libraryDirectory->ends_with('/')) *runtime.libraryDirectory += '/';
  }
  return *runtime.libraryDirectory;
}

}  // namespace ozmo
