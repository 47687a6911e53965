// The standard streams of the built tool: both of them one, or none, as a daemon may start it. The numbers of
// the closed streams must not go to files then, or a message would land in the picture.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/end_to_end/process.h"
#include "tests/support/temp_directory.h"
#include "tests/support/temp_map_guard.h"

namespace ozmo {
namespace {

// A run without data, up to the name of its picture.
const std::string DRAW = OZMO_BINARY_DIR
    "/ozmo_graph -vmrunix ./none -begin 22-Feb-2012:08:00:00 -end 22-Feb-2012:08:05:00 "
    "-item 'CPU Utilization By Mode' -item 'Overall CPU Utilization' ";

ProcessResult RunShell(const std::string& script, const testing::TempDirectory& directory) {
  return RunProcess({"/bin/sh", "-c", script}, {{"TZ", "UTC"}, {"VELTRIX_LIBRARY", OZMO_SOURCE_DIR}},
                    directory.path(), directory.path());
}

TEST(Streams, ClosedOnesLetNoMessageLandInThePicture) {
  const testing::TempDirectory directory;
  const auto run = [&](const std::string& file, const std::string& redirections) {
    RunShell(DRAW + "-type gif -graph_file " + file + redirections, directory);
    return ReadWholeFile(directory / file);
  };
  const std::string picture = run("open.gif", "");
  ASSERT_NE(picture, "");
  EXPECT_EQ(run("closed.gif", " <&- >&- 2>&-"), picture);
}

TEST(Streams, KeepTheOrderOfTheirLinesWhereTheyAreOne) {
  const testing::TempDirectory directory;
  const ProcessResult result =
      RunShell(OZMO_BINARY_DIR "/ozmo_graph -vmrunix none -item I -graph_file F -type csv 2>&1", directory);
  EXPECT_THAT(result.standardOutput, ::testing::StartsWith("ozmo_graph V10.0-001\nVELTRIX-ERROR  "));
}

// Whatever is built; ozmo_graph's own status is a fixed one.
TEST(Streams, AFullStandardOutputIsAFailure) {
  const testing::TempDirectory directory;
  for (const std::string program : {"sample", "report", "import", "record", "export", "fleet"}) {
    const std::string path = OZMO_BINARY_DIR "/ozmo_" + program;
    if (!std::filesystem::exists(path)) continue;
    const ProcessResult result = RunShell(path + " --help > /dev/full", directory);
    EXPECT_EQ(result.exitStatus, 1) << program;
    EXPECT_THAT(result.standardError, ::testing::EndsWith(": No space left on device\n"));
  }
}

// Status 124 is that the signal ended it, 137 that it had to be killed.
TEST(Streams, ASignalEndsARunThatDrawsIntoAPipeWithoutAReader) {
  const testing::TempDirectory directory;
  const ProcessResult result =
      RunShell("mkfifo pipe; timeout -k 5 1 " + DRAW + "-type gif -graph_file pipe", directory);
  EXPECT_EQ(result.exitStatus, 124);
}

// The shell has the map, as a run that was stopped would, until the line is there. Any other run on the
// machine that draws takes the map away at its end, so the shell looks whether the map that it locked still
// has its name.
TEST(Streams, AWaitForAnotherJpegRunIsSaid) {
  const testing::TempMapGuard guard;
  const testing::TempDirectory directory;
  const ProcessResult result = RunShell(
      "until exec 9>>/tmp/temp.ppm && flock 9 && [ /tmp/temp.ppm -ef /dev/fd/9 ]; do :; done\n" + DRAW +
          "-type jpg -graph_file picture 9>&- 2>lines & run=$!\n"
          "for i in $(seq 300); do grep -q waiting lines && break; sleep 0.1; done; [ -s picture ] && echo "
          "early\n"
          "flock -u 9; wait $run; cat lines",
      directory);
  EXPECT_THAT(result.standardOutput,
              ::testing::HasSubstr("\nozmo_graph: waiting for another JPEG run, which has /tmp/temp.ppm\n"));
  EXPECT_THAT(result.standardOutput, ::testing::Not(::testing::StartsWith("early")));
  EXPECT_NE(ReadWholeFile(directory / "picture"), "");
}

}  // namespace
}  // namespace ozmo
