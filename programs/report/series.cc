#include "programs/report/series.h"

#include <algorithm>
#include <cmath>

namespace ozmo::report {
namespace {

constexpr double LARGEST_HUNDREDTHS = 1e15;
constexpr char DIGITS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr unsigned DIGIT_BITS = 5;
constexpr uint64_t DIGIT_MASK = 31;
constexpr uint64_t MORE = 32;

void AppendNumber(std::string& text, uint64_t number) {
  do {
    const uint64_t digit = number & DIGIT_MASK;
    number >>= DIGIT_BITS;
    text += DIGITS[digit | (number != 0 ? MORE : 0)];
  } while (number != 0);
}

uint64_t ZigZag(int64_t number) {
  return static_cast<uint64_t>(number) << 1 ^ static_cast<uint64_t>(number >> 63);
}

// A float times 100 is exact in a double, so rounding it to even is what printf does with the float.
int64_t RoundedHundredths(float value) {
  if (!std::isfinite(value)) return NO_VALUE;
  const double hundredths = std::nearbyint(static_cast<double>(value) * 100.0);
  return static_cast<int64_t>(std::clamp(hundredths, -LARGEST_HUNDREDTHS, LARGEST_HUNDREDTHS));
}

}  // namespace

std::vector<int64_t> HundredthsOf(std::span<const float> values) {
  std::vector<int64_t> hundredths(values.size());
  std::transform(values.begin(), values.end(), hundredths.begin(),
                 [](float value) { return RoundedHundredths(value); });
  return hundredths;
}

TraceFigures FiguresOf(std::span<const int64_t> hundredths, int first, int last) {
  double sum = 0.0;
  int count = 0;
  int64_t peak = NO_VALUE;
  TraceFigures figures;
  for (int point = first; point <= last; ++point) {
    const int64_t value = hundredths[static_cast<size_t>(point)];
    if (value == NO_VALUE) continue;
    sum += static_cast<double>(value);
    ++count;
    if (value <= peak) continue;
    peak = value;
    figures.peakPoint = point;
  }
  if (count == 0) return figures;
  figures.mean = sum / count / 100.0;
  figures.peak = static_cast<double>(peak) / 100.0;
  return figures;
}

std::string EncodeSeries(std::span<const int64_t> hundredths) {
  std::string text;
  int64_t last = 0;
  for (size_t i = 0; i < hundredths.size();) {
    const int64_t value = hundredths[i++];
    if (value == NO_VALUE) {
      text += '!';
      continue;
    }
    AppendNumber(text, ZigZag(value - last));
    if (value == last) {
      const size_t run = i;
      while (i < hundredths.size() && hundredths[i] == value) ++i;
      AppendNumber(text, i - run);
    }
    last = value;
  }
  return text;
}

}  // namespace ozmo::report
