// Monitor text files name each protocol counter.
#include "catalog/vmr/network.h"

namespace ozmo::vmr_catalog {

void AddVmrProtocols(const Minute& minute, const VmrContext& interval) {
  if (!interval.network) return;
  const NetworkRecord& n = *interval.network;
  minute.Store(Graph::TCP_PACKETS, {n.tcpSegmentsRetransmittedPerSecond, n.tcpSegmentsSentPerSecond,
                                    n.tcpSegmentsReceivedPerSecond});
  minute.Store(Graph::TCP_TRANSITIONS, {n.tcpConnectionsReset, n.tcpConnectionsPassive,
                                        n.tcpConnectionsActive, n.tcpConnectionFailures});
  minute.Store(Graph::TCP_CURRENT, {n.tcpConnectionsEstablished});  // no counter of the closed ones
  minute.Store(Graph::UDP_PACKETS, {n.udpSentPerSecond, n.udpReceivedPerSecond});
  minute.Store(Graph::IP_PACKETS, {n.ipSentPerSecond, n.ipReceivedPerSecond});
  minute.Store(Graph::IP_SENT, {n.ipSentPerSecond, n.ipForwardedPerSecond});
  const float notConsumed =
      n.ipReceivedPerSecond - n.ipOutboundNoRoute - n.ipForwardedPerSecond - n.ipDeliveredPerSecond;
  minute.Store(Graph::IP_RECEIVED,
               {notConsumed, n.ipOutboundNoRoute, n.ipForwardedPerSecond, n.ipDeliveredPerSecond});
}

}  // namespace ozmo::vmr_catalog
