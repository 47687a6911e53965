// Every item of every platform's tree shows something of the sample host, those of its disks, adapters and
// processors too: a graph that stays empty looks like a fault of the tool.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "catalog/build_catalog.h"
#include "programs/sample/kinds.h"
#include "runtime/runtime.h"
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

constexpr Seconds DAY_START = 1329868800;  // 22-Feb-2012 UTC

Seconds AtHour(int hour) { return DAY_START + Seconds{hour} * 3600; }

class ItemsTest : public ::testing::TestWithParam<Kind> {
 protected:
  // Writes hours of the kind's host.
  void Write(int startHour, int hours, int interval) {
    options_.directory = directory_.path();
    options_.startHour = startHour;
    options_.hours = hours;
    options_.intervalSeconds = interval;
    const sample::SampleResult written =
        sample::WriteSample(*sample::FindSampleKind(GetParam().name), options_);
    ASSERT_EQ(written.error, "");
    file_ = written.files.at(0);
    span_ = {AtHour(startHour), AtHour(startHour + hours - 1)};
  }

  std::unique_ptr<GraphCatalog> Build(const WantedTitles& titles) {
    Runtime runtime;
    DataReader reader(file_, runtime);
    ::testing::internal::CaptureStdout();
    WorkloadClassList classes;
    auto catalog = BuildCatalog(reader, span_, classes, titles, runtime);
    ::testing::internal::GetCapturedStdout();
    return catalog;
  }

  // The graphs that -item finds: the first of each title.
  static std::map<std::string, const GraphRecord*> Graphs(GraphCatalog& catalog) {
    std::map<std::string, const GraphRecord*> graphs;
    VisitGraphs(catalog.itemTree, [&](const GraphRecord& record) { graphs.emplace(record.title, &record); });
    return graphs;
  }

  const ScopedVariable zone_{"TZ", "UTC"};
  const ScopedVariable library_{"VELTRIX_LIBRARY", OZMO_SOURCE_DIR};
  const TempDirectory directory_;
  sample::SampleOptions options_;
  std::string file_;  // the first of the day
  Span span_;
};

TEST_P(ItemsTest, EachShowsSomething) {
  Write(0, 24, 900);
  const auto catalog = Build(WantedTitles::All());
  const auto graphs = Graphs(*catalog);
  for (const auto& [title, record] : graphs) {
    const auto startsTitle = [&](std::string_view start) { return record->title.starts_with(start); };
    // Stacked, so that the first set holds the sum of all.
    const bool shows = record->data.nsets() > 0 && std::ranges::max(record->data.y[0]) > 0;
    EXPECT_NE(shows, std::ranges::any_of(GetParam().empty, startsTitle)) << title;
    EXPECT_TRUE(!shows || record->Colour(0)) << title;  // of later sets some graphs name none
  }
  EXPECT_GT(graphs.size(), 50U);
}

// What nobody needs for a graph is neither read nor kept, and that changes nothing in it.
TEST_P(ItemsTest, EachIsTheSameAloneAndAmongAll) {
  Write(11, 2, 900);
  const auto catalog = Build(WantedTitles::All());
  for (const auto& [title, amongAll] : Graphs(*catalog)) {
    const auto one = Build(WantedTitles({title}));
    const auto graphs = Graphs(*one);
    ASSERT_EQ(graphs.count(title), 1U) << title;
    const GraphRecord& alone = *graphs.at(title);
    EXPECT_EQ(alone.data.y, amongAll->data.y) << title;
    EXPECT_EQ(alone.data.npoints, amongAll->data.npoints) << title;
    EXPECT_EQ(alone.traceLabels, amongAll->traceLabels) << title;
    EXPECT_EQ(alone.traceColours, amongAll->traceColours) << title;
    EXPECT_EQ(alone.yMax, amongAll->yMax) << title;
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, ItemsTest, ::testing::ValuesIn(KINDS),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

}  // namespace
}  // namespace ozmo::testing
