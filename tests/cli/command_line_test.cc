#include "cli/command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "runtime/times.h"

namespace ozmo {
namespace {

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
  ParseCommandLine(static_cast<int>(words.size()), argv.data(), request);
  return request;
}

// --- Abbreviations ---

TEST(OptionMatches, TakesAPrefixOfTheMinimumLength) {
  for (const auto& [word, matches] : {std::pair("-graph_file", true),
                                      {"-gr", true},
                                      {"-g", false},
                                      {"-graph_filex", false},
                                      {"-GRAPH", false},
                                      {"", false}}) {
    EXPECT_EQ(OptionMatches(word, "-graph_file", 3), matches) << word;
  }
}

TEST(Abbreviations, ReachTheOptionThatIsTestedFirst) {
  EXPECT_EQ(Parse(REQUIRED + Words{"-m", "x"}).mwFile, "x");
  EXPECT_EQ(Parse(REQUIRED + Words{"-me", "x"}).memoryFile, "x");
  EXPECT_EQ(Parse(REQUIRED + Words{"-", "x"}).beginText, "x");
  EXPECT_EQ(Parse(REQUIRED + Words{"-gr", "H"}).graphFile, "H");
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
  const RunRequest request = Parse({"-vmrunix", "v", "-item", longName, "-graph", "g", "-type", "PS",
                                    "-overlay", "A@B", "-host", "h", "-type", "x"});
  EXPECT_EQ(*request.vmrUnixFile + *request.graphFile + *request.overlayName + request.hostName, "vgA@Bh");
  EXPECT_EQ(request.itemName, longName);
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

TEST(Times, AreParsedWithTheDaylightFieldOpen) {
  const RunRequest request = Parse(REQUIRED + Words{"-begin", "22-Feb-2012:14:30:05", "-end", "tomorrow"});
  EXPECT_EQ(request.beginTime->tm_mday, 22);
  EXPECT_EQ(request.beginTime->tm_sec, 5);
  EXPECT_EQ(std::pair(request.endTime->tm_mday, request.endTime->tm_isdst), std::pair(0, -1));
  EXPECT_EQ(Parse(REQUIRED).beginTime, std::nullopt);
}

// --- Sizes ---

struct SizeCase {
  Words words;
  double width;
  double height;
  SizeUnit unit;
};

TEST(Sizes, FillWidthHeightAndTheOneUnit) {
  const SizeCase cases[] = {
      {{"-w", "10cm", "-hei", "5CM"}, 10, 5, SizeUnit::CENTIMETRES},
      {{"-height", "6"}, 6, 0, SizeUnit::INCHES},
      {{"-width", "8", "-height", "6"}, 6, 0, SizeUnit::INCHES},
      {{"-height", "6", "-width", "8"}, 8, 0, SizeUnit::INCHES},
      {{"-width", "8in", "-height", "6"}, 6, 0, SizeUnit::INCHES},
      {{"-width", "800pix", "-height", "6in"}, 800, 6, SizeUnit::INCHES},
      {{"-width", "8PIX", "-height", "6"}, 6, 0, SizeUnit::INCHES},
      // As many characters as the unit has go from the end, wherever the unit was.
      {{"-width", "12in345"}, 12, 0, SizeUnit::INCHES},
      {{"-width", "pix"}, 0, 0, SizeUnit::PIXELS},
      {{"-height", "cm75"}, 0, 0, SizeUnit::CENTIMETRES},
      // Inches are looked for first, and lower-case and upper-case don't mix.
      {{"-width", "10cmin"}, 10, 0, SizeUnit::INCHES},
      {{"-width", "10Cm"}, 10, 0, SizeUnit::INCHES},
      {{"-width", "wide"}, 0, 0, SizeUnit::INCHES},
  };
  for (const SizeCase& size : cases) {
    const RunRequest request = Parse(REQUIRED + size.words);
    EXPECT_EQ(request.width, size.width) << size.words[1];
    EXPECT_EQ(request.height, size.height) << size.words[1];
    EXPECT_EQ(request.sizeUnit, size.unit) << size.words[1];
  }
}

}  // namespace
}  // namespace ozmo
