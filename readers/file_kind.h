// A data file's kind, which its path alone gives: nothing opens the file here, so a file whose name and
// content disagree goes to the wrong reader.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace ozmo {

enum class ReaderKind { SOLARIS, HPUX, AIX, LINUX, VMR, TRU64 };
inline constexpr size_t KIND_COUNT = 6;

// After the name of a data file that is compressed, by zstd.
inline constexpr std::string_view COMPRESSED_ENDING = ".zst";

// The list of kinds: what each is called, and how its files are.
struct KindRow {
  ReaderKind kind;
  std::string_view word;    // for programs and scripts: "hpux"
  std::string_view system;  // for people: "HP-UX"
  std::array<std::string_view, 2> prefixes =
      {};  // somewhere in a path; none: known by its end, or by nothing
};

// In the order of the enumeration.
std::span<const KindRow> ReaderKinds();
const KindRow& RowOf(ReaderKind kind);

// The first rule that holds wins; the directory part counts, so every file below "qtxa_archive/" is AIX.
// A path that no rule knows is a Tru64 file.
ReaderKind ReaderKindOf(const std::string& path);

// A monitor text file by name: ".vmr" or ".VMR" at the end, or before a file version (X.VMR;3). The ending
// of a compressed file doesn't count.
bool IsVmrName(const std::string& path);

}  // namespace ozmo
