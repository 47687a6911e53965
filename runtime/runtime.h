// The services of one run: who we are, where our library directory lies.
//
// A Runtime is made once at the top of a run and passed by reference to whoever prints messages.
#pragma once

#include "runtime/identity.h"
#include "runtime/library_path.h"

namespace ozmo {

struct Runtime {
  ProductIdentity identity = ProductIdentityInit();
  LibraryDirectoryCache library;
};

}  // namespace ozmo
