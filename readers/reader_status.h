// Results of a pass over a file, and of the reader operations.
#pragma once

#include <cstdint>

namespace ozmo {

inline constexpr int READER_DONE = 1;
inline constexpr int READER_NOTHING = 0;
inline constexpr int READER_END_OF_FILE = -1;
inline constexpr int READER_UNSUPPORTED_VERSION = -1201;
inline constexpr int READER_NO_OPEN = -1202;
inline constexpr int READER_NO_READ = -1203;
inline constexpr int READER_UNSUPPORTED = -1204;
inline constexpr int READER_BASIC_DATA = -1205;
inline constexpr int READER_OUTSIDE_WINDOW = -1206;  // silent
inline constexpr int READER_NO_CONFIGURATION = -1207;

}  // namespace ozmo
