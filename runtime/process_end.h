// The one way in which a folder of the tool ends its process before main returns.
#pragma once

namespace ozmo {

// Ends the process as exit() does: handlers run, streams are flushed. It is an object file of its own in
// every build, so that a fuzz target can put one in its place that goes on with the next input.
[[noreturn]] void EndProcess(int status);

}  // namespace ozmo
