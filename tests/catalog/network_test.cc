#include "catalog/network.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "pass_fixture.h"

namespace ozmo {
namespace {

class NetworkTest : public testing::Test {
 protected:
  static KernelCounters& Counters(PassFixture& fixture) {
    return fixture.context.kernel.primary ? *fixture.context.kernel.primary
                                          : fixture.context.kernel.primary.emplace();
  }
  static void Run(PassFixture& fixture) { fixture.state.platform.network(fixture.state, fixture.context); }

  // After FillDistinct: the element that each set shows.
  static std::vector<int> Elements(PassFixture& fixture, const char* title) {
    std::vector<int> elements;
    for (const Series& series : fixture.Find(title)->data.y) {
      elements.push_back(static_cast<int>(std::sqrt(PointAt(series, fixture.state.point))));
    }
    return elements;
  }

  // Sum of all sets of a graph at the point: what stacking puts into its top band.
  static float Sum(PassFixture& fixture, const char* title) {
    float sum = 0.0F;
    const GraphRecord* record = fixture.Find(title);
    for (const Series& series : record->data.y) sum += PointAt(series, fixture.state.point);
    return sum;
  }
};

// Distinct small whole numbers, exact in any order of adding.
void FillDistinct(KernelCounters& counters) {
  for (size_t i = 0; i < counters.counters.size(); ++i) counters.counters[i] = static_cast<float>(i * i);
}

TEST_F(NetworkTest, EveryTraceOfEveryProtocolGraphIsFilled) {
  for (const PlatformSpec* platform :
       {&AIX_PLATFORM, &HPUX_PLATFORM, &LINUX_PLATFORM, &SOLARIS_PLATFORM, &TRU64_PLATFORM, &VMR_PLATFORM}) {
    PassFixture fixture(*platform);
    fixture.context.kernel.primary.emplace();
    fixture.context.network.emplace();
    Run(fixture);
    for (GraphMenuEntry& group : fixture.catalog.itemTree) {
      if (group.code != "NET") continue;
      VisitGraphs(group.subTable, [&](const GraphRecord& record) {
        EXPECT_GT(record.data.nsets(), 0) << record.title;
        for (const Series& series : record.data.y) EXPECT_EQ(PointAt(series, 1), 0.0F) << record.title;
      });
    }
  }
}

TEST_F(NetworkTest, BsdReceivedBreakdownsAddUpToTheTotal) {
  for (const PlatformSpec* platform : {&AIX_PLATFORM, &HPUX_PLATFORM, &TRU64_PLATFORM}) {
    PassFixture fixture(*platform);
    FillDistinct(Counters(fixture));
    Run(fixture);
    EXPECT_EQ(Sum(fixture, "TCP Received Packets Breakdown"), 25.0F * 25.0F);
    EXPECT_EQ(Sum(fixture, "IP Packets Received Breakdown"), 54.0F * 54.0F);
    EXPECT_EQ(fixture.Value("IP Packet Rate", 1), 54.0F * 54.0F);
  }
}

TEST_F(NetworkTest, BsdBreakdownsReadTheCounterOfTheirLabel) {
  PassFixture fixture(HPUX_PLATFORM);
  FillDistinct(Counters(fixture));
  Run(fixture);
  // Urgent packets stand ahead of window probes, against the counters' order.
  EXPECT_EQ(Elements(fixture, "TCP Sent Packets Breakdown"), (std::vector<int>{16, 18, 20, 22, 21, 23, 24}));
  std::vector<int> received = Elements(fixture, "TCP Received Packets Breakdown");
  received.resize(11);  // the twelfth is what the others leave
  EXPECT_EQ(received, (std::vector<int>{26, 31, 33, 35, 37, 40, 45, 39, 28, 29, 30}));
}

TEST_F(NetworkTest, BsdSentDataHoldTheReceivedOnesAsWell) {
  PassFixture fixture(AIX_PLATFORM);
  auto& c = Counters(fixture).counters;
  c[17] = 4000.0F;  // data bytes
  c[19] = 1000.0F;  // retransmitted bytes
  c[27] = 2000.0F;  // in-sequence bytes
  c[34] = 100.0F;
  c[36] = 200.0F;
  c[38] = 700.0F;
  Run(fixture);
  EXPECT_EQ(fixture.Value("TCP Data rate", 1), 3.0F);
  EXPECT_EQ(fixture.Value("TCP Data rate", 0), 8.0F);
}

TEST_F(NetworkTest, BsdConnectionsTellSuccessFromFailure) {
  PassFixture fixture(HPUX_PLATFORM);
  auto& c = Counters(fixture).counters;
  c[0] = 10.0F;  // attempts
  c[1] = 6.0F;   // accepts
  c[2] = 13.0F;  // established
  c[3] = 2.0F;   // drops
  c[4] = 1.0F;   // embryonic drops
  c[5] = 9.0F;   // closed
  Run(fixture);
  EXPECT_EQ(fixture.Value("TCP Connections Established", 0), 3.0F);
  EXPECT_EQ(fixture.Value("TCP Connections Established", 1), 7.0F);
  EXPECT_EQ(fixture.Value("TCP Connections Established", 2), 6.0F);
  EXPECT_EQ(fixture.Value("TCP Connections Closed", 0), 2.0F);
  EXPECT_EQ(fixture.Value("TCP Connections Closed", 1), 1.0F);
  EXPECT_EQ(fixture.Value("TCP Connections Closed", 2), 7.0F);
}

TEST_F(NetworkTest, BsdPacketsSentAreGeneratedAndForwarded) {
  PassFixture fixture(TRU64_PLATFORM);
  auto& c = Counters(fixture).counters;
  c[54] = 100.0F;  // received
  c[63] = 20.0F;   // forwarded
  c[64] = 5.0F;    // not forwardable
  c[67] = 60.0F;   // delivered
  c[68] = 40.0F;   // generated
  c[90] = 8.0F;
  c[98] = 9.0F;
  Run(fixture);
  EXPECT_EQ(fixture.Value("IP Packet Rate", 0), 60.0F);
  EXPECT_EQ(fixture.Value("IP Sent Packets Breakdown", 1), 20.0F);
  EXPECT_EQ(fixture.Value("IP Packets Received Breakdown", 0), 15.0F);
  EXPECT_EQ(fixture.Value("IP Packets Received Breakdown", 3), 60.0F);
  EXPECT_EQ(fixture.Value("UDP packet Rate", 0), 9.0F);
  EXPECT_EQ(fixture.Value("UDP packet Rate", 1), 8.0F);
}

TEST_F(NetworkTest, SolarisOthersAreWhatTheKindsLeave) {
  PassFixture fixture(SOLARIS_PLATFORM);
  auto& c = Counters(fixture).counters;
  c[53] = 100.0F;
  for (size_t kind = 54; kind <= 58; ++kind) c[kind] = 1.0F;
  c[59] = 80.0F;
  Run(fixture);
  EXPECT_EQ(fixture.Value("IP Packets Received Breakdown", 0), 15.0F);
  EXPECT_EQ(fixture.Value("IP Packets Received Breakdown", 1), 80.0F);
  EXPECT_EQ(Sum(fixture, "IP Packets Received Breakdown"), 100.0F);
}

TEST_F(NetworkTest, SolarisBreakdownsReadTheirOwnCounters) {
  PassFixture fixture(SOLARIS_PLATFORM);
  FillDistinct(Counters(fixture));
  Run(fixture);
  EXPECT_EQ(Elements(fixture, "TCP Sent Segments Breakdown"), (std::vector<int>{11, 15, 17, 13}));
  EXPECT_EQ(Elements(fixture, "TCP Received Packets Breakdown"), (std::vector<int>{27, 29, 31, 23, 25}));
  EXPECT_EQ(fixture.Value("TCP Connections Opened", 1), 5.0F * 5.0F);
  EXPECT_EQ(fixture.Value("TCP Connections Aborted", 1), 7.0F * 7.0F);
  EXPECT_EQ(fixture.Value("TCP Currently Established Connections"), 8.0F * 8.0F);
  EXPECT_EQ(fixture.Value("TCP  Segment Rate", 0), 10.0F * 10.0F);
  EXPECT_EQ(fixture.Value("UDP packet Rate", 0), 118.0F * 118.0F);
}

TEST_F(NetworkTest, LinuxAbortedConnectionsAreOneSum) {
  PassFixture fixture(LINUX_PLATFORM);
  FillDistinct(Counters(fixture));
  Run(fixture);
  ASSERT_EQ(fixture.Find("TCP Connections Aborted")->data.nsets(), 1);
  EXPECT_EQ(fixture.Value("TCP Connections Aborted"), 51.0F * 51.0F + 52.0F * 52.0F);
  EXPECT_EQ(fixture.Value("TCP  Segment Rate", 0), 55.0F * 55.0F);
  EXPECT_EQ(fixture.Value("IP Packet Rate", 0), 81.0F);
  EXPECT_EQ(fixture.Value("UDP packet Rate", 0), 3600.0F);
}

TEST_F(NetworkTest, MonitorFilesNameTheirRates) {
  PassFixture fixture(VMR_PLATFORM);
  NetworkRecord& n = fixture.context.network.emplace();
  n.tcpSegmentsRetransmittedPerSecond = 1.0F;
  n.tcpSegmentsSentPerSecond = 2.0F;
  n.tcpConnectionsReset = 3.0F;
  n.tcpConnectionsPassive = 7.0F;
  n.tcpConnectionsActive = 8.0F;
  n.tcpConnectionFailures = 4.0F;
  n.ipReceivedPerSecond = 100.0F;
  n.ipOutboundNoRoute = 1.0F;
  n.ipForwardedPerSecond = 9.0F;
  n.ipDeliveredPerSecond = 70.0F;
  n.ipSentPerSecond = 50.0F;
  n.udpSentPerSecond = 6.0F;
  Run(fixture);
  EXPECT_EQ(fixture.Value("TCP Packet Rate", 0), 1.0F);
  EXPECT_EQ(fixture.Value("TCP Packet Rate", 1), 2.0F);
  EXPECT_EQ(fixture.Value("TCP Connection Transitions", 0), 3.0F);
  EXPECT_EQ(fixture.Value("TCP Connection Transitions", 1), 7.0F);
  EXPECT_EQ(fixture.Value("TCP Connection Transitions", 2), 8.0F);
  EXPECT_EQ(fixture.Value("TCP Connection Transitions", 3), 4.0F);
  EXPECT_EQ(fixture.Value("IP Packet Rate", 0), 50.0F);
  EXPECT_EQ(fixture.Value("IP Sent Packets Breakdown", 1), 9.0F);
  EXPECT_EQ(fixture.Value("IP Packets Received Breakdown", 0), 20.0F);
  EXPECT_EQ(Sum(fixture, "IP Packets Received Breakdown"), 100.0F);
  EXPECT_EQ(fixture.Value("UDP packet Rate", 0), 6.0F);
}

}  // namespace
}  // namespace ozmo
