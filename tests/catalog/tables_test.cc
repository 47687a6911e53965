// What scripts can name on which platform, and what every table must keep to.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "catalog/platform.h"
#include "catalog/platform_tables.h"

namespace ozmo {
namespace {

struct Platform {
  char letter;
  const PlatformSpec& spec;
};
const Platform PLATFORMS[] = {{'A', AIX_PLATFORM},     {'H', HPUX_PLATFORM},  {'L', LINUX_PLATFORM},
                              {'S', SOLARIS_PLATFORM}, {'T', TRU64_PLATFORM}, {'V', VMR_PLATFORM}};

// The vocabulary: each title and the letters of the platforms whose tree leads to it.
struct Word {
  const char* title;
  const char* platforms;
};
const Word VOCABULARY[] = {
    {"Overall CPU Utilization", "AHLSTV"},
    {"Overall CPU Utilization By Mode", "AHLSTV"},
    {"Overall CPU Utilization By Logical Processor", "A"},
    {"Overall CPU Utilization By Core", "A"},
    {"Number of Active CPUs", "AHLS"},
    {"Top 10 Images by CPU Utilization", "AHLSTV"},
    {"Top 10 Users by CPU Utilization", "AHLST"},
    {"CPU Utilization of workload classes", "AHLSTV"},
    {"Overall CPU Utilization By Processor", "HLSTV"},
    {"Overall Disk I/O Operation Rate", "AHLST"},
    {"Top 10 Disks by I/O Operations", "AHLSTV"},
    {"Top 10 Disks by I/O Rate", "AHLSTV"},
    {"Top 10 Disks by Queue Length", "AHLSTV"},
    {"Top 10 Disks by Utilization", "AHLSTV"},
    {"Response Time of Top 10 Disks by I/O Rate", "AHLSTV"},
    {"Top 10 Disks by Space Utilization", "AT"},
    {"Overall Disk Disk Data Rate", "H"},
    {"Disk I/O Operation Rate", "V"},
    {"Top Ten File Systems by Disk Space Util", "AHLST"},
    {"Memory Utilization", "AHLSTV"},
    {"Memory Allocation", "AHLST"},
    {"Pagefault Rate", "AHSTV"},
    {"PageFaults By Type", "AHST"},
    {"Paging In/Out Rate", "A"},
    {"Pagefault I/O", "HSTV"},
    {"Process PageFaults By Type", "L"},
    {"Pages In/Out", "L"},
    {"Process Count", "AHLSTV"},
    {"Process count by workload classes", "AHLSTV"},
    {"TCP Packet Rate", "AHTV"},
    {"TCP Data rate", "AHST"},
    {"TCP Sent Packets Breakdown", "AHT"},
    {"TCP Received Packets Breakdown", "AHST"},
    {"TCP Connections Established", "AHT"},
    {"TCP Connections Closed", "AHT"},
    {"UDP packet Rate", "AHLSTV"},
    {"IP Packet Rate", "AHLSTV"},
    {"IP Sent Packets Breakdown", "AHSTV"},
    {"IP Packets Received Breakdown", "AHSTV"},
    {"TCP  Segment Rate", "LS"},
    {"TCP Currently Established Connections", "LS"},
    {"TCP Connections Aborted", "LS"},
    {"TCP Sent Segments Breakdown", "S"},
    {"TCP Connections Opened", "S"},
    {"TCP Connection Transitions", "V"},
    {"Overall LAN Packet Rates by Adapter", "AHLST"},
    {"Overall LAN Data Rates by Adapter", "AHLST"},
    {"Overall Physical CPU Utilization", "A"},
    {"Shared Pool CPU Utilization", "A"},
    {"Virtual Processor Context Switch Rate", "A"},
    {"LPAR Phantom Interrupt Rate", "A"},
};

// Titles that a platform's rows lead to, with the codes of their rows.
std::multimap<std::string, std::string> Reachable(GraphCatalog& catalog, const PlatformSpec& spec) {
  CatalogFromTables(catalog, spec.records(), spec.tree());
  std::multimap<std::string, std::string> titles;
  const auto walk = [&](const auto& self, const std::vector<GraphMenuEntry>& table) -> void {
    for (const GraphMenuEntry& row : table) {
      if (row.record != nullptr) titles.emplace(row.record->title, row.code);
      self(self, row.subTable);
    }
  };
  walk(walk, catalog.itemTree);
  return titles;
}

TEST(Vocabulary, EachPlatformHasExactlyItsTitlesOnce) {
  for (const Platform& platform : PLATFORMS) {
    std::multiset<std::string> expected;
    for (const Word& word : VOCABULARY) {
      if (std::string(word.platforms).find(platform.letter) != std::string::npos) expected.insert(word.title);
    }
    GraphCatalog catalog;
    std::multiset<std::string> reached;
    for (const auto& [title, code] : Reachable(catalog, platform.spec)) reached.insert(title);
    EXPECT_EQ(reached, expected) << platform.letter;
  }
}

TEST(Vocabulary, EveryGraphRowLeadsToARecord) {
  for (const Platform& platform : PLATFORMS) {
    const auto check = [&](const auto& self, std::span<const RowText> rows) -> void {
      for (const RowText& row : rows) {
        size_t records = 0;
        for (const RecordText& record : platform.spec.records()) records += record.graph == row.graph ? 1 : 0;
        EXPECT_EQ(records, row.kind == RowKind::GRAPH ? 1U : 0U) << platform.letter << ' ' << row.label;
        self(self, row.rows);
      }
    };
    check(check, platform.spec.tree());
  }
}

TEST(Vocabulary, SomeSeriesAreKeptThatNoRowLeadsTo) {
  const std::map<char, std::set<std::string>> hidden = {
      {'A', {"", "CPU Entitlement"}},
      {'H', {"Overall Disk I/O Rate By Type", "Top 10 Disks by Space Utilization"}},
      {'L', {"", "Overall Disk I/O Rate By Type", "Top 10 Disks by Space Utilization", "Pagefault Rate"}},
      {'S', {"", "Overall Disk I/O Rate By Type", "Top 10 Disks by Space Utilization"}},
      {'T', {"", "Overall Disk I/O Rate By Type"}},
      {'V',
       {"", "Top 10 Disks by Space Utilization", "Current TCP Connections", " Disk transfer Rate",
        "Disk transfer Rate ( Reads / Writes ) ", "Disk I/O Operations ( Reads / Writes ) ",
        "Overall LAN Packet Rates by Adapter", "Overall LAN Data Rates by Adapter"}}};
  for (const Platform& platform : PLATFORMS) {
    GraphCatalog catalog;
    const auto reached = Reachable(catalog, platform.spec);
    std::set<std::string> unreached;
    for (const RecordText& record : platform.spec.records()) {
      if (!reached.contains(record.title)) unreached.insert(record.title);
    }
    EXPECT_EQ(unreached, hidden.at(platform.letter)) << platform.letter;
  }
}

TEST(Vocabulary, AGraphStandsOnceInAPlatformsRecords) {
  for (const Platform& platform : PLATFORMS) {
    std::set<Graph> seen;
    for (const RecordText& record : platform.spec.records()) {
      EXPECT_TRUE(seen.insert(record.graph).second) << platform.letter << ' ' << record.title;
    }
  }
}

TEST(Trees, RootGroupsStandInThePlatformsOrder) {
  const std::map<char, std::string> orders = {
      {'A', "CPU DIO FSY MEM PRC NET LAN LPR "}, {'H', "CPU DIO FSY MEM PRC NET LAN "},
      {'L', "CPU DIO FSY MEM PRC NET LAN "},     {'S', "CPU DIO FSY MEM PRC NET LAN "},
      {'T', "CPU DIO FSY MEM NET PRC LAN "},     {'V', "CPU DIO MEM NET PRC "}};
  for (const Platform& platform : PLATFORMS) {
    std::string codes;
    for (const RowText& row : platform.spec.tree()) codes += std::string(row.code) + ' ';
    EXPECT_EQ(codes, orders.at(platform.letter)) << platform.letter;
  }
}

TEST(Trees, RowsOfDisksStartEmptyAndAdaptersBehindTheirSummary) {
  for (const Platform& platform : PLATFORMS) {
    GraphCatalog catalog;
    Reachable(catalog, platform.spec);
    ASSERT_NE(catalog.RuntimeRow(RowKind::DISKS), nullptr) << platform.letter;
    EXPECT_EQ(catalog.RuntimeRow(RowKind::DISKS)->code, "DSKN");
    EXPECT_TRUE(catalog.RuntimeRow(RowKind::DISKS)->subTable.empty());
    const GraphMenuEntry* lan = catalog.RuntimeRow(RowKind::ADAPTERS);
    ASSERT_EQ(lan == nullptr, platform.letter == 'V');
    if (lan != nullptr) {
      ASSERT_EQ(lan->subTable.size(), 1U);
      EXPECT_EQ(lan->subTable[0].code, "LANOVR");
    }
    EXPECT_EQ(catalog.RuntimeRow(RowKind::PROCESSORS) != nullptr, platform.letter == 'V');
  }
}

TEST(Trees, AixLabelsItsOperationsRowAsTheDataRate) {
  GraphCatalog catalog;
  const auto titles = Reachable(catalog, AIX_PLATFORM);
  EXPECT_EQ(titles.find("Top 10 Disks by I/O Operations")->second, "DOP10");
  EXPECT_EQ(titles.find("Top 10 Disks by I/O Rate")->second, "DKB10");
  std::string label;
  for (const GraphMenuEntry& row : catalog.itemTree[1].subTable) {
    if (row.code == "DOP10") label = row.label;
  }
  EXPECT_EQ(label, "Top 10 Disks by I/O Rate");
}

TEST(Records, EveryRecordOfARowHasAnAxisTitleAndALegendForOneNameAndOneValue) {
  for (const Platform& platform : PLATFORMS) {
    GraphCatalog catalog;
    const auto reached = Reachable(catalog, platform.spec);
    for (const RecordText& record : platform.spec.records()) {
      if (!reached.contains(record.title)) continue;
      const std::string legend = record.legendFormat;
      EXPECT_STRNE(record.yTitle, "") << record.title;
      EXPECT_NE(legend.find("%s"), std::string::npos) << record.title;
      EXPECT_NE(legend.find("%."), std::string::npos) << record.title;
    }
  }
}

TEST(Records, FixedTracesAreLabelledAndColoursAreOfThePalette) {
  std::set<std::string> colours = {"Blue"};
  for (const char* colour : Palette()) colours.insert(colour);
  for (const Platform& platform : PLATFORMS) {
    for (const RecordText& record : platform.spec.records()) {
      for (const TraceText& trace : record.traces) {
        const bool named = record.plan == SeriesPlan::RUN_TIME || record.title[0] == '\0';
        EXPECT_TRUE(named || trace.label != nullptr) << record.title;
        EXPECT_TRUE(trace.colour == nullptr || colours.contains(trace.colour)) << record.title;
      }
    }
  }
}

TEST(Records, RunTimeTracesTakeThePaletteBySetNumber) {
  GraphCatalog catalog;
  Reachable(catalog, SOLARIS_PLATFORM);
  const GraphRecord& record = *catalog.Find(Graph::CPU_BY_PROCESSOR);
  EXPECT_EQ(record.Colour(0), "LimeGreen");
  EXPECT_EQ(record.Colour(15), "Maroon");
  EXPECT_FALSE(record.Colour(16));
  EXPECT_FALSE(record.Label(0));
}

TEST(Records, StrayLabelOfTheResponseGraphStaysWhereItIs) {
  GraphCatalog catalog;
  Reachable(catalog, LINUX_PLATFORM);
  const GraphRecord& record = *catalog.Find(Graph::TOP_DISK_RESPONSE);
  EXPECT_FALSE(record.Label(10));
  EXPECT_EQ(record.Label(11), "Others");
  EXPECT_EQ(record.Colour(0), "LimeGreen");
}

}  // namespace
}  // namespace ozmo
