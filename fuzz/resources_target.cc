// The resource file.
#include "fuzz/harness.h"
#include "runtime/runtime.h"
#include "runtime/user_resources.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace ozmo::fuzz;
  WriteScratch(".yxrc", TextOf(data, size));
  ozmo::Runtime runtime;
  ozmo::UserResources resources;
  ozmo::UserResourcesRead(resources, runtime, ".yxrc");
  return 0;
}
