#include "programs/sample/bsd_counters.h"

namespace ozmo::sample {
namespace {

using Network = const NetworkSample&;

double Opens(Network n) { return n.tcpActiveOpens + n.tcpPassiveOpens; }

constexpr BsdCounter COUNTERS[] = {
    // TCP connections: attempts, accepts, established, dropped, dropped half-open, closed.
    {0, [](Network n) { return n.tcpActiveOpens; }},
    {1, [](Network n) { return n.tcpPassiveOpens; }},
    {2, [](Network n) { return Opens(n) - n.tcpAttemptFails; }},
    {3, [](Network n) { return n.tcpResets; }},
    {4, [](Network n) { return n.tcpAttemptFails * 0.5; }},
    {5, [](Network n) { return Opens(n) * 0.98; }},
    // TCP sent: all, data, its bytes, again, its bytes, acks, probes, urgent, window updates, control.
    {15, [](Network n) { return n.tcpSegmentsOut; }},
    {16, [](Network n) { return n.tcpDataSegmentsOut; }},
    {17, [](Network n) { return n.tcpDataBytesOut; }},
    {18, [](Network n) { return n.tcpRetransmitted; }},
    {19, [](Network n) { return n.tcpRetransmittedBytes; }},
    {20, [](Network n) { return n.tcpAcksOut * 0.8; }},
    {21, [](Network n) { return n.tcpAcksOut * 0.02; }},
    {22, [](Network n) { return n.tcpUrgentOut; }},
    {23, [](Network n) { return n.tcpAcksOut * 0.18; }},
    {24, [](Network n) { return n.tcpControlOut; }},
    // TCP received: all, in sequence, its bytes, bad checksum, bad offset, short, duplicate, partly
    // duplicate, its bytes, out of order, its bytes, beyond the window, its bytes, after close,
    // window probes, window updates.
    {25, [](Network n) { return n.tcpSegmentsIn; }},
    {26, [](Network n) { return n.tcpInOrderIn; }},
    {27, [](Network n) { return n.tcpInOrderBytesIn; }},
    {28, [](Network n) { return n.tcpDuplicateIn * 0.05; }},
    {29, [](Network n) { return n.tcpDuplicateIn * 0.01; }},
    {30, [](Network n) { return n.tcpDuplicateIn * 0.02; }},
    {31, [](Network n) { return n.tcpDuplicateIn; }},
    {33, [](Network n) { return n.tcpDuplicateIn * 0.2; }},
    {34, [](Network n) { return n.tcpDuplicateIn * 0.2 * 150; }},
    {35, [](Network n) { return n.tcpOutOfOrderIn; }},
    {36, [](Network n) { return n.tcpOutOfOrderBytesIn; }},
    {37, [](Network n) { return n.tcpDuplicateIn * 0.1; }},
    {38, [](Network n) { return n.tcpDuplicateIn * 0.1 * 380; }},
    {39, [](Network n) { return n.tcpResets * 0.3; }},
    {40, [](Network n) { return n.tcpAcksIn * 0.01; }},
    {45, [](Network n) { return n.tcpAcksIn * 0.2; }},
    // IP: received, forwarded, not forwardable, delivered, made here.
    {54, [](Network n) { return n.ipReceived; }},
    {63, [](Network n) { return n.ipForwarded; }},
    {64, [](Network n) { return n.ipDiscarded; }},
    {67, [](Network n) { return n.ipDelivered; }},
    {68, [](Network n) { return n.ipSent; }},
    // UDP: received, sent.
    {90, [](Network n) { return n.udpIn; }},
    {98, [](Network n) { return n.udpOut; }},
};

}  // namespace

std::span<const BsdCounter> BsdCounters() { return COUNTERS; }

}  // namespace ozmo::sample
