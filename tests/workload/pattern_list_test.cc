// Pattern lists: one list against one text, and many lists by their index.
#include "workload/pattern_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "workload/classifier.h"

namespace ozmo {
namespace {

TEST(PatternList, MatchesByTheFormOfItsItems) {
  struct Case {
    const char* list;
    std::vector<const char*> matching;
    std::vector<const char*> others;
    MatchMode mode = MatchMode::WHOLE;
    bool ignoreCase = false;
  };
  const Case cases[] = {
      {"", {"anything", ""}, {}},
      {"root", {"root"}, {"rooty", "Root", ""}},
      {"a,b", {"a", "b"}, {"a,b"}},
      {"*inetd*", {"/usr/sbin/inetd -s"}, {"/usr/sbin/inet -s"}},
      {"dns*", {"dns", "dnsd"}, {"xdns"}},
      // Stars count at the ends only.
      {"ab*cd", {"ab*cd"}, {"abxcd"}},
      {"ab*cd*", {"ab*cd!"}, {"abxcd!"}},
      {"*", {"", "x"}, {}},
      {"**", {"", "x"}, {}},
      {"***", {"a*b"}, {"ab"}},
      // Blanks belong to the item; only an item to be contained overlooks those that the text starts with.
      {"a, knblink", {" knblink"}, {"knblink"}},
      {"\t/sbin/init*", {"\t/sbin/init 3"}, {"/sbin/init"}},
      {"* abc*", {"x abc"}, {"  abc"}},
      {"  a*,abc", {"  abc", "abc"}, {" abc"}},
      // A suffix wants a longer text; a text no longer than it ends the whole match.
      {"*abc", {"xabc"}, {"abcx", "abc"}},
      {"*abc,abc,ab,wxyz", {"wxyz"}, {"abc", "ab"}},
      {"ab,*abc", {"ab"}, {}},
      // An empty item is the empty text.
      {"a,,b", {""}, {"x"}},
      {"a,", {""}, {"x"}},
      {"rOOT,*inetd", {"Root", "/bin/INETD"}, {"rooty"}, MatchMode::WHOLE, true},
      {"tool.exe", {"tool.exe"}, {"tool"}},
      {"tool.exe,lib.so,*x.exe", {"tool"}, {"tool.exe", "lib", "xx"}, MatchMode::DROP_EXTENSION},
  };
  for (const Case& c : cases) {
    PatternList patterns;
    patterns.Append(c.list);
    const auto match = [&](const char* text) {
      return WorkloadMatchList(text, patterns, c.mode, c.ignoreCase);
    };
    for (const char* text : c.matching) EXPECT_EQ(match(text), 1) << c.list << " on " << text;
    for (const char* text : c.others) EXPECT_EQ(match(text), 0) << c.list << " on " << text;
  }
}

TEST(PatternList, AppendJoinsByAComma) {
  PatternList patterns;
  for (const char* list : {"", "a*", "b,c"}) patterns.Append(list);
  EXPECT_EQ(3U, patterns.items.size());
  EXPECT_EQ(0, WorkloadMatchList("", patterns));
  patterns.Append("");
  EXPECT_EQ(1, WorkloadMatchList("", patterns)) << "\"a*,b,c,\" ends in an empty item";
}

// The classifier looks up what trying one class after the other finds.
TEST(WorkloadClassifier, FindsWhatTryingEachClassFinds) {
  std::mt19937 random(1);
  const auto upTo = [&](size_t most) { return random() % (most + 1); };
  const auto text = [&] {
    std::string made;
    for (size_t left = upTo(4); left > 0; --left) made += "ab "[upTo(2)];
    return made;
  };
  for (int round = 0; round < 300; ++round) {
    WorkloadClassList list;
    list.classes.resize(1 + upTo(9));
    if (upTo(1) == 0) list.catchAllClass = upTo(list.classes.size() - 1);
    for (WorkloadClass& made : list.classes) {
      for (PatternList* patterns : {&made.uid, &made.command}) {
        for (size_t items = upTo(4); items > 0; --items) {
          patterns->Append((upTo(1) == 0 ? "*" : "") + text() + (upTo(1) == 0 ? "*" : ""));
        }
      }
    }
    const WorkloadClassifier classifier(list);
    for (int process = 0; process < 30; ++process) {
      const std::string user = text();
      const std::string command = text();
      const auto first = std::ranges::find_if(list.classes, [&](const WorkloadClass& each) {
        return WorkloadMatchList(user, each.uid) == 1 && WorkloadMatchList(command, each.command) == 1;
      });
      const auto rest = static_cast<std::ptrdiff_t>(list.catchAllClass.value_or(list.classes.size() - 1));
      ASSERT_EQ(WorkloadClassify(classifier, user, command),
                first == list.classes.end() ? rest : first - list.classes.begin())
          << round << ": \"" << user << "\", \"" << command << "\"";
    }
  }
}

}  // namespace
}  // namespace ozmo
