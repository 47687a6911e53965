#include "catalog/graph_name.h"

#include <algorithm>

#include "runtime/text.h"

namespace ozmo {

std::string GraphNameKey(std::string_view name) {
  std::string key;
  key.reserve(name.size());
  for (const char c : name) {
    if (c != ' ' && c != '"' && c != '\'') key += LowerLetter(c);
  }
  return key;
}

int GraphNameCompare(std::string_view first, std::string_view second) {
  return GraphNameKey(first).compare(GraphNameKey(second));
}

WantedTitles::WantedTitles(const std::vector<std::string_view>& titles) : isAll_(false) {
  for (const std::string_view title : titles) keys_.push_back(GraphNameKey(title));
}

bool WantedTitles::Has(std::string_view title) const {
  return isAll_ || std::find(keys_.begin(), keys_.end(), GraphNameKey(title)) != keys_.end();
}

}  // namespace ozmo
