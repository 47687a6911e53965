// Where a run ends when storage can't be had: five more tries, the message NOALLOC with the size, exit
// status 0. Global operator new takes this way too, so no container can fail differently.
#pragma once

#include <cstdint>

namespace ozmo {

struct Runtime;

// Names the runtime through which a failed allocation is reported, until MemDetach. Without one the report is
// a plain line on standard error.
void MemAttach(Runtime& runtime);
void MemDetach();

// Issues NOALLOC with `size`, told in 32 bits, and ends the process with status 0. For storage that a request
// can't reasonably have (a negative size, a catalog beyond its limit) this is called without trying.
[[noreturn]] void MemFail(int64_t size);

}  // namespace ozmo
