// Records and rows that more than one platform has, so that each text is said once. A platform's own file
// lists those it takes and adds its own.
#pragma once

#include "catalog/tables.h"

namespace ozmo::common {

// Makes a record with one set a trace, or one whose traces come at run time, in the palette's colours.
constexpr RecordText Fixed(Graph graph, const char* title, const char* yTitle, float yMax, const char* legend,
                           std::span<const TraceText> traces) {
  return {graph, title, yTitle, yMax, legend, SeriesPlan::FIXED, traces};
}
constexpr RecordText RunTime(Graph graph, const char* title, const char* yTitle, float yMax,
                             const char* legend, std::span<const TraceText> traces = {}) {
  return {graph, title, yTitle, yMax, legend, SeriesPlan::RUN_TIME, traces};
}

// The same record with another legend format or another fixed top.
constexpr RecordText WithLegend(RecordText record, const char* legend) {
  record.legendFormat = legend;
  return record;
}
constexpr RecordText WithTop(RecordText record, float yMax) {
  record.yMax = yMax;
  return record;
}

constexpr RowText Row(const char* code, const char* label, Graph graph) {
  return {code, label, RowKind::GRAPH, graph};
}
constexpr RowText Group(const char* code, const char* label, std::span<const RowText> rows) {
  return {code, label, RowKind::GROUP, Graph::COUNT, rows};
}

// Legend of a trace whose name comes at run time, in the form with brackets.
inline constexpr const char* BRACKET_LEGEND = "[%s] %.1f ";

// ---- CPU ----

inline constexpr TraceText CPU_ACTIVE[] = {{"CPU Active", "Green"}};
inline constexpr RecordText OVERALL_CPU =
    Fixed(Graph::OVERALL_CPU, "Overall CPU Utilization", "%CPU Utilization", 100, "%s %.1f%% ", CPU_ACTIVE);
constexpr RecordText CpuByMode(std::span<const TraceText> modes) {
  return Fixed(Graph::CPU_BY_MODE, "Overall CPU Utilization By Mode", "%CPU Utilization", 100, "%s %.1f%% ",
               modes);
}
inline constexpr RecordText CPU_BY_PROCESSOR = RunTime(
    Graph::CPU_BY_PROCESSOR, "Overall CPU Utilization By Processor", "% Utilization", 0, "[%s] %.1f%% ");
inline constexpr RecordText ACTIVE_CPUS =
    RunTime(Graph::ACTIVE_CPUS, "Number of Active CPUs", "Number CPUs", 0, "[%s] %.0f ");
inline constexpr RecordText TOP_IMAGES =
    RunTime(Graph::TOP_IMAGES, "Top 10 Images by CPU Utilization", "%CPU Utilization", 100, "%s %.1f ");
inline constexpr RecordText TOP_USERS =
    RunTime(Graph::TOP_USERS, "Top 10 Users by CPU Utilization", "%CPU Utilization", 100, "%s %.1f ");
inline constexpr RecordText CLASS_CPU =
    RunTime(Graph::CLASS_CPU, "CPU Utilization of workload classes", "%CPU Utilization", 100, "%s %.1f ");

// ---- Disks and file systems ----

inline constexpr TraceText IO_OPERATIONS[] = {{"I/O Operations", "Green"}};
inline constexpr RecordText DISK_OPERATIONS = Fixed(Graph::DISK_OPERATIONS, "Overall Disk I/O Operation Rate",
                                                    "I/Os per Second", 0, "%s %.1f/s ", IO_OPERATIONS);
// The total from which "Others" of the disk data list is taken; no row shows it.
inline constexpr TraceText UNNAMED_TRACE[] = {{nullptr, nullptr}};
inline constexpr RecordText DISK_DATA = Fixed(Graph::DISK_DATA, "", "", 0, "", UNNAMED_TRACE);
inline constexpr TraceText BY_TYPE[] = {{"User", nullptr}, {"Paging", nullptr}, {"Swapping", nullptr}};
inline constexpr RecordText DISK_BY_TYPE =
    Fixed(Graph::DISK_BY_TYPE, "Overall Disk I/O Rate By Type", "", 0, "", BY_TYPE);
inline constexpr RecordText TOP_DISK_OPERATIONS =
    RunTime(Graph::TOP_DISK_OPERATIONS, "Top 10 Disks by I/O Operations", "I/O Operations", 0, "%s %.1f ");
inline constexpr RecordText TOP_DISK_DATA =
    RunTime(Graph::TOP_DISK_DATA, "Top 10 Disks by I/O Rate", "KBytes/sec", 0, "%s %.1f ");
inline constexpr RecordText TOP_DISK_QUEUE =
    RunTime(Graph::TOP_DISK_QUEUE, "Top 10 Disks by Queue Length", "Queue Length", 0, "%s %.1f ");
inline constexpr RecordText TOP_DISK_UTILIZATION =
    RunTime(Graph::TOP_DISK_UTILIZATION, "Top 10 Disks by Utilization", "% Utilization", 0, "%s %.1f ");
// The label at index 11 is never shown: the graph has no more sets than the operations list has entries.
inline constexpr TraceText RESPONSE_TRACES[] = {
    {nullptr, "LimeGreen"}, {nullptr, "LightBlue"}, {nullptr, "Purple"},       {nullptr, "Red"},
    {nullptr, "Cyan"},      {nullptr, "Orange"},    {nullptr, "DarkBlue"},     {nullptr, "Green"},
    {nullptr, "HotPink"},   {nullptr, "Wheat"},     {nullptr, "DarkSeaGreen"}, {"Others", "DeepSkyBlue"}};
inline constexpr RecordText TOP_DISK_RESPONSE =
    RunTime(Graph::TOP_DISK_RESPONSE, "Response Time of Top 10 Disks by I/O Rate", "ms", 0, "%s %.1fms  ",
            RESPONSE_TRACES);
inline constexpr RecordText TOP_DISK_SPACE =
    RunTime(Graph::TOP_DISK_SPACE, "Top 10 Disks by Space Utilization", "% Space Utilization", 0, "%s %.1f ");
inline constexpr RecordText TOP_FILE_SYSTEMS =
    RunTime(Graph::TOP_FILE_SYSTEMS, "Top Ten File Systems by Disk Space Util", "% Disk Space Utilization",
            100, "%s %.1f ");

// ---- Memory and processes ----

inline constexpr TraceText UTILIZED_MEMORY[] = {{"Utilized Memory", "Blue"}};
inline constexpr RecordText MEMORY_UTILIZATION =
    Fixed(Graph::MEMORY_UTILIZATION, "Memory Utilization", "Percent", 100, "%s %.1f%% ", UTILIZED_MEMORY);
constexpr RecordText MemoryAllocation(std::span<const TraceText> uses) {
  return Fixed(Graph::MEMORY_ALLOCATION, "Memory Allocation", "MB", 0, "%s %.1fMB ", uses);
}
inline constexpr TraceText PAGE_FAULTS[] = {{"Page Faults", "Blue"}};
inline constexpr RecordText PAGEFAULT_RATE =
    Fixed(Graph::PAGEFAULT_RATE, "Pagefault Rate", "Pagefaults per Second", 0, "%s %.1f/s ", PAGE_FAULTS);
constexpr RecordText PagefaultsByType(std::span<const TraceText> types) {
  return Fixed(Graph::PAGEFAULTS_BY_TYPE, "PageFaults By Type", "Pagefaults per Second", 0, "%s %.1f/s ",
               types);
}
inline constexpr TraceText FAULT_IOS[] = {{"Fault I/Os", "Orange"}};
inline constexpr RecordText PAGEFAULT_IO =
    Fixed(Graph::PAGEFAULT_IO, "Pagefault I/O", "Fault I/Os per Second", 0, "%s %.1f/s ", FAULT_IOS);
inline constexpr TraceText PROCESSES[] = {{"Processes", "Green"}};
inline constexpr RecordText PROCESS_COUNT =
    Fixed(Graph::PROCESS_COUNT, "Process Count", "Processes", 0, "%s %.1f ", PROCESSES);
inline constexpr RecordText CLASS_COUNT =
    RunTime(Graph::CLASS_COUNT, "Process count by workload classes", "Processes", 0, "%s %.1f ");

// ---- Protocols ----

inline constexpr TraceText PACKETS_SENT_RECEIVED[] = {{"Packets sent", "Green"}, {"Packets received", "Red"}};
inline constexpr TraceText DATA_SENT_RECEIVED[] = {{"Data sent", "Green"}, {"Data received", "Red"}};
inline constexpr RecordText TCP_DATA =
    Fixed(Graph::TCP_DATA, "TCP Data rate", "Kbytes per Second", 0, "%s %.1fKbytes/s ", DATA_SENT_RECEIVED);
inline constexpr RecordText UDP_PACKETS = Fixed(Graph::UDP_PACKETS, "UDP packet Rate", "packets per Second",
                                                0, "%s %.1f/s ", PACKETS_SENT_RECEIVED);
inline constexpr RecordText IP_PACKETS =
    Fixed(Graph::IP_PACKETS, "IP Packet Rate", "packets per Second", 0, "%s %.1f/s ", PACKETS_SENT_RECEIVED);
constexpr RecordText TcpReceived(std::span<const TraceText> kinds) {
  return Fixed(Graph::TCP_RECEIVED, "TCP Received Packets Breakdown", "packets per Second", 0, "%s %.1f/s ",
               kinds);
}
constexpr RecordText IpSent(std::span<const TraceText> kinds) {
  return Fixed(Graph::IP_SENT, "IP Sent Packets Breakdown", "packets per Second", 0, "%s %.1f/s ", kinds);
}
constexpr RecordText IpReceived(std::span<const TraceText> kinds) {
  return Fixed(Graph::IP_RECEIVED, "IP Packets Received Breakdown", "packets per Second", 0, "%s %.1f/s ",
               kinds);
}

// Of AIX, HP-UX and Tru64, whose counters have one origin; some of monitor text files too.
inline constexpr RecordText TCP_PACKETS = Fixed(Graph::TCP_PACKETS, "TCP Packet Rate", "packets per Second",
                                                0, "%s %.1f/s ", PACKETS_SENT_RECEIVED);
inline constexpr TraceText TCP_SENT_KINDS[] = {
    {"Data Packets Sent", "LimeGreen"}, {"Data Packets retransmitted", "LightBlue"},
    {"Ack Only Packets", "Purple"},     {"URG packets", "Red"},
    {"Window Probe Packets", "Cyan"},   {"Window Update Packets", "Orange"},
    {"Control Packets", "DarkBlue"}};
inline constexpr RecordText TCP_SENT = Fixed(Graph::TCP_SENT, "TCP Sent Packets Breakdown",
                                             "packets per Second", 0, "%s %.1f/s ", TCP_SENT_KINDS);
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
inline constexpr RecordText TCP_ESTABLISHED =
    Fixed(Graph::TCP_CONNECTIONS, "TCP Connections Established", "Connections per Second", 0, "%s %.1f/s",
          TCP_ESTABLISHED_KINDS);
inline constexpr TraceText TCP_CLOSED_KINDS[] = {{"Connections dropped", "Green"},
                                                 {"Embryonic Connections dropped", "Red"},
                                                 {"Connections closed", "DarkBlue"}};
inline constexpr RecordText TCP_CLOSED = Fixed(Graph::TCP_CLOSED, "TCP Connections Closed",
                                               "Connections per Second", 0, "%s %.1f/s", TCP_CLOSED_KINDS);
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
inline constexpr RecordText TCP_SEGMENTS = Fixed(
    Graph::TCP_PACKETS, "TCP  Segment Rate", "packets per Second", 0, "%s %.1f/s ", SEGMENTS_SENT_RECEIVED);
inline constexpr TraceText CONNECTION_COUNT[] = {{"No of Connections", "Green"}};
inline constexpr RecordText TCP_CURRENTLY_ESTABLISHED =
    Fixed(Graph::TCP_CONNECTIONS, "TCP Currently Established Connections", "No Of Connections", 0,
          "%s %.1f/s", CONNECTION_COUNT);
constexpr RecordText TcpAborted(std::span<const TraceText> kinds) {
  return Fixed(Graph::TCP_CLOSED, "TCP Connections Aborted", "Connections per Second", 0, "%s %.1f/s", kinds);
}

// ---- Adapters ----

inline constexpr RecordText LAN_PACKETS =
    RunTime(Graph::LAN_PACKETS, "Overall LAN Packet Rates by Adapter", "Packets per Second", 0, "%s %.1f/s ");
inline constexpr RecordText LAN_DATA =
    RunTime(Graph::LAN_DATA, "Overall LAN Data Rates by Adapter", "Kbytes per Second", 0, "%s %.1f/s ");

// ---- Rows ----

inline constexpr RowText CPU_ROW = Row("CPU", "Overall CPU Utilization", Graph::OVERALL_CPU);
inline constexpr RowText CPU_MODE_ROW = Row("CPUMD", "Overall CPU Utilization By Mode", Graph::CPU_BY_MODE);
inline constexpr RowText ACTIVE_CPUS_ROW = Row("ACPUS", "Number of Active CPUs", Graph::ACTIVE_CPUS);
inline constexpr RowText TOP_IMAGES_ROW =
    Row("CPUTOP10IMG", "Top 10 Images by CPU Utilization", Graph::TOP_IMAGES);
inline constexpr RowText TOP_USERS_ROW =
    Row("CPUTOP10USR", "Top 10 Users by CPU Utilization", Graph::TOP_USERS);
inline constexpr RowText CLASS_CPU_ROW =
    Row("CPUWKLD", "CPU Utilization of workload classes", Graph::CLASS_CPU);
inline constexpr RowText PROCESSOR_ROW =
    Row("CPUPP", "Overall CPU Utilization By Processor", Graph::CPU_BY_PROCESSOR);

inline constexpr RowText DISK_OPERATIONS_ROW =
    Row("DIO", "Overall Disk I/O Operation Rate", Graph::DISK_OPERATIONS);
inline constexpr RowText TOP_DISK_OPERATIONS_ROW =
    Row("DOP10", "Top 10 Disks by I/O Operations", Graph::TOP_DISK_OPERATIONS);
inline constexpr RowText TOP_DISK_DATA_ROW = Row("DKB10", "Top 10 Disks by I/O Rate", Graph::TOP_DISK_DATA);
inline constexpr RowText TOP_DISK_QUEUE_ROW =
    Row("DQL10", "Top 10 Disks by Queue Length", Graph::TOP_DISK_QUEUE);
inline constexpr RowText TOP_DISK_UTILIZATION_ROW =
    Row("DUT10", "Top 10 Disks by Utilization", Graph::TOP_DISK_UTILIZATION);
inline constexpr RowText TOP_DISK_RESPONSE_ROW =
    Row("DRT10", "Response Time of Top 10 Disks by I/O Rate", Graph::TOP_DISK_RESPONSE);
inline constexpr RowText TOP_DISK_SPACE_ROW =
    Row("DUS10", "Top 10 Disks by Space Utilization", Graph::TOP_DISK_SPACE);
inline constexpr RowText DISKS_ROW = {"DSKN", "All Disks", RowKind::DISKS};

inline constexpr RowText FILE_SYSTEM_ROWS[] = {
    Row("DSKSPUTIL", "Top Ten File Systems by Disk Space Util", Graph::TOP_FILE_SYSTEMS)};

inline constexpr RowText MEMORY_UTILIZATION_ROW =
    Row("MUTIL", "Memory Utilization", Graph::MEMORY_UTILIZATION);
inline constexpr RowText MEMORY_ALLOCATION_ROW = Row("MUSE", "Memory Allocation", Graph::MEMORY_ALLOCATION);
inline constexpr RowText PAGEFAULT_RATE_ROW = Row("MPAGE", "Paging Rates", Graph::PAGEFAULT_RATE);
inline constexpr RowText PAGEFAULT_TYPE_ROW = Row("MPAGD", "PageFaults By Type", Graph::PAGEFAULTS_BY_TYPE);
inline constexpr RowText PAGEFAULT_IO_ROW = Row("MPFIO", "Paging I/O Rate", Graph::PAGEFAULT_IO);

inline constexpr RowText PROCESS_ROWS[] = {
    Row("PRCCNT", "Process Count", Graph::PROCESS_COUNT),
    Row("PRCWKLD", "Process count by workload classes", Graph::CLASS_COUNT)};

inline constexpr RowText UDP_ROWS[] = {Row("UDPPCKTS", "Packet Rate", Graph::UDP_PACKETS)};
inline constexpr RowText IP_ROWS[] = {Row("IPPCKTS", "Packet Rate", Graph::IP_PACKETS),
                                      Row("IPPCKTSSENT", "Packets Sent Breakdown", Graph::IP_SENT),
                                      Row("IPPCKTSRCVD", "Packets Received Breakdown", Graph::IP_RECEIVED)};
constexpr RowText TcpGroup(std::span<const RowText> rows) { return Group("TCP", "TCP Statistics", rows); }
constexpr RowText UdpGroup(std::span<const RowText> rows) { return Group("UDP", "UDP Statistics", rows); }
constexpr RowText IpGroup(std::span<const RowText> rows) { return Group("IP", "IP Statistics", rows); }

// AIX, HP-UX and Tru64 again.
inline constexpr RowText BSD_TCP_ROWS[] = {
    Row("TCPPCKTS", "Packet Rate", Graph::TCP_PACKETS),
    Row("TCPKB", "TCP Data rate", Graph::TCP_DATA),
    Row("TCPPCKTSSENT", "Packets Sent Breakdown", Graph::TCP_SENT),
    Row("TCPPCKTSRCVD", "Packets Received Breakdown", Graph::TCP_RECEIVED),
    Row("TCPCONNESTBD", "TCP Connections Established", Graph::TCP_CONNECTIONS),
    Row("TCPCONNESTBD", "TCP Connections Closed", Graph::TCP_CLOSED)};
inline constexpr RowText BSD_NETWORK_ROWS[] = {TcpGroup(BSD_TCP_ROWS), UdpGroup(UDP_ROWS), IpGroup(IP_ROWS)};

inline constexpr RowText LAN_SUMMARY_ROWS[] = {
    Row("LANOVRPKTS", "Overall LAN Packet Rates by Adapter", Graph::LAN_PACKETS),
    Row("LANOVRDATA", "Overall LAN Data Rates by Adapter", Graph::LAN_DATA)};
inline constexpr RowText LAN_ROWS[] = {Group("LANOVR", "LAN Adapter Summary", LAN_SUMMARY_ROWS)};

// ---- Root rows ----

constexpr RowText CpuGroup(std::span<const RowText> rows) { return Group("CPU", "CPU Metrics", rows); }
constexpr RowText DiskGroup(std::span<const RowText> rows) { return Group("DIO", "Disk I/O  Metrics", rows); }
inline constexpr RowText FILE_SYSTEM_GROUP = Group("FSY", "File System Metrics", FILE_SYSTEM_ROWS);
constexpr RowText MemoryGroup(std::span<const RowText> rows) {
  return Group("MEM", "Memory Management Metrics", rows);
}
inline constexpr RowText PROCESS_GROUP = Group("PRC", "Process Metrics", PROCESS_ROWS);
constexpr RowText NetworkGroup(std::span<const RowText> rows) {
  return Group("NET", "Network Statistics by protocol", rows);
}
// Rows of adapters follow at run time.
inline constexpr RowText LAN_GROUP = {"LAN", "LAN Metrics", RowKind::ADAPTERS, Graph::COUNT, LAN_ROWS};

}  // namespace ozmo::common
