#include "catalog/platform_tables.h"
#include "catalog/tables_common.h"

namespace ozmo {
namespace {

using namespace common;

constexpr TraceText MODES[] = {
    {"IOwait", "LightBlue"}, {"Nice", "LimeGreen"}, {"User", "Red"}, {"System", "Purple"}};
constexpr TraceText MEMORY_USES[] = {{"Free", "Blue"},
                                     {"Applications", "Orange"},
                                     {"Shared", "DarkBlue"},
                                     {"File Cache", "Purple"},
                                     {"System Buffers", "ForestGreen"}};
constexpr TraceText PROCESS_FAULTS[] = {{"Major Faults", "Red"}, {"Minor Faults", "LightBlue"}};
constexpr TraceText PAGE_MOVES[] = {
    {"Swapped Out", "Orange"}, {"Paged Out", "Red"}, {"Swapped In", "Blue"}, {"Paged In", "Green"}};
constexpr TraceText TCP_ABORTED[] = {{"Attempt Failures", "Green"}};

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
    PAGEFAULT_RATE,  // no row shows it
    Fixed(Graph::PROCESS_PAGEFAULTS, "Process PageFaults By Type", "Pagefaults per Second", 0, "%s %.1f/s ",
          PROCESS_FAULTS),
    Fixed(Graph::PAGES_IN_OUT, "Pages In/Out", "Pages per Second", 0, "%s %.1f/s ", PAGE_MOVES),
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

constexpr RowText CPU_ROWS[] = {CPU_ROW,       CPU_MODE_ROW,  ACTIVE_CPUS_ROW, TOP_IMAGES_ROW,
                                TOP_USERS_ROW, CLASS_CPU_ROW, PROCESSOR_ROW};
constexpr RowText DISK_ROWS[] = {
    DISK_OPERATIONS_ROW,      TOP_DISK_OPERATIONS_ROW, TOP_DISK_DATA_ROW, TOP_DISK_QUEUE_ROW,
    TOP_DISK_UTILIZATION_ROW, TOP_DISK_RESPONSE_ROW,   DISKS_ROW};
constexpr RowText MEMORY_ROWS[] = {MEMORY_UTILIZATION_ROW, MEMORY_ALLOCATION_ROW,
                                   Row("MPAGE", "Process PageFaults By Type", Graph::PROCESS_PAGEFAULTS),
                                   Row("MPFIO", "Pages In/Out", Graph::PAGES_IN_OUT)};
constexpr RowText TCP_ROWS[] = {
    Row("TCPPCKTS", "TCP  Segment Rate", Graph::TCP_PACKETS),
    Row("TCPCONNESTBD", "TCP Currently Established Connections", Graph::TCP_CONNECTIONS),
    Row("TCPCONNESTBD", "TCP Connections Aborted", Graph::TCP_CLOSED)};
constexpr RowText LINUX_IP_ROWS[] = {Row("IPPCKTS", "Packet Rate", Graph::IP_PACKETS)};
constexpr RowText NETWORK_ROWS[] = {TcpGroup(TCP_ROWS), UdpGroup(UDP_ROWS), IpGroup(LINUX_IP_ROWS)};
constexpr RowText TREE[] = {
    CpuGroup(CPU_ROWS), DiskGroup(DISK_ROWS),       FILE_SYSTEM_GROUP, MemoryGroup(MEMORY_ROWS),
    PROCESS_GROUP,      NetworkGroup(NETWORK_ROWS), LAN_GROUP};

}  // namespace

std::span<const RecordText> LinuxRecords() { return RECORDS; }
std::span<const RowText> LinuxTree() { return TREE; }

}  // namespace ozmo
