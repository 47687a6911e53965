// Solaris numbers its counters as the kernel's modules name theirs: the statistics of tcp, ip, icmp and udp,
// one module behind the other, each in the order in which the kernel publishes them.
#include "catalog/network.h"

namespace ozmo {
namespace {

enum Counter : size_t {
  // tcp, from 0
  TCP_ACTIVE_OPENS = 4,
  TCP_PASSIVE_OPENS = 5,
  TCP_ATTEMPT_FAILS = 6,
  TCP_ESTAB_RESETS = 7,
  TCP_CURR_ESTAB = 8,
  TCP_IN_SEGS = 9,
  TCP_OUT_SEGS = 10,
  TCP_OUT_DATA_SEGS = 11,
  TCP_OUT_DATA_BYTES = 12,
  TCP_RETRANS_SEGS = 13,
  TCP_RETRANS_BYTES = 14,
  TCP_OUT_ACK = 15,
  TCP_OUT_URG = 17,
  TCP_IN_ACK_SEGS = 23,
  TCP_IN_DUP_ACK = 25,
  TCP_IN_INORDER_SEGS = 27,
  TCP_IN_INORDER_BYTES = 28,
  TCP_IN_UNORDER_SEGS = 29,
  TCP_IN_UNORDER_BYTES = 30,
  TCP_IN_DUP_SEGS = 31,
  // ip, from 51
  IP_IN_RECEIVES = 53,
  IP_IN_HDR_ERRORS = 54,
  IP_IN_ADDR_ERRORS = 55,
  IP_FORW_DATAGRAMS = 56,
  IP_IN_UNKNOWN_PROTOS = 57,
  IP_IN_DISCARDS = 58,
  IP_IN_DELIVERS = 59,
  IP_OUT_REQUESTS = 60,
  IP_OUT_DISCARDS = 61,
  // udp, from 116
  UDP_IN_DATAGRAMS = 116,
  UDP_OUT_DATAGRAMS = 118,
};

}  // namespace

void AddNetworkSolaris(BuildState& state, const VmrContext& context) {
  if (!context.kernel.primary) return;
  const auto& c = context.kernel.primary->counters;
  const float dataSent = (c[TCP_OUT_DATA_BYTES] + c[TCP_RETRANS_BYTES]) / 1000.0F;
  const float dataReceived = (c[TCP_IN_INORDER_BYTES] + c[TCP_IN_UNORDER_BYTES]) / 1000.0F;
  const float otherReceived = c[IP_IN_RECEIVES] - c[IP_IN_DELIVERS] - c[IP_IN_DISCARDS] -
                              c[IP_IN_UNKNOWN_PROTOS] - c[IP_FORW_DATAGRAMS] - c[IP_IN_ADDR_ERRORS] -
                              c[IP_IN_HDR_ERRORS];

  StoreSets(state, Graph::TCP_PACKETS, {c[TCP_OUT_SEGS], c[TCP_IN_SEGS]});
  StoreSets(state, Graph::TCP_DATA, {dataSent, dataReceived});
  StoreSets(state, Graph::TCP_SENT,
            {c[TCP_OUT_DATA_SEGS], c[TCP_OUT_ACK], c[TCP_OUT_URG], c[TCP_RETRANS_SEGS]});
  StoreSets(state, Graph::TCP_RECEIVED,
            {c[TCP_IN_INORDER_SEGS], c[TCP_IN_UNORDER_SEGS], c[TCP_IN_DUP_SEGS], c[TCP_IN_ACK_SEGS],
             c[TCP_IN_DUP_ACK]});
  StoreSets(state, Graph::TCP_CONNECTIONS, {c[TCP_CURR_ESTAB]});
  StoreSets(state, Graph::TCP_CLOSED, {c[TCP_ATTEMPT_FAILS], c[TCP_ESTAB_RESETS]});
  StoreSets(state, Graph::TCP_OPENED, {c[TCP_ACTIVE_OPENS], c[TCP_PASSIVE_OPENS]});
  StoreSets(state, Graph::UDP_PACKETS, {c[UDP_OUT_DATAGRAMS], c[UDP_IN_DATAGRAMS]});
  StoreSets(state, Graph::IP_PACKETS, {c[IP_OUT_REQUESTS], c[IP_IN_RECEIVES]});
  StoreSets(state, Graph::IP_SENT, {c[IP_OUT_REQUESTS], c[IP_OUT_DISCARDS]});
  StoreSets(state, Graph::IP_RECEIVED,
            {otherReceived, c[IP_IN_DELIVERS], c[IP_IN_DISCARDS], c[IP_IN_UNKNOWN_PROTOS],
             c[IP_FORW_DATAGRAMS], c[IP_IN_ADDR_ERRORS], c[IP_IN_HDR_ERRORS]});
}

}  // namespace ozmo
