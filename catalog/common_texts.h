// Records and rows that more than one platform has, so that each text is said once. A platform's own file
// lists those it takes and adds its own.
#pragma once

#include "catalog/tables.h"

namespace ozmo::common {

// The same record with another legend format or another fixed top.
constexpr RecordText WithLegend(RecordText record, const char* legend) {
  record.legendFormat = legend;
  return record;
}
constexpr RecordText WithTop(RecordText record, float yMax) {
  record.yMax = yMax;
  return record;
}

// Legend of a trace whose name comes at run time, in the form with brackets.
inline constexpr const char* BRACKET_LEGEND = "[%s] %.1f ";

// ---- CPU ----

inline constexpr TraceText CPU_ACTIVE[] = {{"CPU Active", "Green"}};
inline constexpr RecordText OVERALL_CPU = {.graph = Graph::OVERALL_CPU,
                                           .title = "Overall CPU Utilization",
                                           .yTitle = "%CPU Utilization",
                                           .yMax = 100,
                                           .legendFormat = "%s %.1f%% ",
                                           .traces = CPU_ACTIVE};
constexpr RecordText CpuByMode(std::span<const TraceText> modes) {
  return {.graph = Graph::CPU_BY_MODE,
          .title = "Overall CPU Utilization By Mode",
          .yTitle = "%CPU Utilization",
          .yMax = 100,
          .legendFormat = "%s %.1f%% ",
          .traces = modes};
}
inline constexpr RecordText CPU_BY_PROCESSOR = {.graph = Graph::CPU_BY_PROCESSOR,
                                                .title = "Overall CPU Utilization By Processor",
                                                .yTitle = "% Utilization",
                                                .legendFormat = "[%s] %.1f%% ",
                                                .plan = SeriesPlan::RUN_TIME};
inline constexpr RecordText ACTIVE_CPUS = {.graph = Graph::ACTIVE_CPUS,
                                           .title = "Number of Active CPUs",
                                           .yTitle = "Number CPUs",
                                           .legendFormat = "[%s] %.0f ",
                                           .plan = SeriesPlan::RUN_TIME};
inline constexpr RecordText TOP_IMAGES = {.graph = Graph::TOP_IMAGES,
                                          .title = "Top 10 Images by CPU Utilization",
                                          .yTitle = "%CPU Utilization",
                                          .yMax = 100,
                                          .legendFormat = "%s %.1f ",
                                          .plan = SeriesPlan::RUN_TIME};
inline constexpr RecordText TOP_USERS = {.graph = Graph::TOP_USERS,
                                         .title = "Top 10 Users by CPU Utilization",
                                         .yTitle = "%CPU Utilization",
                                         .yMax = 100,
                                         .legendFormat = "%s %.1f ",
                                         .plan = SeriesPlan::RUN_TIME};
inline constexpr RecordText CLASS_CPU = {.graph = Graph::CLASS_CPU,
                                         .title = "CPU Utilization of workload classes",
                                         .yTitle = "%CPU Utilization",
                                         .yMax = 100,
                                         .legendFormat = "%s %.1f ",
                                         .plan = SeriesPlan::RUN_TIME};

// ---- Disks and file systems ----

inline constexpr TraceText IO_OPERATIONS[] = {{"I/O Operations", "Green"}};
inline constexpr RecordText DISK_OPERATIONS = {.graph = Graph::DISK_OPERATIONS,
                                               .title = "Overall Disk I/O Operation Rate",
                                               .yTitle = "I/Os per Second",
                                               .legendFormat = "%s %.1f/s ",
                                               .traces = IO_OPERATIONS};
// The total from which "Others" of the disk data list is taken; no row shows it.
inline constexpr TraceText UNNAMED_TRACE[] = {{nullptr, nullptr}};
inline constexpr RecordText DISK_DATA = {.graph = Graph::DISK_DATA, .title = "", .traces = UNNAMED_TRACE};
inline constexpr TraceText BY_TYPE[] = {{"User", nullptr}, {"Paging", nullptr}, {"Swapping", nullptr}};
inline constexpr RecordText DISK_BY_TYPE = {
    .graph = Graph::DISK_BY_TYPE, .title = "Overall Disk I/O Rate By Type", .traces = BY_TYPE};
inline constexpr RecordText TOP_DISK_OPERATIONS = {.graph = Graph::TOP_DISK_OPERATIONS,
                                                   .title = "Top 10 Disks by I/O Operations",
                                                   .yTitle = "I/O Operations",
                                                   .legendFormat = "%s %.1f ",
                                                   .plan = SeriesPlan::RUN_TIME};
inline constexpr RecordText TOP_DISK_DATA = {.graph = Graph::TOP_DISK_DATA,
                                             .title = "Top 10 Disks by I/O Rate",
                                             .yTitle = "KBytes/sec",
                                             .legendFormat = "%s %.1f ",
                                             .plan = SeriesPlan::RUN_TIME};
inline constexpr RecordText TOP_DISK_QUEUE = {.graph = Graph::TOP_DISK_QUEUE,
                                              .title = "Top 10 Disks by Queue Length",
                                              .yTitle = "Queue Length",
                                              .legendFormat = "%s %.1f ",
                                              .plan = SeriesPlan::RUN_TIME};
inline constexpr RecordText TOP_DISK_UTILIZATION = {.graph = Graph::TOP_DISK_UTILIZATION,
                                                    .title = "Top 10 Disks by Utilization",
                                                    .yTitle = "% Utilization",
                                                    .legendFormat = "%s %.1f ",
                                                    .plan = SeriesPlan::RUN_TIME};
// The label at index 11 is never shown: the graph has no more sets than the operations list has entries.
inline constexpr TraceText RESPONSE_TRACES[] = {
    {nullptr, "LimeGreen"}, {nullptr, "LightBlue"}, {nullptr, "Purple"},       {nullptr, "Red"},
    {nullptr, "Cyan"},      {nullptr, "Orange"},    {nullptr, "DarkBlue"},     {nullptr, "Green"},
    {nullptr, "HotPink"},   {nullptr, "Wheat"},     {nullptr, "DarkSeaGreen"}, {"Others", "DeepSkyBlue"}};
inline constexpr RecordText TOP_DISK_RESPONSE = {.graph = Graph::TOP_DISK_RESPONSE,
                                                 .title = "Response Time of Top 10 Disks by I/O Rate",
                                                 .yTitle = "ms",
                                                 .legendFormat = "%s %.1fms  ",
                                                 .plan = SeriesPlan::RUN_TIME,
                                                 .traces = RESPONSE_TRACES};
inline constexpr RecordText TOP_DISK_SPACE = {.graph = Graph::TOP_DISK_SPACE,
                                              .title = "Top 10 Disks by Space Utilization",
                                              .yTitle = "% Space Utilization",
                                              .legendFormat = "%s %.1f ",
                                              .plan = SeriesPlan::RUN_TIME};
inline constexpr RecordText TOP_FILE_SYSTEMS = {.graph = Graph::TOP_FILE_SYSTEMS,
                                                .title = "Top Ten File Systems by Disk Space Util",
                                                .yTitle = "% Disk Space Utilization",
                                                .yMax = 100,
                                                .legendFormat = "%s %.1f ",
                                                .plan = SeriesPlan::RUN_TIME};

// ---- Memory and processes ----

inline constexpr TraceText UTILIZED_MEMORY[] = {{"Utilized Memory", "Blue"}};
inline constexpr RecordText MEMORY_UTILIZATION = {.graph = Graph::MEMORY_UTILIZATION,
                                                  .title = "Memory Utilization",
                                                  .yTitle = "Percent",
                                                  .yMax = 100,
                                                  .legendFormat = "%s %.1f%% ",
                                                  .traces = UTILIZED_MEMORY};
constexpr RecordText MemoryAllocation(std::span<const TraceText> uses) {
  return {.graph = Graph::MEMORY_ALLOCATION,
          .title = "Memory Allocation",
          .yTitle = "MB",
          .legendFormat = "%s %.1fMB ",
          .traces = uses};
}
inline constexpr TraceText PAGE_FAULTS[] = {{"Page Faults", "Blue"}};
inline constexpr RecordText PAGEFAULT_RATE = {.graph = Graph::PAGEFAULT_RATE,
                                              .title = "Pagefault Rate",
                                              .yTitle = "Pagefaults per Second",
                                              .legendFormat = "%s %.1f/s ",
                                              .traces = PAGE_FAULTS};
constexpr RecordText PagefaultsByType(std::span<const TraceText> types) {
  return {.graph = Graph::PAGEFAULTS_BY_TYPE,
          .title = "PageFaults By Type",
          .yTitle = "Pagefaults per Second",
          .legendFormat = "%s %.1f/s ",
          .traces = types};
}
inline constexpr TraceText FAULT_IOS[] = {{"Fault I/Os", "Orange"}};
inline constexpr RecordText PAGEFAULT_IO = {.graph = Graph::PAGEFAULT_IO,
                                            .title = "Pagefault I/O",
                                            .yTitle = "Fault I/Os per Second",
                                            .legendFormat = "%s %.1f/s ",
                                            .traces = FAULT_IOS};
inline constexpr TraceText PROCESSES[] = {{"Processes", "Green"}};
inline constexpr RecordText PROCESS_COUNT = {.graph = Graph::PROCESS_COUNT,
                                             .title = "Process Count",
                                             .yTitle = "Processes",
                                             .legendFormat = "%s %.1f ",
                                             .traces = PROCESSES};
inline constexpr RecordText CLASS_COUNT = {.graph = Graph::CLASS_COUNT,
                                           .title = "Process count by workload classes",
                                           .yTitle = "Processes",
                                           .legendFormat = "%s %.1f ",
                                           .plan = SeriesPlan::RUN_TIME};

// ---- Protocols ----

inline constexpr TraceText PACKETS_SENT_RECEIVED[] = {{"Packets sent", "Green"}, {"Packets received", "Red"}};
inline constexpr TraceText DATA_SENT_RECEIVED[] = {{"Data sent", "Green"}, {"Data received", "Red"}};
inline constexpr RecordText TCP_DATA = {.graph = Graph::TCP_DATA,
                                        .title = "TCP Data rate",
                                        .yTitle = "Kbytes per Second",
                                        .legendFormat = "%s %.1fKbytes/s ",
                                        .traces = DATA_SENT_RECEIVED};
inline constexpr RecordText UDP_PACKETS = {.graph = Graph::UDP_PACKETS,
                                           .title = "UDP packet Rate",
                                           .yTitle = "packets per Second",
                                           .legendFormat = "%s %.1f/s ",
                                           .traces = PACKETS_SENT_RECEIVED};
inline constexpr RecordText IP_PACKETS = {.graph = Graph::IP_PACKETS,
                                          .title = "IP Packet Rate",
                                          .yTitle = "packets per Second",
                                          .legendFormat = "%s %.1f/s ",
                                          .traces = PACKETS_SENT_RECEIVED};
constexpr RecordText TcpReceived(std::span<const TraceText> kinds) {
  return {.graph = Graph::TCP_RECEIVED,
          .title = "TCP Received Packets Breakdown",
          .yTitle = "packets per Second",
          .legendFormat = "%s %.1f/s ",
          .traces = kinds};
}
constexpr RecordText IpSent(std::span<const TraceText> kinds) {
  return {.graph = Graph::IP_SENT,
          .title = "IP Sent Packets Breakdown",
          .yTitle = "packets per Second",
          .legendFormat = "%s %.1f/s ",
          .traces = kinds};
}
constexpr RecordText IpReceived(std::span<const TraceText> kinds) {
  return {.graph = Graph::IP_RECEIVED,
          .title = "IP Packets Received Breakdown",
          .yTitle = "packets per Second",
          .legendFormat = "%s %.1f/s ",
          .traces = kinds};
}

// Of AIX, HP-UX and Tru64, whose counters have one origin; some of monitor text files too.
inline constexpr RecordText TCP_PACKETS = {.graph = Graph::TCP_PACKETS,
                                           .title = "TCP Packet Rate",
                                           .yTitle = "packets per Second",
                                           .legendFormat = "%s %.1f/s ",
                                           .traces = PACKETS_SENT_RECEIVED};
inline constexpr TraceText TCP_SENT_KINDS[] = {
    {"Data Packets Sent", "LimeGreen"}, {"Data Packets retransmitted", "LightBlue"},
    {"Ack Only Packets", "Purple"},     {"URG packets", "Red"},
    {"Window Probe Packets", "Cyan"},   {"Window Update Packets", "Orange"},
    {"Control Packets", "DarkBlue"}};
inline constexpr RecordText TCP_SENT = {.graph = Graph::TCP_SENT,
                                        .title = "TCP Sent Packets Breakdown",
                                        .yTitle = "packets per Second",
                                        .legendFormat = "%s %.1f/s ",
                                        .traces = TCP_SENT_KINDS};
inline constexpr TraceText TCP_RECEIVED_KINDS[] = {
    {"Packets received in-sequence", "LimeGreen"},  {"Completely duplicate packets", "LightBlue"},
    {"packets with some dup. data", "Purple"},      {"Out of order Packets", "Red"},
    {"packets of data after window", "Cyan"},       {"window probes", "Orange"},
    {"window update packets", "DarkBlue"},          {"Packets received after close", "Green"},
    {"Packets with Checksum Errors", "HotPink"},    {"Packets with bad offset error", "Wheat"},
    {"Packets received too short", "DarkSeaGreen"}, {"ACK only packets", "DeepSkyBlue"}};
inline constexpr RecordText TCP_RECEIVED = TcpReceived(TCP_RECEIVED_KINDS);
inline constexpr TraceText TCP_ESTABLISHED_KINDS[] = {{"Unsuccessful Connection requests", "Green"},
                                                      {"Successful Connection requests", "Red"},
                                                      {"Connections accepted", "DarkBlue"}};
inline constexpr RecordText TCP_ESTABLISHED = {.graph = Graph::TCP_CONNECTIONS,
                                               .title = "TCP Connections Established",
                                               .yTitle = "Connections per Second",
                                               .legendFormat = "%s %.1f/s",
                                               .traces = TCP_ESTABLISHED_KINDS};
inline constexpr TraceText TCP_CLOSED_KINDS[] = {{"Connections dropped", "Green"},
                                                 {"Embryonic Connections dropped", "Red"},
                                                 {"Connections closed", "DarkBlue"}};
inline constexpr RecordText TCP_CLOSED = {.graph = Graph::TCP_CLOSED,
                                          .title = "TCP Connections Closed",
                                          .yTitle = "Connections per Second",
                                          .legendFormat = "%s %.1f/s",
                                          .traces = TCP_CLOSED_KINDS};
inline constexpr TraceText IP_SENT_KINDS[] = {{"Data Packets Generated", "LimeGreen"},
                                              {"Data Packets Forwarded", "LightBlue"}};
inline constexpr RecordText IP_SENT = IpSent(IP_SENT_KINDS);
inline constexpr TraceText IP_RECEIVED_KINDS[] = {{"Packets not consumed", "LightBlue"},
                                                  {"packets not forwardable", nullptr},
                                                  {"packets forwarded", nullptr},
                                                  {"Packets consumed", nullptr}};
inline constexpr RecordText IP_RECEIVED = IpReceived(IP_RECEIVED_KINDS);

// Of Linux and Solaris.
inline constexpr TraceText SEGMENTS_SENT_RECEIVED[] = {{"Segments sent", "Green"},
                                                       {"Segments received", "Red"}};
inline constexpr RecordText TCP_SEGMENTS = {.graph = Graph::TCP_PACKETS,
                                            .title = "TCP  Segment Rate",
                                            .yTitle = "packets per Second",
                                            .legendFormat = "%s %.1f/s ",
                                            .traces = SEGMENTS_SENT_RECEIVED};
inline constexpr TraceText CONNECTION_COUNT[] = {{"No of Connections", "Green"}};
inline constexpr RecordText TCP_CURRENTLY_ESTABLISHED = {.graph = Graph::TCP_CONNECTIONS,
                                                         .title = "TCP Currently Established Connections",
                                                         .yTitle = "No Of Connections",
                                                         .legendFormat = "%s %.1f/s",
                                                         .traces = CONNECTION_COUNT};
constexpr RecordText TcpAborted(std::span<const TraceText> kinds) {
  return {.graph = Graph::TCP_CLOSED,
          .title = "TCP Connections Aborted",
          .yTitle = "Connections per Second",
          .legendFormat = "%s %.1f/s",
          .traces = kinds};
}

// ---- Adapters ----

inline constexpr RecordText LAN_PACKETS = {.graph = Graph::LAN_PACKETS,
                                           .title = "Overall LAN Packet Rates by Adapter",
                                           .yTitle = "Packets per Second",
                                           .legendFormat = "%s %.1f/s ",
                                           .plan = SeriesPlan::RUN_TIME};
inline constexpr RecordText LAN_DATA = {.graph = Graph::LAN_DATA,
                                        .title = "Overall LAN Data Rates by Adapter",
                                        .yTitle = "Kbytes per Second",
                                        .legendFormat = "%s %.1f/s ",
                                        .plan = SeriesPlan::RUN_TIME};

// ---- Rows ----

inline constexpr RowText CPU_ROW = {.code = "CPU", .graph = Graph::OVERALL_CPU};
inline constexpr RowText CPU_MODE_ROW = {.code = "CPUMD", .graph = Graph::CPU_BY_MODE};
inline constexpr RowText ACTIVE_CPUS_ROW = {.code = "ACPUS", .graph = Graph::ACTIVE_CPUS};
inline constexpr RowText TOP_IMAGES_ROW = {.code = "CPUTOP10IMG", .graph = Graph::TOP_IMAGES};
inline constexpr RowText TOP_USERS_ROW = {.code = "CPUTOP10USR", .graph = Graph::TOP_USERS};
inline constexpr RowText CLASS_CPU_ROW = {.code = "CPUWKLD", .graph = Graph::CLASS_CPU};
inline constexpr RowText PROCESSOR_ROW = {.code = "CPUPP", .graph = Graph::CPU_BY_PROCESSOR};

inline constexpr RowText DISK_OPERATIONS_ROW = {.code = "DIO", .graph = Graph::DISK_OPERATIONS};
inline constexpr RowText TOP_DISK_OPERATIONS_ROW = {.code = "DOP10", .graph = Graph::TOP_DISK_OPERATIONS};
inline constexpr RowText TOP_DISK_DATA_ROW = {.code = "DKB10", .graph = Graph::TOP_DISK_DATA};
inline constexpr RowText TOP_DISK_QUEUE_ROW = {.code = "DQL10", .graph = Graph::TOP_DISK_QUEUE};
inline constexpr RowText TOP_DISK_UTILIZATION_ROW = {.code = "DUT10", .graph = Graph::TOP_DISK_UTILIZATION};
inline constexpr RowText TOP_DISK_RESPONSE_ROW = {.code = "DRT10", .graph = Graph::TOP_DISK_RESPONSE};
inline constexpr RowText TOP_DISK_SPACE_ROW = {.code = "DUS10", .graph = Graph::TOP_DISK_SPACE};
inline constexpr RowText DISKS_ROW = {.code = "DSKN", .label = "All Disks", .kind = RowKind::DISKS};

inline constexpr RowText FILE_SYSTEM_ROWS[] = {{.code = "DSKSPUTIL", .graph = Graph::TOP_FILE_SYSTEMS}};

inline constexpr RowText MEMORY_UTILIZATION_ROW = {.code = "MUTIL", .graph = Graph::MEMORY_UTILIZATION};
inline constexpr RowText MEMORY_ALLOCATION_ROW = {.code = "MUSE", .graph = Graph::MEMORY_ALLOCATION};
inline constexpr RowText PAGEFAULT_RATE_ROW = {
    .code = "MPAGE", .label = "Paging Rates", .graph = Graph::PAGEFAULT_RATE};
inline constexpr RowText PAGEFAULT_TYPE_ROW = {.code = "MPAGD", .graph = Graph::PAGEFAULTS_BY_TYPE};
inline constexpr RowText PAGEFAULT_IO_ROW = {
    .code = "MPFIO", .label = "Paging I/O Rate", .graph = Graph::PAGEFAULT_IO};

inline constexpr RowText PROCESS_ROWS[] = {{.code = "PRCCNT", .graph = Graph::PROCESS_COUNT},
                                           {.code = "PRCWKLD", .graph = Graph::CLASS_COUNT}};

inline constexpr RowText UDP_ROWS[] = {
    {.code = "UDPPCKTS", .label = "Packet Rate", .graph = Graph::UDP_PACKETS}};
inline constexpr RowText IP_ROWS[] = {
    {.code = "IPPCKTS", .label = "Packet Rate", .graph = Graph::IP_PACKETS},
    {.code = "IPPCKTSSENT", .label = "Packets Sent Breakdown", .graph = Graph::IP_SENT},
    {.code = "IPPCKTSRCVD", .label = "Packets Received Breakdown", .graph = Graph::IP_RECEIVED}};
constexpr RowText TcpGroup(std::span<const RowText> rows) {
  return {.code = "TCP", .label = "TCP Statistics", .kind = RowKind::GROUP, .rows = rows};
}
constexpr RowText UdpGroup(std::span<const RowText> rows) {
  return {.code = "UDP", .label = "UDP Statistics", .kind = RowKind::GROUP, .rows = rows};
}
constexpr RowText IpGroup(std::span<const RowText> rows) {
  return {.code = "IP", .label = "IP Statistics", .kind = RowKind::GROUP, .rows = rows};
}

// AIX, HP-UX and Tru64 again.
inline constexpr RowText BSD_TCP_ROWS[] = {
    {.code = "TCPPCKTS", .label = "Packet Rate", .graph = Graph::TCP_PACKETS},
    {.code = "TCPKB", .graph = Graph::TCP_DATA},
    {.code = "TCPPCKTSSENT", .label = "Packets Sent Breakdown", .graph = Graph::TCP_SENT},
    {.code = "TCPPCKTSRCVD", .label = "Packets Received Breakdown", .graph = Graph::TCP_RECEIVED},
    {.code = "TCPCONNESTBD", .graph = Graph::TCP_CONNECTIONS},
    {.code = "TCPCONNESTBD", .graph = Graph::TCP_CLOSED}};
inline constexpr RowText BSD_NETWORK_ROWS[] = {TcpGroup(BSD_TCP_ROWS), UdpGroup(UDP_ROWS), IpGroup(IP_ROWS)};

inline constexpr RowText LAN_SUMMARY_ROWS[] = {{.code = "LANOVRPKTS", .graph = Graph::LAN_PACKETS},
                                               {.code = "LANOVRDATA", .graph = Graph::LAN_DATA}};
inline constexpr RowText LAN_ROWS[] = {
    {.code = "LANOVR", .label = "LAN Adapter Summary", .kind = RowKind::GROUP, .rows = LAN_SUMMARY_ROWS}};

// ---- Root rows ----

constexpr RowText CpuGroup(std::span<const RowText> rows) {
  return {.code = "CPU", .label = "CPU Metrics", .kind = RowKind::GROUP, .rows = rows};
}
constexpr RowText DiskGroup(std::span<const RowText> rows) {
  return {.code = "DIO", .label = "Disk I/O  Metrics", .kind = RowKind::GROUP, .rows = rows};
}
inline constexpr RowText FILE_SYSTEM_GROUP = {
    .code = "FSY", .label = "File System Metrics", .kind = RowKind::GROUP, .rows = FILE_SYSTEM_ROWS};
constexpr RowText MemoryGroup(std::span<const RowText> rows) {
  return {.code = "MEM", .label = "Memory Management Metrics", .kind = RowKind::GROUP, .rows = rows};
}
inline constexpr RowText PROCESS_GROUP = {
    .code = "PRC", .label = "Process Metrics", .kind = RowKind::GROUP, .rows = PROCESS_ROWS};
constexpr RowText NetworkGroup(std::span<const RowText> rows) {
  return {.code = "NET", .label = "Network Statistics by protocol", .kind = RowKind::GROUP, .rows = rows};
}
// Rows of adapters follow at run time.
inline constexpr RowText LAN_GROUP = {
    .code = "LAN", .label = "LAN Metrics", .kind = RowKind::ADAPTERS, .rows = LAN_ROWS};

}  // namespace ozmo::common
