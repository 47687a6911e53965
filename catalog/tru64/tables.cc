#include "catalog/platform_tables.h"
#include "catalog/tables_common.h"

namespace ozmo {
namespace {

using namespace common;

constexpr TraceText MODES[] = {{"Nice", "LimeGreen"}, {"User", "LightBlue"}, {"System", "Purple"}};
constexpr TraceText MEMORY_USES[] = {{"Free", "Green"},        {"Inactive", "Orange"}, {"Active", "Red"},
                                     {"Buffer Cache", "Blue"}, {"Wired", "Purple"},    {"Unmapped", "Cyan"}};
constexpr TraceText FAULT_TYPES[] = {{"Kernel", "LimeGreen"}, {"COW", "LightBlue"}, {"COWsteals", "Purple"},
                                     {"ZFOD", "Red"},         {"KZFOD", "Cyan"},    {"UBC", "Orange"}};

constexpr RecordText RECORDS[] = {
    OVERALL_CPU,
    CpuByMode(MODES),
    CPU_BY_PROCESSOR,
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
};

constexpr RowText CPU_ROWS[] = {CPU_ROW,       CPU_MODE_ROW,  TOP_IMAGES_ROW,
                                TOP_USERS_ROW, CLASS_CPU_ROW, PROCESSOR_ROW};
constexpr RowText DISK_ROWS[] = {
    DISK_OPERATIONS_ROW,      TOP_DISK_OPERATIONS_ROW, TOP_DISK_DATA_ROW,  TOP_DISK_QUEUE_ROW,
    TOP_DISK_UTILIZATION_ROW, TOP_DISK_RESPONSE_ROW,   TOP_DISK_SPACE_ROW, DISKS_ROW};
constexpr RowText MEMORY_ROWS[] = {MEMORY_UTILIZATION_ROW, MEMORY_ALLOCATION_ROW, PAGEFAULT_RATE_ROW,
                                   PAGEFAULT_TYPE_ROW, PAGEFAULT_IO_ROW};
// The protocols stand ahead of the processes here.
constexpr RowText TREE[] = {CpuGroup(CPU_ROWS),
                            DiskGroup(DISK_ROWS),
                            FILE_SYSTEM_GROUP,
                            MemoryGroup(MEMORY_ROWS),
                            NetworkGroup(BSD_NETWORK_ROWS),
                            PROCESS_GROUP,
                            LAN_GROUP};

}  // namespace

std::span<const RecordText> Tru64Records() { return RECORDS; }
std::span<const RowText> Tru64Tree() { return TREE; }

}  // namespace ozmo
