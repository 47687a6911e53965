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

// A build of one hour in a directory of its own, whose reader has nothing to read.
struct Build {
  Build() {
    std::tm time{};
    time.tm_mday = 22;
    time.tm_mon = 1;
    time.tm_year = 112;
    time.tm_isdst = -1;
    time.tm_hour = 8;
    request.beginTime = time;
    time.tm_hour = 9;
    request.endTime = time;
  }
  auto Catalog(ReaderKind kind) {
    DataReader reader(kind, runtime);
    return BuildCatalog(reader, request, classes, runtime);
  }
  std::vector<std::string> Classes(ReaderKind kind) {
    const auto catalog = Catalog(kind);
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
  RunRequest request;
  WorkloadClassList classes;
};

TEST(BuildCatalog, WithNothingToReadIsACatalogOfZeros) {
  for (const ReaderKind kind : {ReaderKind::SOLARIS, ReaderKind::AIX, ReaderKind::VMR}) {
    const auto catalog = Build().Catalog(kind);
    EXPECT_EQ(catalog->pointCount, 62);
    EXPECT_THAT(catalog->Find(Graph::OVERALL_CPU)->data.y, ElementsAre(Each(0.0F)));
  }
}

TEST(BuildCatalog, ClassesComeFromTheFileInTheWorkingDirectory) {
  Build build;
  build.WriteClassFile("veltrix.memory", "second choice");
  EXPECT_EQ(build.Classes(ReaderKind::SOLARIS).size(), 5U) << "only Linux tries this one";
  build.WriteClassFile("QTX.memory", "too late");
  EXPECT_EQ(build.Classes(ReaderKind::SOLARIS).size(), 5U) << "classes stay for the run";
}

TEST(BuildCatalog, LinuxTriesTwoClassFilesInOrder) {
  Build second;
  second.WriteClassFile("veltrix.memory", "second choice");
  EXPECT_THAT(second.Classes(ReaderKind::LINUX), ElementsAre("second choice"));
  Build first;
  first.WriteClassFile("veltrix.memory", "second choice");
  first.WriteClassFile("QTX.memory", "mine");
  EXPECT_THAT(first.Classes(ReaderKind::LINUX), ElementsAre("mine"));
}

}  // namespace
}  // namespace ozmo
