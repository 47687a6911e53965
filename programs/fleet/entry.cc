#include "programs/fleet/entry.h"

#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <thread>

#include "programs/fleet/gather.h"
#include "programs/fleet/kept.h"
#include "programs/fleet/options.h"
#include "programs/fleet/page.h"
#include "programs/report/page.h"
#include "runtime/console.h"
#include "runtime/identity.h"
#include "runtime/output_directory.h"
#include "runtime/terminal_text.h"
#include "runtime/whole_file.h"

namespace ozmo::fleet {
namespace {

constexpr int OVER_LIMIT_STATUS = 3;

void Say(const std::string& text) { Complain("ozmo_fleet", text); }

std::string FilesText(size_t files) { return report::CountText(static_cast<int>(files), "data file"); }

std::string DaysText(size_t days) {
  return report::CountText(static_cast<int>(days), "day") + (days == 1 ? " of a host" : " of hosts");
}

// Shows how far the work has come and how long the rest will take, on a terminal only.
class Progress {
 public:
  ~Progress() {
    if (isBegun_) std::fputs("\r\033[K", stderr);
  }
  void Show(size_t done, size_t all) {
    if (isatty(STDERR_FILENO) != 1) return;
    isBegun_ = true;
    std::fprintf(stderr, "\r\033[K%zu of %s%s ", done, FilesText(all).c_str(), Left(done, all).c_str());
  }

 private:
  using Clock = std::chrono::steady_clock;

  std::string Left(size_t done, size_t all) const {
    if (done == 0 || done == all) return "";
    const std::chrono::duration<double> passed = Clock::now() - start_;
    const double seconds = passed.count() / static_cast<double>(done) * static_cast<double>(all - done);
    char text[64];
    std::snprintf(text, sizeof text, ", %.0f %s left", seconds < 100 ? seconds : seconds / 60,
                  seconds < 100 ? "s" : "min");
    return text;
  }

