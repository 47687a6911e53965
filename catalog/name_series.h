// Series of names that are first seen during the walk: images, users, disks, file systems.
//
// There may be many thousands of them, and most are seen now and then. So a series holds a value for each
// minute on which an interval fell, and not for each minute of the span, and these in pages that exist only
// where the name was seen. Its storage grows with the records of the file and with nothing else.
#pragma once

#include <array>
#include <deque>
#include <string_view>
#include <vector>

#include "catalog/model.h"
#include "catalog/name_hash.h"

namespace ozmo {

// The points on which intervals fell, numbered in the order in which they came.
class SampledPoints {
 public:
  static constexpr int NONE = -1;

  // Points from 0 to `last` are numbered; others have no number.
  explicit SampledPoints(int last = -1) : numbers_(static_cast<size_t>(last + 1), NONE) {}

  int NumberOf(int point);
  int PointOf(int number) const { return points_[static_cast<size_t>(number)]; }
  int count() const { return static_cast<int>(points_.size()); }
  // Whether the numbers are in the order of their points: time went forward all the way.
  bool IsAscending() const { return isAscending_; }

 private:
  std::vector<int> numbers_;  // by point
  std::vector<int> points_;   // by number
  bool isAscending_ = true;
};

// With what surrounds them, the values of a page take 128 bytes.
struct SeriesPage {
  static constexpr int VALUES = 28;
  int first = 0;  // number of the first value
  std::array<float, VALUES> values{};

  bool Holds(int number) const { return number >= first && number - first < VALUES; }
  float& At(int number) { return values[static_cast<size_t>(number - first)]; }
};

// Makes pages, and counts them against what the series of a catalog may take.
class SeriesPages {
 public:
  explicit SeriesPages(SeriesBudget& budget) : budget_(&budget) {}
  // The page that holds a number.
  SeriesPage& Make(int number);

 private:
  SeriesBudget* budget_;
  std::deque<SeriesPage> pages_;  // addresses are stable
};

struct Sample {
  int point = 0;
  float value = 0.0F;
};
using Samples = std::vector<Sample>;

class NameSeries {
 public:
  // Adds to the value at a numbered point, which counts as 0 while it is missing.
  void Feed(SeriesPages& pages, int number, float value) {
    if (number == SampledPoints::NONE) return;
    // Nearly always the last page: time goes forward.
    const bool isInLast = !pages_.empty() && pages_.back()->Holds(number);
    FeedSum((isInLast ? *pages_.back() : PageOf(pages, number)).At(number), value);
  }
  // MISSING_POINT where nothing was fed.
  float At(int number) const;
  // Puts the values that aren't missing into `samples`, in the order of their points.
  void Collect(const SampledPoints& points, Samples& samples) const;

 private:
  using PageList = std::vector<SeriesPage*>;
  // The first page that doesn't end before a number.
  PageList::const_iterator PlaceOf(int number) const;
  SeriesPage& PageOf(SeriesPages& pages, int number);

  PageList pages_;  // in ascending order
};

// A name and its series, of a pass.
struct NamedSeries {
  std::string_view name;
  const NameSeries* series = nullptr;
};

// By the bytes of the names, ascending.
void SortByName(std::vector<NamedSeries>& named);

using SeriesTable = NameTable<NameSeries>;

// The series of `name`, made on first sight.
NameSeries& SeriesOf(SeriesTable& table, std::string_view name);

// All series, in ascending order of their names.
std::vector<NamedSeries> NamedOf(const SeriesTable& table);

}  // namespace ozmo
