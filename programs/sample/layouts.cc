#include "programs/sample/layouts.h"

#include <algorithm>
#include <charconv>

namespace ozmo::sample {
namespace {

// Takes the text up to `mark` off the front of `rest`.
std::string_view TakeUntil(std::string_view& rest, char mark) {
  const size_t end = std::min(rest.find(mark), rest.size());
  const std::string_view head = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return head;
}

int32_t ToNumber(std::string_view digits) {
  int32_t number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

Encoding ToEncoding(std::string_view size) {
  if (size == "t") {
    return Encoding::TEXT;
  }
  return size == "8" ? Encoding::INT64 : Encoding::INT32;
}

}  // namespace

std::vector<FieldLayout> ExpandFields(std::string_view fields) {
  std::vector<FieldLayout> expanded;
  while (!fields.empty()) {
    std::string_view item = TakeUntil(fields, ' ');
    std::string_view ids = TakeUntil(item, ':');
    std::string_view sizeAndUnit = TakeUntil(item, '/');
    const int32_t divisor = item.empty() ? 1 : ToNumber(item);
    const Encoding encoding = ToEncoding(TakeUntil(sizeAndUnit, '*'));
    const int32_t unit = sizeAndUnit.empty() ? 1 : ToNumber(sizeAndUnit);
    const int32_t first = ToNumber(TakeUntil(ids, '-'));
    const int32_t last = ids.empty() ? first : ToNumber(ids);
    for (int32_t id = first; id <= last; ++id) {
      expanded.push_back({id, encoding, unit, divisor});
    }
  }
  return expanded;
}

std::vector<ExpandedRecord> ExpandLayout(std::span<const SampleLayout> layout, uint32_t versionBit) {
  std::vector<ExpandedRecord> bases;
  std::vector<ExpandedRecord> twins;
  for (const SampleLayout& row : layout) {
    if ((row.versions & versionBit) != 0) {
      std::vector<ExpandedRecord>& list = row.twinOf == 0 ? bases : twins;
      list.push_back({row.recordType, row.twinOf, ExpandFields(row.fields)});
    }
  }
  for (ExpandedRecord& twin : twins) {
    const auto base =
        std::ranges::find_if(bases, [&](const auto& row) { return row.recordType == twin.twinOf; });
    if (twin.fields.empty() && base != bases.end()) {
      twin.fields = base->fields;
    }
  }
  bases.insert(bases.end(), twins.begin(), twins.end());
  return bases;
}

const VersionLayout* FindVersion(std::span<const VersionLayout> versions, std::string_view text) {
  for (const VersionLayout& version : versions) {
    if (text == version.text) {
      return &version;
    }
  }
  for (const VersionLayout& version : versions) {
    if (text.find(version.text) != std::string_view::npos) {
      return &version;
    }
  }
  return nullptr;
}

}  // namespace ozmo::sample
