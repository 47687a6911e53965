#include "readers/file_set.h"

#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <set>

#include "readers/file_kind.h"
#include "runtime/text.h"

namespace ozmo {
namespace {

constexpr size_t SHORTEST_NAME = 10;  // names up to this length belong to no series

bool IsWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// What the files of a series have in common.
struct SeriesName {
  std::string stem;       // path up to the date
  std::string extension;  // word and separator: before the number
  std::string marker;     // "." + word + separator, as looked for in the directory
};

// The separator is the first character after the last "." that is no letter or digit. It may be "_" too;
// then the date is found by the last "_" before the ".".
std::optional<SeriesName> ParseSeriesName(const std::string& path) {
  const size_t dot = path.rfind('.');
  if (dot == std::string::npos) return std::nullopt;
  const auto word = path.begin() + static_cast<std::ptrdiff_t>(dot) + 1;
  const auto separator = std::find_if_not(word, path.end(), IsWordCharacter);
  if (separator == path.end()) return std::nullopt;
  const size_t last = path.rfind(*separator);
  SeriesName name;
  name.extension = path.substr(dot + 1, last - dot);
  const size_t underscore = path.rfind('_', dot);
  if (underscore == std::string::npos) return std::nullopt;
  name.stem = path.substr(0, underscore);
  name.marker = path.substr(dot, static_cast<size_t>(separator - path.begin()) - dot + 1);
  return name;
}

}  // namespace

std::string WithoutCompressedEnding(std::string name) {
  if (name.ends_with(COMPRESSED_ENDING)) name.resize(name.size() - COMPRESSED_ENDING.size());
  return name;
}

std::string DataFilePath(const std::string& path) {
  const auto isThere = [](const std::string& name) { return access(name.c_str(), F_OK) == 0; };
  if (isThere(path)) return path;
  std::string other = WithoutCompressedEnding(path);
  if (other.size() == path.size()) other += COMPRESSED_ENDING;
  return isThere(other) ? other : path;
}

std::string DirectoryOf(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

std::vector<std::string> ListDirectory(const std::string& directory) {
  std::vector<std::string> names;
  if (directory.empty()) return names;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(directory.c_str()), closedir);
  if (!stream) return names;
  while (const dirent* entry = readdir(stream.get())) {
    std::string name = entry->d_name;
    if (name.size() > SHORTEST_NAME) names.push_back(std::move(name));
  }
  return names;
}

std::vector<std::string> ReaderFileSet(const std::string& dataPath, Seconds start, Seconds end) {
  std::vector<std::string> files;
  const std::optional<SeriesName> series = ParseSeriesName(WithoutCompressedEnding(dataPath));
  if (!series) return files;

  const std::string directory = DirectoryOf(dataPath);
  const std::string prefix = directory + "/";
  const std::string marker = LowerText(series->marker);
  std::set<std::string> listed;
  for (const std::string& name : ListDirectory(directory)) {
    const std::string plain = WithoutCompressedEnding(name);
    const size_t dot = plain.rfind('.');
    if (dot == std::string::npos) continue;
    if (LowerText(plain.substr(dot)).find(marker) != std::string::npos) listed.insert(prefix + name);
  }
  if (listed.empty()) return files;

  for (const std::string& day : DayFileNames(series->stem, series->extension, start, end)) {
    for (int n = 1;; ++n) {
      std::string file = day + std::to_string(n);
      if (!listed.contains(file)) file += COMPRESSED_ENDING;
      if (!listed.contains(file)) break;
      files.push_back(std::move(file));
    }
  }
  return files;
}

}  // namespace ozmo
