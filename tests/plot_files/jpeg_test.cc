#include "output/jpeg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <future>
#include <memory>

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
  JpegFinishTest() { job_.graphFile = directory_ / "picture.jpg"; }

  static std::unique_ptr<TempMap> MapOf(const std::string& bytes) {
    std::unique_ptr<TempMap> map = TempMap::Create({});
    std::fputs(bytes.c_str(), map->OpenToDraw().get());
    return map;
  }

  TempMapGuard guard_;
  TempDirectory directory_;
  GraphJob job_;
};

TEST_F(JpegFinishTest, AGreyMapMakesAGreyPicture) {
  EXPECT_EQ(JpegFinish(*MapOf("P2 # grey\n3 2 4\n4 4 4 0 0 0\n"), job_), 0);
  const JpegPicture picture = ReadJpeg(job_.graphFile);
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
    const std::unique_ptr<TempMap> map = MapOf(row.bytes);
    EXPECT_EXIT(JpegFinish(*map, job_), ExitedWithCode(1), row.message) << row.bytes;
    EXPECT_TRUE(std::filesystem::exists(TEMP_MAP));
    EXPECT_FALSE(std::filesystem::exists(job_.graphFile));
  }
}

TEST_F(JpegFinishTest, TheMapCanNotBeThePicture) {
  const std::unique_ptr<TempMap> map = MapOf("P2 1 1 1 1");
  job_.graphFile = TEMP_MAP;
  EXPECT_EXIT(JpegFinish(*map, job_), ExitedWithCode(1), "^ozmo_graph: /tmp/temp.ppm is read by this run ");
}

TEST_F(JpegFinishTest, ASecondRunWaitsForTheMapAndGetsAFreshOne) {
  std::unique_ptr<TempMap> first = MapOf("first");
  std::future<std::unique_ptr<TempMap>> second = std::async(std::launch::async, MapOf, "second");
  EXPECT_EQ(second.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
  EXPECT_EQ(first->Delete(), 0);
  first.reset();
  const std::unique_ptr<TempMap> map = second.get();
  EXPECT_EQ(IdentityOf(TEMP_MAP), map->Identity());
  EXPECT_EQ(std::filesystem::file_size(TEMP_MAP), 6U);
  EXPECT_EQ(std::filesystem::status(TEMP_MAP).permissions(), std::filesystem::perms(0600));
}

}  // namespace
}  // namespace ozmo
