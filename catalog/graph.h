// The graphs that a catalog may hold. A platform's tables say which it has, under which texts.
#pragma once

#include <cstddef>

namespace ozmo {

// Graphs are grouped by the pass that works them out, see PASS_GRAPHS in needs.cc.
enum class Graph {
  // Processors
  OVERALL_CPU,
  CPU_BY_MODE,
  CPU_BY_PROCESSOR,  // on AIX by logical processor
  CPU_BY_CORE,
  ACTIVE_CPUS,
  // Processes
  TOP_IMAGES,
  TOP_USERS,
  CLASS_CPU,
  CLASS_COUNT,
  PROCESS_COUNT,
  PROCESS_PAGEFAULTS,
  // Disks
  DISK_OPERATIONS,
  DISK_DATA,  // total data rate: a row of its own on HP-UX only
  DISK_BY_TYPE,
  TOP_DISK_OPERATIONS,
  TOP_DISK_DATA,
  TOP_DISK_QUEUE,
  TOP_DISK_UTILIZATION,
  TOP_DISK_RESPONSE,
  TOP_DISK_SPACE,
  VMR_DISK_TRANSFER,
  VMR_DISK_TRANSFER_SPLIT,
  VMR_DISK_OPERATIONS_SPLIT,
  // File systems
  TOP_FILE_SYSTEMS,
  // Memory
  MEMORY_UTILIZATION,
  MEMORY_ALLOCATION,
  PAGEFAULT_RATE,  // on Linux worked out from the processes
  PAGEFAULTS_BY_TYPE,
  PAGING_IN_OUT,
  PAGEFAULT_IO,
  PAGES_IN_OUT,
  // Protocols
  TCP_PACKETS,  // on Linux and Solaris segments
  TCP_DATA,
  TCP_SENT,
  TCP_RECEIVED,
  TCP_CONNECTIONS,  // established, or currently established
  TCP_CLOSED,       // closed, or aborted
  TCP_OPENED,
  TCP_TRANSITIONS,
  TCP_CURRENT,
  UDP_PACKETS,
  IP_PACKETS,
  IP_SENT,
  IP_RECEIVED,
  // Adapters
  LAN_PACKETS,
  LAN_DATA,
  // Partitions
  PHYSICAL_CPU,
  SHARED_POOL,
  CONTEXT_SWITCHES,
  PHANTOM_INTERRUPTS,
  ENTITLEMENT,
  POOL_ENTITLEMENT,
  COUNT
};
inline constexpr size_t GRAPH_COUNT = static_cast<size_t>(Graph::COUNT);

// What a row of the tree holds: a graph, a group of rows, or one of the groups that fill at run time.
enum class RowKind { GRAPH, GROUP, DISKS, ADAPTERS, PROCESSORS, COUNT };
inline constexpr size_t ROW_KIND_COUNT = static_cast<size_t>(RowKind::COUNT);

}  // namespace ozmo
