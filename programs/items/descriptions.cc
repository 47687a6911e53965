#include "programs/items/descriptions.h"

namespace ozmo::items {
namespace {

constexpr std::string_view BSD = "aix hpux tru64";
constexpr std::string_view EACH_PROCESSOR = "`CPU-0`, `CPU-1` and so on, one a processor";
constexpr std::string_view EACH_AIX_PROCESSOR = "`cpu0`, `cpu1` and so on, one a logical processor";
constexpr std::string_view EACH_CLASS = "the names of the classes";
constexpr std::string_view EACH_ADAPTER = "`ADAPTER Inbound` and `ADAPTER Outbound` for each";

constexpr Description DESCRIPTIONS[] = {
    // CPU
    {.title = "Overall CPU Utilization",
     .source = "user, nice and system time in percent of all time, mean of the processors"},
    {.title = "Overall CPU Utilization",
     .source = "user and system time of the machine in percent of all its time, scaled up by the logical "
               "processors that idled over the whole span",
     .platforms = "aix"},
    {.title = "Overall CPU Utilization",
     .source = "percent of the machine's time in all four modes",
     .platforms = "vmr"},
    {.title = "Overall CPU Utilization By Mode",
     .source = "time in each mode in percent of all time, mean of the processors"},
    {.title = "Overall CPU Utilization By Mode",
     .source = "time in each mode in percent of all time, mean of the processors; waiting for I/O is no part "
               "of the "
               "overall utilization",
     .platforms = "linux"},
    {.title = "Overall CPU Utilization By Mode",
     .source =
         "time of the machine in each mode in percent of all its time, scaled as the overall utilization; "
         "waiting for I/O is no part of that",
     .platforms = "aix"},
    {.title = "Overall CPU Utilization By Mode",
     .source = "percent of the machine's time; `Priv` is system time less DPC and interrupt time",
     .platforms = "vmr"},
    {.title = "Overall CPU Utilization By Processor",
     .source = "busy time of each processor in percent of all its time",
     .traces = EACH_PROCESSOR},
    {.title = "Overall CPU Utilization By Logical Processor",
     .source =
         "busy time of each processor in percent of all its time; one that idled over the whole span has no "
         "trace",
     .traces = EACH_AIX_PROCESSOR},
    {.title = "CPU-N Utilization by Mode",
     .source = "percent of the processor's time; `System` is system time less DPC and interrupt time"},
    {.title = "Number of Active CPUs",
     .source = "1 for each processor with a record in the interval",
     .traces = EACH_PROCESSOR},
    {.title = "Number of Active CPUs",
     .source = "1 for each processor with a record in the interval",
     .traces = EACH_AIX_PROCESSOR,
     .platforms = "aix"},
    {.title = "Top 10 Images by CPU Utilization",
     .source =
         "CPU time of an image's processes in percent of the machine; the ten with the highest sum over the "
         "span, and what they leave of the overall utilization",
     .traces = RANKED,
     .platforms = "solaris"},
    {.title = "Top 10 Images by CPU Utilization",
     .source =
         "CPU time of an image's processes in percent of the machine, with what no process accounts for as "
         "`<NoProc>`; the ten with the highest sum over the span, and what they leave of the overall "
         "utilization",
     .traces = RANKED,
     .platforms = "linux"},
    {.title = "Top 10 Images by CPU Utilization",
     .source = "CPU time of an image's processes, scaled so that all processes make the overall utilization; "
               "the ten "
               "with the highest sum over the span, and what they leave of it",
     .traces = RANKED,
     .platforms = "aix hpux"},
    {.title = "Top 10 Images by CPU Utilization",
     .source = "CPU time of an image's processes, with what no process accounts for as `<NoProc>`, scaled so "
               "that all "
               "make the overall utilization; the ten with the highest sum over the span, and what they "
               "leave of it",
     .traces = RANKED,
     .platforms = "tru64"},
    {.title = "Top 10 Images by CPU Utilization",
     .source = "the overall utilization, shared out by the CPU percent of each process times the time that "
               "it lived; "
               "the ten with the highest sum over the span, and what they leave of it",
     .traces = RANKED,
     .platforms = "vmr"},
    {.title = "Top 10 Users by CPU Utilization",
     .source =
         "CPU time of a user's processes, scaled so that all processes make the overall utilization; the ten "
         "with the highest sum over the span, and what they leave of it",
     .traces = RANKED},
    {.title = "Top 10 Users by CPU Utilization",
     .source = "CPU time of a user's processes, with what no process accounts for as `<NoProc>`, scaled so "
               "that all "
               "make the overall utilization; the ten with the highest sum over the span, and what they "
               "leave of it",
     .traces = RANKED,
     .platforms = "linux tru64"},
    {.title = "CPU Utilization of workload classes",
     .source = "CPU time of a class's processes, scaled so that all processes make the overall utilization",
     .traces = EACH_CLASS},
    {.title = "CPU Utilization of workload classes",
     .source = "the overall utilization, shared out by the CPU percent of each process times the time that "
               "it lived",
     .traces = EACH_CLASS,
     .platforms = "vmr"},

    // Disks and file systems
    {.title = "Overall Disk I/O Operation Rate", .source = "reads and writes of all disks"},
    {.title = "Disk I/O Operation Rate", .source = "reads and writes of all disks"},
    {.title = "Overall Disk Disk Data Rate",
     .source = "data read and written on all disks, Kbytes of 1024 bytes"},
    {.title = "Top 10 Disks by I/O Operations",
     .source =
         "reads and writes per second of a disk; the ten disks with the highest sum over the span, and what "
         "they leave of the rate of all disks",
     .traces = RANKED},
    {.title = "Top 10 Disks by I/O Rate",
     .source =
         "data read and written on a disk, Kbytes of 1024 bytes; the ten disks with the highest sum over the "
         "span, and what they leave of the rate of all disks",
     .traces = RANKED},
    {.title = "Top 10 Disks by Queue Length",
     .source = "length of a disk's queue; the ten disks with the highest sum over the span",
     .traces = RANKED},
    {.title = "Top 10 Disks by Utilization",
     .source = "busy time of a disk in percent; the ten disks with the highest sum over the span",
     .traces = RANKED},
    {.title = "Response Time of Top 10 Disks by I/O Rate",
     .source = "queue length by operations, at least the service time, of the ten disks that lead by I/O "
               "operations",
     .traces = "the names of the disks, in the order of that list"},
    {.title = "Response Time of Top 10 Disks by I/O Rate",
     .source =
         "wait time per operation, at least the service time, of the ten disks that lead by I/O operations",
     .traces = "the names of the disks, in the order of that list",
     .platforms = "vmr"},
    {.title = "Top 10 Disks by Space Utilization",
     .source = "free space by size as a whole number: 1 for a disk that is all free, 0 for any other",
     .traces = RANKED},
    {.title = "I/O rate for DISK",
     .source = "reads and writes; where only their sum is known it is split as the data are"},
    {.title = "I/O rate for DISK", .source = "reads and writes", .platforms = "hpux"},
    {.title = "Data rate for DISK", .source = "data read and written, Kbytes of 1024 bytes"},
    {.title = "Queue length for DISK", .source = "length of the disk's queue"},
    {.title = "Utilization for DISK", .source = "busy time in percent"},
    {.title = "Space Allocation for DISK",
     .source = "free space, and size less free space, Gbytes of 1024 * 1024 * 1024 bytes"},
    {.title = "Wait/Service Time for DISK",
     .source = "service time is busy time by operations; wait time is the response time less twice the "
               "service time"},
    {.title = "Wait/Service Time for DISK",
     .source = "service time per operation; wait time is the response time less twice the service time",
     .platforms = "vmr"},
    {.title = "Response Time for DISK", .source = "queue length by operations, at least the service time"},
    {.title = "Response Time for DISK",
     .source = "wait time per operation, at least the service time",
     .platforms = "vmr"},
    {.title = "Top Ten File Systems by Disk Space Util",
     .source =
         "space in use in percent of that in use and available; the ten with the highest sum over the span. "
         "`NAME` is mount point and device",
     .traces = RANKED,
     .top = "100 a trace"},

    // Memory
    {.title = "Memory Utilization", .source = "memory less free memory in percent of memory"},
    {.title = "Memory Allocation",
     .source = "free memory, and what it leaves of memory",
     .platforms = "solaris"},
    {.title = "Memory Allocation",
     .source = "the collector's figures; `Applications` is what they leave of memory",
     .platforms = "linux"},
    {.title = "Memory Allocation",
     .source = "the collector's figures; of an older collector `System` is what they leave of memory",
     .platforms = "aix"},
    {.title = "Memory Allocation",
     .source = "free and active pages; `Unmapped` is what they leave of memory",
     .platforms = "hpux"},
    {.title = "Memory Allocation",
     .source = "pages by use; `Unmapped` is what they leave of memory",
     .platforms = "tru64"},
    {.title = "Pagefault Rate", .source = "page faults of all types"},
    {.title = "PageFaults By Type", .source = "page faults of each type"},
    {.title = "PageFaults By Type",
     .source = "page faults that fill a page with zeros or from a program; `Other` is what they leave of all",
     .platforms = "aix"},
    {.title = "Pagefault I/O", .source = "page reads and page writes in one"},
    {.title = "Paging In/Out Rate", .source = "pages read and written"},
    {.title = "Process PageFaults By Type", .source = "page faults of all processes"},
    {.title = "Pages In/Out",
     .source =
         "pages read and written; `Swapped Out` is the sum of all four, so the stack holds the others twice"},

    // Processes
    {.title = "Process Count", .source = "processes with a record in the interval"},
    {.title = "Process Count",
     .source = "processes, each by the part of the interval that it lived",
     .platforms = "vmr"},
    {.title = "Process count by workload classes",
     .source = "processes with a record in the interval, by class",
     .traces = EACH_CLASS},

    // Protocols
    {.title = "TCP Segment Rate", .source = "segments sent and received"},
    {.title = "TCP Packet Rate", .source = "segments sent and received"},
    {.title = "TCP Data rate",
     .source = "data sent and sent again, and received in and out of order, Kbytes of 1000 bytes",
     .platforms = "solaris"},
    {.title = "TCP Data rate",
     .source = "data sent and sent again, and received, Kbytes of 1000 bytes; `Data sent` is the sum of "
               "both, so the "
               "stack holds the received data twice"},
    {.title = "TCP Sent Segments Breakdown", .source = "segments sent, by kind"},
    {.title = "TCP Sent Packets Breakdown", .source = "segments sent, by kind"},
    {.title = "TCP Received Packets Breakdown",
     .source = "segments received, by kind",
     .platforms = "solaris"},
    {.title = "TCP Received Packets Breakdown",
     .source = "segments received, by kind; `ACK only packets` is what the others leave of all received"},
    {.title = "TCP Connections Established",
     .source = "connections asked for and not come about, asked for and come about, and accepted"},
    {.title = "TCP Connections Closed",
     .source = "connections dropped, dropped before they came about, and closed"},
    {.title = "TCP Currently Established Connections", .source = "connections that are established"},
    {.title = "TCP Connections Aborted",
     .source = "failed attempts and resets of established connections in one",
     .platforms = "linux"},
    {.title = "TCP Connections Aborted",
     .source = "failed attempts and resets of established connections",
     .platforms = "solaris"},
    {.title = "TCP Connections Opened", .source = "connections opened from here and from elsewhere"},
    {.title = "TCP Connection Transitions",
     .source = "connections reset, opened from elsewhere and from here, and failed"},
    {.title = "UDP packet Rate", .source = "datagrams sent and received"},
    {.title = "IP Packet Rate", .source = "packets sent and received"},
    {.title = "IP Packet Rate", .source = "packets generated or forwarded, and received", .platforms = BSD},
    {.title = "IP Sent Packets Breakdown",
     .source = "packets to be sent, and discarded",
     .platforms = "solaris"},
    {.title = "IP Sent Packets Breakdown", .source = "packets generated and forwarded"},
    {.title = "IP Packets Received Breakdown",
     .source =
         "packets received, by what became of them; `Others` is what the other traces leave of all received",
     .platforms = "solaris"},
    {.title = "IP Packets Received Breakdown",
     .source = "packets received, by what became of them; `Packets not consumed` is what the other traces "
               "leave of all "
               "received"},

    // Adapters
    {.title = "Overall LAN Packet Rates by Adapter",
     .source = "packets received and sent; values after an adapter's first interval are 1.0 lower than in "
               "the file",
     .traces = EACH_ADAPTER},
    {.title = "Overall LAN Data Rates by Adapter",
     .source = "data received and sent, Kbytes of 1000 bytes; values after an adapter's first interval are "
               "1.0 lower "
               "than in the file",
     .traces = EACH_ADAPTER},
    {.title = "ADAPTER",
     .source = "packets received and sent; values after an adapter's first interval are 1.0 lower than in "
               "the file"},

    // Partitions
    {.title = "Overall Physical CPU Utilization",
     .source = "time in all modes by the time base: the physical processors that the partition used",
     .top = "the processors online"},
    {.title = "Shared Pool CPU Utilization",
     .source =
         "physical processors of the pool that the other partitions used, that nobody used, and that this "
         "partition used",
     .top = "the processors in the pool"},
    {.title = "Virtual Processor Context Switch Rate", .source = "switches of virtual processors, by kind"},
    {.title = "LPAR Phantom Interrupt Rate", .source = "interrupts that were meant for another partition"},
};

}  // namespace

std::span<const Description> Descriptions() { return DESCRIPTIONS; }

const Description* FindDescription(std::string_view title, std::string_view platform) {
  const Description* general = nullptr;
  for (const Description& row : DESCRIPTIONS) {
    if (row.title != title) continue;
    if (row.platforms.empty()) general = &row;
    if (row.platforms.find(platform) != std::string_view::npos) return &row;
  }
  return general;
}

}  // namespace ozmo::items
