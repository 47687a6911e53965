#include "cli/options.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "runtime/times.h"

namespace ozmo {
namespace {

using ::testing::ExitedWithCode;

// Without the program's own word.
using Words = std::vector<std::string>;

const Words REQUIRED = {"-item", "I", "-graph_file", "G", "-type", "csv"};

Words operator+(Words first, const Words& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

RunRequest Parse(Words words) {
  words.insert(words.begin(), "ozmo_graph");
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  RunRequest request;
  EXPECT_EQ(ParseCommandLine(static_cast<int>(words.size()), argv.data(), request), 1);
  return request;
}

// For the runs that end in the parser: what stands on standard output is copied to standard error, where a
// death test looks.
void ParseToStderr(const Words& words) {
  dup2(STDERR_FILENO, STDOUT_FILENO);
  Parse(words);
}

// --- Abbreviations ---

TEST(OptionMatches, TakesAPrefixOfTheMinimumLength) {
  EXPECT_TRUE(OptionMatches("-graph_file", "-graph_file", 3));
  EXPECT_TRUE(OptionMatches("-gr", "-graph_file", 3));
  EXPECT_FALSE(OptionMatches("-g", "-graph_file", 3));
  EXPECT_FALSE(OptionMatches("-graph_filex", "-graph_file", 3));
  EXPECT_FALSE(OptionMatches("-GRAPH", "-graph_file", 3));
  EXPECT_FALSE(OptionMatches("", "-item", 1));
}

TEST(Abbreviations, ReachTheOptionThatIsTestedFirst) {
  EXPECT_EQ(Parse(REQUIRED + Words{"-m", "x"}).mwFile, "x");
  EXPECT_EQ(Parse(REQUIRED + Words{"-me", "x"}).memoryFile, "x");
  EXPECT_EQ(Parse(REQUIRED + Words{"-", "x"}).beginText, "x");
}

TEST(Abbreviations, TooShortAreSkippedLikeAnyUnknownWord) {
  const RunRequest request = Parse(REQUIRED + Words{"-h", "-he", "-g", "-v", "-vm", "word", ""});
  EXPECT_EQ(request.graphFile, "G");
  EXPECT_EQ(request.vmrUnixFile, std::nullopt);
  EXPECT_EQ(request.height, 0.0);
}

// --- Values ---

TEST(Values, OfEveryTextOptionAreKeptAsTyped) {
  const std::string longName(4000, 'n');
  const RunRequest request = Parse(
      {"-vmrunix", "v", "-item", longName, "-graph", "g", "-type", "ps", "-overlay", "A@B", "-host", "h"});
  EXPECT_EQ(request.vmrUnixFile, "v");
  EXPECT_EQ(request.itemName, longName);
  EXPECT_EQ(request.graphFile, "g");
  EXPECT_EQ(request.overlayName, "A@B");
  EXPECT_EQ(request.hostName, "h");
  EXPECT_EQ(request.graphType, GraphType::POSTSCRIPT);
}

TEST(Values, ThatLookLikeALaterOptionActAsThatOptionToo) {
  const RunRequest request = Parse(REQUIRED + Words{"-begin", "-e", "01-Jan-2012:00:00:00"});
  EXPECT_EQ(request.beginText, "-e");
  EXPECT_EQ(request.endText, "01-Jan-2012:00:00:00");
  EXPECT_EQ(request.endTime->tm_year, 112);
}

TEST(Values, ThatLookLikeAnEarlierOptionDoNot) {
  const RunRequest request = Parse(REQUIRED + Words{"-end", "-begin", "-item", "-end"});
  EXPECT_EQ(request.endText, "-begin");
  EXPECT_EQ(request.beginText, std::nullopt);
  EXPECT_EQ(request.itemName, "-end");
}

TEST(Values, AreSeenByLaterTestsAsTheSizeRuleLeftThem) {
  const RunRequest request = Parse({"-graph", "G", "-type", "csv", "-width", "-iin", "name"});
  EXPECT_EQ(request.itemName, "name");
}

TEST(Values, OfTheLastRepetitionWin) { EXPECT_EQ(Parse(REQUIRED + Words{"-item", "J"}).itemName, "J"); }

TEST(Times, AreParsedWithTheDaylightFieldOpen) {
  const RunRequest request = Parse(REQUIRED + Words{"-begin", "22-Feb-2012:14:30:05", "-end", "tomorrow"});
  EXPECT_EQ(request.beginTime->tm_mday, 22);
  EXPECT_EQ(request.beginTime->tm_sec, 5);
  EXPECT_EQ(request.endTime->tm_mday, 0);
  EXPECT_EQ(request.endTime->tm_isdst, -1);
  EXPECT_EQ(Parse(REQUIRED).beginTime, std::nullopt);
}

// --- Data file options ---

TEST(DataFileOptions, CancelThemselvesWhenGivenTwice) {
  const Words once = {"-vmrunix", "a"};
  EXPECT_EQ(Parse(REQUIRED + once).requestFlags & REQUEST_VMRUNIX, REQUEST_VMRUNIX);
  EXPECT_EQ(Parse(REQUIRED + once + once).requestFlags & REQUEST_VMRUNIX, 0U);
  EXPECT_EQ(Parse(REQUIRED + once + once + once).requestFlags & REQUEST_VMRUNIX, REQUEST_VMRUNIX);
  const Words mw = {"-mw", "a"};
  EXPECT_EQ(Parse(REQUIRED + mw).requestFlags & REQUEST_MW, REQUEST_MW);
  EXPECT_EQ(Parse(REQUIRED + mw + mw).requestFlags & REQUEST_MW, 0U);
}

TEST(DataFileOptions, SetTheRunModeLastWins) {
  EXPECT_EQ(Parse(REQUIRED + Words{"-mw", "a", "-vmrunix", "b"}).runMode, 3);
  EXPECT_EQ(Parse(REQUIRED + Words{"-vmrunix", "b", "-mw", "a"}).runMode, 9);
}

TEST(GraphFileOption, SetsItsBitOnceHoweverOftenItIsGiven) {
  EXPECT_EQ(Parse(REQUIRED + Words{"-gr", "H"}).requestFlags, REQUEST_GRAPH_FILE);
}

// --- Sizes ---

struct SizeCase {
  Words words;
  double width;
  double height;
  SizeUnit unit;
};

class SizeTest : public ::testing::TestWithParam<SizeCase> {};

TEST_P(SizeTest, FillsWidthHeightAndTheOneUnit) {
  const SizeCase& size = GetParam();
  const RunRequest request = Parse(REQUIRED + size.words);
  EXPECT_EQ(request.width, size.width);
  EXPECT_EQ(request.height, size.height);
  EXPECT_EQ(request.sizeUnit, size.unit);
}

INSTANTIATE_TEST_SUITE_P(
    Words, SizeTest,
    ::testing::Values(SizeCase{{"-w", "10cm", "-hei", "5CM"}, 10, 5, SizeUnit::CENTIMETRES},
                      SizeCase{{"-height", "6"}, 6, 0, SizeUnit::INCHES},
                      SizeCase{{"-width", "8", "-height", "6"}, 6, 0, SizeUnit::INCHES},
                      SizeCase{{"-height", "6", "-width", "8"}, 8, 0, SizeUnit::INCHES},
                      SizeCase{{"-width", "8in", "-height", "6"}, 6, 0, SizeUnit::INCHES},
                      SizeCase{{"-width", "800pix", "-height", "6in"}, 800, 6, SizeUnit::INCHES},
                      SizeCase{{"-width", "8PIX", "-height", "6"}, 6, 0, SizeUnit::INCHES},
                      // As many characters as the unit has go from the end, wherever the unit stood.
                      SizeCase{{"-width", "12in345"}, 12, 0, SizeUnit::INCHES},
                      SizeCase{{"-width", "pix"}, 0, 0, SizeUnit::PIXELS},
                      SizeCase{{"-height", "cm75"}, 0, 0, SizeUnit::CENTIMETRES},
                      // Inches are looked for first, and lower-case and upper-case don't mix.
                      SizeCase{{"-width", "10cmin"}, 10, 0, SizeUnit::INCHES},
                      SizeCase{{"-width", "10Cm"}, 10, 0, SizeUnit::INCHES},
                      SizeCase{{"-width", "wide"}, 0, 0, SizeUnit::INCHES}));

// --- Types ---

TEST(Types, AreEightExactWords) {
  const Words rest = {"-item", "I", "-graph_file", "G", "-t"};
  EXPECT_EQ(Parse(rest + Words{"JPG"}).graphType, GraphType::JPEG);
  EXPECT_EQ(Parse(rest + Words{"gif", "-type", "x"}).graphType, GraphType::GIF);
  EXPECT_EXIT(ParseToStderr(rest + Words{"Gif"}), ExitedWithCode(0), "requires -type");
  EXPECT_EXIT(ParseToStderr(rest + Words{"jpeg"}), ExitedWithCode(0), "requires -type");
}

// --- Ends of the run ---

TEST(UsageDeathTest, EndsWithStatus1) {
  EXPECT_EXIT(ParseToStderr({}), ExitedWithCode(1),
              "^ozmo_graph accepts the following command line options:\n\n-mw");
  EXPECT_EXIT(ParseToStderr(REQUIRED + Words{"-hel"}), ExitedWithCode(1), "-overlay <overlayname> ");
  EXPECT_EXIT(ParseToStderr(REQUIRED + Words{"-?"}), ExitedWithCode(1), "ozmo_graph accepts");
  EXPECT_EXIT(ParseToStderr({"-graph_file", "-hel"}), ExitedWithCode(1), "^ozmo_graph accepts");
}

TEST(RequirementDeathTest, AsksForTheFirstMissingOptionWithStatus0) {
  EXPECT_EXIT(ParseToStderr({"-host", "h"}), ExitedWithCode(0),
              "^\nozmo_graph requires -item to specify graph\nSee the release notes for list of items\n\n"
              "ozmo_graph accepts");
  EXPECT_EXIT(ParseToStderr({"-item", "I", "-g", "out.csv"}), ExitedWithCode(0),
              "^\nozmo_graph requires -graph to specify output file\nozmo_graph accepts");
  EXPECT_EXIT(ParseToStderr({"-item", "I", "-gr", "G"}), ExitedWithCode(0),
              "^\nozmo_graph requires -type to specify graph type\nozmo_graph accepts");
}

TEST(MissingValueDeathTest, NamesTheOptionInOneLineWithStatus2) {
  EXPECT_EXIT(ParseToStderr(REQUIRED + Words{"-item"}), ExitedWithCode(2), "^[^\n]*-item[^\n]*\n$");
  EXPECT_EXIT(ParseToStderr(REQUIRED + Words{"-t"}), ExitedWithCode(2), "^[^\n]*-type[^\n]*\n$");
  EXPECT_EXIT(ParseToStderr(REQUIRED + Words{"-begin", "-e"}), ExitedWithCode(2), "^[^\n]*-end[^\n]*\n$");
}

}  // namespace
}  // namespace ozmo
