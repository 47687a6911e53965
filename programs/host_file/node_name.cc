#include "programs/host_file/node_name.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "readers/file_kind.h"
#include "runtime/terminal_text.h"

namespace ozmo::host_file {

std::string CheckNode(const std::string& node) {
  constexpr size_t LONGEST = 64;
  if (node.empty()) return "the host has no name; --node gives one";
  if (PrintableText(node) != node) return "node name has a control character";
  if (node.size() > LONGEST) return "node name " + node + " has more than 64 bytes";
  if (node.find('/') != std::string::npos) {
    return "node name " + node + " has a slash, which no file name can have";
  }
  return "";
}

std::string CheckPath(const std::string& directory, const std::string& node) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(directory.c_str(), nullptr), std::free);
  for (const std::string& place : {directory, std::string(real ? real.get() : "")}) {
    const std::string path = std::string(place).append("/qtxl_").append(node);
    const KindRow& row = RowOf(ReaderKindOf(path));
    if (row.kind == ReaderKind::LINUX) continue;
    const auto* prefix = std::ranges::find_if(
        row.prefixes, [&](std::string_view text) { return path.find(text) != std::string::npos; });
    return path + " would be read as a file of " + std::string(row.system) + ", since its path has \"" +
           std::string(*prefix) + "\"";
  }
  return "";
}

}  // namespace ozmo::host_file
