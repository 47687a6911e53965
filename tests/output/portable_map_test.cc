#include "output/portable_map.h"

#include <gtest/gtest.h>

#include "runtime/stream.h"

namespace ozmo {
namespace {

using enum MapStatus;
using Row = std::vector<uint8_t>;

struct MapCase {
  std::string bytes;
  MapStatus head, rows;  // how reading them ends
  Row last = {};         // the last row
};

TEST(PortableMap, IsReadRowByRow) {
  for (const MapCase& test : {
           // Colours and greys, raw and as text, with comments in the head.
           MapCase{"P6\n# by # libplot\n2 1#\n# more\n255\n\x01\x02\x03\xFD#\xFF",
                   OK,
                   OK,
                   {1, 2, 3, 0xFD, '#', 0xFF}},
           {"P3 1 2 255\n1 2\t3\r\n4 # five\n5 6", OK, OK, {4, 5, 6}},
           // Samples are scaled by the largest value; raw ones of two bytes have the low byte first.
           {"P2 4 1 15\n0 7 8 15 ", OK, OK, {0, 119, 136, 255}},
           {std::string("P5 3 1 2\n\0\1\2", 12), OK, OK, {0, 128, 255}},
           {std::string("P5 2 1 256\n\0\1\x80\0", 15), OK, OK, {255, 128}},
           // Other forms and zeros.
           {"P4 1 1 \x01", NOT_A_MAP, OK},
           {"P1 1 1 1", NOT_A_MAP, OK},
           {"GIF87a", NOT_A_MAP, OK},
           {"P6 0 1 255 ", NOT_A_MAP, OK},
           {"P6 1 0 255 ", NOT_A_MAP, OK},
           {"P6 1 1 0 ", NOT_A_MAP, OK},
           {"P", NOT_A_MAP, OK},
           {"P5 1 1 65536 xx", NOT_A_MAP, OK},
           // What is no number, and what isn't there.
           {"P6 1 -1 255 ", NONNUMERIC, OK},
           {"P6 1 ", END_OF_INPUT, OK},
           {"P2 2 1 255 7", OK, END_OF_INPUT},
           {"P2 2 1 255 7 x", OK, NONNUMERIC},
           {"P6 1 1 255 ab", OK, END_OF_INPUT},
           // A sample above the largest value.
           {"P2 1 1 15 16 ", OK, NOT_A_MAP},
           {"P5 1 1 15 \xFF", OK, NOT_A_MAP},
           {"P5 1 1 300 \xFF\xFF", OK, NOT_A_MAP},
       }) {
    std::string bytes = test.bytes;
    const Stream input(fmemopen(bytes.data(), bytes.size(), "rb"));
    PortableMap map;
    ASSERT_EQ(MapReadHeader(map, input.get()), test.head) << test.bytes;
    if (test.head != OK) continue;
    Row row(size_t{map.width} * static_cast<size_t>(map.components));
    MapStatus status = OK;
    for (unsigned n = 0; n < map.height && status == OK; ++n) status = MapReadRow(map, row);
    EXPECT_EQ(status, test.rows) << test.bytes;
    if (status == OK) {
      EXPECT_EQ(row, test.last) << test.bytes;
    }
  }
}

TEST(PortableMap, ASizeBeyondAllMeasureDoesNotWrapAround) {
  std::string bytes = "P6 4294967297 1 255 ";
  const Stream input(fmemopen(bytes.data(), bytes.size(), "rb"));
  PortableMap map;
  ASSERT_EQ(MapReadHeader(map, input.get()), OK);
  EXPECT_GT(map.width, 65535U);
}

}  // namespace
}  // namespace ozmo
