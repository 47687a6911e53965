#include "catalog/platform_tables.h"
#include "catalog/tables_common.h"

namespace ozmo {
namespace {

using namespace common;

constexpr TraceText MODES[] = {{"User", "LightBlue"}, {"System", "Purple"}};
constexpr TraceText MEMORY_USES[] = {{"Free", "Green"}, {"Used", "Orange"}};
constexpr TraceText FAULT_TYPES[] = {
    {"Major Faults", "LimeGreen"}, {"COW", "LightBlue"},       {"Protection Faults", "Purple"},
    {"Soft Lock", "Red"},          {"Kernel Asfault", "Cyan"}, {"ZFOD", "Orange"},
    {"Hatfault", "Gold"},          {"Asfault", "Salmon"}};
constexpr TraceText TCP_SENT_SEGMENTS[] = {{"Data Segments Sent", "LimeGreen"},
                                           {"Ack segments", "LightBlue"},
                                           {"URG Segments", "Purple"},
                                           {"Retransmitted Segments", "Red"}};
constexpr TraceText TCP_RECEIVED_SEGMENTS[] = {{"In Order Segments", "LimeGreen"},
                                               {"Unorder Segments", "LightBlue"},
                                               {"Duplicate Segments", "Purple"},
                                               {"ACK Segments", "Red"},
                                               {"Duplicate ACKs", "Cyan"}};
constexpr TraceText TCP_OPENED[] = {{"Active", "Green"}, {"Passive", "Red"}};
constexpr TraceText TCP_ABORTED[] = {{"Attempt Failures", "Green"}, {"Established Resets", "Red"}};
constexpr TraceText IP_OUT[] = {{"IP Out Requests", "LimeGreen"}, {"IP Discards", "LightBlue"}};
constexpr TraceText IP_IN[] = {{"Others", "LightBlue"},  {"datagram delivers", nullptr},
                               {"Discards", nullptr},    {"Unknown Protocol dgs", nullptr},
                               {"Forwarded", nullptr},   {"Address Error", nullptr},
                               {"Header Error", nullptr}};

constexpr RecordText RECORDS[] = {
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
    Fixed(Graph::TCP_SENT, "TCP Sent Segments Breakdown", "packets per Second", 0, "%s %.1f/s ",
          TCP_SENT_SEGMENTS),
    TcpReceived(TCP_RECEIVED_SEGMENTS),
    TCP_CURRENTLY_ESTABLISHED,
    TcpAborted(TCP_ABORTED),
    Fixed(Graph::TCP_OPENED, "TCP Connections Opened", "Connections per Second", 0, "%s %.1f/s", TCP_OPENED),
    UDP_PACKETS,
    IP_PACKETS,
    IpSent(IP_OUT),
    IpReceived(IP_IN),
    LAN_PACKETS,
    LAN_DATA,
};

constexpr RowText CPU_ROWS[] = {CPU_ROW,       CPU_MODE_ROW,  ACTIVE_CPUS_ROW, TOP_IMAGES_ROW,
                                TOP_USERS_ROW, CLASS_CPU_ROW, PROCESSOR_ROW};
constexpr RowText DISK_ROWS[] = {
    DISK_OPERATIONS_ROW,      TOP_DISK_OPERATIONS_ROW, TOP_DISK_DATA_ROW, TOP_DISK_QUEUE_ROW,
    TOP_DISK_UTILIZATION_ROW, TOP_DISK_RESPONSE_ROW,   DISKS_ROW};
constexpr RowText MEMORY_ROWS[] = {MEMORY_UTILIZATION_ROW, MEMORY_ALLOCATION_ROW, PAGEFAULT_RATE_ROW,
                                   PAGEFAULT_TYPE_ROW, PAGEFAULT_IO_ROW};
constexpr RowText TCP_ROWS[] = {
    Row("TCPKB", "TCP Data rate", Graph::TCP_DATA),
    Row("TCPPCKTSRCVD", "Packets Received Breakdown", Graph::TCP_RECEIVED),
    Row("TCPPCKTS", "TCP  Segment Rate", Graph::TCP_PACKETS),
    Row("TCPCONNESTBD", "TCP Currently Established Connections", Graph::TCP_CONNECTIONS),
    Row("TCPCONNESTBD", "TCP Connections Aborted", Graph::TCP_CLOSED),
    Row("TCPPCKTSSENT", "TCP Sent Segments Breakdown", Graph::TCP_SENT),
    Row("TCPCONNOPENED", "TCP Connections Opened", Graph::TCP_OPENED)};
constexpr RowText NETWORK_ROWS[] = {TcpGroup(TCP_ROWS), UdpGroup(UDP_ROWS), IpGroup(IP_ROWS)};
constexpr RowText TREE[] = {
    CpuGroup(CPU_ROWS), DiskGroup(DISK_ROWS),       FILE_SYSTEM_GROUP, MemoryGroup(MEMORY_ROWS),
    PROCESS_GROUP,      NetworkGroup(NETWORK_ROWS), LAN_GROUP};

}  // namespace

std::span<const RecordText> SolarisRecords() { return RECORDS; }
std::span<const RowText> SolarisTree() { return TREE; }

}  // namespace ozmo
