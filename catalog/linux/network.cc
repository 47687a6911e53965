// Linux counters, by the names of the kernel.
#include "catalog/network.h"

#include "readers/linux/counters.h"

namespace ozmo {
using namespace linux_counters;

void AddNetworkLinux(BuildState& state, const VmrContext& context) {
  if (!context.protocolCounters.primary) return;
  const auto& c = context.protocolCounters.primary->counters;
  StoreSets(state, Graph::TCP_PACKETS, {c[TCP_OUT_SEGS], c[TCP_IN_SEGS]});
  StoreSets(state, Graph::TCP_CONNECTIONS, {c[TCP_CURR_ESTAB]});
  StoreSets(state, Graph::TCP_CLOSED, {c[TCP_ATTEMPT_FAILS] + c[TCP_ESTAB_RESETS]});
  StoreSets(state, Graph::UDP_PACKETS, {c[UDP_OUT_DATAGRAMS], c[UDP_IN_DATAGRAMS]});
  StoreSets(state, Graph::IP_PACKETS, {c[IP_OUT_REQUESTS], c[IP_IN_RECEIVES]});
}

}  // namespace ozmo
