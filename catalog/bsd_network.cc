// The protocol graphs of AIX, HP-UX and Tru64, which keep the classic BSD counters.
#include "catalog/bsd_network.h"

#include "readers/bsd_protocol_counters.h"

namespace ozmo {
namespace bsd_catalog {
namespace {

using namespace bsd_counters;

using Counters = decltype(ProtocolCounters::counters);

void AddTcpTraffic(const Minute& minute, const Counters& c) {
  minute.Store(Graph::TCP_PACKETS, {c[TCP_SENT_TOTAL], c[TCP_RECEIVED_TOTAL]});

  // The sent trace holds the received rate as well, so stacking counts that twice in the top band.
  const float received = (c[TCP_IN_SEQUENCE_BYTES] + c[TCP_PARTLY_DUPLICATE_BYTES] +
                          c[TCP_OUT_OF_ORDER_BYTES] + c[TCP_AFTER_WINDOW_BYTES]) /
                         1000.0F;
  const float sent = (c[TCP_SENT_DATA_BYTES] + c[TCP_RETRANSMITTED_BYTES]) / 1000.0F + received;
  minute.Store(Graph::TCP_DATA, {sent, received});
}

void AddTcpBreakdowns(const Minute& minute, const Counters& c) {
  minute.Store(Graph::TCP_SENT, {c[TCP_SENT_DATA], c[TCP_RETRANSMITTED], c[TCP_SENT_ACKS], c[TCP_SENT_URGENT],
                                 c[TCP_SENT_PROBES], c[TCP_SENT_WINDOW_UPDATES], c[TCP_SENT_CONTROL]});

  constexpr Element RECEIVED_KINDS[] = {TCP_IN_SEQUENCE,    TCP_DUPLICATE,    TCP_PARTLY_DUPLICATE,
                                        TCP_OUT_OF_ORDER,   TCP_AFTER_WINDOW, TCP_WINDOW_PROBES,
                                        TCP_WINDOW_UPDATES, TCP_AFTER_CLOSE,  TCP_BAD_CHECKSUM,
                                        TCP_BAD_OFFSET,     TCP_SHORT};
  int set = 0;
  float sum = 0.0F;
  for (const Element kind : RECEIVED_KINDS) {
    minute.Store(Graph::TCP_RECEIVED, set++, c[kind]);
    sum += c[kind];
  }
  minute.Store(Graph::TCP_RECEIVED, set, c[TCP_RECEIVED_TOTAL] - sum);
}

void AddTcpConnections(const Minute& minute, const Counters& c) {
  const float unsuccessful = c[TCP_ATTEMPTS] + c[TCP_ACCEPTS] - c[TCP_ESTABLISHED];
  minute.Store(Graph::TCP_CONNECTIONS, {unsuccessful, c[TCP_ATTEMPTS] - unsuccessful, c[TCP_ACCEPTS]});
  minute.Store(Graph::TCP_CLOSED, {c[TCP_DROPS], c[TCP_EMBRYONIC_DROPS], c[TCP_CLOSED] - c[TCP_DROPS]});
}

void AddIpAndUdp(const Minute& minute, const Counters& c) {
  minute.Store(Graph::UDP_PACKETS, {c[UDP_SENT], c[UDP_RECEIVED]});
  minute.Store(Graph::IP_PACKETS, {c[IP_GENERATED] + c[IP_FORWARDED], c[IP_RECEIVED]});
  minute.Store(Graph::IP_SENT, {c[IP_GENERATED], c[IP_FORWARDED]});
  const float notConsumed = c[IP_RECEIVED] - c[IP_DELIVERED] - c[IP_FORWARDED] - c[IP_NOT_FORWARDABLE];
  minute.Store(Graph::IP_RECEIVED, {notConsumed, c[IP_NOT_FORWARDABLE], c[IP_FORWARDED], c[IP_DELIVERED]});
}

void AddProtocols(const Minute& minute, const Counters& counters) {
  AddTcpTraffic(minute, counters);
  AddTcpBreakdowns(minute, counters);
  AddTcpConnections(minute, counters);
  AddIpAndUdp(minute, counters);
}

}  // namespace
}  // namespace bsd_catalog

void AddBsdProtocols(const Minute& minute, const VmrContext& interval) {
  const auto& counters = interval.protocolCounters.primary;
  if (counters) bsd_catalog::AddProtocols(minute, counters->counters);
}

}  // namespace ozmo
