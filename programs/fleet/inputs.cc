#include "programs/fleet/inputs.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string_view>

#include "programs/fleet/kept.h"
#include "programs/import/import.h"
#include "programs/report/summary_text.h"
#include "readers/file_kind.h"
#include "readers/file_set.h"
#include "runtime/text.h"

namespace ozmo::fleet {
namespace {

namespace fs = std::filesystem;

bool IsLetter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }

// "_2012Feb22", as a collector and a monitor put into the names of a day's files.
bool IsDate(std::string_view text) {
  constexpr std::string_view FORM = "_9999AAA99";
  if (text.size() < FORM.size()) return false;
  for (size_t i = 0; i < FORM.size(); ++i) {
    const bool fits = FORM[i] == '9'   ? IsDigit(text[i])
                      : FORM[i] == 'A' ? IsLetter(text[i])
                                       : FORM[i] == text[i];
    if (!fits) return false;
  }
  return true;
}

bool HasDate(std::string_view text) {
  for (size_t place = 0; place < text.size(); ++place) {
    if (IsDate(text.substr(place))) return true;
  }
  return false;
}

// A file of a day: what its path has in common with the day's others, and its number among them.
struct DayName {
  std::string common;
  int number = 0;
};

std::optional<DayName> DayNameOf(const std::string& path) {
  std::string plain = WithoutCompressedEnding(path);
  if (IsVmrName(plain)) plain.resize(plain.rfind('.'));
  const size_t last = plain.find_last_not_of("0123456789");
  const size_t digits = last == std::string::npos ? 0 : plain.size() - last - 1;
  if (digits == 0 || digits > 6) return std::nullopt;
  DayName name{plain.substr(0, last + 1), std::stoi(plain.substr(last + 1))};
  const size_t slash = name.common.rfind('/');
  const std::string_view file =
      std::string_view(name.common).substr(slash == std::string::npos ? 0 : slash + 1);
  // After the date comes "_" or ".dat_" at least.
  return file.size() > 1 && HasDate(file.substr(0, file.size() - 1)) ? std::optional(name) : std::nullopt;
}

// All there is to come.
std::string TextOf(const std::string& pipe) {
  std::ifstream stream(pipe, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

bool BeginsAsSummary(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  std::string begin(report::SUMMARY_MARK.size(), '\0');
  stream.read(begin.data(), static_cast<std::streamsize>(begin.size()));
  return stream && begin == report::SUMMARY_MARK;
}

class InputList {
 public:
  void Take(const std::string& path) {
    std::error_code error;
    if (fs::is_directory(path, error)) return TakeDirectory(path);
    if (access(path.c_str(), R_OK) != 0 && access(DataFilePath(path).c_str(), R_OK) != 0) {
      return inputs_.problems.push_back(path + ": " + std::strerror(errno));
    }
    if (fs::is_fifo(path, error)) return TakePipe(path);
    if (BeginsAsSummary(path)) return TakeSummary(path);
    const std::optional<DayName> name = DayNameOf(path);
    if (!name) return TakeRecording(path);
    // The day's other files are beside it.
    const std::string directory = DirectoryOf(path);
    ListOnce(directory.empty() && !path.starts_with('/') ? "."
             : directory.empty()                         ? "/"
                                                         : directory,
             name->common);
    TakeData(name->common, path, name->number);
  }

  Inputs Finish() {
    for (const auto& [common, numbers] : days_) {
      DataFiles files{.path = numbers.begin()->second, .files = {}};
      for (const auto& [number, path] : numbers) files.files.push_back(path);
      inputs_.data.push_back(std::move(files));
    }
    return std::move(inputs_);
  }

 private:
  void TakeSummary(const std::string& path) {
    if (seen_.insert(path).second) inputs_.summaries.push_back({path, std::nullopt});
  }
  void TakePipe(const std::string& path) {
    if (!seen_.insert(path).second) return;
    std::string text = TextOf(path);
    if (!text.starts_with(report::SUMMARY_MARK)) {
      return inputs_.problems.push_back(path + ": no summary, and data files aren't read from a pipe");
    }
    inputs_.summaries.push_back({path, std::move(text)});
  }
  void TakeData(const std::string& common, const std::string& path, int number) {
    days_[common].emplace(number, path);
  }

  // A file that belongs to no day by its name. Other programs' recordings may have several.
  void TakeRecording(const std::string& path) {
    if (!seen_.insert(path).second) return;
    const std::string recording = import::RecordingOf(path);
    TakeData(recording, path, static_cast<int>(days_[recording].size()));
  }

  // The files of one directory by day; each directory is read once, however many of its files are inputs.
  void ListOnce(const std::string& directory, const std::string& common) {
    auto [listed, isNew] = directories_.try_emplace(directory);
    if (isNew) {
      const std::string prefix =
          common.find('/') == std::string::npos ? "" : common.substr(0, common.rfind('/') + 1);
      for (const std::string& file : ListDirectory(directory)) {
        if (const std::optional<DayName> name = DayNameOf(prefix + file)) {
          listed->second[name->common].emplace(name->number, prefix + file);
        }
      }
    }
    for (const auto& [number, path] : listed->second[common]) TakeData(common, path, number);
  }

  void TakeDirectory(const std::string& directory) {
    std::error_code error;
    fs::recursive_directory_iterator entries(directory, error);
    if (error) return inputs_.problems.push_back(directory + ": " + error.message());
    std::vector<std::string> paths;
    while (entries != fs::recursive_directory_iterator()) {
      const std::string name = entries->path().filename().string();
      std::error_code unknown;
      if (entries->is_directory(unknown)) {
        if (name.starts_with('.') || name.ends_with(KEPT_ENDING)) entries.disable_recursion_pending();
      } else if (!name.starts_with('.') && entries->is_regular_file(unknown)) {
        paths.push_back(entries->path().string());
      }
      const std::string where = entries->path().string();
      entries.increment(error);
      if (error) {
        inputs_.problems.push_back(where + ": " + error.message());
        break;
      }
    }
    std::ranges::sort(paths);
    for (const std::string& path : paths) TakeFound(path);
  }

  void TakeFound(const std::string& path) {
    if (const std::optional<DayName> name = DayNameOf(path)) {
      TakeData(name->common, path, name->number);
    } else if (IsVmrName(path)) {
      TakeData(path, path, 0);
    } else if (import::IsForeignRecording(path)) {
      TakeRecording(path);
    } else if (BeginsAsSummary(path)) {
      TakeSummary(path);
    } else {
      ++inputs_.steppedOver;
    }
  }

  Inputs inputs_;
  std::set<std::string> seen_;
  std::map<std::string, std::map<int, std::string>> days_;  // by what a day's paths have in common, by number
  std::map<std::string, std::map<std::string, std::map<int, std::string>>> directories_;
};

}  // namespace

Inputs FindInputs(const std::vector<std::string>& paths) {
  InputList list;
  for (const std::string& path : paths) list.Take(path);
  return list.Finish();
}

}  // namespace ozmo::fleet
