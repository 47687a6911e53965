// A C stream that closes itself: libplot and libjpeg want a FILE*.
#pragma once

#include <unistd.h>

#include <cstdio>
#include <memory>

namespace ozmo {

struct StreamCloser {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<std::FILE, StreamCloser>;

// A stream on an open file, which it takes over; null, and the file closed, if there can be none.
inline Stream StreamOf(int file, const char* mode) {
  Stream stream(fdopen(file, mode));
  if (!stream) close(file);
  return stream;
}

}  // namespace ozmo
