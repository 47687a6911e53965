#include "catalog/platform_tables.h"
#include "catalog/tables_common.h"

namespace ozmo {
namespace {

using namespace common;

constexpr TraceText MODES[] = {
    {"User", "LimeGreen"}, {"Priv", "LightBlue"}, {"DPC", "Purple"}, {"Interrrupt", "Red"}};
// Ten ranks, and behind them the two sets that fill the graph up to the overall figure.
constexpr TraceText IMAGE_TRACES[] = {
    {nullptr, "LimeGreen"}, {nullptr, "LightBlue"},     {nullptr, "Purple"},
    {nullptr, "Red"},       {nullptr, "Cyan"},          {nullptr, "Orange"},
    {nullptr, "DarkBlue"},  {nullptr, "Green"},         {nullptr, "HotPink"},
    {nullptr, "Wheat"},     {"Others", "DarkSeaGreen"}, {"DPC+Interrupt", "DeepSkyBlue"}};
constexpr TraceText TCP_PACKET_KINDS[] = {
    {"Packets Retransmitted", "Orange"}, {"Packets sent", "Red"}, {"Packets received", "Green"}};
constexpr TraceText TRANSITIONS[] = {{"Connection Reset", "Green"},
                                     {"Connection Passive", "Red"},
                                     {"Connection Active", "DarkBlue"},
                                     {"Connection Fail", "Orange"}};
constexpr TraceText IP_IN[] = {{"Packets not consumed", "LightBlue"},
                               {"Packets not forwardable", nullptr},
                               {"Packets forwarded", nullptr},
                               {"Packets consumed", nullptr}};
constexpr TraceText CURRENT[] = {{"Current Connections", nullptr}, {"Connections closed", nullptr}};
constexpr TraceText TRANSFERRED[] = {{"KBytes transfered", nullptr}};
constexpr TraceText TRANSFERS[] = {{"Read KBytes", nullptr}, {"Write KBytes", nullptr}};
constexpr TraceText OPERATIONS[] = {{"Read Operations", nullptr}, {"Write Operations", nullptr}};

constexpr RecordText RECORDS[] = {
    WithTop(OVERALL_CPU, 0),
    WithTop(CpuByMode(MODES), 0),
    WithLegend(CPU_BY_PROCESSOR, "%s %.1f%% "),
    RunTime(Graph::TOP_IMAGES, "Top 10 Images by CPU Utilization", "%CPU Utilization", 0, "%s %.1f ",
            IMAGE_TRACES),
    CLASS_CPU,
    Fixed(Graph::DISK_OPERATIONS, "Disk I/O Operation Rate", "I/Os per Second", 0, "%s %.1f/s ",
          IO_OPERATIONS),
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
    Fixed(Graph::TCP_PACKETS, "TCP Packet Rate", "packets per Second", 0, "%s %.1f/s ", TCP_PACKET_KINDS),
    Fixed(Graph::TCP_TRANSITIONS, "TCP Connection Transitions", "Transitions per Second", 0, "%s %.1f/s",
          TRANSITIONS),
    UDP_PACKETS,
    IP_PACKETS,
    IP_SENT,
    IpReceived(IP_IN),
    // No row shows these.
    TOP_DISK_SPACE,
    Fixed(Graph::TCP_CURRENT, "Current TCP Connections", "", 0, "", CURRENT),
    Fixed(Graph::VMR_DISK_TRANSFER, " Disk transfer Rate", "", 0, "", TRANSFERRED),
    Fixed(Graph::VMR_DISK_TRANSFER_SPLIT, "Disk transfer Rate ( Reads / Writes ) ", "", 0, "", TRANSFERS),
    Fixed(Graph::VMR_DISK_OPERATIONS_SPLIT, "Disk I/O Operations ( Reads / Writes ) ", "", 0, "", OPERATIONS),
    LAN_PACKETS,
    LAN_DATA,
};

constexpr RowText CPU_ROWS[] = {
    CPU_ROW,       CPU_MODE_ROW,  TOP_IMAGES_ROW,
    CLASS_CPU_ROW, PROCESSOR_ROW, {"PPCPU", "Per-CPU Utilization Specifics", RowKind::PROCESSORS}};
constexpr RowText DISK_ROWS[] = {TOP_DISK_OPERATIONS_ROW,
                                 TOP_DISK_DATA_ROW,
                                 TOP_DISK_QUEUE_ROW,
                                 TOP_DISK_UTILIZATION_ROW,
                                 TOP_DISK_RESPONSE_ROW,
                                 Row("DIO", "Disk I/O Operation Rate", Graph::DISK_OPERATIONS),
                                 DISKS_ROW};
constexpr RowText MEMORY_ROWS[] = {MEMORY_UTILIZATION_ROW, Row("MPAGE", "Paging Rate", Graph::PAGEFAULT_RATE),
                                   PAGEFAULT_IO_ROW};
constexpr RowText TCP_ROWS[] = {Row("TCPPCKTS", "TCP Packet Rate", Graph::TCP_PACKETS),
                                Row("TCPCONNESTBD", "TCP Connection Transitions", Graph::TCP_TRANSITIONS)};
constexpr RowText VMR_UDP_ROWS[] = {Row("UDPPCKTS", "UDP Packet Rate", Graph::UDP_PACKETS)};
constexpr RowText VMR_IP_ROWS[] = {Row("IPPCKTS", "IP Packet Rate", Graph::IP_PACKETS),
                                   Row("IPPCKTSSENT", "IP Packets Sent Breakdown", Graph::IP_SENT),
                                   Row("IPPCKTSRCVD", "IP Packets Received Breakdown", Graph::IP_RECEIVED)};
constexpr RowText NETWORK_ROWS[] = {TcpGroup(TCP_ROWS), UdpGroup(VMR_UDP_ROWS), IpGroup(VMR_IP_ROWS)};
constexpr RowText TREE[] = {CpuGroup(CPU_ROWS), DiskGroup(DISK_ROWS), MemoryGroup(MEMORY_ROWS),
                            NetworkGroup(NETWORK_ROWS), PROCESS_GROUP};

}  // namespace

std::span<const RecordText> VmrRecords() { return RECORDS; }
std::span<const RowText> VmrTree() { return TREE; }

}  // namespace ozmo
