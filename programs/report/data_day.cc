#include "programs/report/data_day.h"

#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "catalog/build_catalog.h"
#include "readers/data_reader.h"
#include "readers/file_set.h"
#include "runtime/times.h"
#include "workload/workload.h"

namespace ozmo::report {
namespace {

std::string SpanText(const DataDay& day) {
  return TimeFormat(day.begin, "%Y-%m-%d %H:%M:%S") + " to " + TimeFormat(day.end, "%Y-%m-%d %H:%M:%S");
}

// Why a file that has data shows none of the span.
std::string NoDataText(const DataDay& day, const DayRequest& request, ReaderKind kind, Seconds first) {
  const std::string text = request.dataFile + ": no data from " + SpanText(day);
  const std::string date = TimeFormat(day.begin, "%Y%b%d");
  const bool isNamed = request.dataFile.find(date) != std::string::npos;
  // The files of a collector's day are found by the day in their names.
  if (kind != ReaderKind::VMR && !isNamed && !request.begin) {
    return text + ": the day is taken from the file's name, which has no \"" + date + "\" in it";
  }
  return text + "; its first record is of " + TimeFormat(first, "%Y-%m-%d %H:%M:%S");
}

// The first second of a file's day. The first sample of a day may begin on the day before; the file has its
// own in its name.
Seconds DayOf(const std::string& path, Seconds firstRecord) {
  constexpr Seconds HALF_A_DAY = Seconds{12} * 3600;  // the clock is set by an hour at most
  const Seconds day = ClockOfDay(firstRecord, 0, 0, 0);
  const Seconds next = ClockOfDay(ClockOfDay(day, 23, 59, 59) + HALF_A_DAY, 0, 0, 0);
  const std::string name = path.substr(path.rfind('/') + 1);
  const auto isNamed = [&](Seconds date) {
    return name.find(TimeFormat(date, "%Y%b%d")) != std::string::npos;
  };
  return !isNamed(day) && isNamed(next) ? next : day;
}

// No change of the clock moves it to another day.
Seconds NoonOf(Seconds time) { return ClockOfDay(time, 12, 0, 0); }

Span SpanOf(const DayRequest& request, Seconds firstRecord) {
  if (request.like && !request.begin) {
    const Seconds apart = NoonOf(DayOf(request.dataFile, firstRecord)) - NoonOf(request.like->begin);
    const double days = static_cast<double>(apart) / SECONDS_PER_DAY;
    return DaysLater(*request.like, static_cast<int>(std::lround(days)));
  }
  const Seconds begin = request.begin.value_or(DayOf(request.dataFile, firstRecord));
  return {begin, request.end.value_or(ClockOfDay(begin, 23, 59, 59))};
}

}  // namespace

Span DaysLater(const Span& span, int days) {
  const auto later = [&](Seconds time) {
    const std::tm clock = TimeLocal(time);
    return ClockOfDay(NoonOf(time) + days * SECONDS_PER_DAY, clock.tm_hour, clock.tm_min, clock.tm_sec);
  };
  const Span moved{later(span.begin), later(span.end)};
  // Both ends may lie in the hour that the clock goes through twice.
  return moved.begin < moved.end ? moved : Span{moved.begin, moved.begin + (span.end - span.begin)};
}

std::string WithDirectory(const std::string& path) {
  return path.find('/') == std::string::npos ? "./" + path : path;
}

DayResult ReadDay(const DayRequest& request, Runtime& runtime) {
  if (access(DataFilePath(request.dataFile).c_str(), R_OK) != 0) {
    return {std::nullopt, request.dataFile + ": " + std::strerror(errno)};
  }
  std::error_code unknown;
  if (std::filesystem::is_directory(request.dataFile, unknown)) {
    return {std::nullopt, request.dataFile + ": " + std::strerror(EISDIR)};
  }
  if (std::filesystem::file_size(request.dataFile, unknown) == 0) {
    return {std::nullopt, request.dataFile + ": the file is empty"};
  }
  NoteInput(runtime, IdentityOf(DataFilePath(request.dataFile)));
  DataDay day;
  DataReader reader(WithDirectory(request.dataFile), runtime);
  day.system = RowOf(reader.kind()).system;
  const std::optional<FileHead>& head = reader.Head();
  if (!head) {
    return {std::nullopt,
            request.dataFile + ": not a " + day.system + " data file (the name gives the kind)"};
  }
  day.node = head->nodeName;
  const Span span = SpanOf(request, head->firstRecordTime);
  day.begin = span.begin;
  day.end = span.end;
  if (day.begin >= day.end) return {std::nullopt, "the span " + SpanText(day) + " ends before it begins"};

  if (request.begun) {
    if (std::string failure = request.begun(day); !failure.empty()) return {std::nullopt, std::move(failure)};
  }
  WorkloadClassList classes;
  if (!request.classFile.empty()) {
    if (access(request.classFile.c_str(), R_OK) != 0) {
      return {std::nullopt, request.classFile + ": " + std::strerror(errno)};
    }
    if (WorkloadLoad(classes, request.classFile) != 1) {
      return {std::nullopt, request.classFile + ": no workload class in this file"};
    }
    classes.classesLoaded = true;
  }
  const WantedTitles titles = request.views ? WantedTitles::AllAndViews() : WantedTitles::All();
  day.catalog = BuildCatalog(reader, {day.begin, day.end}, classes, titles, runtime, request.processes);
  if (day.catalog->extent.intervals == 0) {
    return {std::nullopt, NoDataText(day, request, reader.kind(), head->firstRecordTime)};
  }
  return {std::move(day), ""};
}

}  // namespace ozmo::report
