#include "runtime/terminal_text.h"

#include <gtest/gtest.h>

namespace ozmo {
namespace {

TEST(PrintableText, ShowsControlCharactersOfAnyEncodingAsQuestionMarks) {
  struct Case {
    std::string text;
    std::string shown;
  };
  for (const Case& row :
       {Case{"plain ~ text", "plain ~ text"}, Case{"\x1b[2J\r\n\t\x7f", "?[2J????"},
        Case{std::string("a\0b", 3), "a?b"},
        Case{"caf\xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80", "caf\xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80"},
        Case{"caf\xe9", "caf\xe9"},  // Latin-1
        Case{"\xc2\x9b"
             "2J \x9b"
             "2J",
             "??2J ?2J"},                              // the control sequence introducer
        Case{"\xe2\x80\xae\xe2\x80\xa8.", "??????."},  // text from right to left, end of line
        Case{"\xc3\x80 \x80 \xe2\x82", "\xc3\x80 ? \xe2?"}}) {
    EXPECT_EQ(PrintableText(row.text), row.shown);
  }
}

}  // namespace
}  // namespace ozmo
