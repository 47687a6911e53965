// What a pass over a file comes to, or a step of it, and what a reader gives for the next interval.
#pragma once

namespace ozmo {

enum class [[nodiscard]] ReaderResult{
    DONE = 1,     // and the work goes on
    NOTHING = 0,  // the window is over
    END_OF_FILE = -1,
    UNSUPPORTED_VERSION = -1201,
    NO_OPEN = -1202,
    NO_READ = -1203,
    BASIC_DATA = -1205,      // version, node name or first time stamp is missing
    OUTSIDE_WINDOW = -1206,  // the file ends before the window or begins after it
};

}  // namespace ozmo
