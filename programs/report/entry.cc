#include "programs/report/entry.h"

#include <cstdio>
#include <utility>

#include "programs/import/import.h"
#include "programs/report/baseline.h"
#include "programs/report/csv_files.h"
#include "programs/report/data_day.h"
#include "programs/report/foreign.h"
#include "programs/report/marks.h"
#include "programs/report/options.h"
#include "programs/report/page.h"
#include "programs/report/page_json.h"
#include "programs/report/quiet_reading.h"
#include "programs/report/summary_text.h"
#include "readers/file_set.h"
#include "runtime/console.h"
#include "runtime/memory.h"
#include "runtime/terminal_text.h"
#include "runtime/whole_file.h"

namespace ozmo::report {
namespace {

constexpr const char* PROGRAM = "ozmo_report";

std::string BaseName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

struct ReadResult {
  DayResult result;
  std::vector<std::string> problems;
};

// A failure of a file that was made for this run is one of what it was made of.
ReadResult Read(const Options& options, const DayRequest& request, Runtime& runtime) {
  const std::string& path = request.dataFile;
  const std::string& name = options.NameOf(path);
  ReadResult read;
  read.problems = RunQuietly({PROGRAM, name}, runtime, [&] { read.result = ReadDay(request, runtime); });
  std::string& failure = read.result.failure;
  if (failure.starts_with(path)) failure.replace(0, path.size(), name);
  return read;
}

// A line an item: its title and its traces, a tab between them. Those that -item can't name are on standard
// error, so that scripts have the items alone.
void PrintList(const std::vector<Section>& sections) {
  std::string unnamed;
  VisitItems(sections, [&](const Item& item) {
    if (!item.named) {
      unnamed += (unnamed.empty() ? "" : ", ") + PrintableText(item.heading);
      return;
    }
    std::string line = PrintableText(item.record->title);
    for (int set = 0; set < item.record->data.nsets(); ++set) {
      line += '\t' + PrintableText(item.record->Label(set).value_or(""));
    }
    std::printf("%s\n", line.c_str());
  });
  if (!unnamed.empty()) {
    std::fprintf(stderr, "%s: on the page and in --csv only, as -item can't name them: %s\n", PROGRAM,
                 unnamed.c_str());
  }
}

// What the options name beside the data file. What can't be used of it is a problem that the page shows.
struct Company {
  std::optional<Baseline> baseline;
  std::vector<Mark> marks;
};

Company CompanyOf(const Options& options, const DayRequest& request, const DataDay& day, PageData& page,
                  std::vector<std::string>& problems, Runtime& runtime) {
  Company company;
  const auto say = [&](const std::string& text) {
    Complain(PROGRAM, text);
    page.problems.push_back(text);
  };
  const auto fail = [&](const std::string& text) {
    say(text);
    problems.push_back(text);
  };
  if (!options.baselineFailure.empty()) {
    fail("no baseline: " + options.baselineFailure);
  } else if (!options.baseline.empty()) {
    const ReadResult read = Read(options, BaselineRequest(options.BaselinePath(), request, day), runtime);
    for (std::vector<std::string>* target : {&page.problems, &problems}) {
      target->insert(target->end(), read.problems.begin(), read.problems.end());
    }
    if (read.result.day) {
      company.baseline = BaselineOf(*read.result.day, page);
      if (const std::string text = CoverageText(company.baseline->data, page); !text.empty()) say(text);
    } else {
      fail("no baseline: " + read.result.failure);
    }
  }
  if (!options.marksFile.empty()) {
    MarksResult read = ReadMarks(options.marksFile);
    for (const std::string& wrong : read.wrong) fail(wrong);
    const size_t outside = DropOutside(read.marks, page);
    if (outside > 0) say(CountText(static_cast<int>(outside), "mark") + " outside the span, left out");
    company.marks = std::move(read.marks);
  }
  return company;
}

// What lies at `path` now; not said where standard output is a summary.
void SayWritten(const Options& options, const std::string& path, const std::string& what) {
  if (!options.PrintsSummary()) std::printf("%s: %s\n", PrintableText(path).c_str(), what.c_str());
}

std::string WritePage(const Options& options, const PageData& data, const Company& company,
                      const Runtime& runtime) {
  const std::string path = options.pageFile.empty() ? BaseName(options.dataFile) + ".html" : options.pageFile;
  const std::string page = PageOf(data, JsonOf(data, company.baseline, company.marks),
                                  "ozmo_report " + ProductIdentityInit().versionText);
  const WholeFilePlace place = {.path = path, .inputs = runtime.inputs, .onDisk = true};
  if (std::string failure = WriteWholeFile(place, page); !failure.empty()) return failure;
  SayWritten(options, path, CountText(data.graphs, "graph") + ", " + SizeText(page.size()));
  return "";
}

// The day's summary, into its file or on standard output; returns what went wrong.
std::string WriteSummary(const Options& options, const DataDay& day, const Runtime& runtime) {
  const Summary summary = SummaryOf(day);
  if (summary.lines.empty()) return options.dataFile + ": it has none of the figures of a summary";
  const std::string text = SummaryText(summary);
  if (options.PrintsSummary()) {
    std::fputs(text.c_str(), stdout);
    return "";
  }
  return WriteWholeFile({.path = options.summaryFile, .inputs = runtime.inputs}, text);
}

// Writes what was asked for; returns what went wrong.
std::string Write(const Options& options, const DayRequest& request, const DataDay& day,
                  const std::vector<Section>& sections, std::vector<std::string>& problems,
                  Runtime& runtime) {
  if (options.list) PrintList(sections);
  if (options.summary) {  // before anything is drawn: that changes the ends of the series
    if (std::string failure = WriteSummary(options, day, runtime); !failure.empty()) return failure;
  }
  if (!options.csvDirectory.empty()) {
    const CsvResult csv = WriteCsvFiles(options.csvDirectory, day, sections, runtime.inputs);
    if (!csv.failure.empty()) return csv.failure;
    SayWritten(options, options.csvDirectory, CountText(csv.files, "CSV file"));
  }
  if (!options.pictureDirectory.empty()) {
    const PicturesResult pictures =
        WritePictures(options.pictureDirectory, options.picture, day, sections, runtime.inputs);
    for (const std::string& failure : pictures.failures) {
      Complain(PROGRAM, failure);
      problems.push_back(failure);
    }
    SayWritten(options, options.pictureDirectory, CountText(pictures.files, "picture"));
  }
  if (!options.WritesPage()) return "";
  PageData data = PageDataOf(day, sections);
  data.file = BaseName(options.dataFile);
  data.problems = problems;
  data.notes = options.importNotes;
  if (options.importedFile.empty() && !HasProcesses(*day.catalog)) {
    data.notes.emplace_back("no process is recorded, so there are no graphs of images, users and classes");
  }
  const Company company = CompanyOf(options, request, day, data, problems, runtime);
  return WritePage(options, data, company, runtime);
}

// Returns whether all went well.
bool Report(const Options& options, Runtime& runtime) {
  const DayRequest request{.dataFile = options.ReadPath(),
                           .begin = options.begin,
                           .end = options.end,
                           .classFile = options.classFile,
                           .views = true};
  for (const std::string& path : {options.dataFile, options.baseline, options.marksFile}) {
    if (!path.empty()) NoteInput(runtime, IdentityOf(DataFilePath(path)));
  }
  ReadResult read = Read(options, request, runtime);
  if (!read.result.day) {
    if (read.problems.empty()) Complain(PROGRAM, read.result.failure);
    return false;
  }
  const DataDay& day = *read.result.day;
  std::vector<Section> sections = SectionsOf(*day.catalog);
  if (const std::optional<std::string> missing = KeepItems(sections, options.items)) {
    Complain(PROGRAM, "no item \"" + *missing + "\" in " + options.dataFile + "; --list shows the items");
    return false;
  }
  const std::string failure = Write(options, request, day, sections, read.problems, runtime);
  if (!failure.empty()) Complain(PROGRAM, failure);
  return failure.empty() && read.problems.empty();
}

int Show(const Options& options) {
  Runtime runtime;
  MemAttach(runtime, FAILED_STATUS);
  const bool done = Report(options, runtime);
  MemDetach();
  return done ? DONE_STATUS : FAILED_STATUS;
}

bool HasForeignBaseline(const Options& options) {
  return !options.baseline.empty() && !DaysBack(options.baseline) &&
         import::IsForeignRecording(options.baseline);
}

// Imports a recording into a directory of its own. Returns the paths of its days, or none after a failure.
std::vector<std::string> Import(const std::string& recording, const std::string& directory,
                                std::vector<std::string>& notes, std::string& failure) {
  ImportedFiles imported = ImportForeign(PROGRAM, recording, directory);
  notes = std::move(imported.notes);
  failure = std::move(imported.failure);
  if (failure.empty() && imported.paths.empty()) failure = recording + ": there is no sample in it";
  return failure.empty() ? std::move(imported.paths) : std::vector<std::string>();
}

// The page of other programs' recordings, under the names of these.
int ShowForeign(Options& options) {
  return RunInScratch(PROGRAM, [&](const std::string& directory) {
    if (import::IsForeignRecording(options.dataFile)) {
      std::string failure;
      const auto paths = Import(options.dataFile, directory + "/file", options.importNotes, failure);
      if (paths.empty()) {
        Complain(PROGRAM, failure);
        return FAILED_STATUS;
      }
      options.importedFile = paths.front();
      if (paths.size() > 1) {
        options.importNotes.push_back(CountText(static_cast<int>(paths.size()), "day") +
                                      " recorded, of which this is the first; --begin and --end show others");
        Complain(PROGRAM, options.importNotes.back());
      }
    }
    if (HasForeignBaseline(options)) {
      std::vector<std::string> notes;
      const auto paths = Import(options.baseline, directory + "/baseline", notes, options.baselineFailure);
      if (!paths.empty()) options.importedBaseline = paths.front();
    }
    return Show(options);
  });
}

}  // namespace

int ReportEntry(int argc, char* const argv[]) {
  ParsedOptions parsed = ParseOptions(argc, argv);
  if (!parsed.failure.empty()) {
    Complain(PROGRAM, parsed.failure);
    std::fputs("ozmo_report --help says more\n", stderr);
    return USAGE_STATUS;
  }
  switch (parsed.options.action) {
    case Action::HELP:
      std::fputs(HelpText().c_str(), stdout);
      return DONE_STATUS;
    case Action::VERSION:
      std::printf("ozmo_report %s\n", ProductIdentityInit().versionText.c_str());
      return DONE_STATUS;
    case Action::REPORT:
      break;
  }
  Options& options = parsed.options;
  return import::IsForeignRecording(options.dataFile) || HasForeignBaseline(options) ? ShowForeign(options)
                                                                                     : Show(options);
}

}  // namespace ozmo::report
