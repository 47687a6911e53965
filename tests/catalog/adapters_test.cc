#include "catalog/adapters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "build_fixture.h"

namespace ozmo {
namespace {

using testing::ElementsAre;

constexpr const char* PACKETS = "Overall LAN Packet Rates by Adapter";

struct AdapterFixture : BuildFixture {
  using BuildFixture::BuildFixture;
  // The next interval has these adapters, in the order in which they are worked in.
  void Add(const std::vector<LanRecord>& lans) {
    for (auto lan = lans.rbegin(); lan != lans.rend(); ++lan) context.lans.primary.Push() = *lan;
    TakeBusy(60 * ++point, 10);
  }
  std::vector<float> Last(const char* title) { return Values(title, point); }
  // The rows of adapters, behind the summary.
  std::vector<std::string> Adapters() {
    std::vector<std::string> names;
    for (const GraphMenuEntry& row : catalog.RuntimeRow(RowKind::ADAPTERS)->subTable) {
      if (row.code == "LAN") names.push_back(row.label);
    }
    return names;
  }
  int point = 0;
};

TEST(Adapters, AllThreeGraphsAreTitledByTheNameAndTheFirstIsFound) {
  AdapterFixture fixture(SOLARIS_PLATFORM);
  fixture.Add(
      {{.adapterName = "hme0", .errorsInRate = 0.25F, .errorsOutRate = 0.5F, .collisionRate = 0.75F}});
  EXPECT_EQ(fixture.Find("hme0")->Label(0), "Packets Received");
  const GraphMenuEntry& row = fixture.catalog.RuntimeRow(RowKind::ADAPTERS)->subTable.back();
  ASSERT_EQ(row.subTable.size(), 3U);
  for (const GraphMenuEntry& graph : row.subTable) EXPECT_EQ(graph.record->title, "hme0");
  std::vector<float> errors;
  for (const Series& series : row.subTable[2].record->data.y) errors.push_back(PointAt(series, 1));
  EXPECT_THAT(errors, ElementsAre(0.25F, 0.5F, 0.75F));
}

TEST(Adapters, TheSixteenthIsInNoGraph) {
  AdapterFixture fixture(AIX_PLATFORM);
  for (char name = 'a'; name <= 'p'; ++name) fixture.Add({{.adapterName = std::string(1, name)}});
  EXPECT_EQ(fixture.Adapters().back(), "o");
  EXPECT_EQ(fixture.Adapters().size(), 15U);
  EXPECT_EQ(fixture.Find(PACKETS)->data.nsets(), 30);
}

TEST(Adapters, ANameSharesTheSummaryPairOfAnEarlierOneThatItBeginsOnly) {
  const LanRecord en1 = {.adapterName = "en1", .packetsInRate = 2};
  const LanRecord en10 = {.adapterName = "en10", .packetsInRate = 4};
  AdapterFixture longerFirst(AIX_PLATFORM);
  longerFirst.Add({en10, en1});
  EXPECT_THAT(longerFirst.Last(PACKETS), ElementsAre(6, 0));
  AdapterFixture shorterFirst(AIX_PLATFORM);
  shorterFirst.Add({en1, en10});
  EXPECT_THAT(shorterFirst.Last(PACKETS), ElementsAre(2, 0, 4, 0));
}

TEST(Adapters, PlatformsFilterByName) {
  const std::string longName = std::string(254, 'e') + "0";
  const auto kept = [&](const PlatformSpec& platform) {
    AdapterFixture fixture(platform);
    fixture.Add({{.adapterName = "lo"}, {.adapterName = ""}, {.adapterName = longName}});
    return fixture.Adapters();
  };
  EXPECT_THAT(kept(SOLARIS_PLATFORM), ElementsAre(longName));
  EXPECT_THAT(kept(LINUX_PLATFORM), ElementsAre("lo", longName));
}

}  // namespace
}  // namespace ozmo
