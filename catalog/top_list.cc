#include "catalog/top_list.h"

#include <algorithm>

namespace ozmo {
namespace {

constexpr int LAST_PLACE_CHECKED = 9;  // of ten: the tenth is never compared
constexpr size_t COMMAND_BYTES = 255;
constexpr std::string_view NO_COMMAND = "<unknown>";
constexpr std::string_view WORD_SEPARATORS = " \t";

size_t PointsOf(const Series& series, int points) {
  return std::min(series.size(), static_cast<size_t>(std::max(points, 0)));
}

// Points for which all three series have a value.
size_t ScaledPoints(const Series& series, const CpuScale& scale) {
  const size_t points = PointsOf(series, scale.points);
  return std::min({points, scale.overallCpu.size(), scale.processCpuSum.size()});
}

}  // namespace

Series& NameSeriesTree::At(GraphCatalog& catalog, std::string_view name) {
  if (Series* series = Find(name)) return *series;
  return names_.emplace(std::string(name), SeriesNew(catalog)).first->second;
}

Series* NameSeriesTree::Find(std::string_view name) {
  const auto found = names_.find(name);
  return found == names_.end() ? nullptr : &found->second;
}

void TopListInsert(TopList& list, const TopEntry& entry) {
  size_t place = 0;
  int count = 1;
  while (place < list.size() && count <= LAST_PLACE_CHECKED && list[place].weight > entry.weight) {
    ++place;
    ++count;
  }
  if (count > LAST_PLACE_CHECKED) return;
  const bool atEnd = place == list.size();
  list.insert(list.begin() + static_cast<std::ptrdiff_t>(place), entry);
  if (atEnd) return;
  // The entries behind the new one move down; the list ends where the count does.
  size_t end = place + 1;
  while (end < list.size() && count <= LAST_PLACE_CHECKED) {
    ++end;
    ++count;
  }
  if (count > LAST_PLACE_CHECKED) list.resize(end);
}

float PlainSum(const Series& series, int points) {
  float sum = 0.0F;
  const size_t count = PointsOf(series, points);
  for (size_t p = 0; p < count; ++p) {
    if (series[p] != MISSING_POINT) sum += series[p];
  }
  return sum;
}

template <class Sum>
Sum NormalizedSum(const Series& series, const CpuScale& scale) {
  Sum sum = 0;
  const size_t count = ScaledPoints(series, scale);
  for (size_t p = 0; p < count; ++p) {
    if (series[p] != MISSING_POINT && scale.processCpuSum[p] > 0.0F) {
      sum += series[p] * scale.overallCpu[p] / scale.processCpuSum[p];
    }
  }
  return sum;
}

template float NormalizedSum<float>(const Series&, const CpuScale&);
template double NormalizedSum<double>(const Series&, const CpuScale&);

void NormalizeProcessSeries(Series& series, const CpuScale& scale) {
  const size_t count = ScaledPoints(series, scale);
  for (size_t p = 0; p < count; ++p) {
    const bool known = scale.overallCpu[p] != MISSING_POINT && series[p] != MISSING_POINT;
    if (known && scale.processCpuSum[p] > 0.0F) {
      series[p] = series[p] * scale.overallCpu[p] / scale.processCpuSum[p];
    }
  }
}

std::string_view TrimBlanks(std::string_view text) {
  const size_t start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(' ') - start + 1);
}

std::string ImageOfCommand(std::string_view command) {
  std::string_view text = command.substr(0, COMMAND_BYTES);
  size_t word = text.find_first_not_of(WORD_SEPARATORS);
  if (word == std::string_view::npos) {
    text = NO_COMMAND;
    word = 0;
  }
  text = text.substr(0, text.find_first_of(WORD_SEPARATORS, word));
  // Without a '/' the name starts where the command does: leading blanks are part of it.
  const size_t slash = text.rfind('/');
  if (slash != std::string_view::npos) text.remove_prefix(slash + 1);
  if (text.starts_with('-')) text.remove_prefix(1);
  return std::string(text);
}

}  // namespace ozmo
