// The texts of the Solaris catalog: its records and its tree.
#pragma once

#include "catalog/common_texts.h"

namespace ozmo::solaris_texts {

using namespace common;

inline constexpr TraceText MODES[] = {{"User", "LightBlue"}, {"System", "Purple"}};
inline constexpr TraceText MEMORY_USES[] = {{"Free", "Green"}, {"Used", "Orange"}};
inline constexpr TraceText FAULT_TYPES[] = {
    {"Major Faults", "LimeGreen"}, {"COW", "LightBlue"},       {"Protection Faults", "Purple"},
    {"Soft Lock", "Red"},          {"Kernel Asfault", "Cyan"}, {"ZFOD", "Orange"},
    {"Hatfault", "Gold"},          {"Asfault", "Salmon"}};
inline constexpr TraceText TCP_SENT_SEGMENTS[] = {{"Data Segments Sent", "LimeGreen"},
                                                  {"Ack segments", "LightBlue"},
                                                  {"URG Segments", "Purple"},
                                                  {"Retransmitted Segments", "Red"}};
inline constexpr TraceText TCP_RECEIVED_SEGMENTS[] = {{"In Order Segments", "LimeGreen"},
                                                      {"Unorder Segments", "LightBlue"},
                                                      {"Duplicate Segments", "Purple"},
                                                      {"ACK Segments", "Red"},
                                                      {"Duplicate ACKs", "Cyan"}};
inline constexpr TraceText TCP_OPENED[] = {{"Active", "Green"}, {"Passive", "Red"}};
inline constexpr TraceText TCP_ABORTED[] = {{"Attempt Failures", "Green"}, {"Established Resets", "Red"}};
inline constexpr TraceText IP_OUT[] = {{"IP Out Requests", "LimeGreen"}, {"IP Discards", "LightBlue"}};
inline constexpr TraceText IP_IN[] = {{"Others", "LightBlue"},  {"datagram delivers", nullptr},
                                      {"Discards", nullptr},    {"Unknown Protocol dgs", nullptr},
                                      {"Forwarded", nullptr},   {"Address Error", nullptr},
                                      {"Header Error", nullptr}};

inline constexpr RecordText RECORDS[] = {
    OVERALL_CPU,
    CpuByMode(MODES),
    CPU_BY_PROCESSOR,
    ACTIVE_CPUS,
    WithLegend(TOP_IMAGES, BRACKET_LEGEND),
    WithLegend(TOP_USERS, BRACKET_LEGEND),
    WithLegend(CLASS_CPU, BRACKET_LEGEND),
    DISK_OPERATIONS,
    DISK_DATA,
    DISK_BY_TYPE,
    WithLegend(TOP_DISK_OPERATIONS, BRACKET_LEGEND),
    TOP_DISK_DATA,
    TOP_DISK_QUEUE,
    TOP_DISK_UTILIZATION,
    TOP_DISK_RESPONSE,
    TOP_DISK_SPACE,
    WithLegend(TOP_FILE_SYSTEMS, BRACKET_LEGEND),
    MEMORY_UTILIZATION,
    MemoryAllocation(MEMORY_USES),
    PAGEFAULT_RATE,
    PagefaultsByType(FAULT_TYPES),
    PAGEFAULT_IO,
    PROCESS_COUNT,
    WithLegend(CLASS_COUNT, BRACKET_LEGEND),
    TCP_SEGMENTS,
    TCP_DATA,
    {.graph = Graph::TCP_SENT,
     .title = "TCP Sent Segments Breakdown",
     .yTitle = "packets per Second",
     .legendFormat = "%s %.1f/s ",
     .traces = TCP_SENT_SEGMENTS},
    TcpReceived(TCP_RECEIVED_SEGMENTS),
    TCP_CURRENTLY_ESTABLISHED,
    TcpAborted(TCP_ABORTED),
    {.graph = Graph::TCP_OPENED,
     .title = "TCP Connections Opened",
     .yTitle = "Connections per Second",
     .legendFormat = "%s %.1f/s",
     .traces = TCP_OPENED},
    UDP_PACKETS,
    IP_PACKETS,
    IpSent(IP_OUT),
    IpReceived(IP_IN),
    LAN_PACKETS,
    LAN_DATA,
};

inline constexpr RowText CPU_ROWS[] = {CPU_ROW,       CPU_MODE_ROW,  ACTIVE_CPUS_ROW, TOP_IMAGES_ROW,
                                       TOP_USERS_ROW, CLASS_CPU_ROW, PROCESSOR_ROW};
inline constexpr RowText DISK_ROWS[] = {
    DISK_OPERATIONS_ROW,      TOP_DISK_OPERATIONS_ROW, TOP_DISK_DATA_ROW, TOP_DISK_QUEUE_ROW,
    TOP_DISK_UTILIZATION_ROW, TOP_DISK_RESPONSE_ROW,   DISKS_ROW};
inline constexpr RowText MEMORY_ROWS[] = {MEMORY_UTILIZATION_ROW, MEMORY_ALLOCATION_ROW, PAGEFAULT_RATE_ROW,
                                          PAGEFAULT_TYPE_ROW, PAGEFAULT_IO_ROW};
inline constexpr RowText TCP_ROWS[] = {
    {.code = "TCPKB", .graph = Graph::TCP_DATA},
    {.code = "TCPPCKTSRCVD", .label = "Packets Received Breakdown", .graph = Graph::TCP_RECEIVED},
    {.code = "TCPPCKTS", .graph = Graph::TCP_PACKETS},
    {.code = "TCPCONNESTBD", .graph = Graph::TCP_CONNECTIONS},
    {.code = "TCPCONNESTBD", .graph = Graph::TCP_CLOSED},
    {.code = "TCPPCKTSSENT", .graph = Graph::TCP_SENT},
    {.code = "TCPCONNOPENED", .graph = Graph::TCP_OPENED}};
inline constexpr RowText NETWORK_ROWS[] = {TcpGroup(TCP_ROWS), UdpGroup(UDP_ROWS), IpGroup(IP_ROWS)};
inline constexpr RowText TREE[] = {
    CpuGroup(CPU_ROWS), DiskGroup(DISK_ROWS),       FILE_SYSTEM_GROUP, MemoryGroup(MEMORY_ROWS),
    PROCESS_GROUP,      NetworkGroup(NETWORK_ROWS), LAN_GROUP};

}  // namespace ozmo::solaris_texts
