// Linux counters, by the names of the kernel.
#include "catalog/linux/network.h"

#include "readers/linux/counters.h"

namespace ozmo::linux_catalog {
using namespace linux_counters;

void AddLinuxProtocols(const Minute& minute, const VmrContext& interval) {
  if (!interval.protocolCounters.primary) return;
  const auto& c = interval.protocolCounters.primary->counters;
  minute.Store(Graph::TCP_PACKETS, {c[TCP_OUT_SEGS], c[TCP_IN_SEGS]});
  minute.Store(Graph::TCP_CONNECTIONS, {c[TCP_CURR_ESTAB]});
  minute.Store(Graph::TCP_CLOSED, {c[TCP_ATTEMPT_FAILS] + c[TCP_ESTAB_RESETS]});
  minute.Store(Graph::UDP_PACKETS, {c[UDP_OUT_DATAGRAMS], c[UDP_IN_DATAGRAMS]});
  minute.Store(Graph::IP_PACKETS, {c[IP_OUT_REQUESTS], c[IP_IN_RECEIVES]});
}

}  // namespace ozmo::linux_catalog
