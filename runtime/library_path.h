// The library directory: where the tool's own data files lie, named by the environment.
#pragma once

#include <string>

namespace ozmo {

struct Runtime;

// The directory by the variable VELTRIX_LIBRARY, else the default of the installation. Ends in "/". Nobody
// looks whether it exists. The first value that is found stays in force for the rest of the run.
std::string LibraryDirectory(Runtime& runtime);

}  // namespace ozmo
