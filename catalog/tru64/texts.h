// The texts of the Tru64 catalog: its records and its tree.
#pragma once

#include "catalog/common_texts.h"

namespace ozmo::tru64_texts {

using namespace common;

inline constexpr TraceText MODES[] = {{"Nice", "LimeGreen"}, {"User", "LightBlue"}, {"System", "Purple"}};
inline constexpr TraceText MEMORY_USES[] = {{"Free", "Green"},   {"Inactive", "Orange"},
                                            {"Active", "Red"},   {"Buffer Cache", "Blue"},
                                            {"Wired", "Purple"}, {"Unmapped", "Cyan"}};
inline constexpr TraceText FAULT_TYPES[] = {{"Kernel", "LimeGreen"}, {"COW", "LightBlue"},
                                            {"COWsteals", "Purple"}, {"ZFOD", "Red"},
                                            {"KZFOD", "Cyan"},       {"UBC", "Orange"}};

inline constexpr RecordText RECORDS[] = {
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

inline constexpr RowText CPU_ROWS[] = {CPU_ROW,       CPU_MODE_ROW,  TOP_IMAGES_ROW,
                                       TOP_USERS_ROW, CLASS_CPU_ROW, PROCESSOR_ROW};
inline constexpr RowText DISK_ROWS[] = {
    DISK_OPERATIONS_ROW,      TOP_DISK_OPERATIONS_ROW, TOP_DISK_DATA_ROW,  TOP_DISK_QUEUE_ROW,
    TOP_DISK_UTILIZATION_ROW, TOP_DISK_RESPONSE_ROW,   TOP_DISK_SPACE_ROW, DISKS_ROW};
inline constexpr RowText MEMORY_ROWS[] = {MEMORY_UTILIZATION_ROW, MEMORY_ALLOCATION_ROW, PAGEFAULT_RATE_ROW,
                                          PAGEFAULT_TYPE_ROW, PAGEFAULT_IO_ROW};
// The protocols come before the processes here.
inline constexpr RowText TREE[] = {CpuGroup(CPU_ROWS),
                                   DiskGroup(DISK_ROWS),
                                   FILE_SYSTEM_GROUP,
                                   MemoryGroup(MEMORY_ROWS),
                                   NetworkGroup(BSD_NETWORK_ROWS),
                                   PROCESS_GROUP,
                                   LAN_GROUP};

}  // namespace ozmo::tru64_texts
