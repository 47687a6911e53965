#include "output/grapher_messages.h"

#include <cstdio>

#include "runtime/process_end.h"
#include "runtime/terminal_text.h"

namespace ozmo {

void GrapherWarn(const std::string& text) {
  std::fprintf(stderr, "graph: %s\n", TextFor(stderr, text).c_str());
}

void GrapherError(const std::string& text) { GrapherWarn("error: " + text); }

void GrapherFail(const std::string& text) {
  GrapherError(text);
  EndProcess(1);
}

}  // namespace ozmo
