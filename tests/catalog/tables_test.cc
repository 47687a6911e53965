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

TEST(Vocabulary, AGraphStandsOnceInAPlatformsRecords) {
  for (const Platform& platform : PLATFORMS) {
    std::set<Graph> seen;
    for (const RecordText& record : platform.spec.records()) {
      EXPECT_TRUE(seen.insert(record.graph).second) << platform.letter << ' ' << record.title;
    }
  }
}

}  // namespace
}  // namespace ozmo
