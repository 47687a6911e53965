#include "programs/fleet/kept.h"

#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>

#include "programs/report/summary_text.h"
#include "runtime/identity.h"
#include "runtime/whole_file.h"

namespace ozmo::fleet {
namespace {

std::string FileName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

}  // namespace

std::string StampOf(const DataFiles& data) {
  const char* zone = std::getenv("TZ");
  std::string stamp = "# made by " + ProductIdentityInit().versionText + " in " +
                      report::EscapedName(zone != nullptr ? zone : "the local zone") + " from " +
                      report::EscapedName(data.path);
  for (const std::string& file : data.files) {
    struct stat status = {};
    stat(file.c_str(), &status);
    stamp += ", " + std::to_string(status.st_size) + " bytes of " + std::to_string(status.st_mtim.tv_sec) +
             '.' + std::to_string(status.st_mtim.tv_nsec);
  }
  return stamp;
}

std::optional<report::Summary> ReadKept(const std::string& path, const std::string& stamp) {
  std::ifstream stream(path, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (!text.ends_with('\n' + stamp + '\n')) return std::nullopt;
  report::SummariesResult read = report::ReadSummaries(text);
  if (!read.wrong.empty() || read.summaries.size() != 1) return std::nullopt;
  return std::move(read.summaries.front());
}

std::string WriteKept(const std::string& path, const std::string& stamp, const std::string& summaryText) {
  return WriteWholeFile({.path = path, .links = LinkRule::REPLACE}, summaryText + stamp + '\n');
}

std::vector<std::string> KeptNames(const std::vector<DataFiles>& data) {
  std::map<std::string, int> uses;
  for (const DataFiles& files : data) ++uses[FileName(files.path)];
  std::vector<std::string> names;
  for (const DataFiles& files : data) {
    const std::string name = FileName(files.path);
    const bool isAlone = uses[name] == 1;
    names.push_back(isAlone ? name : name + '-' + std::to_string(std::hash<std::string>{}(files.path)));
  }
  return names;
}

}  // namespace ozmo::fleet
