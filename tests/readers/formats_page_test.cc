// The tables of record layouts in docs/formats.md are those that the readers work from.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "readers/formats.h"

namespace ozmo::testing {
namespace {

std::string SizeText(const FieldSpec& field) {
  std::string text = field.size == FieldSize::TEXT ? "t" : std::to_string(static_cast<int>(field.size));
  if (field.fixedDivisor != NOT_FOUND_ID) text += "*" + std::to_string(field.fixedDivisor);
  return text;
}

// "201:t 202-205:8": runs of fields of one size.
std::string FieldsText(std::span<const FieldSpec> fields) {
  std::string text;
  for (size_t first = 0, next = 0; first < fields.size(); first = next) {
    const std::string size = SizeText(fields[first]);
    for (next = first + 1; next < fields.size() && SizeText(fields[next]) == size &&
                           fields[next].fieldId == fields[next - 1].fieldId + 1;) {
      ++next;
    }
    text += (first == 0 ? "" : " ") + std::to_string(fields[first].fieldId);
    if (next - first > 1) text += "-" + std::to_string(fields[next - 1].fieldId);
    text += ":" + size;
  }
  return text;
}

// The tables of a format, each once, in the order of its version tests.
std::vector<const RecordTable*> TablesOf(const CollectorFormat& format) {
  std::vector<const RecordTable*> tables;
  for (const VersionRule& rule : format.versions) {
    if (std::find(tables.begin(), tables.end(), rule.table) == tables.end()) tables.push_back(rule.table);
  }
  return tables;
}

// The page's table: one row a record type and layout, with the versions that have it.
std::string LayoutTable(const CollectorFormat& format) {
  std::map<int32_t, std::vector<std::pair<std::string, std::string>>> types;  // head and fields, versions
  for (const RecordTable* table : TablesOf(format)) {
    for (const RecordLayout& row : table->rows) {
      std::string head = std::to_string(row.recordType);
      if (row.listType != row.recordType) head += ", lists of " + std::to_string(row.listType);
      const std::string fields =
          "`" + FieldsText(row.fields) + "`" + (row.positional ? ", in this order" : "");
      const std::string key = head + " | " + fields;
      auto& layouts = types[row.recordType];
      const auto known = std::find_if(layouts.begin(), layouts.end(),
                                      [&](const auto& layout) { return layout.first == key; });
      if (known == layouts.end()) {
        layouts.emplace_back(key, table->name);
      } else {
        known->second += ", " + std::string(table->name);
      }
    }
  }
  std::string text = "| Type | Fields | Versions |\n|---|---|---|\n";
  for (const auto& [type, layouts] : types) {
    for (const auto& [key, versions] : layouts) text += "| " + key + " | " + versions + " |\n";
  }
  return text;
}

TEST(FormatsPageTest, HasTheLayoutsOfAllFormats) {
  std::ifstream file(OZMO_SOURCE_DIR "/docs/formats.md");
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  for (const KindRow& row : ReaderKinds()) {
    const CollectorFormat* format = FormatOf(row.kind);
    if (format == nullptr) continue;
    const std::string block =
        "### Layouts of " + std::string(row.system) + " files\n\n" + LayoutTable(*format) + "\n";
    EXPECT_NE(page.find(block), std::string::npos) << "docs/formats.md should have\n" << block;
  }
}

}  // namespace
}  // namespace ozmo::testing
