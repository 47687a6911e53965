// The texts of the AIX catalog: its records and its tree.
#pragma once

#include "catalog/common_texts.h"

namespace ozmo::aix_texts {

using namespace common;

inline constexpr TraceText MODES[] = {{"Wait", "LightBlue"}, {"User", "LimeGreen"}, {"System", "Red"}};
inline constexpr TraceText MEMORY_USES[] = {
    {"Free", "Green"}, {"Procs", "Orange"}, {"Files", "Blue"}, {"System", nullptr}};
inline constexpr TraceText FAULT_TYPES[] = {
    {"Other", "Red"}, {"Zero Fill", "LightBlue"}, {"Exec Fill", "Orange"}};
inline constexpr TraceText PAGED[] = {{"Paged In", "LimeGreen"}, {"Paged Out", "Orange"}};
inline constexpr TraceText PHYSICAL_USED[] = {{"Physical CPU Used", "Green"}};
inline constexpr TraceText POOL_USES[] = {
    {"Other LPARs in Pool", "Purple"}, {"Unused", "Green"}, {"This LPAR", "Orange"}};
inline constexpr TraceText SWITCHES[] = {{"Voluntary", "Green"}, {"Involunatary", "Red"}};
inline constexpr TraceText PHANTOMS[] = {{"Phantom Interrupts", "Green"}};
inline constexpr TraceText ENTITLEMENT[] = {{"CPU Entitlement", "Red"}};

inline constexpr RecordText RECORDS[] = {
    OVERALL_CPU,
    CpuByMode(MODES),
    {.graph = Graph::CPU_BY_PROCESSOR,
     .title = "Overall CPU Utilization By Logical Processor",
     .yTitle = "% Utilization",
     .legendFormat = "%s %.1f%% ",
     .plan = SeriesPlan::RUN_TIME},
    {.graph = Graph::CPU_BY_CORE,
     .title = "Overall CPU Utilization By Core",
     .yTitle = "% Utilization",
     .legendFormat = "%s %.1f%% ",
     .plan = SeriesPlan::RUN_TIME},
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
    {.graph = Graph::PAGING_IN_OUT,
     .title = "Paging In/Out Rate",
     .yTitle = "Pages per Second",
     .legendFormat = "%s %.1f/s ",
     .traces = PAGED},
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
    {.graph = Graph::PHYSICAL_CPU,
     .title = "Overall Physical CPU Utilization",
     .yTitle = "Physical CPU(s)",
     .legendFormat = "%s %.1f%% ",
     .traces = PHYSICAL_USED},
    {.graph = Graph::SHARED_POOL,
     .title = "Shared Pool CPU Utilization",
     .yTitle = "Physical CPUs in Pool",
     .legendFormat = "%s %.1f ",
     .traces = POOL_USES},
    {.graph = Graph::CONTEXT_SWITCHES,
     .title = "Virtual Processor Context Switch Rate",
     .yTitle = "Per second",
     .legendFormat = "%s %.1f ",
     .traces = SWITCHES},
    {.graph = Graph::PHANTOM_INTERRUPTS,
     .title = "LPAR Phantom Interrupt Rate",
     .yTitle = "Interrupts per second",
     .legendFormat = "%s %.1f ",
     .traces = PHANTOMS},
    // No row shows the entitlement.
    {.graph = Graph::ENTITLEMENT,
     .title = "CPU Entitlement",
     .yTitle = "CPU Entitlement",
     .legendFormat = "%s %.1f ",
     .traces = ENTITLEMENT},
    {.graph = Graph::POOL_ENTITLEMENT,
     .title = "CPU Entitlement",
     .yTitle = "CPU Entitlement",
     .legendFormat = "%s %.1f ",
     .traces = ENTITLEMENT},
};

inline constexpr RowText CPU_ROWS[] = {CPU_ROW,
                                       CPU_MODE_ROW,
                                       {.code = "CPUPP", .graph = Graph::CPU_BY_PROCESSOR},
                                       {.code = "CPUPP", .graph = Graph::CPU_BY_CORE},
                                       ACTIVE_CPUS_ROW,
                                       TOP_IMAGES_ROW,
                                       TOP_USERS_ROW,
                                       CLASS_CPU_ROW};
inline constexpr RowText DISK_ROWS[] = {
    DISK_OPERATIONS_ROW,
    // Labelled as the data-rate graph; its record's title is right.
    {.code = "DOP10", .label = "Top 10 Disks by I/O Rate", .graph = Graph::TOP_DISK_OPERATIONS},
    TOP_DISK_DATA_ROW,
    TOP_DISK_QUEUE_ROW,
    TOP_DISK_UTILIZATION_ROW,
    TOP_DISK_RESPONSE_ROW,
    TOP_DISK_SPACE_ROW,
    DISKS_ROW};
inline constexpr RowText MEMORY_ROWS[] = {
    MEMORY_UTILIZATION_ROW,
    MEMORY_ALLOCATION_ROW,
    PAGEFAULT_RATE_ROW,
    PAGEFAULT_TYPE_ROW,
    {.code = "MPFIO", .label = "Paging I/O Page Rate", .graph = Graph::PAGING_IN_OUT}};
inline constexpr RowText PARTITION_ROWS[] = {{.code = "PCPU", .graph = Graph::PHYSICAL_CPU},
                                             {.code = "PPCPU", .graph = Graph::SHARED_POOL},
                                             {.code = "VCTX", .graph = Graph::CONTEXT_SWITCHES},
                                             {.code = "PHNI", .graph = Graph::PHANTOM_INTERRUPTS}};
inline constexpr RowText TREE[] = {
    CpuGroup(CPU_ROWS),
    DiskGroup(DISK_ROWS),
    FILE_SYSTEM_GROUP,
    MemoryGroup(MEMORY_ROWS),
    PROCESS_GROUP,
    NetworkGroup(BSD_NETWORK_ROWS),
    LAN_GROUP,
    {.code = "LPR", .label = "LPAR Metrics", .kind = RowKind::GROUP, .rows = PARTITION_ROWS}};

}  // namespace ozmo::aix_texts
