#include "programs/fleet/kept.h"

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <system_error>

#include "programs/report/summary_text.h"
#include "readers/file_set.h"
#include "runtime/identity.h"
#include "runtime/whole_file.h"

namespace ozmo::fleet {
namespace {

std::string FileName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

// The line after the stamp.
std::string PageLine(const std::string& page) {
  std::error_code unknown;
  const std::string path = std::filesystem::absolute(page, unknown).string();
  return "# with the page " + report::EscapedName(path) + '\n';
}

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

std::optional<Kept> ReadKept(const std::string& path, const std::string& stamp, const std::string& page) {
  std::ifstream stream(path, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  const size_t place = text.rfind('\n' + stamp + '\n');
  if (place == std::string::npos) return std::nullopt;
  report::SummariesResult read = report::ReadSummaries(text);
  if (!read.wrong.empty() || read.summaries.size() != 1) return std::nullopt;
  return Kept{std::move(read.summaries.front()), text.substr(place + stamp.size() + 2) == PageLine(page)};
}

std::string WriteKept(const std::string& path, const std::string& stamp, const std::string& page,
                      const std::string& summaryText) {
  return WriteWholeFile({.path = path, .links = LinkRule::REPLACE},
                        summaryText + stamp + '\n' + (page.empty() ? "" : PageLine(page)));
}

std::vector<std::string> KeptNames(const std::vector<DataFiles>& data) {
  std::map<std::string, int> nameUses;
  std::map<std::string, int> pathUses;
  for (const DataFiles& files : data) {
    const std::string plain = WithoutCompressedEnding(files.path);
    ++nameUses[FileName(plain)];
    ++pathUses[plain];
  }
  std::vector<std::string> names;
  for (const DataFiles& files : data) {
    const std::string plain = WithoutCompressedEnding(files.path);
    const std::string& mark = pathUses[plain] == 1 ? plain : files.path;
    std::string name = FileName(plain);
    if (nameUses[name] > 1) name += '-' + std::to_string(std::hash<std::string>{}(mark));
    names.push_back(std::move(name));
  }
  return names;
}

}  // namespace ozmo::fleet
