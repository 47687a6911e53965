// The whole CSV file that a case expects, from the few lines that it gives of it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/end_to_end/case_file.h"

namespace ozmo {

struct CsvExpectation {
  std::string host;
  std::string title;         // of the item
  std::string overlayTitle;  // empty: none
  int64_t first = 0;         // minute, seconds since 1970
  int64_t last = 0;          // minute
  std::string columns;       // the line of the labels
  std::vector<std::string>
      rows;  // a minute and its values each, in ascending order: those that aren't all 0.00
};

struct CsvText {
  std::string text;
  std::string error;  // what is wrong with the rows; empty when nothing is
};

// Times are in UTC. A minute is written as "08:05", or with the day of the month first: "23:08:05".
CsvText WriteCsv(const CsvExpectation& expectation);

// The csv statement that a line "ITEM = LABEL VALUE ..., LABEL VALUE ..." is short for, with a value a
// minute.
Statement CsvOfGraphLine(const std::string& line, const std::vector<std::string>& minutes);

}  // namespace ozmo
