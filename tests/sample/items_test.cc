// Every item of every platform's tree shows something of the sample host, those of its disks, adapters and
// processors too: a graph that stays empty looks like a fault of the tool.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <set>
#include <span>
#include <string>
#include <string_view>

#include "catalog/builder.h"
#include "runtime/runtime.h"
#include "sample/kinds.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {
namespace {

struct Kind {
  const char* name;
  std::span<const std::string_view> empty;  // beginnings of titles that its files have no figures for
};

constexpr std::string_view AIX_EMPTY[] = {"Overall CPU Utilization By Core"};
constexpr std::string_view TRU64_EMPTY[] = {"Top 10 Disks by Space", "I/O rate for ", "Data rate for ",
                                            "Space Allocation for ", "UDP ",          "IP ",
                                            "Overall LAN "};

constexpr Kind KINDS[] = {{"solaris", {}}, {"linux", {}},          {"aix", AIX_EMPTY},
                          {"hpux", {}},    {"tru64", TRU64_EMPTY}, {"vmr", {}}};

std::tm AtHour(int hour) {
  std::tm time{};
  time.tm_year = 112;
  time.tm_mon = 1;
  time.tm_mday = 22;
  time.tm_hour = hour;
  return time;
}

class ItemsTest : public ::testing::TestWithParam<Kind> {};

TEST_P(ItemsTest, EachShowsSomething) {
  const Kind& kind = GetParam();
  const ScopedVariable zone("TZ", "UTC");
  const ScopedVariable library("VELTRIX_LIBRARY", OZMO_SOURCE_DIR);
  const TempDirectory directory;
  sample::SampleOptions options;
  options.directory = directory.path();
  options.intervalSeconds = 900;
  const sample::SampleResult written = sample::WriteSample(*sample::FindSampleKind(kind.name), options);
  ASSERT_EQ(written.error, "");
  Runtime runtime;
  DataReader reader(ReaderKindOf(written.files.at(0)), runtime);
  RunRequest request;
  request.vmrUnixFile = written.files.at(0);
  Seconds first = 0;
  ASSERT_EQ(reader.EntryPass(written.files[0], request.hostName, first), 1);
  request.beginTime = AtHour(0);
  request.endTime = AtHour(23);
  WorkloadClassList classes;
  const auto catalog = BuildCatalog(reader, request, classes, runtime);

  std::set<std::string> titles;  // -item finds the first of a title
  VisitGraphs(catalog->itemTree, [&](const GraphRecord& record) {
    if (!titles.insert(record.title).second) return;
    const auto startsTitle = [&](std::string_view start) { return record.title.starts_with(start); };
    // Stacked, so that the first set holds the sum of all.
    const bool shows = record.data.nsets() > 0 && std::ranges::max(record.data.y[0]) > 0;
    EXPECT_NE(shows, std::ranges::any_of(kind.empty, startsTitle)) << record.title;
  });
  EXPECT_GT(titles.size(), 50U);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ItemsTest, ::testing::ValuesIn(KINDS),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

}  // namespace
}  // namespace ozmo::testing