  Clock::time_point start_ = Clock::now();
  bool isBegun_ = false;
};

std::vector<FileIdentity> FilesOf(const Inputs& inputs) {
  std::vector<FileIdentity> files;
  const auto note = [&](const std::string& path) {
    if (const std::optional<FileIdentity> file = IdentityOf(path)) files.push_back(*file);
  };
  for (const DataFiles& data : inputs.data) std::ranges::for_each(data.files, note);
  std::ranges::for_each(inputs.summaries, note, &SummaryFile::path);
  return files;
}

// A terminal and /dev/null take both.
bool AreTheSame(const std::string& page, const std::string& table) {
  namespace fs = std::filesystem;
  std::error_code unknown;
  const auto place = [&](const std::string& path) {
    return fs::weakly_canonical(fs::absolute(path, unknown), unknown);
  };
  return !table.empty() && !fs::is_character_file(page, unknown) && place(page) == place(table);
}

// Makes the directories that the run needs, and looks at where its files go; returns what is wrong with that.
std::string PrepareOutput(const Options& options, const GatherRequest& request,
                          const std::vector<FileIdentity>& inputs) {
  if (AreTheSame(options.pageFile, options.tableFile)) {
    return options.pageFile + ": can't be the page and the table";
  }
  for (const std::string& file : {options.pageFile, options.tableFile}) {
    if (std::string failure = CheckDirectoryOf(file); !failure.empty()) return failure;
    const std::optional<FileIdentity> there = IdentityOf(file);
    if (there && std::ranges::find(inputs, *there) != inputs.end()) {
      return file + " is read by this run and can't be its output file";
    }
  }
  for (const std::string& directory : {request.keptDirectory, request.pagesDirectory}) {
    if (directory.empty()) continue;
    if (std::string failure = MakeOutputDirectory(directory); !failure.empty()) return failure;
  }
  return "";
}

Fleet GatherAll(const Inputs& inputs, GatherRequest request) {
  Progress progress;
  request.progress = [&](size_t done, size_t all) { progress.Show(done, all); };
  return Gather(inputs, request);
}

// Beside a page that is a device or a pipe nothing is kept.
std::string KeptDirectory(const std::string& pageFile) {
  std::error_code unknown;
  const std::filesystem::path page = pageFile;
  if (std::filesystem::exists(page, unknown) && !std::filesystem::is_regular_file(page, unknown)) return "";
  return std::filesystem::path(page).replace_extension(KEPT_ENDING).string();
}

// Whether what is written to `path` is what a pipe or file gets as the output of this program.
bool IsStandardOutput(const std::string& path) {
  struct stat output = {};
  struct stat file = {};
  return fstat(STDOUT_FILENO, &output) == 0 && stat(path.c_str(), &file) == 0 && !S_ISCHR(output.st_mode) &&
         output.st_dev == file.st_dev && output.st_ino == file.st_ino;
}

// Writes the page, and the table where it is asked for; returns what went wrong.
std::string WriteFiles(const Options& options, const std::vector<FileIdentity>& read, const Fleet& fleet) {
  if (!options.tableFile.empty()) {
    std::string failure = WriteWholeFile({.path = options.tableFile, .inputs = read}, TableText(fleet.hosts));
    if (!failure.empty()) return failure;
  }
  const std::string page = PageOf(fleet.hosts, fleet.problems, options.pageFile,
                                  "ozmo_fleet " + ProductIdentityInit().versionText);
  std::string failure = WriteWholeFile({.path = options.pageFile, .inputs = read}, page);
  if (!failure.empty()) return failure;
  const bool isTaken = IsStandardOutput(options.pageFile) || IsStandardOutput(options.tableFile);
  std::fprintf(isTaken ? stderr : stdout, "%s: %s, %zu new of %s, %s\n",
               PrintableText(options.pageFile).c_str(), DaysText(fleet.hosts.size()).c_str(), fleet.workedOut,
               FilesText(fleet.workedOut + fleet.kept).c_str(), report::SizeText(page.size()).c_str());
  return "";
}

// Returns whether nobody is over a limit.
bool HoldLimits(const std::vector<Limit>& limits, const std::vector<Host>& hosts) {
  bool isHeld = true;
  for (const Limit& limit : limits) {
    for (const Host& host : hosts) {
      for (const std::string& line : LinesOver(limit, host.summary)) {
        Say(line);
        isHeld = false;
      }
    }
  }
  return isHeld;
}

int Show(const Options& options) {
  const GatherRequest request{
      .keptDirectory = KeptDirectory(options.pageFile),
      .pagesDirectory = options.pagesDirectory,
      .jobs = options.jobs > 0 ? options.jobs
                               : std::max(1, static_cast<int>(std::thread::hardware_concurrency())),
      .progress = {}};
  const Inputs inputs = FindInputs(options.inputs);
  const std::vector<FileIdentity> files = FilesOf(inputs);
  if (std::string failure = PrepareOutput(options, request, files); !failure.empty()) {
    Say(failure);
    return FAILED_STATUS;
  }
  Fleet fleet = GatherAll(inputs, request);
  fleet.problems.insert(fleet.problems.begin(), inputs.problems.begin(), inputs.problems.end());
  for (const std::string& note : fleet.notes) Say(note);
  for (const std::string& problem : fleet.problems) Say(problem);
  if (inputs.steppedOver > 0)
    Say(report::CountText(inputs.steppedOver, "file") + " stepped over: no data by name");
  if (fleet.hosts.empty()) {
    Say("no host in what was given: the page is left as it was");
    return FAILED_STATUS;
  }
  const std::string failure = WriteFiles(options, files, fleet);
  if (!failure.empty()) Say(failure);
  if (!HoldLimits(options.limits, fleet.hosts)) return OVER_LIMIT_STATUS;
  return failure.empty() && fleet.problems.empty() ? DONE_STATUS : FAILED_STATUS;
}

}  // namespace

int FleetEntry(int argc, char* const argv[]) {
  const ParsedOptions parsed = ParseOptions(argc, argv);
  if (!parsed.failure.empty()) {
    Say(parsed.failure);
    std::fputs("ozmo_fleet --help says more\n", stderr);
    return USAGE_STATUS;
  }
  switch (parsed.options.action) {
    case Action::HELP:
      std::fputs(HelpText().c_str(), stdout);
      return DONE_STATUS;
    case Action::VERSION:
      std::printf("ozmo_fleet %s\n", ProductIdentityInit().versionText.c_str());
      return DONE_STATUS;
    case Action::SHOW:
      break;
  }
  return Show(parsed.options);
}

}  // namespace ozmo::fleet
