// The graphs that a catalog may hold. A platform's tables say which it has, under which texts.
#pragma once

namespace ozmo {

enum class Graph {
  // CPU
  OVERALL_CPU,
  CPU_BY_MODE,
  CPU_BY_PROCESSOR,  // on AIX by logical processor
  CPU_BY_CORE,
  ACTIVE_CPUS,
  TOP_IMAGES,
  TOP_USERS,
  CLASS_CPU,
  // Disks and file systems
  DISK_OPERATIONS,
  DISK_DATA,  // total data rate: a row of its own on HP-UX only
  DISK_BY_TYPE,
  TOP_DISK_OPERATIONS,
  TOP_DISK_DATA,
  TOP_DISK_QUEUE,
  TOP_DISK_UTILIZATION,
  TOP_DISK_RESPONSE,
  TOP_DISK_SPACE,
  TOP_FILE_SYSTEMS,
  VMR_DISK_TRANSFER,
  VMR_DISK_TRANSFER_SPLIT,
  VMR_DISK_OPERATIONS_SPLIT,
  // Memory
  MEMORY_UTILIZATION,
  MEMORY_ALLOCATION,
  PAGEFAULT_RATE,
  PAGEFAULTS_BY_TYPE,
  PAGING_IN_OUT,
  PAGEFAULT_IO,
  PROCESS_PAGEFAULTS,
  PAGES_IN_OUT,
  // Processes
  PROCESS_COUNT,
  CLASS_COUNT,
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

// What stands in a row of the tree: a graph, a group of rows, or one of the groups that fill at run time.
enum class RowKind { GRAPH, GROUP, DISKS, ADAPTERS, PROCESSORS };

}  // namespace ozmo
