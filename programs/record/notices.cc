#include "programs/record/notices.h"

#include <cstdio>

#include "programs/record/service.h"
#include "runtime/terminal_text.h"

namespace ozmo::record {

namespace {

// A priority is a number of syslog's in angle brackets.
void Print(const char* priority, const std::string& text) {
  static const bool IS_JOURNAL = LogsToJournal();
  std::fprintf(stderr, "%s%s%s\n", IS_JOURNAL ? priority : "",
               IS_JOURNAL ? "" : "ozmo_record: ", PrintableText(text).c_str());
}

}  // namespace

void PrintError(const std::string& text) { Print("<3>", text); }
void PrintWarning(const std::string& text) { Print("<4>", text); }
void PrintNotice(const std::string& text) { Print("<6>", text); }

void Notices::SayOnce(const std::string& text) {
  if (said_.insert(text).second) PrintWarning(text);
}

}  // namespace ozmo::record
