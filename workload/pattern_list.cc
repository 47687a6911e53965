#include "workload/pattern_list.h"

#include "runtime/text.h"

namespace ozmo {
namespace {

// A lone "*" contains the empty text, so it matches everything.
Pattern PatternOf(std::string_view item) {
  const bool starFirst = item.starts_with('*');
  const bool starLast = item.ends_with('*');
  if (starFirst) item.remove_prefix(1);
  if (starLast && !item.empty()) item.remove_suffix(1);
  const PatternForm form = starFirst && starLast ? PatternForm::CONTAINS
                           : starLast            ? PatternForm::STARTS
                           : starFirst           ? PatternForm::ENDS
                                                 : PatternForm::EQUALS;
  return {form, std::string(item)};
}

std::string_view DropExtension(std::string_view item) {
  const bool hasExtension = item.size() >= 4 && item[item.size() - 4] == '.';
  return hasExtension ? item.substr(0, item.size() - 4) : item;
}

enum class ItemResult { MATCH, NO_MATCH, GIVE_UP };

ItemResult ResultOf(bool matches) { return matches ? ItemResult::MATCH : ItemResult::NO_MATCH; }

ItemResult MatchItem(std::string_view text, PatternForm form, std::string_view item, MatchMode mode) {
  switch (form) {
    case PatternForm::CONTAINS:
      return ResultOf(SkipBlanks(text).find(item) != std::string_view::npos);
    case PatternForm::STARTS:
      return ResultOf(text.starts_with(item));
    case PatternForm::ENDS:
      if (text.size() <= item.size()) return ItemResult::GIVE_UP;
      return ResultOf(text.ends_with(item));
    case PatternForm::EQUALS:
      return ResultOf(text == (mode == MatchMode::DROP_EXTENSION ? DropExtension(item) : item));
  }
  return ItemResult::NO_MATCH;
}

}  // namespace

void PatternList::Append(std::string_view list) {
  if (items.empty() && list.empty()) return;
  while (true) {
    const size_t comma = list.find(',');
    items.push_back(PatternOf(list.substr(0, comma)));
    if (comma == std::string_view::npos) return;
    list.remove_prefix(comma + 1);
  }
}

int WorkloadMatchList(std::string_view text, const PatternList& patterns, MatchMode mode, bool ignoreCase) {
  if (patterns.items.empty()) return 1;
  std::string upperText;
  if (ignoreCase) text = upperText = UpperText(text);
  for (const Pattern& pattern : patterns.items) {
    const ItemResult result = ignoreCase ? MatchItem(text, pattern.form, UpperText(pattern.text), mode)
                                         : MatchItem(text, pattern.form, pattern.text, mode);
    if (result == ItemResult::MATCH) return 1;
    if (result == ItemResult::GIVE_UP) return 0;
  }
  return 0;
}

}  // namespace ozmo
