// The class file, and the classes that are there without one.
#include "workload/workload.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/temp_directory.h"
#include "workload/classifier.h"

namespace ozmo::testing {
namespace {

class ClassFile : public ::testing::Test {
 protected:
  int Load(const std::string& text) {
    std::ofstream(path_, std::ios::binary) << text;
    return WorkloadLoad(list_, path_);
  }
  // The names of the classes, each with a comma after it.
  std::string NamesIn(const std::string& text) {
    Load(text);
    std::string names;
    for (const WorkloadClass& each : list_.classes) names += each.name + ",";
    return names;
  }
  // The definitions of `text` after the two lines that a version 1 file opens with.
  int LoadVersion1(const std::string& text) { return Load("QTX_MEMORY_VERSION 1\nsize\n" + text); }

  std::string ClassOf(std::string_view user, std::string_view command) const {
    return list_.classes.at(static_cast<size_t>(WorkloadClassify(WorkloadClassifier(list_), user, command)))
        .name;
  }

  TempDirectory directory_;
  std::string path_ = directory_ / "QTX.memory";
  WorkloadClassList list_;
};

TEST_F(ClassFile, VersionAndLinesDecideWhatIsAName) {
  const std::string longName(1023 - std::string("class_name 1 \"").size(), 'n');
  const std::string version1 = "QTX_MEMORY_VERSION 1\nsize\n";
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"QTX_MEMORY_VERSION 1\n", ""},
      {version1 + "; class_name 1 \"a\"\n/* class_name 1 \"a\"\n\n  \nelse 1 \"a\"\nclass_na 1 \"a\"\n", ""},
      {version1 + "CLASS_NAME 1 \"night batch\" trailing\nclass_names 1 \"a\"\n", "night batch,"},
      {version1 + "class_name 1 two words  \r\nclass_name 1 one\" two\nclass_name 1 \"\"\n",
       "two words,one,,"},
      {"QTX_MEMORY_VERSION 2\nx\nclass_name 1 \"two words\"\n", "\"two,"},
      {"QTX_MEMORY_VERSION\nx\nclass_name 1 \"two words\"\n", "\"two,"},
      {"class_name 1 a\nclass_name 1 b\nclass_name 1 c d\n",
       "c,"},  // no version, and the second line is lost
      {"  qtx_memory_version 1\nx\nclass_name 1 \"a b\"\n", "a b,"},
      {"QTX_MEMORY_VERSIOX\t1\nx\nclass_name 1 \"a b\"\n", "a b,"},  // one letter of the mark is free
      // Empty lines are none, blank ones are.
      {"\n\r\nQTX_MEMORY_VERSION 1\n\nclass_name 1 \"lost\"\nclass_name 1 \"a\"\n", "a,"},
      {"QTX_MEMORY_VERSION 1\n\t\nclass_name 1 \"a\"\nclass_name 1 \"b\"\n", "a,b,"},
      // A line beyond its longest comes in pieces.
      {version1 + "class_name 1 \"" + longName + "class_name 1 \"second\"\n", longName + ",second,"},
  };
  for (const auto& [text, names] : cases) EXPECT_EQ(NamesIn(text), names) << text;
}

TEST_F(ClassFile, WithoutAClassNothingStays) {
  for (const std::string& path : {directory_ / "missing", directory_ / ""}) {
    ASSERT_EQ(LoadVersion1("class_name 1 \"a\"\nclass_catch_all 1 1\n"), 1);
    EXPECT_EQ(WorkloadLoad(list_, path), 0);
    EXPECT_TRUE(list_.classes.empty());
    EXPECT_FALSE(list_.catchAllClass);
  }
}

TEST_F(ClassFile, DefinitionsActOnTheLastClass) {
  ASSERT_EQ(
      1, LoadVersion1("class_uid 1 \"lost\"\n"
                      "class_name 1 \"a\"\nclass_uid 1 \"u1\"\nclass_uid 1 \"u2\"\nclass_limit 1 \"40.5\"\n"
                      "class_comman 1 \"short\"\nclass_catch_al 1 1\nclass_growt 1 2.5\nclass_growth 1 1.5\n"
                      "class_name 1 \"b\"\nclass_command 1 \"x*\"\nclass_volume 1 \"v\"\n"));
  const WorkloadClass& first = list_.classes[0];
  const WorkloadClass& second = list_.classes[1];
  EXPECT_EQ(std::tuple(first.uid.items.size(), first.command.items.size(), first.limit, first.growth),
            std::tuple(2U, 0U, 40.5, 1.5));
  EXPECT_EQ(std::tuple(second.uid.items.size(), second.command.items.size(), second.volume.items.size()),
            std::tuple(0U, 1U, 1U));
  EXPECT_FALSE(list_.catchAllClass);
}

TEST_F(ClassFile, ProcessTypesArePrefixesInOrder) {
  const std::pair<const char*, int> cases[] = {{"I", 1}, {"is", 10}, {"s", 2},       {"mscp", 11},
                                               {"n", 5}, {"", 7},    {"batches", 7}, {"Detached", 3}};
  for (const auto& [word, type] : cases) {
    ASSERT_EQ(1, LoadVersion1("class_name 1 \"a\"\nclass_type 1 \"" + std::string(word) + "\"\n"));
    EXPECT_EQ(type, list_.classes[0].classType) << word;
  }
}

TEST_F(ClassFile, FirstClassThatMatchesBothWinsAndTheLastCatchAllTakesTheRest) {
  const std::string classes =
      "class_name 1 \"both\"\nclass_uid 1 \"root\"\nclass_command 1 \"sh*\"\n"
      "class_name 1 \"a\"\nclass_catch_all 1 1\nclass_uid 1 \"none\"\n"
      "class_name 1 \"b\"\nclass_catch_all 1 2\nclass_uid 1 \"none\"\n"
      "class_name 1 \"c\"\nclass_catch_all 1 0\nclass_uid 1 \"guest\"\n";
  ASSERT_EQ(1, LoadVersion1(classes + "class_name 1 \"d\"\nclass_uid 1 \"none\"\n"));
  EXPECT_EQ(ClassOf("root", "sh -c"), "both");
  EXPECT_EQ(ClassOf("root", "ls"), "b");
  EXPECT_EQ(ClassOf("guest", "sh -c"), "c");
  ASSERT_EQ(1, LoadVersion1("class_name 1 \"all\"\n" + classes));
  EXPECT_EQ(ClassOf("root", "sh -c"), "all") << "a class without lists swallows what comes after";
}

TEST_F(ClassFile, DefaultsTakeDaemonsBeforeRootAndOthersLast) {
  WorkloadDefaults(list_);
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"root", "/usr/sbin/inetd -s", "daemons"},
      {"root", "/sbin/init", "root"},  // the item starts with a tab
      {"root", "-ksh", "root"},
      {"rooty", "-ksh", "others"},
      {"guest", "/usr/dt/bin/dtwm", "cde"},
      {"root", "psdc", "dc"},
      {"guest", "knblink", "others"},  // the item starts with a blank
  };
  for (const auto& [user, command, name] : cases) EXPECT_EQ(ClassOf(user, command), name) << command;
  EXPECT_FALSE(list_.catchAllClass);
}

}  // namespace
}  // namespace ozmo::testing
