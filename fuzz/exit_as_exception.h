// Included before every source of the tool in a fuzz build: where the tool ends its process, it throws
// instead, so that a fuzz target goes on with its next input and whatever the run held is given back on the
// way.
#pragma once

#include <cstdlib>

namespace ozmo::fuzz {

struct ExitCall {
  int status;
};

// What has to happen while the run's objects still exist.
inline void (*beforeExit)() = nullptr;

[[noreturn]] inline void ThrowExit(int status) {
  if (beforeExit != nullptr) beforeExit();
  throw ExitCall{status};
}

}  // namespace ozmo::fuzz

namespace std {
using ozmo::fuzz::ThrowExit;
}

#define exit ThrowExit
