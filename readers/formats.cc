#include "readers/formats.h"

#include "runtime/ordered_rows.h"

namespace ozmo {
namespace {

struct FormatRow {
  ReaderKind kind;
  const CollectorFormat* format;
};

constexpr FormatRow FORMATS[] = {
    {ReaderKind::SOLARIS, &solaris_files::FORMAT},
    {ReaderKind::HPUX, &hpux_files::FORMAT},
    {ReaderKind::AIX, &aix_files::FORMAT},
    {ReaderKind::LINUX, &linux_files::FORMAT},
    {ReaderKind::VMR, nullptr},  // text
    {ReaderKind::TRU64, &tru64_files::FORMAT},
};

static_assert(RowsAreInOrder(FORMATS, &FormatRow::kind, KIND_COUNT));

}  // namespace

const CollectorFormat* FormatOf(ReaderKind kind) { return FORMATS[static_cast<size_t>(kind)].format; }

}  // namespace ozmo
