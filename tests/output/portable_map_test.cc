#include "output/portable_map.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/stream.h"

namespace ozmo {
namespace {

using ::testing::ElementsAre;

class PortableMapTest : public ::testing::Test {
 protected:
  MapStatus Open(std::string bytes) {
    bytes_ = std::move(bytes);
    input_.reset(fmemopen(bytes_.data(), bytes_.size(), "rb"));
    map_ = PortableMap{};
    return MapReadHeader(map_, input_.get());
  }
  MapStatus ReadRow() {
    row_.assign(size_t{map_.width} * static_cast<size_t>(map_.components), 0);
    return MapReadRow(map_, row_);
  }

  std::string bytes_;
  Stream input_;
  PortableMap map_;
  std::vector<uint8_t> row_;
};

TEST_F(PortableMapTest, ReadsAColourMapBehindComments) {
  ASSERT_EQ(Open("P6\n# by # libplot\n2 1#\n# more\n255\n\x01\x02\x03\xFD#\xFF"), MapStatus::OK);
  EXPECT_EQ(map_.width, 2U);
  EXPECT_EQ(map_.height, 1U);
  EXPECT_EQ(map_.components, 3);
  EXPECT_EQ(ReadRow(), MapStatus::OK);
  EXPECT_THAT(row_, ElementsAre(1, 2, 3, 0xFD, '#', 0xFF));
}

TEST_F(PortableMapTest, ReadsNumbersOfATextMap) {
  ASSERT_EQ(Open("P3 1 2 255\n1 2\t3\r\n4 # five\n5 6"), MapStatus::OK);
  EXPECT_EQ(ReadRow(), MapStatus::OK);
  EXPECT_EQ(ReadRow(), MapStatus::OK);
  EXPECT_THAT(row_, ElementsAre(4, 5, 6));
}

TEST_F(PortableMapTest, ScalesSamplesByTheLargestValue) {
  ASSERT_EQ(Open("P2 4 1 15\n0 7 8 15 "), MapStatus::OK);
  EXPECT_EQ(ReadRow(), MapStatus::OK);
  EXPECT_THAT(row_, ElementsAre(0, 119, 136, 255));

  ASSERT_EQ(Open(std::string("P5 3 1 2\n\0\1\2", 12)), MapStatus::OK);
  EXPECT_EQ(ReadRow(), MapStatus::OK);
  EXPECT_THAT(row_, ElementsAre(0, 128, 255));
}

TEST_F(PortableMapTest, RawSamplesOfTwoBytesHaveTheLowByteFirst) {
  ASSERT_EQ(Open(std::string("P5 2 1 256\n\0\1\x80\0", 15)), MapStatus::OK);
  EXPECT_EQ(ReadRow(), MapStatus::OK);
  EXPECT_THAT(row_, ElementsAre(255, 128));
}

TEST_F(PortableMapTest, OtherFormsAndZerosAreNoMap) {
  for (const char* head :
       {"P4 1 1 \x01", "P1 1 1 1", "GIF87a", "P6 0 1 255 ", "P6 1 0 255 ", "P6 1 1 0 ", "P"}) {
    EXPECT_EQ(Open(head), MapStatus::NOT_A_MAP) << head;
  }
  EXPECT_EQ(Open("P5 1 1 65536 xx"), MapStatus::NOT_A_MAP);
}

TEST_F(PortableMapTest, TellsWhatIsNoNumberFromWhatIsNotThere) {
  EXPECT_EQ(Open("P6 1 -1 255 "), MapStatus::NONNUMERIC);
  EXPECT_EQ(Open("P6 1 "), MapStatus::END_OF_INPUT);
  ASSERT_EQ(Open("P2 2 1 255 7"), MapStatus::OK);
  EXPECT_EQ(ReadRow(), MapStatus::END_OF_INPUT);
  ASSERT_EQ(Open("P2 2 1 255 7 x"), MapStatus::OK);
  EXPECT_EQ(ReadRow(), MapStatus::NONNUMERIC);
  ASSERT_EQ(Open("P6 1 1 255 ab"), MapStatus::OK);
  EXPECT_EQ(ReadRow(), MapStatus::END_OF_INPUT);
}

TEST_F(PortableMapTest, ASampleAboveTheLargestValueIsRefused) {
  ASSERT_EQ(Open("P2 1 1 15 16 "), MapStatus::OK);
  EXPECT_EQ(ReadRow(), MapStatus::NOT_A_MAP);
  ASSERT_EQ(Open("P5 1 1 15 \xFF"), MapStatus::OK);
  EXPECT_EQ(ReadRow(), MapStatus::NOT_A_MAP);
  ASSERT_EQ(Open("P5 1 1 300 \xFF\xFF"), MapStatus::OK);
  EXPECT_EQ(ReadRow(), MapStatus::NOT_A_MAP);
}

TEST_F(PortableMapTest, NumbersBeyondAllMeasureDoNotWrapAround) {
  ASSERT_EQ(Open("P6 4294967297 1 255 "), MapStatus::OK);
  EXPECT_GT(map_.width, 65535U);
}

}  // namespace
}  // namespace ozmo
