#include "catalog/network.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <vector>

#include "pass_fixture.h"

namespace ozmo {
namespace {

void RunPass(PassFixture& fixture) { fixture.state.platform.network(fixture.state, fixture.context); }

TEST(Network, EveryTraceOfEveryProtocolGraphIsFilled) {
  for (const PlatformSpec* platform : ALL_PLATFORMS) {
    PassFixture fixture(*platform);
    fixture.context.kernel.primary.emplace();
    fixture.context.network.emplace();
    RunPass(fixture);
    for (GraphMenuEntry& group : fixture.catalog.itemTree) {
      if (group.code != "NET") continue;
      VisitGraphs(group.subTable, [&](const GraphRecord& record) {
        EXPECT_GT(record.data.nsets(), 0) << record.title;
        for (const Series& series : record.data.y) EXPECT_EQ(PointAt(series, 1), 0.0F) << record.title;
      });
    }
  }
}

// ---- Computed traces ----

struct TraceCase {
  const PlatformSpec& platform;
  std::vector<std::pair<size_t, float>> counters;  // the others are zero
  const char* title;
  std::vector<float> values;
};

const TraceCase TRACE_CASES[] = {
    // Sent data hold the received ones as well: data 17, retransmitted 19, in-sequence 27.
    {AIX_PLATFORM,
     {{17, 4000}, {19, 1000}, {27, 2000}, {34, 100}, {36, 200}, {38, 700}},
     "TCP Data rate",
     {8, 3}},
    // Attempts 0, accepts 1, established 2, drops 3, embryonic drops 4, closed 5.
    {HPUX_PLATFORM, {{0, 10}, {1, 6}, {2, 13}}, "TCP Connections Established", {3, 7, 6}},
    {HPUX_PLATFORM, {{3, 2}, {4, 1}, {5, 9}}, "TCP Connections Closed", {2, 1, 7}},
    // Received 54, forwarded 63, not forwardable 64, delivered 67, generated 68.
    {TRU64_PLATFORM, {{54, 100}, {63, 20}, {68, 40}}, "IP Packet Rate", {60, 100}},
    {TRU64_PLATFORM,
     {{54, 100}, {63, 20}, {64, 5}, {67, 60}},
     "IP Packets Received Breakdown",
     {15, 5, 20, 60}},
    {TRU64_PLATFORM, {{90, 8}, {98, 9}}, "UDP packet Rate", {9, 8}},
    {SOLARIS_PLATFORM,
     {{53, 100}, {54, 1}, {55, 1}, {56, 1}, {57, 1}, {58, 1}, {59, 80}},
     "IP Packets Received Breakdown",
     {15, 80, 1, 1, 1, 1, 1}},
    {SOLARIS_PLATFORM, {{12, 4000}, {14, 1000}, {28, 2000}, {30, 500}}, "TCP Data rate", {5, 2.5F}},
    {LINUX_PLATFORM, {{51, 3}, {52, 4}}, "TCP Connections Aborted", {7}},
};

TEST(Network, ComputedTracesCombineTheirCounters) {
  for (const TraceCase& test : TRACE_CASES) {
    PassFixture fixture(test.platform);
    KernelCounters& kernel = fixture.context.kernel.primary.emplace();
    for (const auto& [counter, value] : test.counters) kernel.counters[counter] = value;
    RunPass(fixture);
    EXPECT_EQ(fixture.Values(test.title), test.values) << test.title;
  }
}

// With a square in each counter: the counter that each set shows, and that of the sum of all sets.
TEST(Network, BreakdownsReadTheCounterOfTheirLabelAndAddUpToTheTotal) {
  struct Case {
    const PlatformSpec& platform;
    const char* title;
    std::vector<int> counters;
    int total;  // 0: none of the counters
  };
  const Case cases[] = {
      // Urgent packets stand ahead of window probes, against the counters' order.
      {HPUX_PLATFORM, "TCP Sent Packets Breakdown", {16, 18, 20, 22, 21, 23, 24}, 0},
      {HPUX_PLATFORM, "TCP Received Packets Breakdown", {26, 31, 33, 35, 37, 40, 45, 39, 28, 29, 30}, 25},
      {AIX_PLATFORM, "TCP Received Packets Breakdown", {26}, 25},
      {TRU64_PLATFORM, "IP Packets Received Breakdown", {}, 54},
      {SOLARIS_PLATFORM, "TCP Sent Segments Breakdown", {11, 15, 17, 13}, 0},
      {SOLARIS_PLATFORM, "TCP Received Packets Breakdown", {27, 29, 31, 23, 25}, 0},
      {SOLARIS_PLATFORM, "TCP  Segment Rate", {10}, 0},
      {LINUX_PLATFORM, "TCP  Segment Rate", {55}, 0},
  };
  for (const Case& test : cases) {
    PassFixture fixture(test.platform);
    KernelCounters& kernel = fixture.context.kernel.primary.emplace();
    for (size_t i = 0; i < kernel.counters.size(); ++i) kernel.counters[i] = static_cast<float>(i * i);
    RunPass(fixture);
    const std::vector<float> values = fixture.Values(test.title);
    ASSERT_GE(values.size(), test.counters.size()) << test.title;
    for (size_t set = 0; set < test.counters.size(); ++set) {
      EXPECT_EQ(std::sqrt(values[set]), static_cast<float>(test.counters[set])) << test.title << ' ' << set;
    }
    if (test.total == 0) continue;
    const float sum = std::accumulate(values.begin(), values.end(), 0.0F);
    EXPECT_EQ(sum, static_cast<float>(test.total * test.total)) << test.title;
  }
}

TEST(Network, MonitorFilesNameTheirRates) {
  PassFixture fixture(VMR_PLATFORM);
  NetworkRecord& n = fixture.context.network.emplace();
  n.tcpConnectionsReset = 3.0F;
  n.tcpConnectionsPassive = 7.0F;
  n.tcpConnectionsActive = 8.0F;
  n.tcpConnectionFailures = 4.0F;
  n.ipReceivedPerSecond = 100.0F;
  n.ipOutboundNoRoute = 1.0F;
  n.ipForwardedPerSecond = 9.0F;
  n.ipDeliveredPerSecond = 70.0F;
  n.ipSentPerSecond = 50.0F;
  RunPass(fixture);
  EXPECT_EQ(fixture.Values("TCP Connection Transitions"), (std::vector<float>{3, 7, 8, 4}));
  EXPECT_EQ(fixture.Values("IP Packet Rate")[0], 50.0F);
  EXPECT_EQ(fixture.Values("IP Sent Packets Breakdown")[1], 9.0F);
  const std::vector<float> received = fixture.Values("IP Packets Received Breakdown");
  EXPECT_EQ(received[0], 20.0F);
  EXPECT_EQ(std::accumulate(received.begin(), received.end(), 0.0F), 100.0F);
}

}  // namespace
}  // namespace ozmo
