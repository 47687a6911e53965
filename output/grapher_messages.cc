#include "output/grapher_messages.h"

#include <cstdio>
#include <cstdlib>

namespace ozmo {

void GrapherWarn(const std::string& text) { std::fprintf(stderr, "%s: %s\n", "graph", text.c_str()); }

void GrapherError(const std::string& text) { GrapherWarn("error: " + text); }

void GrapherFail(const std::string& text) {
  GrapherError(text);
  std::exit(1);
}

}  // namespace ozmo
