// How the items of a day are written. A format is a row in formats.cc.
#pragma once

#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "programs/export/traces.h"
#include "programs/report/data_day.h"
#include "readers/file_kind.h"

namespace ozmo::exporting {

// A day of a host with what an export makes of it.
struct ExportedDay {
  const report::DataDay& day;
  const KindRow& kind;
  std::vector<Trace> traces;
  std::vector<int> points;
};

struct Format {
  std::string_view word;                                            // of --to
  std::string_view itemFile;                                        // its name below day=.../host=.../
  bool hasProcesses;                                                // in a table of its own, processes.csv
  std::string (*write)(std::FILE* stream, const ExportedDay& day);  // returns what it had to leave out
};

std::span<const Format> Formats();

// Null if there is none of that word.
const Format* FindFormat(std::string_view word);

// Gives the values of a trace, as texts, to `take` with the numbers of their points among `points`.
template <class Take>
void VisitValues(const ExportedDay& exported, const Trace& trace, Take take) {
  constexpr int DECIMALS = 2;
  std::string value;
  for (size_t i = 0; i < exported.points.size(); ++i) {
    value.clear();
    if (AppendNumber(value, ValueAt(trace, exported.points[i]), DECIMALS)) take(i, value);
  }
}

// The head and the lines of OpenMetrics text, families of metrics one after the other, as the format wants
// them; and of a table with a line a point.
std::string WriteOpenMetrics(std::FILE* stream, const ExportedDay& exported);
std::string WriteItemTable(std::FILE* stream, const ExportedDay& exported);

}  // namespace ozmo::exporting
