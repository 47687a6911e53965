#include "programs/sample/kinds.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "programs/sample/plant.h"
#include "runtime/whole_file.h"

namespace ozmo::sample {
namespace {

constexpr const SampleKind* KINDS[] = {&solaris_sample::KIND, &linux_sample::KIND, &aix_sample::KIND,
                                       &hpux_sample::KIND,    &tru64_sample::KIND, &vmr_sample::KIND};

SampleContext ContextOf(const SampleKind& kind, const SampleOptions& options) {
  SampleContext context{options, kind.host, options.node, options.version, 0};
  context.host.scale = options.scale;
  if (context.node.empty()) context.node = kind.host.name;
  if (!kind.versions.empty()) {
    if (context.versionText.empty()) context.versionText = kind.versions.front().text;
    context.versionBit = FindVersion(kind.versions, context.versionText)->versionBit;
  }
  return context;
}

std::string PathOf(const SampleKind& kind, const SampleContext& context, const FileOfDay& file) {
  std::string name(context.options.littleEndian ? kind.littleEndianPrefix : kind.filePrefix);
  name += context.node + "_" + FileDate(file.date);
  name.append(kind.numberMark).append(std::to_string(file.number)).append(kind.suffix);
  return (std::filesystem::path(context.options.directory) / name).string();
}

// Files of the days of `files` that are there already, those with higher numbers last.
std::vector<std::string> FilesInTheWay(const SampleKind& kind, const SampleContext& context,
                                       const std::vector<FileOfDay>& files) {
  std::vector<std::string> found;
  const auto look = [&](const FileOfDay& file) {
    std::error_code ignored;
    const std::string path = PathOf(kind, context, file);
    const bool isThere = std::filesystem::exists(std::filesystem::symlink_status(path, ignored));
    if (isThere) found.push_back(path);
    return isThere;
  };
  for (size_t i = 0; i < files.size(); ++i) {
    look(files[i]);
    if (i + 1 < files.size() && files[i + 1].date == files[i].date) continue;
    FileOfDay further = files[i];
    while (++further.number, look(further)) {
    }
  }
  return found;
}

std::string MakeRoom(const SampleKind& kind, const SampleContext& context,
                     const std::vector<FileOfDay>& files) {
  std::error_code error;
  std::filesystem::create_directories(context.options.directory, error);
  if (error) return context.options.directory + ": " + error.message();
  for (const std::string& path : FilesInTheWay(kind, context, files)) {
    if (!context.options.replace) return path + ": " + std::strerror(EEXIST) + "; --force replaces it";
  }
  return "";
}

// Takes away what an older sample has more than the new one.
std::string RemoveFurther(const SampleKind& kind, const SampleContext& context,
                          const std::vector<FileOfDay>& files, const std::vector<std::string>& written) {
  for (const std::string& path : FilesInTheWay(kind, context, files)) {
    std::error_code error;
    if (std::ranges::count(written, path) != 0) continue;
    if (!std::filesystem::remove(path, error)) return path + ": " + error.message();
  }
  return "";
}

std::string Listed(const std::vector<std::string_view>& names) {
  std::string text;
  for (const std::string_view name : names) text.append(text.empty() ? "" : ", ").append(name);
  return text;
}

}  // namespace

std::span<const SampleKind* const> SampleKinds() { return KINDS; }

const SampleKind* FindSampleKind(std::string_view name) {
  const auto found = std::ranges::find(KINDS, name, &SampleKind::name);
  return found == std::end(KINDS) ? nullptr : *found;
}

std::string CheckOptions(const SampleKind& kind, const SampleOptions& options) {
  const std::string name(kind.name);
  if (options.node.find('/') != std::string::npos) {
    return "a host name is part of a file name and holds no \"/\"";
  }
  if (!options.plant.empty() && FindPlantedChange(options.plant) == nullptr) {
    std::vector<std::string_view> changes;
    for (const PlantedChange& change : PlantedChanges()) changes.push_back(change.name);
    return "no change \"" + options.plant + "\" to plant; there are " + Listed(changes);
  }
  if (options.littleEndian && kind.littleEndianPrefix.empty()) {
    return name + " files have one byte order only";
  }
  if (kind.versions.empty()) {
    if (!options.version.empty()) return name + " files have no collector version";
    if (options.utcOffset != 0) return name + " files hold no offset from UTC";
  } else if (!options.version.empty() && FindVersion(kind.versions, options.version) == nullptr) {
    std::vector<std::string_view> versions;
    for (const VersionLayout& version : kind.versions) versions.push_back(version.text);
    return name + " has no collector version " + options.version + "; it has " + Listed(versions);
  }
  return "";
}

SampleResult WriteSample(const SampleKind& kind, const SampleOptions& options) {
  SampleResult result;
  result.error = CheckOptions(kind, options);
  if (!result.error.empty()) return result;
  const SampleContext context = ContextOf(kind, options);
  const std::vector<FileOfDay> files = CutIntoFiles(options, kind.host.second);
  result.error = MakeRoom(kind, context, files);
  for (const FileOfDay& file : files) {
    if (!result.error.empty()) break;
    const std::string path = PathOf(kind, context, file);
    result.error = WriteWholeFile({path, LinkRule::REPLACE}, kind.fileBytes(context, file));
    if (result.error.empty()) result.files.push_back(path);
  }
  if (result.error.empty() && options.replace) {
    result.error = RemoveFurther(kind, context, files, result.files);
  }
  return result;
}

}  // namespace ozmo::sample
