#include "programs/record/notices.h"

#include <cstdio>

namespace ozmo::record {

void PrintError(const std::string& text) { std::fprintf(stderr, "ozmo_record: %s\n", text.c_str()); }

void Notices::SayOnce(const std::string& text) {
  if (said_.insert(text).second) PrintError(text);
}

}  // namespace ozmo::record
