// The classic BSD protocol counters, which AIX, HP-UX and Tru64 keep: elements of ProtocolCounters::counters.
//
// They are the members of struct tcpstat, ipstat and udpstat, one struct after the other, each in its own
// order. A counter that a format lacks is 0.
#pragma once

#include <cstddef>

namespace ozmo::bsd_counters {

enum Element : size_t {
  // struct tcpstat
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
  TCP_DUPLICATE_BYTES = 32,
  TCP_PARTLY_DUPLICATE = 33,
  TCP_PARTLY_DUPLICATE_BYTES = 34,
  TCP_OUT_OF_ORDER = 35,
  TCP_OUT_OF_ORDER_BYTES = 36,
  TCP_AFTER_WINDOW = 37,
  TCP_AFTER_WINDOW_BYTES = 38,
  TCP_AFTER_CLOSE = 39,
  TCP_WINDOW_PROBES = 40,
  TCP_ACKS_OF_NOTHING = 42,  // of data not yet sent
  TCP_WINDOW_UPDATES = 45,
  // struct ipstat
  IP_RECEIVED = 54,
  IP_FORWARDED = 63,
  IP_NOT_FORWARDABLE = 64,
  IP_DELIVERED = 67,
  IP_GENERATED = 68,
  IP_RAW_SENT = 75,
  // struct udpstat
  UDP_RECEIVED = 90,
  UDP_SENT = 98,
};

}  // namespace ozmo::bsd_counters
