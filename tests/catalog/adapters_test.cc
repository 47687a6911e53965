#include "catalog/adapters.h"

#include <gtest/gtest.h>

#include "pass_fixture.h"

namespace ozmo {
namespace {

constexpr const char* PACKETS = "Overall LAN Packet Rates by Adapter";
constexpr const char* DATA = "Overall LAN Data Rates by Adapter";

LanRecord& Push(PassFixture& fixture, const std::string& name, float packetsIn = 0.0F) {
  LanRecord& lan = fixture.context.lans.primary.Push();
  lan.adapterName = name;
  lan.packetsInRate = packetsIn;
  return lan;
}

void Add(PassFixture& fixture) {
  AddAdapters(fixture.state, fixture.context);
  fixture.context.lans.primary.Recycle();
}

// The rows of adapters, behind the summary.
std::vector<std::string> Adapters(PassFixture& fixture) {
  std::vector<std::string> names;
  for (const GraphMenuEntry& row : fixture.catalog.RuntimeRow(RowKind::ADAPTERS)->subTable) {
    if (row.code == "LAN") names.push_back(row.label);
  }
  return names;
}

TEST(Adapters, FirstSampleIsExactAndLaterOnesComeOutOneLower) {
  PassFixture fixture(AIX_PLATFORM);
  Push(fixture, "en0", 8.0F).bytesInRate = 3000.0F;
  Add(fixture);
  EXPECT_EQ(fixture.Value(PACKETS), 8.0F);
  EXPECT_EQ(fixture.Value(DATA), 3.0F);
  EXPECT_EQ(fixture.Value("en0"), 8.0F);

  fixture.state.point = 6;
  Push(fixture, "en0", 8.0F).bytesInRate = 3000.0F;
  Add(fixture);
  EXPECT_EQ(fixture.Value(PACKETS), 7.0F);
  EXPECT_EQ(fixture.Value(DATA), 2.0F);
  EXPECT_EQ(fixture.Value("en0"), 7.0F);
  EXPECT_EQ(PointAt(fixture.Find(PACKETS)->data.y[0], 5), MISSING_POINT);
}

TEST(Adapters, TwoRecordsOfOneIntervalAddUp) {
  PassFixture fixture(LINUX_PLATFORM);
  Push(fixture, "eth0", 8.0F);
  Push(fixture, "eth0", 5.0F);
  Add(fixture);
  EXPECT_EQ(fixture.Value(PACKETS), 13.0F);
  EXPECT_EQ(fixture.Value("eth0"), 13.0F);
  EXPECT_EQ(Adapters(fixture).size(), 1U);
}

TEST(Adapters, SummaryHasTwoSetsAnAdapter) {
  PassFixture fixture(HPUX_PLATFORM);
  LanRecord& lan = Push(fixture, "lan0", 1.0F);
  lan.packetsOutRate = 2.0F;
  lan.bytesInRate = 3000.0F;
  lan.bytesOutRate = 4000.0F;
  Add(fixture);
  Push(fixture, "lan1", 10.0F);
  Add(fixture);
  for (const char* title : {PACKETS, DATA}) {
    const GraphRecord* record = fixture.Find(title);
    ASSERT_EQ(record->data.nsets(), 4) << title;
    EXPECT_EQ(record->Label(1), "lan0 Outbound");
    EXPECT_EQ(record->Label(2), "lan1 Inbound");
    EXPECT_EQ(record->data.npoints, fixture.catalog.pointCount);
  }
  EXPECT_EQ(fixture.Value(PACKETS, 1), 2.0F);
  EXPECT_EQ(fixture.Value(PACKETS, 2), 10.0F);
  EXPECT_EQ(fixture.Value(DATA, 0), 3.0F);
  EXPECT_EQ(fixture.Value(DATA, 1), 4.0F);
}

TEST(Adapters, AllThreeGraphsAreTitledByTheNameAndTheFirstIsFound) {
  PassFixture fixture(SOLARIS_PLATFORM);
  LanRecord& lan = Push(fixture, "hme0", 1.0F);
  lan.errorsInRate = 0.25F;
  lan.errorsOutRate = 0.5F;
  lan.collisionRate = 0.75F;
  Add(fixture);
  const GraphRecord* found = fixture.Find("hme0");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->Label(0), "Packets Received");
  const GraphMenuEntry& row = fixture.catalog.RuntimeRow(RowKind::ADAPTERS)->subTable.back();
  ASSERT_EQ(row.subTable.size(), 3U);
  for (const GraphMenuEntry& graph : row.subTable) EXPECT_EQ(graph.record->title, "hme0");
  EXPECT_EQ(row.subTable[2].code, "LAN1ERROR");
  const XrtData& errors = row.subTable[2].record->data;
  ASSERT_EQ(errors.nsets(), 3);
  EXPECT_EQ(PointAt(errors.y[0], 1), 0.25F);
  EXPECT_EQ(PointAt(errors.y[1], 1), 0.5F);
  EXPECT_EQ(PointAt(errors.y[2], 1), 0.75F);
}

TEST(Adapters, TheSixteenthIsInNoGraph) {
  PassFixture fixture(AIX_PLATFORM);
  for (int i = 0; i < 16; ++i) {
    Push(fixture, std::string(1, static_cast<char>('a' + i)), 1.0F);
    Add(fixture);
  }
  EXPECT_EQ(Adapters(fixture).size(), 15U);
  EXPECT_EQ(fixture.Find(PACKETS)->data.nsets(), 30);
  EXPECT_EQ(fixture.Find("p"), nullptr);
  EXPECT_NE(fixture.Find("o"), nullptr);
}

TEST(Adapters, ANameThatBeginsAnotherSharesItsSummaryPair) {
  PassFixture fixture(AIX_PLATFORM);
  Push(fixture, "en10", 4.0F);
  Add(fixture);
  Push(fixture, "en1", 2.0F);
  Add(fixture);
  EXPECT_EQ(fixture.Find(PACKETS)->data.nsets(), 2);
  EXPECT_EQ(fixture.Value(PACKETS), 6.0F);
  EXPECT_EQ(fixture.Value("en10"), 4.0F);
  EXPECT_EQ(fixture.Value("en1"), 2.0F);
}

TEST(Adapters, TheLongerNameOfTwoHasAPairOfItsOwn) {
  PassFixture fixture(AIX_PLATFORM);
  Push(fixture, "en1", 2.0F);
  Add(fixture);
  Push(fixture, "en10", 4.0F);
  Add(fixture);
  EXPECT_EQ(fixture.Find(PACKETS)->data.nsets(), 4);
}

TEST(Adapters, PlatformsFilterByName) {
  PassFixture solaris(SOLARIS_PLATFORM);
  for (const char* name : {"lo", "", "hme0"}) Push(solaris, name);
  Add(solaris);
  EXPECT_EQ(Adapters(solaris), std::vector<std::string>{"hme0"});

  PassFixture linuxHost(LINUX_PLATFORM);
  for (const char* name : {"lo", ""}) Push(linuxHost, name);
  Add(linuxHost);
  EXPECT_EQ(Adapters(linuxHost), std::vector<std::string>{"lo"});

  PassFixture aix(AIX_PLATFORM);
  for (const char* name : {"lo", "en"}) Push(aix, name);
  Add(aix);
  EXPECT_EQ(Adapters(aix).size(), 2U);
}

TEST(Adapters, SomePlatformsHaveNoPass) {
  EXPECT_EQ(TRU64_PLATFORM.adapters, nullptr);
  EXPECT_EQ(VMR_PLATFORM.adapters, nullptr);
  EXPECT_NE(HPUX_PLATFORM.adapters, nullptr);
}

TEST(Adapters, ALongNameStands) {
  PassFixture fixture(AIX_PLATFORM);
  const std::string name(255, 'e');
  Push(fixture, name, 1.0F);
  Add(fixture);
  EXPECT_EQ(fixture.Find(PACKETS)->Label(0), name + " Inbound");
}

}  // namespace
}  // namespace ozmo
