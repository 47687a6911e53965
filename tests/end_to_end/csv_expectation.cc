#include "tests/end_to_end/csv_expectation.h"

#include <algorithm>
#include <ctime>
#include <sstream>

namespace ozmo {
namespace {

std::string TimeText(int64_t time, const char* format) {
  const std::time_t seconds = time;
  std::tm parts{};
  gmtime_r(&seconds, &parts);
  char text[80];
  std::strftime(text, sizeof text, format, &parts);
  return text;
}

// A value as it is in its column, with what separates it from the one before.
std::string Cell(const std::string& value) {
  return ",  " + std::string(value.size() < 6 ? 6 - value.size() : 0, ' ') + value;
}

}  // namespace

CsvText WriteCsv(const CsvExpectation& expectation) {
  constexpr const char* PERIOD = "%a %b %d %H:%M UTC %Y";
  std::string text = "Veltrix Export Graph V9.2\nTime Period: From " + TimeText(expectation.first, PERIOD) +
                     " To " + TimeText(expectation.last, PERIOD) + "\nHost Name: " + expectation.host +
                     ",\nMain Overlay: " + expectation.title + "\nAdditional Overlay: " +
                     (expectation.overlayTitle.empty() ? "(null)" : expectation.overlayTitle) + "\n" +
                     expectation.columns + "\n";
  std::string zeros;
  for (size_t at = 0; (at = expectation.columns.find(",  ", at)) != std::string::npos; ++at)
    zeros += Cell("0.00");

  auto row = expectation.rows.begin();
  for (int64_t time = expectation.first; time <= expectation.last; time += 60) {
    text += TimeText(time, "%m/%d/%Y %H:%M:00");
    std::string values = zeros;
    if (row != expectation.rows.end()) {
      std::istringstream words(*row);
      std::string minute;
      words >> minute;
      if (minute == TimeText(time, "%H:%M") || minute == TimeText(time, "%d:%H:%M")) {
        values.clear();
        for (std::string value; words >> value;) values += Cell(value);
        ++row;
      }
    }
    text += values + "\n";
  }
  return {text, row == expectation.rows.end() ? "" : "no such minute, or out of order: " + *row};
}

Statement CsvOfGraphLine(const std::string& line, const std::vector<std::string>& minutes) {
  const size_t equals = line.find(" = ");
  std::string columns = "Time";
  std::vector<std::string> rows = minutes;
  std::string rest = equals == std::string::npos ? "" : line.substr(equals + 3) + ", ";
  for (size_t end = 0; (end = rest.find(", ")) != std::string::npos; rest.erase(0, end + 2)) {
    std::string label = rest.substr(0, end);
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
      const size_t blank = label.find_last_of(' ');
      if (blank == std::string::npos) break;
      row->append(label.substr(blank));
      label.resize(blank);
    }
    columns += ",  " + label;
  }
  rows.insert(rows.begin(), columns);
  return {0, "csv", {line.substr(0, equals)}, rows};
}

}  // namespace ozmo
