#include "runtime/option_words.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace ozmo {
namespace {

// The word that getopt was at.
std::string_view RefusedWord(int argc, char* const argv[]) {
  const std::string_view before = optind >= 1 && optind <= argc ? argv[optind - 1] : "";
  if (optind >= argc || optopt == 0) return before;
  const std::string_view current = argv[optind];
  const char letter = static_cast<char>(optopt);
  const bool isWithin = current.size() > 2 && current[0] == '-' && current[1] != '-' &&
                        current.find(letter) != std::string_view::npos;
  const bool isDone = before.size() > 1 && before[0] == '-' && before.back() == letter;
  return isWithin && !isDone ? current : before;
}

// How many letters have to be put in, taken out or changed to make one of the other.
size_t Distance(std::string_view from, std::string_view to) {
  std::vector<size_t> row(to.size() + 1);
  for (size_t place = 0; place < row.size(); ++place) row[place] = place;
  for (size_t i = 0; i < from.size(); ++i) {
    size_t diagonal = row[0];
    row[0] = i + 1;
    for (size_t j = 0; j < to.size(); ++j) {
      const size_t changed = diagonal + (from[i] == to[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({row[j + 1] + 1, row[j] + 1, changed});
    }
  }
  return row.back();
}

// The option that was meant: half of its letters may be wrong. Empty if there is none such.
std::string_view NearestOption(std::string_view word, const option* options) {
  std::string_view nearest;
  size_t least = word.size() / 2 + 1;
  for (; options->name != nullptr; ++options) {
    const size_t distance = Distance(word, options->name);
    if (distance >= least) continue;
    least = distance;
    nearest = options->name;
  }
  return nearest;
}

}  // namespace

std::string RefusedOption(int result, int argc, char* const argv[], const option* longOptions) {
  const std::string_view word = RefusedWord(argc, argv);
  if (result == ':') return std::string(word) + " takes a value";
  std::string_view name = word.substr(0, word.find('='));
  name.remove_prefix(std::min(name.find_first_not_of('-'), name.size()));
  const std::string_view nearest = NearestOption(name, longOptions);
  const std::string text = "unknown option " + std::string(word);
  return nearest.empty() ? text : text + "; did you mean --" + std::string(nearest) + "?";
}

}  // namespace ozmo
