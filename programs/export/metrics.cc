#include "programs/export/metrics.h"

#include <algorithm>

#include "catalog/graph_name.h"

namespace ozmo::exporting {
namespace {

constexpr std::string_view PERCENT = "percent";
constexpr std::string_view PER_SECOND = "per_second";
constexpr std::string_view DATA_RATE = "kilobytes_per_second";
constexpr std::string_view MILLISECONDS = "milliseconds";

constexpr Metric METRICS[] = {
    // Processors
    {.item = "Overall CPU Utilization", .name = "cpu_utilization", .unit = PERCENT},
    {.item = "Overall CPU Utilization By Mode", .name = "cpu_utilization_by_mode", .unit = PERCENT},
    {.item = "Overall CPU Utilization By Processor", .name = "cpu_utilization_by_processor", .unit = PERCENT},
    {.item = "Overall CPU Utilization By Logical Processor",
     .name = "cpu_utilization_by_processor",
     .unit = PERCENT},
    {.item = "Overall CPU Utilization By Core", .name = "cpu_utilization_by_core", .unit = PERCENT},
    {.item = "CPU-N Utilization by Mode", .name = "processor_utilization_by_mode", .unit = PERCENT},
    {.item = "Number of Active CPUs", .name = "active_processors", .unit = ""},

    // Processes
    {.item = "Top 10 Images by CPU Utilization",
     .name = "image_cpu_utilization",
     .unit = PERCENT,
     .isRanked = true},
    {.item = "Top 10 Users by CPU Utilization",
     .name = "user_cpu_utilization",
     .unit = PERCENT,
     .isRanked = true},
    {.item = "CPU Utilization of workload classes", .name = "class_cpu_utilization", .unit = PERCENT},
    {.item = "Process Count", .name = "processes", .unit = ""},
    {.item = "Process count by workload classes", .name = "class_processes", .unit = ""},
    {.item = "Process PageFaults By Type", .name = "process_page_faults", .unit = PER_SECOND},

    // Disks and file systems
    {.item = "Overall Disk I/O Operation Rate", .name = "all_disks_operations", .unit = PER_SECOND},
    {.item = "Disk I/O Operation Rate", .name = "all_disks_operations", .unit = PER_SECOND},
    {.item = "Overall Disk Disk Data Rate", .name = "all_disks_data", .unit = DATA_RATE},
    {.item = "Top 10 Disks by I/O Operations",
     .name = "top_disk_operations",
     .unit = PER_SECOND,
     .isRanked = true},
    {.item = "Top 10 Disks by I/O Rate", .name = "top_disk_data", .unit = DATA_RATE, .isRanked = true},
    {.item = "Top 10 Disks by Queue Length", .name = "top_disk_queue_length", .unit = "", .isRanked = true},
    {.item = "Top 10 Disks by Utilization",
     .name = "top_disk_utilization",
     .unit = PERCENT,
     .isRanked = true},
    {.item = "Response Time of Top 10 Disks by I/O Rate", .name = "top_disk_response", .unit = MILLISECONDS},
    {.item = "Top 10 Disks by Space Utilization", .name = "top_disk_free", .unit = "", .isRanked = true},
    {.item = "I/O rate for DISK", .name = "disk_operations", .unit = PER_SECOND},
    {.item = "Data rate for DISK", .name = "disk_data", .unit = DATA_RATE},
    {.item = "Queue length for DISK", .name = "disk_queue_length", .unit = ""},
    {.item = "Utilization for DISK", .name = "disk_utilization", .unit = PERCENT},
    {.item = "Space Allocation for DISK", .name = "disk_space", .unit = "gigabytes"},
    {.item = "Wait/Service Time for DISK", .name = "disk_wait_and_service", .unit = MILLISECONDS},
    {.item = "Response Time for DISK", .name = "disk_response", .unit = MILLISECONDS},
    {.item = "Top Ten File Systems by Disk Space Util",
     .name = "file_system_utilization",
     .unit = PERCENT,
     .isRanked = true},

    // Memory
    {.item = "Memory Utilization", .name = "memory_utilization", .unit = PERCENT},
    {.item = "Memory Allocation", .name = "memory", .unit = "megabytes"},
    {.item = "Pagefault Rate", .name = "page_faults", .unit = PER_SECOND},
    {.item = "PageFaults By Type", .name = "page_faults_by_type", .unit = PER_SECOND},
    {.item = "Pagefault I/O", .name = "page_fault_operations", .unit = PER_SECOND},
    {.item = "Paging In/Out Rate", .name = "paging", .unit = PER_SECOND},
    {.item = "Pages In/Out", .name = "pages_in_and_out", .unit = PER_SECOND},

    // Protocols
    {.item = "TCP Segment Rate", .name = "tcp_segments", .unit = PER_SECOND},
    {.item = "TCP Packet Rate", .name = "tcp_segments", .unit = PER_SECOND},
    {.item = "TCP Data rate", .name = "tcp_data", .unit = DATA_RATE, .platforms = "solaris"},
    {.item = "TCP Data rate", .name = "tcp_data_summed", .unit = DATA_RATE},
    {.item = "TCP Sent Segments Breakdown", .name = "tcp_sent_segments", .unit = PER_SECOND},
    {.item = "TCP Sent Packets Breakdown", .name = "tcp_sent_segments", .unit = PER_SECOND},
    {.item = "TCP Received Packets Breakdown", .name = "tcp_received_segments", .unit = PER_SECOND},
    {.item = "TCP Connections Established", .name = "tcp_established", .unit = PER_SECOND},
    {.item = "TCP Connections Closed", .name = "tcp_closed", .unit = PER_SECOND},
    {.item = "TCP Connections Aborted", .name = "tcp_aborted", .unit = PER_SECOND},
    {.item = "TCP Connections Opened", .name = "tcp_opened", .unit = PER_SECOND},
    {.item = "TCP Connection Transitions", .name = "tcp_transitions", .unit = PER_SECOND},
    {.item = "TCP Currently Established Connections", .name = "tcp_connections", .unit = ""},
    {.item = "UDP packet Rate", .name = "udp_packets", .unit = PER_SECOND},
    {.item = "IP Packet Rate", .name = "ip_packets", .unit = PER_SECOND},
    {.item = "IP Sent Packets Breakdown", .name = "ip_sent_packets", .unit = PER_SECOND},
    {.item = "IP Packets Received Breakdown", .name = "ip_received_packets", .unit = PER_SECOND},

    // Adapters
    {.item = "Overall LAN Packet Rates by Adapter", .name = "lan_packets", .unit = PER_SECOND},
    {.item = "Overall LAN Data Rates by Adapter", .name = "lan_data", .unit = DATA_RATE},
    {.item = "ADAPTER", .name = "adapter_packets", .unit = PER_SECOND, .yTitle = "Packets per Second"},
    {.item = "ADAPTER",
     .name = "adapter_data",
     .unit = DATA_RATE,
     .yTitle = "Kbytes per Second",
     .help = "data received and sent, Kbytes of 1000 bytes"},
    {.item = "ADAPTER",
     .name = "adapter_errors",
     .unit = PER_SECOND,
     .yTitle = "Events per Second",
     .help = "errors of packets received and sent, and collisions"},

    // Partitions
    {.item = "Overall Physical CPU Utilization", .name = "physical_processors_used", .unit = ""},
    {.item = "Shared Pool CPU Utilization", .name = "shared_pool_processors", .unit = ""},
    {.item = "Virtual Processor Context Switch Rate",
     .name = "virtual_processor_switches",
     .unit = PER_SECOND},
    {.item = "LPAR Phantom Interrupt Rate", .name = "phantom_interrupts", .unit = PER_SECOND},
};

}  // namespace

std::span<const Metric> Metrics() { return METRICS; }

const Metric* FindMetric(std::string_view item, std::string_view yTitle, std::string_view platform) {
  const auto found = std::ranges::find_if(METRICS, [=](const Metric& row) {
    return GraphNameCompare(row.item, item) == 0 && (row.yTitle.empty() || row.yTitle == yTitle) &&
           (row.platforms.empty() || row.platforms.find(platform) != std::string_view::npos);
  });
  return found == std::end(METRICS) ? nullptr : &*found;
}

std::string FullName(const Metric& metric) {
  std::string name = "ozmo_" + std::string(metric.name);
  if (!metric.unit.empty()) name += "_" + std::string(metric.unit);
  return name;
}

size_t FamilyOf(const Metric& metric) {
  const auto first = std::ranges::find_if(
      METRICS, [&](const Metric& row) { return row.name == metric.name && row.unit == metric.unit; });
  return static_cast<size_t>(first - std::begin(METRICS));
}

}  // namespace ozmo::exporting
