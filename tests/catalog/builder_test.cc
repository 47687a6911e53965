#include "catalog/builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

std::tm TimeOfDay(int hour) {
  std::tm time{};
  time.tm_year = 112;
  time.tm_mon = 1;
  time.tm_mday = 22;
  time.tm_hour = hour;
  time.tm_isdst = -1;
  return time;
}

// A build in a directory of its own, whose reader has nothing to read.
struct Build {
  std::vector<std::string> Classes(const PlatformSpec& platform, ReaderKind kind) {
    DataReader reader(kind, runtime);
    WorkloadClassList classes;
    const auto catalog = BuildCatalog(platform, reader, request, classes, runtime);
    const GraphRecord& record = *catalog->Find(Graph::CLASS_CPU);
    std::vector<std::string> names;
    for (int set = 0; set < record.data.nsets(); ++set) names.push_back(record.Label(set).value_or(""));
    return names;
  }
  void WriteClassFile(const char* name, const char* className) const {
    std::ofstream(directory / name) << "QTX_MEMORY_VERSION 1\nheading\nclass_name 0 \"" << className
                                    << "\"\n";
  }

  testing::TempDirectory directory;
  testing::ScopedDirectory inside{directory.path()};
  Runtime runtime;
  RunRequest request = [] {
    RunRequest hour;
    hour.beginTime = TimeOfDay(8);
    hour.endTime = TimeOfDay(9);
    return hour;
  }();
};

TEST(BuildCatalog, WithNothingToReadIsACatalogOfZeros) {
  Build build;
  for (const auto& [platform, kind] : {std::pair(&SOLARIS_PLATFORM, ReaderKind::SOLARIS),
                                       {&AIX_PLATFORM, ReaderKind::AIX},
                                       {&VMR_PLATFORM, ReaderKind::VMR}}) {
    DataReader reader(kind, build.runtime);
    WorkloadClassList classes;
    const auto catalog = BuildCatalog(*platform, reader, build.request, classes, build.runtime);
    EXPECT_EQ(catalog->pointCount, 62);
    EXPECT_EQ(catalog->spanEnd - catalog->spanStart, 3600);
    EXPECT_EQ(catalog->overlayScratch.size(), 63U);
    EXPECT_THAT(catalog->Find(Graph::OVERALL_CPU)->data.y, ElementsAre(Each(0.0F)));
  }
}

TEST(BuildCatalog, WithoutAClassFileTheFixedClassesStand) {
  Build build;
  EXPECT_THAT(build.Classes(LINUX_PLATFORM, ReaderKind::LINUX),
              ElementsAre("daemons", "cde", "dc", "root", "others"));
}

TEST(BuildCatalog, ClassesComeFromTheFileInTheWorkingDirectory) {
  Build build;
  build.WriteClassFile("QTX.memory", "mine");
  build.WriteClassFile("veltrix.memory", "second choice");
  EXPECT_THAT(build.Classes(LINUX_PLATFORM, ReaderKind::LINUX), ElementsAre("mine"));
}

TEST(BuildCatalog, OnlyLinuxTriesTheSecondClassFile) {
  Build build;
  build.WriteClassFile("veltrix.memory", "second choice");
  EXPECT_THAT(build.Classes(LINUX_PLATFORM, ReaderKind::LINUX), ElementsAre("second choice"));
  EXPECT_EQ(build.Classes(SOLARIS_PLATFORM, ReaderKind::SOLARIS).size(), 5U);
}

TEST(BuildCatalog, LoadedClassesStayForTheRun) {
  Build build;
  DataReader reader(ReaderKind::SOLARIS, build.runtime);
  WorkloadClassList classes;
  BuildCatalog(SOLARIS_PLATFORM, reader, build.request, classes, build.runtime);
  build.WriteClassFile("QTX.memory", "too late");
  const auto catalog = BuildCatalog(SOLARIS_PLATFORM, reader, build.request, classes, build.runtime);
  EXPECT_EQ(catalog->Find(Graph::CLASS_CPU)->data.nsets(), 5);
}

}  // namespace
}  // namespace ozmo
