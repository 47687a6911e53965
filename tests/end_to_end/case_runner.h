// Works through one case of tests/cases: writes its files, runs the built tool, compares what comes of it.
#pragma once

#include <string>

namespace ozmo {

// `directory` is made anew and removed in the end; the case's files are below it.
void RunCase(const std::string& path, const std::string& directory);

}  // namespace ozmo
