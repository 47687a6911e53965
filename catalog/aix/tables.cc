#include "catalog/platform_tables.h"
#include "catalog/tables_common.h"

namespace ozmo {
namespace {

using namespace common;

constexpr TraceText MODES[] = {{"Wait", "LightBlue"}, {"User", "LimeGreen"}, {"System", "Red"}};
constexpr TraceText MEMORY_USES[] = {
    {"Free", "Green"}, {"Procs", "Orange"}, {"Files", "Blue"}, {"System", nullptr}};
constexpr TraceText FAULT_TYPES[] = {{"Other", "Red"}, {"Zero Fill", "LightBlue"}, {"Exec Fill", "Orange"}};
constexpr TraceText PAGED[] = {{"Paged In", "LimeGreen"}, {"Paged Out", "Orange"}};
constexpr TraceText PHYSICAL_USED[] = {{"Physical CPU Used", "Green"}};
constexpr TraceText POOL_USES[] = {
    {"Other LPARs in Pool", "Purple"}, {"Unused", "Green"}, {"This LPAR", "Orange"}};
constexpr TraceText SWITCHES[] = {{"Voluntary", "Green"}, {"Involunatary", "Red"}};
constexpr TraceText PHANTOMS[] = {{"Phantom Interrupts", "Green"}};
constexpr TraceText ENTITLEMENT[] = {{"CPU Entitlement", "Red"}};

constexpr RecordText RECORDS[] = {
    OVERALL_CPU,
    CpuByMode(MODES),
    RunTime(Graph::CPU_BY_PROCESSOR, "Overall CPU Utilization By Logical Processor", "% Utilization", 0,
            "%s %.1f%% "),
    RunTime(Graph::CPU_BY_CORE, "Overall CPU Utilization By Core", "% Utilization", 0, "%s %.1f%% "),
    WithLegend(ACTIVE_CPUS, "%s %.0f "),
    TOP_IMAGES,
    TOP_USERS,
    CLASS_CPU,
    DISK_OPERATIONS,
    DISK_DATA,
    TOP_DISK_OPERATIONS,
    TOP_DISK_DATA,
    TOP_DISK_QUEUE,
    TOP_DISK_UTILIZATION,
    TOP_DISK_RESPONSE,
    TOP_DISK_SPACE,
    TOP_FILE_SYSTEMS,
    MEMORY_UTILIZATION,
    MemoryAllocation(MEMORY_USES),
    PAGEFAULT_RATE,
    PagefaultsByType(FAULT_TYPES),
    Fixed(Graph::PAGING_IN_OUT, "Paging In/Out Rate", "Pages per Second", 0, "%s %.1f/s ", PAGED),
    PROCESS_COUNT,
    CLASS_COUNT,
    TCP_PACKETS,
    TCP_DATA,
    TCP_SENT,
    TCP_RECEIVED,
    TCP_ESTABLISHED,
    TCP_CLOSED,
    UDP_PACKETS,
    IP_PACKETS,
    IP_SENT,
    IP_RECEIVED,
    LAN_PACKETS,
    LAN_DATA,
    Fixed(Graph::PHYSICAL_CPU, "Overall Physical CPU Utilization", "Physical CPU(s)", 0, "%s %.1f%% ",
          PHYSICAL_USED),
    Fixed(Graph::SHARED_POOL, "Shared Pool CPU Utilization", "Physical CPUs in Pool", 0, "%s %.1f ",
          POOL_USES),
    Fixed(Graph::CONTEXT_SWITCHES, "Virtual Processor Context Switch Rate", "Per second", 0, "%s %.1f ",
          SWITCHES),
    Fixed(Graph::PHANTOM_INTERRUPTS, "LPAR Phantom Interrupt Rate", "Interrupts per second", 0, "%s %.1f ",
          PHANTOMS),
    // No row shows the entitlement.
    Fixed(Graph::ENTITLEMENT, "CPU Entitlement", "CPU Entitlement", 0, "%s %.1f ", ENTITLEMENT),
    Fixed(Graph::POOL_ENTITLEMENT, "CPU Entitlement", "CPU Entitlement", 0, "%s %.1f ", ENTITLEMENT),
};

constexpr RowText CPU_ROWS[] = {
    CPU_ROW,
    CPU_MODE_ROW,
    Row("CPUPP", "Overall CPU Utilization By Logical Processor", Graph::CPU_BY_PROCESSOR),
    Row("CPUPP", "Overall CPU Utilization By Core", Graph::CPU_BY_CORE),
    ACTIVE_CPUS_ROW,
    TOP_IMAGES_ROW,
    TOP_USERS_ROW,
    CLASS_CPU_ROW};
constexpr RowText DISK_ROWS[] = {DISK_OPERATIONS_ROW,
                                 // Labelled as the data-rate graph; its record's title tells the truth.
                                 Row("DOP10", "Top 10 Disks by I/O Rate", Graph::TOP_DISK_OPERATIONS),
                                 TOP_DISK_DATA_ROW, TOP_DISK_QUEUE_ROW, TOP_DISK_UTILIZATION_ROW,
                                 TOP_DISK_RESPONSE_ROW, TOP_DISK_SPACE_ROW, DISKS_ROW};
constexpr RowText MEMORY_ROWS[] = {MEMORY_UTILIZATION_ROW, MEMORY_ALLOCATION_ROW, PAGEFAULT_RATE_ROW,
                                   PAGEFAULT_TYPE_ROW,
                                   Row("MPFIO", "Paging I/O Page Rate", Graph::PAGING_IN_OUT)};
constexpr RowText PARTITION_ROWS[] = {
    Row("PCPU", "Overall Physical CPU Utilization", Graph::PHYSICAL_CPU),
    Row("PPCPU", "Shared Pool CPU Utilization", Graph::SHARED_POOL),
    Row("VCTX", "Virtual Processor Context Switch Rate", Graph::CONTEXT_SWITCHES),
    Row("PHNI", "LPAR Phantom Interrupt Rate", Graph::PHANTOM_INTERRUPTS)};
constexpr RowText TREE[] = {CpuGroup(CPU_ROWS), DiskGroup(DISK_ROWS),
                            FILE_SYSTEM_GROUP,  MemoryGroup(MEMORY_ROWS),
                            PROCESS_GROUP,      NetworkGroup(BSD_NETWORK_ROWS),
                            LAN_GROUP,          Group("LPR", "LPAR Metrics", PARTITION_ROWS)};

}  // namespace

std::span<const RecordText> AixRecords() { return RECORDS; }
std::span<const RowText> AixTree() { return TREE; }

}  // namespace ozmo
