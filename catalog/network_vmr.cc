// Monitor text files name each protocol counter.
#include "catalog/network.h"

namespace ozmo {

void AddNetworkVmr(BuildState& state, const VmrContext& context) {
  if (!context.network) return;
  const NetworkRecord& n = *context.network;
  StoreTraces(
      state, Graph::TCP_PACKETS,
      {n.tcpSegmentsRetransmittedPerSecond, n.tcpSegmentsSentPerSecond, n.tcpSegmentsReceivedPerSecond});
  StoreTraces(
      state, Graph::TCP_TRANSITIONS,
      {n.tcpConnectionsReset, n.tcpConnectionsPassive, n.tcpConnectionsActive, n.tcpConnectionFailures});
  StoreTraces(state, Graph::TCP_CURRENT, {n.tcpConnectionsEstablished});  // no counter of the closed ones
  StoreTraces(state, Graph::UDP_PACKETS, {n.udpSentPerSecond, n.udpReceivedPerSecond});
  StoreTraces(state, Graph::IP_PACKETS, {n.ipSentPerSecond, n.ipReceivedPerSecond});
  StoreTraces(state, Graph::IP_SENT, {n.ipSentPerSecond, n.ipForwardedPerSecond});
  const float notConsumed =
      n.ipReceivedPerSecond - n.ipOutboundNoRoute - n.ipForwardedPerSecond - n.ipDeliveredPerSecond;
  StoreTraces(state, Graph::IP_RECEIVED,
              {notConsumed, n.ipOutboundNoRoute, n.ipForwardedPerSecond, n.ipDeliveredPerSecond});
}

}  // namespace ozmo
