// Solaris counters, by the names of the kernel's modules.
#include "catalog/solaris/network.h"

#include "readers/solaris/counters.h"

namespace ozmo::solaris_catalog {
using namespace solaris_counters;

void AddSolarisProtocols(const Minute& minute, const VmrContext& interval) {
  if (!interval.protocolCounters.primary) return;
  const auto& c = interval.protocolCounters.primary->counters;
  const float dataSent = (c[TCP_OUT_DATA_BYTES] + c[TCP_RETRANS_BYTES]) / 1000.0F;
  const float dataReceived = (c[TCP_IN_INORDER_BYTES] + c[TCP_IN_UNORDER_BYTES]) / 1000.0F;
  const float otherReceived = c[IP_IN_RECEIVES] - c[IP_IN_DELIVERS] - c[IP_IN_DISCARDS] -
                              c[IP_IN_UNKNOWN_PROTOS] - c[IP_FORW_DATAGRAMS] - c[IP_IN_ADDR_ERRORS] -
                              c[IP_IN_HDR_ERRORS];

  minute.Store(Graph::TCP_PACKETS, {c[TCP_OUT_SEGS], c[TCP_IN_SEGS]});
  minute.Store(Graph::TCP_DATA, {dataSent, dataReceived});
  minute.Store(Graph::TCP_SENT, {c[TCP_OUT_DATA_SEGS], c[TCP_OUT_ACK], c[TCP_OUT_URG], c[TCP_RETRANS_SEGS]});
  minute.Store(Graph::TCP_RECEIVED, {c[TCP_IN_INORDER_SEGS], c[TCP_IN_UNORDER_SEGS], c[TCP_IN_DUP_SEGS],
                                     c[TCP_IN_ACK_SEGS], c[TCP_IN_DUP_ACK]});
  minute.Store(Graph::TCP_CONNECTIONS, {c[TCP_CURR_ESTAB]});
  minute.Store(Graph::TCP_CLOSED, {c[TCP_ATTEMPT_FAILS], c[TCP_ESTAB_RESETS]});
  minute.Store(Graph::TCP_OPENED, {c[TCP_ACTIVE_OPENS], c[TCP_PASSIVE_OPENS]});
  minute.Store(Graph::UDP_PACKETS, {c[UDP_OUT_DATAGRAMS], c[UDP_IN_DATAGRAMS]});
  minute.Store(Graph::IP_PACKETS, {c[IP_OUT_REQUESTS], c[IP_IN_RECEIVES]});
  minute.Store(Graph::IP_SENT, {c[IP_OUT_REQUESTS], c[IP_OUT_DISCARDS]});
  minute.Store(Graph::IP_RECEIVED,
               {otherReceived, c[IP_IN_DELIVERS], c[IP_IN_DISCARDS], c[IP_IN_UNKNOWN_PROTOS],
                c[IP_FORW_DATAGRAMS], c[IP_IN_ADDR_ERRORS], c[IP_IN_HDR_ERRORS]});
}

}  // namespace ozmo::solaris_catalog
