#include "programs/import/source.h"

#include "programs/import/atop.h"
#ifdef OZMO_HAS_PCP
#include "programs/import/pcp.h"
#endif
#include "programs/import/sysstat.h"

namespace ozmo::import {
namespace {

const Source* const SOURCES[] = {&ATOP, &SYSSTAT,
#ifdef OZMO_HAS_PCP
                                 &PCP
#endif
};

template <class Fits>
const Source* FindIf(Fits fits) {
  for (const Source* source : SOURCES) {
    if (fits(*source)) return source;
  }
  return nullptr;
}

}  // namespace

std::span<const Source* const> Sources() { return SOURCES; }

const Source* SourceOfRecording(std::string_view head) {
  return FindIf([&](const Source& source) { return source.isRecording(head); });
}

const Source* SourceOfText(std::string_view line) {
  return FindIf([&](const Source& source) { return source.isText != nullptr && source.isText(line); });
}

const Source* FindSource(std::string_view name) {
  return FindIf([&](const Source& source) { return source.name == name; });
}

}  // namespace ozmo::import
