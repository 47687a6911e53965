#include "catalog/name_series.h"

#include <algorithm>

namespace ozmo {
namespace {

constexpr int VALUES = SeriesPage::VALUES;

bool EndsBefore(const SeriesPage* page, int number) { return number - page->first >= VALUES; }

}  // namespace

int SampledPoints::NumberOf(int point) {
  if (point < 0 || static_cast<size_t>(point) >= numbers_.size()) return NONE;
  int& number = numbers_[static_cast<size_t>(point)];
  if (number == NONE) {
    number = count();
    if (!points_.empty() && points_.back() > point) isAscending_ = false;
    points_.push_back(point);
  }
  return number;
}

SeriesPage& SeriesPages::Make(int number) {
  budget_->Take(1, SeriesPage::VALUES + 4);
  SeriesPage& made = pages_.emplace_back();
  made.first = number - number % VALUES;
  made.values.fill(MISSING_POINT);
  return made;
}

NameSeries::PageList::const_iterator NameSeries::PlaceOf(int number) const {
  return std::lower_bound(pages_.begin(), pages_.end(), number, EndsBefore);
}

SeriesPage& NameSeries::PageOf(SeriesPages& pages, int number) {
  const auto place = PlaceOf(number);
  if (place != pages_.end() && (*place)->Holds(number)) return **place;
  return **pages_.insert(place, &pages.Make(number));
}

float NameSeries::At(int number) const {
  if (number == SampledPoints::NONE) return MISSING_POINT;
  const auto place = PlaceOf(number);
  return place != pages_.end() && (*place)->Holds(number) ? (*place)->At(number) : MISSING_POINT;
}

void NameSeries::Collect(const SampledPoints& points, Samples& samples) const {
  samples.clear();
  for (const SeriesPage* page : pages_) {
    int number = page->first;
    for (const float value : page->values) {
      if (value != MISSING_POINT) samples.push_back({points.PointOf(number), value});
      ++number;
    }
  }
  if (points.IsAscending()) return;
  std::sort(samples.begin(), samples.end(),
            [](const Sample& a, const Sample& b) { return a.point < b.point; });
}

NameSeries& SeriesOf(SeriesTable& table, std::string_view name) {
  const auto found = table.find(name);
  return found != table.end() ? found->second : table[std::string(name)];
}

std::vector<NamedSeries> NamedOf(const SeriesTable& table) {
  std::vector<NamedSeries> named;
  named.reserve(table.size());
  for (const auto& [name, series] : table) named.push_back({name, &series});
  SortByName(named);
  return named;
}

void SortByName(std::vector<NamedSeries>& named) {
  std::sort(named.begin(), named.end(),
            [](const NamedSeries& a, const NamedSeries& b) { return a.name < b.name; });
}

}  // namespace ozmo
