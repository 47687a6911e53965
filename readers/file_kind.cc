#include "readers/file_kind.h"

#include "runtime/ordered_rows.h"

namespace ozmo {
namespace {

// Solaris has no upper-case form, and never had: QTXS_NODE.DAT is a file of no known prefix.
constexpr KindRow KINDS[] = {
    {ReaderKind::SOLARIS, "solaris", "Solaris", {"qtxs_", "qtxsx_"}},
    {ReaderKind::HPUX, "hpux", "HP-UX", {"qtxh_", "QTXH_"}},
    {ReaderKind::AIX, "aix", "AIX", {"qtxa_", "QTXA_"}},
    {ReaderKind::LINUX, "linux", "Linux", {"qtxl_", "QTXL_"}},
    {ReaderKind::VMR, "vmr", "Monitor"},
    {ReaderKind::TRU64, "tru64", "Tru64"},
};

static_assert(RowsAreInOrder(KINDS, &KindRow::kind, KIND_COUNT));

}  // namespace

std::span<const KindRow> ReaderKinds() { return KINDS; }

const KindRow& RowOf(ReaderKind kind) { return KINDS[static_cast<size_t>(kind)]; }

bool IsVmrName(const std::string& path) {
  std::string_view name = path;
  if (name.ends_with(COMPRESSED_ENDING)) name.remove_suffix(COMPRESSED_ENDING.size());
  return name.ends_with(".vmr") || name.ends_with(".VMR") || name.find(".vmr;") != std::string_view::npos ||
         name.find(".VMR;") != std::string_view::npos;
}

ReaderKind ReaderKindOf(const std::string& path) {
  for (const KindRow& row : KINDS) {
    for (const std::string_view prefix : row.prefixes) {
      if (!prefix.empty() && path.find(prefix) != std::string::npos) return row.kind;
    }
  }
  return IsVmrName(path) ? ReaderKind::VMR : ReaderKind::TRU64;
}

}  // namespace ozmo
