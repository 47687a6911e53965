#include "output/jpeg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/plot_files/jpeg_picture.h"
#include "tests/support/temp_directory.h"
#include "tests/support/temp_map_guard.h"

namespace ozmo {
namespace {

using ::testing::ExitedWithCode;
using testing::JpegPicture;
using testing::ReadJpeg;
using testing::TEMP_MAP;
using testing::TempDirectory;
using testing::TempMapGuard;

class JpegFinishTest : public ::testing::Test {
 protected:
  void WriteMap(const std::string& bytes) { std::ofstream(TEMP_MAP, std::ios::binary) << bytes; }

  TempMapGuard guard_;
  TempDirectory directory_;
  std::string file_ = directory_ / "picture.jpg";
};

TEST_F(JpegFinishTest, AGreyMapMakesAGreyPicture) {
  WriteMap("P2 # grey\n3 2 4\n4 4 4 0 0 0\n");
  EXPECT_EQ(JpegFinish(file_), 0);
  const JpegPicture picture = ReadJpeg(file_);
  EXPECT_EQ(picture.components, 1);
  EXPECT_EQ(picture.width, 3U);
  EXPECT_GT(picture.At(1, 0)[0], 250);
  EXPECT_LT(picture.At(1, 1)[0], 5);
  EXPECT_FALSE(std::filesystem::exists(TEMP_MAP));
}

TEST_F(JpegFinishTest, AMalformedMapEndsTheProcessAndStays) {
  struct Case {
    const char* bytes;
    const char* message;
  };
  for (const Case& row : {Case{"P4\n8 1\n\x01", "^Not a PPM/PGM file\n$"},
                          Case{"P6 8 eight 255 ", "^Nonnumeric data in PPM file\n$"},
                          Case{"P6 8 1 255 abc", "^Premature end of input file\n$"},
                          Case{"P6 70000 1 255 abc", "image dimension"}}) {
    WriteMap(row.bytes);
    EXPECT_EXIT(JpegFinish(file_), ExitedWithCode(1), row.message) << row.bytes;
    EXPECT_TRUE(std::filesystem::exists(TEMP_MAP));
  }
}

TEST_F(JpegFinishTest, WithoutAMapThereIsNoPicture) {
  EXPECT_EXIT(JpegFinish(file_), ExitedWithCode(1), "^cjpeg: can't open input file\n$");
  EXPECT_FALSE(std::filesystem::exists(file_));
}

}  // namespace
}  // namespace ozmo
