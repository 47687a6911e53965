#include "runtime/messages.h"

#include <gtest/gtest.h>

#include <fstream>

#include "runtime/message_format.h"
#include "runtime/runtime.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

using testing::ScopedVariable;
using testing::TempDirectory;

// A library directory with a message file of the given text, and what a message printed.
class MessageEmitTest : public ::testing::Test {
 protected:
  void WriteFile(const std::string& text) {
    std::filesystem::create_directories(directory_ / "db");
    std::ofstream(directory_ / "db/veltrix_messages.msg") << text;
  }

  int Emit(const std::string& code, std::initializer_list<MessageArgument> arguments = {}) {
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const int result = MessageEmit(runtime_, code, arguments);
    output_ = ::testing::internal::GetCapturedStdout();
    errors_ = ::testing::internal::GetCapturedStderr();
    return result;
  }

  TempDirectory directory_;
  ScopedVariable library_{"VELTRIX_LIBRARY", directory_.path()};
  Runtime runtime_;
  std::string output_;
  std::string errors_;
};

TEST_F(MessageEmitTest, PrintsTheTextOfTheFirstLineOfTheCode) {
  struct Case {
    std::string file, said;
    bool toOutput;
  };
  for (const Case& row : {
           // The product and the severity come first, but for a severity that nobody knows.
           Case{"A ERROR \"broken\"\n", "VELTRIX-ERROR  broken\n", false},
           {"A WARNING \"odd\"\n", "VELTRIX-WARNING  odd\n", false},
           {"A INFO \"told\"\n", "VELTRIX-INFO  told\n", true},
           {"A error \"text\"\n", " text\n", true},
           {"! comment\r\n\t a \t ERROR\t\"Cannot open %s\"\r\n", "VELTRIX-ERROR  Cannot open c^d\n", false},
           {"AX ERROR \"wrong\"\nA ERROR \"right\"\nA ERROR \"late\"\n", "VELTRIX-ERROR  right\n", false},
           // The text ends at a quote, a tab or the line; circumflexes go, of arguments too.
           {"A ERROR \"one\" two\n", "VELTRIX-ERROR  one\n", false},
           {"A ERROR \"one\ttwo\"\n", "VELTRIX-ERROR  one\n", false},
           {"A ERROR \"one two\n", "VELTRIX-ERROR  one two\n", false},
           {"A INFO \"a^b %s\"\n", "VELTRIX-INFO  ab c^d\n", true},
       }) {
    WriteFile(row.file);
    EXPECT_EQ(Emit("A", {"c^d"}), 1) << row.file;
    std::string said = row.said;
    std::erase(said, '^');
    EXPECT_EQ(row.toOutput ? output_ : errors_, said);
    EXPECT_EQ(row.toOutput ? errors_ : output_, "");
  }
  const std::string text(5000, 'x');
  Emit("A", {text});
  EXPECT_EQ(output_, "VELTRIX-INFO  ab " + text + "\n");
}

TEST_F(MessageEmitTest, NeverFindsALowerCaseCodeOfACaller) {
  WriteFile("noopen ERROR \"x\"\n");
  EXPECT_EQ(Emit("noopen"), 0);
  EXPECT_EQ(errors_, "Cannot find error message noopen\n");
}

std::string Format(const std::string& format, const std::vector<MessageArgument>& arguments = {}) {
  return FormatMessage(format, arguments);
}

TEST(FormatMessage, FillsTextsAndNumbersAsPrintfDoes) {
  EXPECT_EQ(Format("%s=%d%%", {"load", 42LL}), "load=42%");
  EXPECT_EQ(Format("[%5d|%-5d|%05d|%+d]", {7LL, 7LL, 7LL, 7LL}), "[    7|7    |00007|+7]");
  EXPECT_EQ(Format("[%6s|%-6s|%.2s]", {"abc", "abc", "abc"}), "[   abc|abc   |ab]");
  EXPECT_EQ(Format("%x %X %o %#x", {255LL, 255LL, 8LL, 255LL}), "ff FF 10 0xff");
  EXPECT_EQ(Format("%*d|%-*d|%.*s", {4LL, 1LL, 3LL, 2LL, 1LL, "xy"}), "   1|2  |x");
}

TEST(FormatMessage, CutsANumberToItsLength) {
  EXPECT_EQ(Format("%d %ld %hd %u", {(1LL << 32) + 5, (1LL << 32) + 5, 65537LL, -1LL}),
            "5 4294967301 1 4294967295");
}

TEST(FormatMessage, SurvivesAnyFormatAndArgumentsOfAnotherTypeOrNone) {
  EXPECT_EQ(Format("%s %d %f", {12LL, "text", 2LL}), "12 text 2.000000");
  EXPECT_EQ(Format("<%s%d%n>"), "<>");
  EXPECT_EQ(Format("<%n%s>", {1LL, "second"}), "<second>");
  EXPECT_EQ(Format("%s", {"%s%n"}), "%s%n");
  EXPECT_EQ(Format("%y%-5 100%"), "%y%-5 100%");
  EXPECT_LE(Format("%999999999999d", {1LL}).size(), 1023U);
}

}  // namespace
}  // namespace ozmo
