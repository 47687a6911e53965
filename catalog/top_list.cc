#include "catalog/top_list.h"

#include <algorithm>

namespace ozmo {
namespace {

constexpr int LAST_PLACE_CHECKED = 9;  // of ten: the tenth is never compared

// Points of a scale for which all series have a value.
size_t ScaledPoints(const CpuScale& scale) {
  const size_t points = static_cast<size_t>(std::max(scale.points, 0));
  return std::min({points, scale.overallCpu.size(), scale.shareSum.size()});
}

}  // namespace

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
  // The entries after the new one move down; the list ends where the count does.
  size_t end = place + 1;
  while (end < list.size() && count <= LAST_PLACE_CHECKED) {
    ++end;
    ++count;
  }
  if (count > LAST_PLACE_CHECKED) list.resize(end);
}

float PlainSum(const Samples& samples, int points) {
  float sum = 0.0F;
  for (const Sample& sample : samples) {
    if (sample.point < points) sum += sample.value;
  }
  return sum;
}

template <class Sum>
Sum NormalizedSum(const Samples& samples, const CpuScale& scale) {
  Sum sum = 0;
  const size_t count = ScaledPoints(scale);
  for (const Sample& sample : samples) {
    const auto p = static_cast<size_t>(sample.point);
    if (p < count && scale.shareSum[p] > 0.0F) sum += sample.value * scale.overallCpu[p] / scale.shareSum[p];
  }
  return sum;
}

template float NormalizedSum<float>(const Samples&, const CpuScale&);
template double NormalizedSum<double>(const Samples&, const CpuScale&);

void NormalizeProcessSeries(Series& series, const CpuScale& scale) {
  const size_t count = std::min(ScaledPoints(scale), series.size());
  for (size_t p = 0; p < count; ++p) {
    const bool isKnown = scale.overallCpu[p] != MISSING_POINT && series[p] != MISSING_POINT;
    if (isKnown && scale.shareSum[p] > 0.0F) series[p] = series[p] * scale.overallCpu[p] / scale.shareSum[p];
  }
}

}  // namespace ozmo
