// A C stream that closes itself: libplot and libjpeg want a FILE*.
#pragma once

#include <cstdio>
#include <memory>

namespace ozmo {

struct StreamCloser {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<std::FILE, StreamCloser>;

}  // namespace ozmo
