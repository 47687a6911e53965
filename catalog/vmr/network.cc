// Monitor text files name each protocol counter.
#include "catalog/network.h"

namespace ozmo {

void AddNetworkVmr(BuildState& state, const VmrContext& context) {
  if (!context.network) return;
  const NetworkRecord& n = *context.network;
  StoreSets(
      state, Graph::TCP_PACKETS,
      {n.tcpSegmentsRetransmittedPerSecond, n.tcpSegmentsSentPerSecond, n.tcpSegmentsReceivedPerSecond});
  StoreSets(
      state, Graph::TCP_TRANSITIONS,
      {n.tcpConnectionsReset, n.tcpConnectionsPassive, n.tcpConnectionsActive, n.tcpConnectionFailures});
  StoreSets(state, Graph::TCP_CURRENT, {n.tcpConnectionsEstablished});  // no counter of the closed ones
  StoreSets(state, Graph::UDP_PACKETS, {n.udpSentPerSecond, n.udpReceivedPerSecond});
  StoreSets(state, Graph::IP_PACKETS, {n.ipSentPerSecond, n.ipReceivedPerSecond});
  StoreSets(state, Graph::IP_SENT, {n.ipSentPerSecond, n.ipForwardedPerSecond});
  const float notConsumed =
      n.ipReceivedPerSecond - n.ipOutboundNoRoute - n.ipForwardedPerSecond - n.ipDeliveredPerSecond;
  StoreSets(state, Graph::IP_RECEIVED,
            {notConsumed, n.ipOutboundNoRoute, n.ipForwardedPerSecond, n.ipDeliveredPerSecond});
}

}  // namespace ozmo
