// Where a run ends when storage can't be had: five more tries, the message NOALLOC with the size, and the
// exit status of MemAttach. Global operator new takes this way too, so no container can fail differently.
#pragma once

#include <cstdint>

namespace ozmo {

struct Runtime;

// Names the runtime through which a failed allocation is reported, until MemDetach, and the status that the
// process ends with then. Without a runtime the report is a plain line on standard error, and the status 1.
void MemAttach(Runtime& runtime, int exitStatus = 0);
void MemDetach();

// Issues NOALLOC with `size`, shown in 32 bits, and ends the process. For storage that a request
// can't reasonably have (a negative size, a catalog beyond its limit) this is called without trying.
[[noreturn]] void MemFail(int64_t size);

}  // namespace ozmo
