// Files that are written in one go.
#pragma once

#include <string>
#include <string_view>

namespace ozmo {

// Writes `bytes` to the file at `path`. False when that can't be done whole: errno says why, and a part of a
// plain file is taken away.
[[nodiscard]] bool WriteWholeFile(const std::string& path, std::string_view bytes);

}  // namespace ozmo
