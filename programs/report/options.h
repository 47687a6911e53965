// The command line of ozmo_report.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "programs/report/graph_files.h"
#include "runtime/times.h"

namespace ozmo::report {

enum class Action { REPORT, HELP, VERSION };

struct Options {
  Action action = Action::REPORT;
  std::string dataFile;
  // What is read in the place of the file and the baseline, where they are other programs' recordings.
  std::string importedFile;
  std::string importedBaseline;
  std::string baselineFailure;           // why the baseline couldn't be imported
  std::vector<std::string> importNotes;  // what the import has said
  std::optional<Seconds> begin;
  std::optional<Seconds> end;
  std::vector<std::string> items;  // titles; none: all
  std::string classFile;           // empty: what the working directory has
  std::string baseline;            // a data file or a time back; empty: none
  std::string marksFile;           // empty: none
  bool list = false;
  bool summary = false;
  std::string summaryFile;       // empty: standard output
  std::string csvDirectory;      // empty: no CSV files
  std::string pictureDirectory;  // empty: no pictures
  PictureForm picture;
  std::string pageFile;  // empty: see WritesPage
  const std::string& ReadPath() const { return importedFile.empty() ? dataFile : importedFile; }
  const std::string& BaselinePath() const { return importedBaseline.empty() ? baseline : importedBaseline; }
  // As the user knows a path that is read.
  const std::string& NameOf(const std::string& path) const {
    if (path == ReadPath()) return dataFile;
    return path == importedBaseline ? baseline : path;
  }
  // Standard output is a summary, and nothing else is said there.
  bool PrintsSummary() const { return summary && summaryFile.empty(); }
  bool WritesPage() const {
    return !pageFile.empty() || (!list && !summary && csvDirectory.empty() && pictureDirectory.empty());
  }
};

struct ParsedOptions {
  Options options;
  std::string failure;  // what is wrong with the command line; empty when nothing is
};

// Takes the words after the program's name. Options and the file may come in any order.
ParsedOptions ParseOptions(int argc, char* const argv[]);

// What a time without a clock means.
enum class DayEdge { BEGIN, END };

// Local time of a text: as TimeOf in runtime/times.h, or 2012-02-22, which is the first or the last second of
// the day. Absent for any other text and for a day that isn't in the calendar.
std::optional<Seconds> TimeOf(const std::string& text, DayEdge edge);

// The text of --help.
std::string HelpText();

}  // namespace ozmo::report
