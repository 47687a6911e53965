// The texts of the monitor text file catalog: its records and its tree.
#pragma once

#include "catalog/common_texts.h"

namespace ozmo::vmr_texts {

using namespace common;

inline constexpr TraceText MODES[] = {
    {"User", "LimeGreen"}, {"Priv", "LightBlue"}, {"DPC", "Purple"}, {"Interrrupt", "Red"}};
// Ten ranks, and after them the two sets that fill the graph up to the overall figure.
inline constexpr TraceText IMAGE_TRACES[] = {
    {nullptr, "LimeGreen"}, {nullptr, "LightBlue"},     {nullptr, "Purple"},
    {nullptr, "Red"},       {nullptr, "Cyan"},          {nullptr, "Orange"},
    {nullptr, "DarkBlue"},  {nullptr, "Green"},         {nullptr, "HotPink"},
    {nullptr, "Wheat"},     {"Others", "DarkSeaGreen"}, {"DPC+Interrupt", "DeepSkyBlue"}};
inline constexpr TraceText TCP_PACKET_KINDS[] = {
    {"Packets Retransmitted", "Orange"}, {"Packets sent", "Red"}, {"Packets received", "Green"}};
inline constexpr TraceText TRANSITIONS[] = {{"Connection Reset", "Green"},
                                            {"Connection Passive", "Red"},
                                            {"Connection Active", "DarkBlue"},
                                            {"Connection Fail", "Orange"}};
inline constexpr TraceText IP_IN[] = {{"Packets not consumed", "LightBlue"},
                                      {"Packets not forwardable", nullptr},
                                      {"Packets forwarded", nullptr},
                                      {"Packets consumed", nullptr}};
inline constexpr TraceText CURRENT[] = {{"Current Connections", nullptr}, {"Connections closed", nullptr}};
inline constexpr TraceText TRANSFERRED[] = {{"KBytes transfered", nullptr}};
inline constexpr TraceText TRANSFERS[] = {{"Read KBytes", nullptr}, {"Write KBytes", nullptr}};
inline constexpr TraceText OPERATIONS[] = {{"Read Operations", nullptr}, {"Write Operations", nullptr}};

inline constexpr RecordText RECORDS[] = {
    WithTop(OVERALL_CPU, 0),
    WithTop(CpuByMode(MODES), 0),
    WithLegend(CPU_BY_PROCESSOR, "%s %.1f%% "),
    {.graph = Graph::TOP_IMAGES,
     .title = "Top 10 Images by CPU Utilization",
     .yTitle = "%CPU Utilization",
     .legendFormat = "%s %.1f ",
     .plan = SeriesPlan::RUN_TIME,
     .traces = IMAGE_TRACES},
    CLASS_CPU,
    {.graph = Graph::DISK_OPERATIONS,
     .title = "Disk I/O Operation Rate",
     .yTitle = "I/Os per Second",
     .legendFormat = "%s %.1f/s ",
     .traces = IO_OPERATIONS},
    DISK_DATA,
    TOP_DISK_OPERATIONS,
    TOP_DISK_DATA,
    TOP_DISK_QUEUE,
    TOP_DISK_UTILIZATION,
    TOP_DISK_RESPONSE,
    WithTop(MEMORY_UTILIZATION, 0),
    PAGEFAULT_RATE,
    PAGEFAULT_IO,
    PROCESS_COUNT,
    CLASS_COUNT,
    {.graph = Graph::TCP_PACKETS,
     .title = "TCP Packet Rate",
     .yTitle = "packets per Second",
     .legendFormat = "%s %.1f/s ",
     .traces = TCP_PACKET_KINDS},
    {.graph = Graph::TCP_TRANSITIONS,
     .title = "TCP Connection Transitions",
     .yTitle = "Transitions per Second",
     .legendFormat = "%s %.1f/s",
     .traces = TRANSITIONS},
    UDP_PACKETS,
    IP_PACKETS,
    IP_SENT,
    IpReceived(IP_IN),
    // No row shows these.
    TOP_DISK_SPACE,
    {.graph = Graph::TCP_CURRENT, .title = "Current TCP Connections", .traces = CURRENT},
    {.graph = Graph::VMR_DISK_TRANSFER, .title = " Disk transfer Rate", .traces = TRANSFERRED},
    {.graph = Graph::VMR_DISK_TRANSFER_SPLIT,
     .title = "Disk transfer Rate ( Reads / Writes ) ",
     .traces = TRANSFERS},
    {.graph = Graph::VMR_DISK_OPERATIONS_SPLIT,
     .title = "Disk I/O Operations ( Reads / Writes ) ",
     .traces = OPERATIONS},
    LAN_PACKETS,
    LAN_DATA,
};

inline constexpr RowText CPU_ROWS[] = {
    CPU_ROW,        CPU_MODE_ROW,
    TOP_IMAGES_ROW, CLASS_CPU_ROW,
    PROCESSOR_ROW,  {.code = "PPCPU", .label = "Per-CPU Utilization Specifics", .kind = RowKind::PROCESSORS}};
inline constexpr RowText DISK_ROWS[] = {TOP_DISK_OPERATIONS_ROW,
                                        TOP_DISK_DATA_ROW,
                                        TOP_DISK_QUEUE_ROW,
                                        TOP_DISK_UTILIZATION_ROW,
                                        TOP_DISK_RESPONSE_ROW,
                                        {.code = "DIO", .graph = Graph::DISK_OPERATIONS},
                                        DISKS_ROW};
inline constexpr RowText MEMORY_ROWS[] = {
    MEMORY_UTILIZATION_ROW,
    {.code = "MPAGE", .label = "Paging Rate", .graph = Graph::PAGEFAULT_RATE},
    PAGEFAULT_IO_ROW};
inline constexpr RowText TCP_ROWS[] = {{.code = "TCPPCKTS", .graph = Graph::TCP_PACKETS},
                                       {.code = "TCPCONNESTBD", .graph = Graph::TCP_TRANSITIONS}};
inline constexpr RowText VMR_UDP_ROWS[] = {
    {.code = "UDPPCKTS", .label = "UDP Packet Rate", .graph = Graph::UDP_PACKETS}};
inline constexpr RowText VMR_IP_ROWS[] = {
    {.code = "IPPCKTS", .graph = Graph::IP_PACKETS},
    {.code = "IPPCKTSSENT", .label = "IP Packets Sent Breakdown", .graph = Graph::IP_SENT},
    {.code = "IPPCKTSRCVD", .graph = Graph::IP_RECEIVED}};
inline constexpr RowText NETWORK_ROWS[] = {TcpGroup(TCP_ROWS), UdpGroup(VMR_UDP_ROWS), IpGroup(VMR_IP_ROWS)};
inline constexpr RowText TREE[] = {CpuGroup(CPU_ROWS), DiskGroup(DISK_ROWS), MemoryGroup(MEMORY_ROWS),
                                   NetworkGroup(NETWORK_ROWS), PROCESS_GROUP};

}  // namespace ozmo::vmr_texts
