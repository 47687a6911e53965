// The protocol counters of Linux files, as the kernel publishes them under /proc/net/snmp: 19 of IP, 26 of
// ICMP, 12 of TCP and 4 of UDP, each protocol in its line's order. Elements of ProtocolCounters::counters.
#pragma once

#include <cstddef>

namespace ozmo::linux_counters {

enum Element : size_t {
  IP_FORWARDING = 0,  // a setting
  IP_DEFAULT_TTL = 1,
  IP_IN_RECEIVES = 2,
  IP_OUT_REQUESTS = 9,
  TCP_RTO_ALGORITHM = 45,  // a setting, as are the next two
  TCP_RTO_MIN = 46,
  TCP_RTO_MAX = 47,
  TCP_MAX_CONN = 48,
  TCP_ATTEMPT_FAILS = 51,
  TCP_ESTAB_RESETS = 52,
  TCP_CURR_ESTAB = 53,
  TCP_IN_SEGS = 54,
  TCP_OUT_SEGS = 55,
  UDP_IN_DATAGRAMS = 57,
  UDP_OUT_DATAGRAMS = 60,
};

}  // namespace ozmo::linux_counters
