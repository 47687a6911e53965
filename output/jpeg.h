// The last step of a JPEG run: libplot draws no JPEG, so the bitmap in the temporary map is compressed into
// the file of the job. The settings are libjpeg's defaults.
#pragma once

#include <string>

namespace ozmo {

// Compresses the temporary map into `graphFile` and deletes it. Returns 0. A file that can't be opened, and
// whatever libjpeg refuses, ends the process with a message and status 1; the temporary map then stays.
int JpegFinish(const std::string& graphFile);

// Says that the temporary map can't be opened, and ends the process with status 1.
[[noreturn]] void JpegInputFail();

}  // namespace ozmo
