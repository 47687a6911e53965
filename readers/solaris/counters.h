// The protocol counters of Solaris files: the statistics of the kernel's modules tcp, ip, icmp and udp, one
// module after the other, each in the order in which the kernel publishes them. Elements of
// ProtocolCounters::counters; settings and levels are marked, all others are rates.
#pragma once

#include <cstddef>

namespace ozmo::solaris_counters {

enum Element : size_t {
  TCP_RTO_ALGORITHM = 0,  // setting
  TCP_RTO_MIN = 1,        // setting
  TCP_RTO_MAX = 2,        // setting
  TCP_MAX_CONN = 3,       // setting
  TCP_ACTIVE_OPENS = 4,
  TCP_PASSIVE_OPENS = 5,
  TCP_ATTEMPT_FAILS = 6,
  TCP_ESTAB_RESETS = 7,
  TCP_CURR_ESTAB = 8,  // level
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
  IP_FORWARDING = 51,   // setting
  IP_DEFAULT_TTL = 52,  // setting
  IP_IN_RECEIVES = 53,
  IP_IN_HDR_ERRORS = 54,
  IP_IN_ADDR_ERRORS = 55,
  IP_FORW_DATAGRAMS = 56,
  IP_IN_UNKNOWN_PROTOS = 57,
  IP_IN_DISCARDS = 58,
  IP_IN_DELIVERS = 59,
  IP_OUT_REQUESTS = 60,
  IP_OUT_DISCARDS = 61,
  UDP_IN_DATAGRAMS = 116,
  UDP_OUT_DATAGRAMS = 118,
  COUNTER_COUNT = 120
};

}  // namespace ozmo::solaris_counters
