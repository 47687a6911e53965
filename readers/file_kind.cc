#include "readers/file_kind.h"

#include <string_view>

#include "readers/file_set.h"

namespace ozmo {
namespace {

struct PrefixRule {
  std::string_view prefix;  // anywhere in the path
  ReaderKind kind;
};

// Solaris has no upper-case form, and never had: QTXS_NODE.DAT is a file of no known prefix.
constexpr PrefixRule PREFIX_RULES[] = {
    {"qtxs_", ReaderKind::SOLARIS}, {"qtxsx_", ReaderKind::SOLARIS}, {"qtxh_", ReaderKind::HPUX},
    {"QTXH_", ReaderKind::HPUX},    {"qtxa_", ReaderKind::AIX},      {"QTXA_", ReaderKind::AIX},
    {"qtxl_", ReaderKind::LINUX},   {"QTXL_", ReaderKind::LINUX},
};

}  // namespace

bool IsVmrName(const std::string& path) {
  std::string_view name = path;
  if (name.ends_with(COMPRESSED_ENDING)) name.remove_suffix(COMPRESSED_ENDING.size());
  return name.ends_with(".vmr") || name.ends_with(".VMR") || name.find(".vmr;") != std::string_view::npos ||
         name.find(".VMR;") != std::string_view::npos;
}

ReaderKind ReaderKindOf(const std::string& path) {
  for (const PrefixRule& rule : PREFIX_RULES) {
    if (path.find(rule.prefix) != std::string::npos) return rule.kind;
  }
  return IsVmrName(path) ? ReaderKind::VMR : ReaderKind::TRU64;
}

}  // namespace ozmo
