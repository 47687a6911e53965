// Linux counters stand as the kernel publishes them under /proc/net/snmp: 19 of IP, 26 of ICMP, 12 of TCP and
// 4 of UDP, each protocol in its line's order.
#include "catalog/network.h"

namespace ozmo {
namespace {

enum Counter : size_t {
  IP_IN_RECEIVES = 2,
  IP_OUT_REQUESTS = 9,
  TCP_ATTEMPT_FAILS = 51,
  TCP_ESTAB_RESETS = 52,
  TCP_CURR_ESTAB = 53,
  TCP_IN_SEGS = 54,
  TCP_OUT_SEGS = 55,
  UDP_IN_DATAGRAMS = 57,
  UDP_OUT_DATAGRAMS = 60,
};

}  // namespace

void AddNetworkLinux(BuildState& state, const VmrContext& context) {
  if (!context.kernel.primary) return;
  const auto& c = context.kernel.primary->counters;
  StoreSets(state, Graph::TCP_PACKETS, {c[TCP_OUT_SEGS], c[TCP_IN_SEGS]});
  StoreSets(state, Graph::TCP_CONNECTIONS, {c[TCP_CURR_ESTAB]});
  StoreSets(state, Graph::TCP_CLOSED, {c[TCP_ATTEMPT_FAILS] + c[TCP_ESTAB_RESETS]});
  StoreSets(state, Graph::UDP_PACKETS, {c[UDP_OUT_DATAGRAMS], c[UDP_IN_DATAGRAMS]});
  StoreSets(state, Graph::IP_PACKETS, {c[IP_OUT_REQUESTS], c[IP_IN_RECEIVES]});
}

}  // namespace ozmo
