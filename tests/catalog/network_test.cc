#include <gtest/gtest.h>

#include <numeric>
#include <vector>

#include "build_fixture.h"

namespace ozmo {
namespace {

TEST(Network, EveryTraceOfEveryProtocolGraphIsFilled) {
  for (const PlatformSpec* platform : ALL_PLATFORMS) {
    BuildFixture fixture(*platform);
    fixture.context.protocolCounters.primary.emplace();
    fixture.context.network.emplace();
    fixture.TakeBusy(60, 10);
    for (GraphMenuEntry& group : fixture.catalog.itemTree) {
      if (group.code != "NET") continue;
      VisitGraphs(group.subTable, [&](const GraphRecord& record) {
        EXPECT_GT(record.data.nsets(), 0) << record.title;
        for (const Series& series : record.data.y) EXPECT_EQ(PointAt(series, 1), 0.0F) << record.title;
      });
    }
  }
}

TEST(Network, MonitorFilesNameTheirRates) {
  BuildFixture fixture(VMR_PLATFORM);
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
  fixture.TakeBusy(60, 10);
  EXPECT_EQ(fixture.Values("TCP Connection Transitions", 1), (std::vector<float>{3, 7, 8, 4}));
  EXPECT_EQ(fixture.Values("IP Packet Rate", 1)[0], 50.0F);
  EXPECT_EQ(fixture.Values("IP Sent Packets Breakdown", 1)[1], 9.0F);
  const std::vector<float> received = fixture.Values("IP Packets Received Breakdown", 1);
  EXPECT_EQ(received[0], 20.0F);
  EXPECT_EQ(std::accumulate(received.begin(), received.end(), 0.0F), 100.0F);
}

}  // namespace
}  // namespace ozmo
