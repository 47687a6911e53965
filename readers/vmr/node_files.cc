#include "readers/vmr/node_files.h"

#include <algorithm>
#include <functional>
#include <string_view>

#include "readers/file_set.h"
#include "runtime/text.h"

namespace ozmo {
namespace {

constexpr std::string_view EXTENSION = ".vmr";

// Names to be found in a path without trying each. They are kept backwards and in order, without those that
// end in another: then the only one that can be at the end of a path is the last that isn't after the
// path.
class NamesInPath {
 public:
  explicit NamesInPath(std::vector<std::string> names) : names_(std::move(names)) {
    for (std::string& name : names_) std::reverse(name.begin(), name.end());
    std::sort(names_.begin(), names_.end());
    const auto endsInIt = [](const std::string& name, const std::string& longer) {
      return longer.starts_with(name);
    };
    names_.erase(std::unique(names_.begin(), names_.end(), endsInIt), names_.end());
  }

  bool AreAtEndOf(std::string_view path) const {
    const std::string backwards(path.rbegin(), path.rend());
    const auto next = std::upper_bound(names_.begin(), names_.end(), backwards);
    return next != names_.begin() && backwards.starts_with(*std::prev(next));
  }

  bool AreIn(std::string_view path) const {
    for (size_t size = 1; size <= path.size(); ++size) {
      if (AreAtEndOf(path.substr(0, size))) return true;
    }
    return false;
  }

 private:
  std::vector<std::string> names_;
};

bool HasExtension(const std::string& name) {
  const size_t dot = name.rfind('.');
  return dot != std::string::npos && LowerText(name.substr(dot)) == EXTENSION;
}

}  // namespace

std::vector<std::string> VmrNodeFiles(const std::string& dataPath, const std::string& nodeName, Seconds start,
                                      Seconds end) {
  const std::string directory = DirectoryOf(dataPath);
  std::vector<std::string> listed = ListDirectory(directory);
  for (std::string& name : listed) name = WithoutCompressedEnding(std::move(name));
  std::erase_if(listed, [](const std::string& name) { return !HasExtension(name); });
  const size_t mostOfADay = listed.size();
  const NamesInPath names(std::move(listed));

  const std::string series = directory + "/qtx_" + nodeName + "_";
  const bool holdsAll = names.AreIn(series);
  std::vector<std::string> files;
  for (const std::string& day : DayList(start, end, "%Y%b%d")) {
    for (size_t n = 1; n <= mostOfADay; ++n) {
      std::string path = series;
      path.append(day).append("_").append(std::to_string(n)).append(EXTENSION);
      // Names end in the extension, and after the series that is at the end of the path only.
      if (!holdsAll && !names.AreAtEndOf(path)) break;
      files.push_back(DataFilePath(path));
    }
  }
  return files;
}

}  // namespace ozmo
