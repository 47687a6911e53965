// The texts of the Linux catalog: its records and its tree.
#pragma once

#include "catalog/common_texts.h"

namespace ozmo::linux_texts {

using namespace common;

inline constexpr TraceText MODES[] = {
    {"IOwait", "LightBlue"}, {"Nice", "LimeGreen"}, {"User", "Red"}, {"System", "Purple"}};
inline constexpr TraceText MEMORY_USES[] = {{"Free", "Blue"},
                                            {"Applications", "Orange"},
                                            {"Shared", "DarkBlue"},
                                            {"File Cache", "Purple"},
                                            {"System Buffers", "ForestGreen"}};
inline constexpr TraceText PROCESS_FAULTS[] = {{"Major Faults", "Red"}, {"Minor Faults", "LightBlue"}};
inline constexpr TraceText PAGE_MOVES[] = {
    {"Swapped Out", "Orange"}, {"Paged Out", "Red"}, {"Swapped In", "Blue"}, {"Paged In", "Green"}};
inline constexpr TraceText TCP_ABORTED[] = {{"Attempt Failures", "Green"}};

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
    PAGEFAULT_RATE,  // no row shows it
    {.graph = Graph::PROCESS_PAGEFAULTS,
     .title = "Process PageFaults By Type",
     .yTitle = "Pagefaults per Second",
     .legendFormat = "%s %.1f/s ",
     .traces = PROCESS_FAULTS},
    {.graph = Graph::PAGES_IN_OUT,
     .title = "Pages In/Out",
     .yTitle = "Pages per Second",
     .legendFormat = "%s %.1f/s ",
     .traces = PAGE_MOVES},
    PROCESS_COUNT,
    WithLegend(CLASS_COUNT, BRACKET_LEGEND),
    TCP_SEGMENTS,
    TCP_CURRENTLY_ESTABLISHED,
    TcpAborted(TCP_ABORTED),
    UDP_PACKETS,
    IP_PACKETS,
    LAN_PACKETS,
    LAN_DATA,
};

inline constexpr RowText CPU_ROWS[] = {CPU_ROW,       CPU_MODE_ROW,  ACTIVE_CPUS_ROW, TOP_IMAGES_ROW,
                                       TOP_USERS_ROW, CLASS_CPU_ROW, PROCESSOR_ROW};
inline constexpr RowText DISK_ROWS[] = {
    DISK_OPERATIONS_ROW,      TOP_DISK_OPERATIONS_ROW, TOP_DISK_DATA_ROW, TOP_DISK_QUEUE_ROW,
    TOP_DISK_UTILIZATION_ROW, TOP_DISK_RESPONSE_ROW,   DISKS_ROW};
inline constexpr RowText MEMORY_ROWS[] = {MEMORY_UTILIZATION_ROW,
                                          MEMORY_ALLOCATION_ROW,
                                          {.code = "MPAGE", .graph = Graph::PROCESS_PAGEFAULTS},
                                          {.code = "MPFIO", .graph = Graph::PAGES_IN_OUT}};
inline constexpr RowText TCP_ROWS[] = {{.code = "TCPPCKTS", .graph = Graph::TCP_PACKETS},
                                       {.code = "TCPCONNESTBD", .graph = Graph::TCP_CONNECTIONS},
                                       {.code = "TCPCONNESTBD", .graph = Graph::TCP_CLOSED}};
inline constexpr RowText LINUX_IP_ROWS[] = {
    {.code = "IPPCKTS", .label = "Packet Rate", .graph = Graph::IP_PACKETS}};
inline constexpr RowText NETWORK_ROWS[] = {TcpGroup(TCP_ROWS), UdpGroup(UDP_ROWS), IpGroup(LINUX_IP_ROWS)};
inline constexpr RowText TREE[] = {
    CpuGroup(CPU_ROWS), DiskGroup(DISK_ROWS),       FILE_SYSTEM_GROUP, MemoryGroup(MEMORY_ROWS),
    PROCESS_GROUP,      NetworkGroup(NETWORK_ROWS), LAN_GROUP};

}  // namespace ozmo::linux_texts
