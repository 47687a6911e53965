#include "output/grapher_messages.h"

#include <cstdio>
#include <cstdlib>

#include "runtime/terminal_text.h"

namespace ozmo {

void GrapherWarn(const std::string& text) {
  std::fprintf(stderr, "graph: %s\n", TextFor(stderr, text).c_str());
}

void GrapherError(const std::string& text) { GrapherWarn("error: " + text); }

void GrapherFail(const std::string& text) {
  GrapherError(text);
  std::exit(1);
}

}  // namespace ozmo
