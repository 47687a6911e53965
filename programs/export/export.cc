#include "programs/export/export.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "programs/export/processes.h"
#include "programs/import/import.h"
#include "programs/report/foreign.h"
#include "programs/report/quiet_reading.h"
#include "readers/file_set.h"
#include "runtime/console.h"
#include "runtime/output_directory.h"
#include "runtime/text.h"
#include "runtime/whole_file.h"

namespace ozmo::exporting {
namespace {

// As the partition of a table that has none has it.
constexpr std::string_view NO_NAME = "__HIVE_DEFAULT_PARTITION__";

// One day of a host on its way into its files.
class DayExport {
 public:
  DayExport(const Options& options, const std::string& path, Runtime& runtime)
      : format_(*options.format), output_(options.directory), path_(path), runtime_(runtime) {}

  // Returns what went wrong, as all that follow. `claim` returns why the day's partition can't be had.
  std::string Write(const std::function<std::string(const std::string& partition)>& claim) {
    report::DayRequest request{.dataFile = path_};
    request.begun = [&](const report::DataDay& day) {
      std::string failure = claim(PartitionOf(day.begin, day.node));
      return failure.empty() ? Begin(day) : failure;
    };
    if (format_.hasProcesses) {
      request.processes = [&](const Minute& minute, const SystemConfig& config, const ProcessRecord& process,
                              double percent) {
        const Seconds time = minute.catalog.spanStart + minute.point * SECONDS_PER_MINUTE;
        processes_->Write(time, config, process, percent);
      };
    }
    const report::DayResult read = report::ReadDay(request, runtime_);
    std::string failure = read.day ? WriteItems(*read.day) : read.failure;
    if (!failure.empty()) RemoveEmpty();
    return failure;
  }

  // What the files that were written lack, as a line; empty where they lack nothing.
  const std::string& leftOut() const { return leftOut_; }

 private:
  WholeFilePlace PlaceOf(std::string_view name) const {
    return {.path = (directory_ / name).string(), .links = LinkRule::REPLACE, .inputs = runtime_.inputs};
  }

  // What has to be there before the walk.
  std::string Begin(const report::DataDay& day) {
    directory_ = output_ / PartitionOf(day.begin, day.node);
    std::error_code error;
    std::filesystem::create_directories(directory_, error);
    if (error) return directory_.string() + ": " + error.message();
    if (!format_.hasProcesses) return "";
    std::string failure = processFile_.emplace().Open(PlaceOf("processes.csv"));
    if (failure.empty()) processes_.emplace(processFile_->stream(), KindOf(), day.node);
    return failure;
  }

  std::string WriteItems(const report::DataDay& day) {
    const KindRow& kind = RowOf(KindOf());
    const ExportedDay exported{.day = day,
                               .kind = kind,
                               .traces = TracesOf(*day.catalog, kind.word),
                               .points = PointsOf(*day.catalog)};
    WholeFile itemFile;
    if (std::string failure = itemFile.Open(PlaceOf(format_.itemFile)); !failure.empty()) return failure;
    const std::string leftOut = format_.write(itemFile.stream(), exported);
    if (std::string failure = processFile_ ? processFile_->Commit() : ""; !failure.empty()) return failure;
    if (std::string failure = itemFile.Commit(); !failure.empty()) return failure;
    if (!leftOut.empty()) leftOut_ = path_ + ": " + leftOut;
    return "";
  }

  ReaderKind KindOf() const { return ReaderKindOf(report::WithDirectory(path_)); }

  // What was made for nothing goes; a directory with something in it stays.
  void RemoveEmpty() {
    if (directory_.empty()) return;
    processFile_.reset();  // takes its draft away
    std::error_code error;
    if (std::filesystem::remove(directory_, error)) std::filesystem::remove(directory_.parent_path(), error);
  }

