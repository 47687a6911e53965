#include "workload/workload.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace ozmo {
namespace {

class ClassFile : public testing::Test {
 protected:
  ClassFile()
      : path_(testing::TempDir() + "/classes_" +
              testing::UnitTest::GetInstance()->current_test_info()->name()) {}
  ~ClassFile() override { std::filesystem::remove(path_); }

  int Load(const std::string& text) {
    std::ofstream(path_, std::ios::binary) << text;
    return WorkloadLoad(list_, path_);
  }
  // The definitions of `text` behind the two lines that a version 1 file opens with.
  int LoadVersion1(const std::string& text) { return Load("QTX_MEMORY_VERSION 1\nsize\n" + text); }

  std::string ClassOf(std::string_view user, std::string_view command) const {
    return list_.classes.at(static_cast<size_t>(WorkloadClassify(list_, user, command))).name;
  }

  WorkloadClassList list_;
  std::string path_;
};

TEST_F(ClassFile, MissingShortOrClasslessFilesGiveNothing) {
  EXPECT_EQ(0, WorkloadLoad(list_, path_ + ".missing"));
  EXPECT_EQ(0, WorkloadLoad(list_, testing::TempDir()));
  EXPECT_EQ(0, Load(""));
  EXPECT_EQ(0, Load("QTX_MEMORY_VERSION 1\n"));
  EXPECT_EQ(0, LoadVersion1(""));
  EXPECT_EQ(0, LoadVersion1("; class_name 1 \"a\"\n/* class_name 1 \"a\"\n\n  \nelse 1 \"a\"\n"));
  EXPECT_TRUE(list_.classes.empty());
}

TEST_F(ClassFile, QuotedValuesHoldBlanksWithVersionOne) {
  ASSERT_EQ(1, LoadVersion1("class_name 1 \"night batch\" trailing\nclass_command 2 \"/bin/a b*,c\"\n"));
  EXPECT_EQ("night batch", list_.classes[0].name);
  EXPECT_EQ(1, WorkloadMatchList("/bin/a bc", list_.classes[0].command));
}

TEST_F(ClassFile, BareValuesRunToTheEndOfTheLineWithVersionOne) {
  ASSERT_EQ(1, LoadVersion1("class_name 1 two words  \r\nclass_name 1 one\" two\nclass_name 1 \"\"\n"));
  EXPECT_EQ("two words", list_.classes[0].name);
  EXPECT_EQ("one", list_.classes[1].name);
  EXPECT_EQ("", list_.classes[2].name);
}

TEST_F(ClassFile, OtherVersionsTakeOneWordAsItStands) {
  for (const char* head : {"QTX_MEMORY_VERSION 2\nx\n", "QTX_MEMORY_VERSION\nx\n", "x\nx\n"}) {
    ASSERT_EQ(1, Load(std::string(head) + "class_name 1 \"two words\"\n")) << head;
    EXPECT_EQ("\"two", list_.classes[0].name) << head;
  }
}

TEST_F(ClassFile, VersionMarkIsReadInAnyCaseAndOneLetterShort) {
  for (const char* head : {"  qtx_memory_version 1", "QTX_MEMORY_VERSIO 1", "QTX_MEMORY_VERSIOX\t1"}) {
    ASSERT_EQ(1, Load(std::string(head) + "\nx\nclass_name 1 \"a b\"\n")) << head;
    EXPECT_EQ("a b", list_.classes[0].name) << head;
  }
}

TEST_F(ClassFile, FirstTwoLinesAreLostWithoutAVersion) {
  ASSERT_EQ(1, Load("class_name 1 a\nclass_name 1 b\nclass_name 1 c\n"));
  ASSERT_EQ(1U, list_.classes.size());
  EXPECT_EQ("c", list_.classes[0].name);
}

TEST_F(ClassFile, EmptyLinesAreNoLinesButBlankOnesAre) {
  ASSERT_EQ(1, Load("\n\r\nQTX_MEMORY_VERSION 1\n\nclass_name 1 \"dropped\"\nclass_name 1 \"a\"\n"));
  EXPECT_EQ(1U, list_.classes.size());
  ASSERT_EQ(1, Load("QTX_MEMORY_VERSION 1\n\t\nclass_name 1 \"a\"\nclass_name 1 \"b\"\n"));
  EXPECT_EQ(2U, list_.classes.size());
}

TEST_F(ClassFile, KeywordsMayBeShortenedToTheirLimit) {
  ASSERT_EQ(1, LoadVersion1("CLASS_NAME 1 \"a\"\n"
                            "class_comman 1 \"short\"\n"
                            "class_catch_al 1 1\n"
                            "class_names 1 \"b\"\n"
                            "class_na 1 \"c\"\n"
                            "class_growt 1 2.5\n"
                            "class_growth 1 1.5\n"));
  ASSERT_EQ(1U, list_.classes.size());
  EXPECT_TRUE(list_.classes[0].command.items.empty());
  EXPECT_FALSE(list_.catchAllClass);
  EXPECT_EQ(1.5, list_.classes[0].growth);
}

TEST_F(ClassFile, DefinitionsActOnTheLastClass) {
  ASSERT_EQ(
      1, LoadVersion1("class_uid 1 \"lost\"\n"
                      "class_name 1 \"a\"\nclass_uid 1 \"u1\"\nclass_uid 1 \"u2\"\nclass_limit 1 \"40.5\"\n"
                      "class_name 1 \"b\"\nclass_command 1 \"x*\"\nclass_volume 1 \"v\"\n"));
  ASSERT_EQ(2U, list_.classes.size());
  EXPECT_EQ(2U, list_.classes[0].uid.items.size());
  EXPECT_EQ(40.5, list_.classes[0].limit);
  EXPECT_TRUE(list_.classes[1].uid.items.empty());
  EXPECT_EQ(1U, list_.classes[1].volume.items.size());
}

TEST_F(ClassFile, ProcessTypesArePrefixesInOrder) {
  const std::pair<const char*, int> cases[] = {{"I", 1}, {"is", 10}, {"s", 2},       {"mscp", 11},
                                               {"n", 5}, {"", 7},    {"batches", 7}, {"Detached", 3}};
  for (const auto& [word, type] : cases) {
    ASSERT_EQ(1, LoadVersion1("class_name 1 \"a\"\nclass_type 1 \"" + std::string(word) + "\"\n"));
    EXPECT_EQ(type, list_.classes[0].classType) << word;
  }
}

TEST_F(ClassFile, LastCatchAllAboveZeroWins) {
  ASSERT_EQ(1, LoadVersion1("class_name 1 \"a\"\nclass_catch_all 1 1\nclass_uid 1 \"none\"\n"
                            "class_name 1 \"b\"\nclass_catch_all 1 2\nclass_uid 1 \"none\"\n"
                            "class_name 1 \"c\"\nclass_catch_all 1 0\nclass_uid 1 \"none\"\n"));
  EXPECT_EQ("b", ClassOf("someone", "ls"));
}

TEST_F(ClassFile, TheLastClassTakesTheRestWithoutACatchAll) {
  ASSERT_EQ(1, LoadVersion1(
                   "class_name 1 \"a\"\nclass_uid 1 \"none\"\nclass_name 1 \"b\"\nclass_uid 1 \"nobody\"\n"));
  EXPECT_EQ("b", ClassOf("someone", "ls"));
}

TEST_F(ClassFile, UserAndCommandMustBothMatchAndTheFirstClassWins) {
  ASSERT_EQ(1, LoadVersion1("class_name 1 \"both\"\nclass_uid 1 \"root\"\nclass_command 1 \"sh*\"\n"
                            "class_name 1 \"all\"\n"
                            "class_name 1 \"sh\"\nclass_command 1 \"sh*\"\n"));
  EXPECT_EQ("both", ClassOf("root", "sh -c"));
  EXPECT_EQ("all", ClassOf("guest", "sh -c")) << "a class without lists swallows what comes behind";
}

TEST_F(ClassFile, OverlongLinesComeInPieces) {
  const std::string filler(1023 - std::string("class_name 1 \"").size(), 'n');
  ASSERT_EQ(1, LoadVersion1("class_name 1 \"" + filler + "class_name 1 \"second\"\n"));
  ASSERT_EQ(2U, list_.classes.size());
  EXPECT_EQ(filler, list_.classes[0].name);
  EXPECT_EQ("second", list_.classes[1].name);
}

TEST_F(ClassFile, ListsGrowBeyondAnyLine) {
  std::string text = "class_name 1 \"a\"\n";
  for (int i = 0; i < 300; ++i) text += "class_uid 1 \"user" + std::to_string(i) + "\"\n";
  ASSERT_EQ(1, LoadVersion1(text + "class_name 1 \"rest\"\n"));
  EXPECT_EQ("a", ClassOf("user299", "x"));
  EXPECT_EQ("rest", ClassOf("user300", "x"));
}

TEST_F(ClassFile, LoadReplacesWhatWasThere) {
  ASSERT_EQ(1, LoadVersion1("class_name 1 \"a\"\nclass_catch_all 1 1\n"));
  EXPECT_EQ(0, Load(""));
  EXPECT_TRUE(list_.classes.empty());
  EXPECT_FALSE(list_.catchAllClass);
}

TEST_F(ClassFile, DefaultsTakeDaemonsBeforeRootAndOthersLast) {
  WorkloadDefaults(list_);
  EXPECT_EQ("daemons", ClassOf("root", "/usr/sbin/inetd -s"));
  EXPECT_EQ("root", ClassOf("root", "/sbin/init")) << "the item starts with a tab";
  EXPECT_EQ("root", ClassOf("root", "-ksh"));
  EXPECT_EQ("others", ClassOf("rooty", "-ksh"));
  EXPECT_EQ("cde", ClassOf("guest", "/usr/dt/bin/dtwm"));
  EXPECT_EQ("dc", ClassOf("root", "psdc"));
  EXPECT_EQ("others", ClassOf("guest", "knblink")) << "the item starts with a blank";
  EXPECT_FALSE(list_.catchAllClass);
}

}  // namespace
}  // namespace ozmo
