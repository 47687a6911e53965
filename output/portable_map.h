// Reader of portable grey and colour maps, row by row.
//
// A map starts with "P" and its form: 2 and 3 are text, 5 and 6 raw bytes; 3 and 6 have three samples a dot,
// the others one. Width, height and the largest sample value follow as decimal numbers between blanks and
// line ends; "#" starts a comment to the end of the line, and ends a number. Raw samples follow after a
// single character; above a largest value of 255 they take two bytes, low byte first.
#pragma once

#include <cstdint>
#include <cstdio>
#include <vector>

namespace ozmo {

enum class MapStatus {
  OK,
  NOT_A_MAP,     // other form, a number of the head is 0, or a sample is above the largest value
  NONNUMERIC,    // something else where a number should be
  END_OF_INPUT,  // the file is short
};

struct PortableMap {
  std::FILE* input = nullptr;  // not owned
  uint32_t width = 0;
  uint32_t height = 0;
  uint32_t maximum = 0;  // the largest sample value
  int components = 0;    // samples a dot: 3 with colour, otherwise 1
  bool raw = false;
  std::vector<uint8_t> scale;  // by sample value: the same on the scale of 0 to 255
  std::vector<uint8_t> bytes;  // one raw row of two-byte samples
};

MapStatus MapReadHeader(PortableMap& map, std::FILE* input);

// Fills `row`, which has width * components samples, on the scale of 0 to 255.
MapStatus MapReadRow(PortableMap& map, std::vector<uint8_t>& row);

}  // namespace ozmo
