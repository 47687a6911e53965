// The last step of a JPEG run: libplot draws no JPEG, so the bitmap in the temporary map is compressed into
// the file of the job. The settings are libjpeg's defaults.
#pragma once

#include "output/graph_job.h"
#include "output/temp_map.h"

namespace ozmo {

// The longest side of a picture that libjpeg takes.
inline constexpr int JPEG_SIDE_MAX = 65500;

// Compresses the map into the job's file and deletes it. Returns 0. A file that can't be opened, and whatever
// libjpeg refuses, ends the process with a message and status 1; the map then stays, to be looked at.
int JpegFinish(TempMap& map, const GraphJob& job);

// Says that the temporary map can't be opened, and ends the process with status 1.
[[noreturn]] void JpegInputFail();

}  // namespace ozmo
