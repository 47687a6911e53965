// AIX, HP-UX and Tru64 keep the classic BSD protocol statistics: the members of struct tcpstat, ipstat and
// udpstat in their order. A counter that a format lacks is 0.
#include "catalog/network.h"

namespace ozmo {
namespace {

enum Counter : size_t {
  // struct tcpstat, from 0
  TCP_ATTEMPTS = 0,
  TCP_ACCEPTS = 1,
  TCP_ESTABLISHED = 2,
  TCP_DROPS = 3,
  TCP_EMBRYONIC_DROPS = 4,
  TCP_CLOSED = 5,
  TCP_SENT_TOTAL = 15,
  TCP_SENT_DATA = 16,
  TCP_SENT_DATA_BYTES = 17,
  TCP_RETRANSMITTED = 18,
  TCP_RETRANSMITTED_BYTES = 19,
  TCP_SENT_ACKS = 20,
  TCP_SENT_PROBES = 21,
  TCP_SENT_URGENT = 22,
  TCP_SENT_WINDOW_UPDATES = 23,
  TCP_SENT_CONTROL = 24,
  TCP_RECEIVED_TOTAL = 25,
  TCP_IN_SEQUENCE = 26,
  TCP_IN_SEQUENCE_BYTES = 27,
  TCP_BAD_CHECKSUM = 28,
  TCP_BAD_OFFSET = 29,
  TCP_SHORT = 30,
  TCP_DUPLICATE = 31,
  TCP_PARTLY_DUPLICATE = 33,
  TCP_PARTLY_DUPLICATE_BYTES = 34,
  TCP_OUT_OF_ORDER = 35,
  TCP_OUT_OF_ORDER_BYTES = 36,
  TCP_AFTER_WINDOW = 37,
  TCP_AFTER_WINDOW_BYTES = 38,
  TCP_AFTER_CLOSE = 39,
  TCP_WINDOW_PROBES = 40,
  TCP_WINDOW_UPDATES = 45,
  // struct ipstat, from 54
  IP_RECEIVED = 54,
  IP_FORWARDED = 63,
  IP_NOT_FORWARDABLE = 64,
  IP_DELIVERED = 67,
  IP_GENERATED = 68,
  // struct udpstat, from 90
  UDP_RECEIVED = 90,
  UDP_SENT = 98,
};

using Counters = decltype(KernelCounters::counters);

void AddTcpTraffic(BuildState& state, const Counters& c) {
  StoreSets(state, Graph::TCP_PACKETS, {c[TCP_SENT_TOTAL], c[TCP_RECEIVED_TOTAL]});

  // The sent trace holds the received rate as well, so stacking counts that twice in the top band.
  const float received = (c[TCP_IN_SEQUENCE_BYTES] + c[TCP_PARTLY_DUPLICATE_BYTES] +
                          c[TCP_OUT_OF_ORDER_BYTES] + c[TCP_AFTER_WINDOW_BYTES]) /
                         1000.0F;
  const float sent = (c[TCP_SENT_DATA_BYTES] + c[TCP_RETRANSMITTED_BYTES]) / 1000.0F + received;
  StoreSets(state, Graph::TCP_DATA, {sent, received});
}

void AddTcpBreakdowns(BuildState& state, const Counters& c) {
  StoreSets(state, Graph::TCP_SENT,
            {c[TCP_SENT_DATA], c[TCP_RETRANSMITTED], c[TCP_SENT_ACKS], c[TCP_SENT_URGENT], c[TCP_SENT_PROBES],
             c[TCP_SENT_WINDOW_UPDATES], c[TCP_SENT_CONTROL]});

  constexpr Counter RECEIVED_KINDS[] = {TCP_IN_SEQUENCE,    TCP_DUPLICATE,    TCP_PARTLY_DUPLICATE,
                                        TCP_OUT_OF_ORDER,   TCP_AFTER_WINDOW, TCP_WINDOW_PROBES,
                                        TCP_WINDOW_UPDATES, TCP_AFTER_CLOSE,  TCP_BAD_CHECKSUM,
                                        TCP_BAD_OFFSET,     TCP_SHORT};
  int set = 0;
  float sum = 0.0F;
  for (const Counter kind : RECEIVED_KINDS) {
    state.catalog.Store(Graph::TCP_RECEIVED, set++, state.point, c[kind]);
    sum += c[kind];
  }
  state.catalog.Store(Graph::TCP_RECEIVED, set, state.point, c[TCP_RECEIVED_TOTAL] - sum);
}

void AddTcpConnections(BuildState& state, const Counters& c) {
  const float unsuccessful = c[TCP_ATTEMPTS] + c[TCP_ACCEPTS] - c[TCP_ESTABLISHED];
  StoreSets(state, Graph::TCP_CONNECTIONS, {unsuccessful, c[TCP_ATTEMPTS] - unsuccessful, c[TCP_ACCEPTS]});
  StoreSets(state, Graph::TCP_CLOSED, {c[TCP_DROPS], c[TCP_EMBRYONIC_DROPS], c[TCP_CLOSED] - c[TCP_DROPS]});
}

void AddIpAndUdp(BuildState& state, const Counters& c) {
  StoreSets(state, Graph::UDP_PACKETS, {c[UDP_SENT], c[UDP_RECEIVED]});
  StoreSets(state, Graph::IP_PACKETS, {c[IP_GENERATED] + c[IP_FORWARDED], c[IP_RECEIVED]});
  StoreSets(state, Graph::IP_SENT, {c[IP_GENERATED], c[IP_FORWARDED]});
  const float notConsumed = c[IP_RECEIVED] - c[IP_DELIVERED] - c[IP_FORWARDED] - c[IP_NOT_FORWARDABLE];
  StoreSets(state, Graph::IP_RECEIVED,
            {notConsumed, c[IP_NOT_FORWARDABLE], c[IP_FORWARDED], c[IP_DELIVERED]});
}

}  // namespace

void AddNetworkBsd(BuildState& state, const VmrContext& context) {
  if (!context.kernel.primary) return;
  const Counters& counters = context.kernel.primary->counters;
  AddTcpTraffic(state, counters);
  AddTcpBreakdowns(state, counters);
  AddTcpConnections(state, counters);
  AddIpAndUdp(state, counters);
}

}  // namespace ozmo
