// From a data file to its catalog: the one place of this program that knows readers and builders.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "catalog/model.h"
#include "catalog/processes.h"
#include "runtime/runtime.h"
#include "runtime/times.h"

namespace ozmo::report {

struct DataDay;

struct DayRequest {
  std::string dataFile;
  std::optional<Seconds> begin{};  // absent: the first second of the day of the file's first record
  std::optional<Seconds> end{};    // absent: the last second of the day of the begin
  std::string classFile{};         // empty: the builder looks for one
  // Where begin and end are absent: the times of day of this span, from the day of the file's first record
  // on.
  std::optional<Span> like{};
  bool views = false;  // the catalog has the views, see catalog/views.h
  // Called before the walk, when host and span are known; a text that it returns is the failure.
  std::function<std::string(const DataDay&)> begun{};
  ProcessSink processes{};  // gets the processes of each interval on the way
};

// A data file over a span, every graph worked out.
struct DataDay {
  std::string system;  // whose collector wrote the file: "HP-UX"
  std::string node;
  Seconds begin = 0;
  Seconds end = 0;
  std::unique_ptr<GraphCatalog> catalog;
};

struct DayResult {
  std::optional<DataDay> day;
  std::string failure;  // why there is none
};

// The same times of day, so many days of the calendar later. It takes an hour more or less where the clock
// was set on one side only.
Span DaysLater(const Span& span, int days);

// The readers find the files of a day set by their directory, which a bare name doesn't give: it is in "./".
std::string WithDirectory(const std::string& path);

// Reads the file, and the others of its day set that the span covers, in one walk. A day has an interval at
// least.
DayResult ReadDay(const DayRequest& request, Runtime& runtime);

}  // namespace ozmo::report
