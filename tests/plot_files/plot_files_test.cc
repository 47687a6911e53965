// Whole plots through libplot and libjpeg themselves: are the files what their types promise, and does bad
// input end as it should?
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "output/plot_driver.h"
#include "tests/output/plot_job.h"
#include "tests/plot_files/jpeg_picture.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"
#include "tests/support/temp_map_guard.h"

namespace ozmo {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::ExitedWithCode;
using ::testing::HasSubstr;
using testing::JpegPicture;
using testing::PlotJob;
using testing::ReadJpeg;
using testing::ScopedVariable;
using ::testing::StartsWith;
using testing::TEMP_MAP;
using testing::TempDirectory;
using testing::TempMapGuard;

std::string Contents(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

int LittleEndian(const std::string& bytes, size_t at) {
  return static_cast<unsigned char>(bytes.at(at)) + 256 * static_cast<unsigned char>(bytes.at(at + 1));
}

class PlotFiles : public ::testing::TestWithParam<GraphType> {
 protected:
  PlotFiles() : graph_(61) {
    graph_.AddBand("Red", 88.0F);
    graph_.AddBand("Blue", 44.0F);
    graph_.job.width = 320.0;
    graph_.job.height = 240.0;
  }

  // The file's bytes, after a run that must have gone well.
  std::string Plot(GraphType type) {
    graph_.job.graphType = type;
    graph_.job.graphFile = directory_ / "plot";
    EXPECT_EQ(PlotGraphJob(graph_.job), 0);
    return Contents(graph_.job.graphFile);
  }
  TempMapGuard guard_;
  TempDirectory directory_;
  PlotJob graph_;
};

TEST_F(PlotFiles, EachTypeIsWhatItPromises) {
  const std::string gif = Plot(GraphType::GIF);
  EXPECT_THAT(gif, StartsWith("GIF8"));
  EXPECT_EQ(LittleEndian(gif, 6), 320);
  EXPECT_EQ(LittleEndian(gif, 8), 240);
  EXPECT_EQ(gif.back(), ';');
  const std::string page = Plot(GraphType::POSTSCRIPT);
  EXPECT_THAT(page, StartsWith("%!PS-Adobe"));
  EXPECT_THAT(page, HasSubstr("%%EOF"));
}

TEST_F(PlotFiles, AJpegIsPlainWithTheDefaultsOfTheLibraryAndShowsTheBandsAboveEachOther) {
  Plot(GraphType::JPEG);
  const JpegPicture picture = ReadJpeg(graph_.job.graphFile);
  EXPECT_EQ(picture.width, 320U);
  EXPECT_EQ(picture.height, 240U);
  EXPECT_FALSE(picture.progressive);
  EXPECT_THAT(picture.lumaSampling, ElementsAre(2, 2));
  EXPECT_EQ(picture.firstLumaStep, 8);  // 16 at quality 50, half of it at 75
  // The frame goes from 0.17 to 0.89 of the height, and its top is at 110.
  const auto middleAt = [&](double value) {
    const std::vector<int> dot =
        picture.At(160, static_cast<unsigned>(240.0 * (1.0 - 0.17 - 0.72 * value / 110.0)));
    return std::vector<bool>{dot.at(0) > 200, dot.at(1) > 200, dot.at(2) > 200};
  };
  EXPECT_THAT(middleAt(22.0), ElementsAre(false, false, true));
  EXPECT_THAT(middleAt(66.0), ElementsAre(true, false, false));
  EXPECT_THAT(middleAt(99.0), ElementsAre(true, true, true));
}

TEST_F(PlotFiles, AJpegRunLeavesNoTemporaryFileAndReplacesALeftOne) {
  std::ofstream(TEMP_MAP) << std::string(2000000, 'x');
  Plot(GraphType::JPEG);
  EXPECT_EQ(ReadJpeg(graph_.job.graphFile).width, 320U);
  EXPECT_FALSE(fs::exists(TEMP_MAP));
}

// Who finds the temporary file's name taken by something that isn't ours writes nothing to it, and doesn't
// wait for it.
TEST_F(PlotFiles, ATemporaryFileThatIsALinkAPipeOrSomeoneElsesIsLeftAlone) {
  const std::string victim = directory_ / "victim";
  const auto write = [](const std::string& path) { std::ofstream(path) << "kept"; };
  const std::function<bool()> makers[] = {
      [&] { return write(victim), symlink(victim.c_str(), TEMP_MAP) == 0; },
      [&] { return write(victim), link(victim.c_str(), TEMP_MAP) == 0; },  // not across file systems
      [&] { return mkfifo(TEMP_MAP, 0600) == 0; },
      [&] { return write(TEMP_MAP), chown(TEMP_MAP, 12345, 12345) == 0; },  // only root can
  };
  graph_.job.graphType = GraphType::JPEG;
  graph_.job.graphFile = directory_ / "plot";
  for (const auto& make : makers) {
    fs::remove(TEMP_MAP);
    if (!make()) continue;
    EXPECT_EXIT(PlotGraphJob(graph_.job), ExitedWithCode(1), "^cjpeg: can't open input file\n$");
    EXPECT_FALSE(fs::exists(graph_.job.graphFile));
    if (!fs::is_fifo(TEMP_MAP)) {
      EXPECT_EQ(Contents(TEMP_MAP), "kept");
    }
  }
}

TEST_F(PlotFiles, AJpegThatCanNotBeCreatedLeavesTheTemporaryFile) {
  graph_.job.graphType = GraphType::JPEG;
  graph_.job.graphFile = directory_ / "no/plot";
  EXPECT_EXIT(PlotGraphJob(graph_.job), ExitedWithCode(1), "^cjpeg: can't open .*/no/plot\n$");
  EXPECT_THAT(Contents(TEMP_MAP), StartsWith("P6\n"));
}

TEST_P(PlotFiles, APictureThatFailsLeavesNoFile) {
  graph_.job.graphType = GetParam();
  graph_.job.graphFile = directory_ / "plot";
  graph_.job.mainOverlay.traces[0].label = std::string(100, 'x');
  EXPECT_EXIT(PlotGraphJob(graph_.job), ExitedWithCode(1), "too long for the key");
  EXPECT_FALSE(fs::exists(graph_.job.graphFile));
  EXPECT_FALSE(fs::exists(TEMP_MAP));
}

TEST_P(PlotFiles, APictureThatDoesNotGetThroughIsReported) {
  graph_.job.graphType = GetParam();
  graph_.job.graphFile = "/dev/full";
  EXPECT_EXIT(std::exit(PlotGraphJob(graph_.job)), ExitedWithCode(1),
              "graph: error: could not close plot device|Output file write error");
}

TEST_P(PlotFiles, APictureDependsOnTheJobAlone) {
  if (GetParam() == GraphType::POSTSCRIPT) GTEST_SKIP() << "a page holds the time of its making";
  const std::string bytes = Plot(GetParam());
  const ScopedVariable background("BG_COLOR", "red");
  const ScopedVariable rotation("ROTATION", "90");
  const ScopedVariable interlace("INTERLACE", "yes");
  EXPECT_EQ(Plot(GetParam()), bytes);
}

TEST_P(PlotFiles, NullAndStrangeTextsAreDrawnOrLeftOut) {
  graph_.AddBand(nullptr, 11.0F);
  graph_.AddBand("no such colour", 5.0F);
  graph_.job.mainOverlay.title = "%s%n \\ \\sp \\xyz \x01\xFF";
  graph_.job.mainOverlay.yTitle = "\\";
  ::testing::internal::CaptureStderr();
  EXPECT_GT(Plot(GetParam()).size(), 1000U);
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("no such colour"));
}

INSTANTIATE_TEST_SUITE_P(EachType, PlotFiles,
                         ::testing::Values(GraphType::POSTSCRIPT, GraphType::GIF, GraphType::JPEG));

}  // namespace
}  // namespace ozmo
