#include "fuzz/day_input.h"

#include <algorithm>
#include <charconv>

#include "fuzz/harness.h"

namespace ozmo::fuzz {
namespace {

constexpr int FARTHEST_MINUTE = 3 * 1440;  // a span of days takes time and shows nothing new

// The next decimal number of a line; 0 where there is none.
int TakeNumber(std::string_view& line) {
  const std::string_view word = CutUpTo(line, ' ');
  int number = 0;
  std::from_chars(word.data(), word.data() + word.size(), number);
  return number;
}

}  // namespace

DayInput ReadDayInput(std::string_view bytes) {
  DayInput input;
  input.item = CutUpTo(bytes, '\n');
  input.overlay = CutUpTo(bytes, '\n');
  std::string_view numbers = CutUpTo(bytes, '\n');
  input.beginMinute = std::clamp(TakeNumber(numbers), -1440, FARTHEST_MINUTE);
  input.endMinute = std::clamp(TakeNumber(numbers), -1440, FARTHEST_MINUTE);
  input.secondForm = TakeNumber(numbers) != 0;
  const auto size = static_cast<size_t>(std::max(TakeNumber(numbers), 0));
  input.files[0] = bytes.substr(0, size);
  input.files[1] = bytes.substr(std::min(size, bytes.size()));
  return input;
}

std::string WriteDayInput(const DayInput& input) {
  std::string bytes = input.item + "\n" + input.overlay + "\n" + std::to_string(input.beginMinute) + " " +
                      std::to_string(input.endMinute) + (input.secondForm ? " 1 " : " 0 ") +
                      std::to_string(input.files[0].size()) + "\n";
  bytes += input.files[0];
  bytes += input.files[1];
  return bytes;
}

}  // namespace ozmo::fuzz