  const Format& format_;
  std::filesystem::path output_;
  std::filesystem::path directory_;
  std::string path_;
  std::string leftOut_;
  Runtime& runtime_;
  std::optional<WholeFile> processFile_;
  std::optional<ProcessTable> processes_;
};

// A file that was read with another one of its day.
bool IsReadAlready(const std::string& path, const Runtime& runtime) {
  const std::optional<FileIdentity> file = IdentityOf(DataFilePath(path));
  return file && std::ranges::find(runtime.inputs, *file) != runtime.inputs.end();
}

class Exporter {
 public:
  Exporter(const char* program, const Options& options, const std::string& scratch, Runtime& runtime)
      : program_(program), options_(options), scratch_(scratch), runtime_(runtime) {}

  ExportResult Run() {
    if (const std::string failure = MakeOutputDirectory(options_.directory); !failure.empty()) {
      Fail(failure);
      return result_;
    }
    std::vector<std::string> recordings;
    for (const std::string& path : options_.dataFiles) {
      if (IsReadAlready(path, runtime_)) continue;
      if (!import::IsForeignRecording(path)) {
        ExportDay(path, path);
      } else if (recordings_.insert(import::RecordingOf(path)).second) {
        recordings.push_back(path);
      }
    }
    ExportRecordings(recordings);
    return result_;
  }

 private:
  // A day file that the user knows as `source`.
  void ExportDay(const std::string& path, const std::string& source) {
    std::string failure;
    std::string claimed;
    DayExport day(options_, path, runtime_);
    const std::vector<std::string> problems = report::RunQuietly({program_, source}, runtime_, [&] {
      failure = day.Write([&](const std::string& partition) {
        const auto [earlier, isNew] = sources_.try_emplace(partition, source);
        if (isNew) claimed = partition;
        if (isNew) return std::string();
        return std::string(source)
            .append(": ")
            .append(partition + " is exported from ")
            .append(earlier->second + " already");
      });
    });
    if (failure.empty()) {
      ++result_.days;
      failure = day.leftOut();
    } else {
      sources_.erase(claimed);  // it is free for a file that has the day
    }
    // A failure of a file that was made for this run is one of what it was made of.
    if (!failure.empty()) Fail(failure.starts_with(path) ? source + failure.substr(path.size()) : failure);
    if (!problems.empty()) result_.isWhole = false;
  }

  // The days of other programs' recordings, of which each may have a part of a day. Their files are inputs
  // for as long as they are there.
  void ExportRecordings(const std::vector<std::string>& recordings) {
    std::vector<std::pair<std::string, std::string>> days;  // file and recording
    for (const std::string& recording : import::InOrderOfTime(recordings)) {
      NoteInput(runtime_, IdentityOf(recording));
      report::ImportedFiles imported = report::ImportForeign(program_, recording, scratch_);
      if (!imported.failure.empty()) Fail(imported.failure);
      for (std::string& path : imported.paths) days.emplace_back(std::move(path), recording);
    }
    const size_t inputs = runtime_.inputs.size();
    for (const auto& [path, recording] : days) {
      if (!IsReadAlready(path, runtime_)) ExportDay(path, recording);
    }
    runtime_.inputs.resize(inputs);
  }

  void Fail(const std::string& text) {
    Complain(program_, text);
    result_.isWhole = false;
  }

  const char* program_;
  const Options& options_;
  const std::string& scratch_;
  Runtime& runtime_;
  ExportResult result_;
  std::set<std::string> recordings_;
  std::map<std::string, std::string> sources_;  // by partition
};

}  // namespace

std::string PartitionOf(Seconds day, std::string_view host) {
  constexpr std::string_view HEX = "0123456789ABCDEF";
  std::string name;
  for (const char c : host) {
    const auto byte = static_cast<unsigned char>(c);
    const char lower = LowerLetter(c);
    const bool isPlain = (lower >= 'a' && lower <= 'z') || IsDigit(c) ||
                         std::string_view("._-").find(c) != std::string_view::npos;
    if (isPlain) {
      name += c;
    } else {
      ((name += '%') += HEX[byte >> 4U]) += HEX[byte & 15U];
    }
  }
  return "day=" + TimeFormat(day, "%Y-%m-%d") + "/host=" + (name.empty() ? std::string(NO_NAME) : name);
}

ExportResult ExportFiles(const char* program, const Options& options, const std::string& scratch,
                         Runtime& runtime) {
  return Exporter(program, options, scratch, runtime).Run();
}

}  // namespace ozmo::exporting
