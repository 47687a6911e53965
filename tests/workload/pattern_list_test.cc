#include "workload/pattern_list.h"

#include <gtest/gtest.h>

namespace ozmo {
namespace {

int Match(std::string_view text, std::string_view list, MatchMode mode = MatchMode::WHOLE,
          bool ignoreCase = false) {
  PatternList patterns;
  patterns.Append(list);
  return WorkloadMatchList(text, patterns, mode, ignoreCase);
}

TEST(PatternList, EmptyListMatchesAnything) {
  EXPECT_EQ(1, Match("anything", ""));
  EXPECT_EQ(1, Match("", ""));
}

TEST(PatternList, ItemsAreExactWithoutStars) {
  EXPECT_EQ(1, Match("root", "root"));
  EXPECT_EQ(0, Match("rooty", "root"));
  EXPECT_EQ(0, Match("root", "ROOT"));
  EXPECT_EQ(1, Match("b", "a,b,c"));
  EXPECT_EQ(0, Match("a,b", "a,b"));
}

TEST(PatternList, StarsAtTheEndsOnly) {
  EXPECT_EQ(1, Match("/usr/sbin/inetd -s", "*inetd*"));
  EXPECT_EQ(1, Match("dnsd", "dns*"));
  EXPECT_EQ(1, Match("dns", "dns*"));
  EXPECT_EQ(0, Match("xdns", "dns*"));
  EXPECT_EQ(0, Match("abxcd", "ab*cd"));
  EXPECT_EQ(1, Match("ab*cd", "ab*cd"));
  EXPECT_EQ(1, Match("ab*cd!", "ab*cd*"));
}

TEST(PatternList, LoneStarsMatchEverything) {
  for (const char* list : {"*", "**"}) {
    EXPECT_EQ(1, Match("x", list)) << list;
    EXPECT_EQ(1, Match("", list)) << list;
  }
  EXPECT_EQ(1, Match("a*b", "***"));
  EXPECT_EQ(0, Match("ab", "***"));
}

TEST(PatternList, BlanksBelongToTheItem) {
  EXPECT_EQ(0, Match("knblink", "a, knblink"));
  EXPECT_EQ(1, Match(" knblink", "a, knblink"));
  EXPECT_EQ(0, Match("/sbin/init", "\t/sbin/init*"));
  EXPECT_EQ(1, Match("\t/sbin/init 3", "\t/sbin/init*"));
}

TEST(PatternList, OnlyContainsOverlooksLeadingBlanksOfTheText) {
  EXPECT_EQ(0, Match("  abc", "* abc*"));
  EXPECT_EQ(1, Match("x abc", "* abc*"));
  EXPECT_EQ(1, Match("  abc", "  a*"));
  EXPECT_EQ(0, Match("  abc", "abc"));
}

TEST(PatternList, SuffixWantsALongerText) {
  EXPECT_EQ(1, Match("xabc", "*abc"));
  EXPECT_EQ(0, Match("abcx", "*abc"));
  EXPECT_EQ(0, Match("abc", "*abc"));
}

TEST(PatternList, SuffixOnAShortTextEndsTheWholeMatch) {
  EXPECT_EQ(0, Match("abc", "*abc,abc"));
  EXPECT_EQ(0, Match("ab", "*abc,ab"));
  EXPECT_EQ(1, Match("ab", "ab,*abc")) << "an item ahead of it counts";
  EXPECT_EQ(1, Match("wxyz", "*abc,wxyz")) << "a longer text goes on";
}

TEST(PatternList, EmptyItemsMatchTheEmptyTextOnly) {
  EXPECT_EQ(1, Match("", "a,,b"));
  EXPECT_EQ(1, Match("", "a,"));
  EXPECT_EQ(0, Match("x", "a,,b"));
  EXPECT_EQ(0, Match("", "a"));
}

TEST(PatternList, CaseFlagRaisesBothSides) {
  EXPECT_EQ(1, Match("Root", "rOOT", MatchMode::WHOLE, true));
  EXPECT_EQ(1, Match("/bin/INETD", "*inetd", MatchMode::WHOLE, true));
  EXPECT_EQ(0, Match("rooty", "ROOT", MatchMode::WHOLE, true));
}

TEST(PatternList, ModeOneDropsAnEndingOfThreeFromExactItems) {
  EXPECT_EQ(1, Match("tool", "tool.exe", MatchMode::DROP_EXTENSION));
  EXPECT_EQ(0, Match("tool.exe", "tool.exe", MatchMode::DROP_EXTENSION));
  EXPECT_EQ(0, Match("tool", "tool.so", MatchMode::DROP_EXTENSION));
  EXPECT_EQ(0, Match("tool", "*tool.exe", MatchMode::DROP_EXTENSION));
  EXPECT_EQ(0, Match("tool", "tool.exe", MatchMode::WHOLE));
}

TEST(PatternList, AppendJoinsByAComma) {
  PatternList patterns;
  patterns.Append("");
  EXPECT_TRUE(patterns.items.empty());
  patterns.Append("a*");
  patterns.Append("b,c");
  EXPECT_EQ(3U, patterns.items.size());
  EXPECT_EQ(1, WorkloadMatchList("c", patterns));
  EXPECT_EQ(0, WorkloadMatchList("", patterns));
  patterns.Append("");
  EXPECT_EQ(1, WorkloadMatchList("", patterns)) << "\"a*,b,c,\" ends in an empty item";
}

}  // namespace
}  // namespace ozmo
