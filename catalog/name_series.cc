#include "catalog/name_series.h"

#include <algorithm>

namespace ozmo {
namespace {

constexpr int VALUES = SeriesPage::VALUES;

bool StandsAhead(const SeriesPage* candidate, int page) { return candidate->page < page; }

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

SeriesPage& SeriesPages::Make(int page) {
  budget_->Take(1, SeriesPage::VALUES + 4);
  SeriesPage& made = pages_.emplace_back();
  made.page = page;
  made.values.fill(MISSING_POINT);
  return made;
}

void NameSeries::Feed(SeriesPages& pages, int number, float value) {
  if (number == SampledPoints::NONE) return;
  const int page = number / VALUES;
  auto place = pages_.end();
  // Nearly always the last page: time goes forward.
  if (!pages_.empty() && pages_.back()->page >= page) {
    --place;
    if ((*place)->page != page) place = std::lower_bound(pages_.begin(), pages_.end(), page, StandsAhead);
  }
  if (place == pages_.end() || (*place)->page != page) place = pages_.insert(place, &pages.Make(page));
  FeedSum((*place)->values[static_cast<size_t>(number % VALUES)], value);
}

float NameSeries::At(int number) const {
  if (number == SampledPoints::NONE) return MISSING_POINT;
  const auto place = std::lower_bound(pages_.begin(), pages_.end(), number / VALUES, StandsAhead);
  if (place == pages_.end() || (*place)->page != number / VALUES) return MISSING_POINT;
  return (*place)->values[static_cast<size_t>(number % VALUES)];
}

void NameSeries::Collect(const SampledPoints& points, Samples& samples) const {
  samples.clear();
  for (const SeriesPage* page : pages_) {
    int number = page->page * VALUES;
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
