// The library directory: where the tool's own data files lie, named by the environment.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ozmo {

struct Runtime;

// What earlier look-ups found. The first value stays in force for the rest of the run.
struct LibraryDirectoryCache {
  std::optional<std::string> fromVariable;  // ends in "/"
  std::optional<std::string> root;          // used while the variable isn't set; no "/" added yet
};

// The directory by the variable VELTRIX_LIBRARY, for `kind` "nabber" by NABBER_LIBRARY as the second choice,
// else the default root. Ends in "/". Nobody looks whether it exists. No option reaches "nabber".
std::string LibraryDirectory(Runtime& runtime, std::string_view kind);

// LibraryDirectory of kind "veltrix"; absent if it comes out empty.
std::optional<std::string> LibraryPathGet(Runtime& runtime);

}  // namespace ozmo
