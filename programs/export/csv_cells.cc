#include "programs/export/csv_cells.h"

#include <array>
#include <ctime>

#include "programs/report/text.h"

namespace ozmo::exporting {

std::string CsvCell(std::string_view bytes) {
  std::string text = report::CleanText(bytes);
  if (text.find_first_of(",\"") == std::string::npos) return text;
  std::string cell = "\"";
  for (const char c : text) {
    if (c == '"') cell += '"';
    cell += c;
  }
  return cell + '"';
}

std::string UtcText(Seconds time) {
  const std::time_t seconds = time;
  std::tm clock{};
  if (gmtime_r(&seconds, &clock) == nullptr) return "";
  std::array<char, 64> text;
  const size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &clock);
  return {text.data(), length};
}

}  // namespace ozmo::exporting
