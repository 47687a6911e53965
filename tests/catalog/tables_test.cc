// What scripts can name on which platform, and what every table must keep to.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "build_fixture.h"

namespace ozmo {
namespace {

// The vocabulary: the titles that exactly the platforms of these letters have, in the order of ALL_PLATFORMS.
constexpr std::string_view LETTERS = "AHLSTV";
const std::pair<std::string, std::vector<std::string>> VOCABULARY[] = {
    {"AHLSTV",
     {"Overall CPU Utilization", "Overall CPU Utilization By Mode", "Top 10 Images by CPU Utilization",
      "CPU Utilization of workload classes", "Top 10 Disks by I/O Operations", "Top 10 Disks by I/O Rate",
      "Top 10 Disks by Queue Length", "Top 10 Disks by Utilization",
      "Response Time of Top 10 Disks by I/O Rate", "Memory Utilization", "Process Count",
      "Process count by workload classes", "UDP packet Rate", "IP Packet Rate"}},
    {"AHLST",
     {"Top 10 Users by CPU Utilization", "Overall Disk I/O Operation Rate",
      "Top Ten File Systems by Disk Space Util", "Memory Allocation", "Overall LAN Packet Rates by Adapter",
      "Overall LAN Data Rates by Adapter"}},
    {"HLSTV", {"Overall CPU Utilization By Processor"}},
    {"AHSTV", {"Pagefault Rate", "IP Sent Packets Breakdown", "IP Packets Received Breakdown"}},
    {"AHLS", {"Number of Active CPUs"}},
    {"AHST", {"PageFaults By Type", "TCP Data rate", "TCP Received Packets Breakdown"}},
    {"HSTV", {"Pagefault I/O"}},
    {"AHTV", {"TCP Packet Rate"}},
    {"AHT", {"TCP Sent Packets Breakdown", "TCP Connections Established", "TCP Connections Closed"}},
    {"AT", {"Top 10 Disks by Space Utilization"}},
    {"LS", {"TCP  Segment Rate", "TCP Currently Established Connections", "TCP Connections Aborted"}},
    {"A",
     {"Overall CPU Utilization By Logical Processor", "Overall CPU Utilization By Core", "Paging In/Out Rate",
      "Overall Physical CPU Utilization", "Shared Pool CPU Utilization",
      "Virtual Processor Context Switch Rate", "LPAR Phantom Interrupt Rate"}},
    {"H", {"Overall Disk Disk Data Rate"}},
    {"V", {"Disk I/O Operation Rate", "TCP Connection Transitions"}},
    {"L", {"Process PageFaults By Type", "Pages In/Out"}},
    {"S", {"TCP Sent Segments Breakdown", "TCP Connections Opened"}},
};

TEST(Vocabulary, EachPlatformHasExactlyItsTitlesOnce) {
  for (size_t i = 0; i < LETTERS.size(); ++i) {
    std::multiset<std::string> expected;
    for (const auto& [letters, titles] : VOCABULARY) {
      if (letters.find(LETTERS[i]) != std::string::npos) expected.insert(titles.begin(), titles.end());
    }
    GraphCatalog catalog;
    CatalogFromTables(catalog, ALL_PLATFORMS[i]->records, ALL_PLATFORMS[i]->tree);
    std::multiset<std::string> reached;
    VisitGraphs(catalog.itemTree, [&](const GraphRecord& record) { reached.insert(record.title); });
    EXPECT_EQ(reached, expected) << LETTERS[i];
  }
}

}  // namespace
}  // namespace ozmo
