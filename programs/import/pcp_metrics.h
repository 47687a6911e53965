// The metrics of Performance Co-Pilot that host figures are made of; pminfo(1) shows what each is.
#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>
#include <tuple>

#include "programs/host_file/host_figures.h"
#include "runtime/ordered_rows.h"

namespace ozmo::import {

enum class Metric : size_t {
  NODE,
  UPTIME,
  // Processors: an instance each.
  USER,
  NICE,
  SYSTEM,
  INTERRUPTS,
  IDLE,
  WAIT,
  // Memory and paging.
  MEMORY,
  FREE,
  SHARED,
  BUFFERS,
  CACHED,
  PAGED_IN,
  PAGED_OUT,
  SWAPPED_IN,
  SWAPPED_OUT,
  // Disks: an instance each; in the kernel's order.
  READS,
  READS_MERGED,
  SECTORS_READ,
  READ_TIME,
  WRITES,
  WRITES_MERGED,
  SECTORS_WRITTEN,
  WRITE_TIME,
  UNDER_WAY,
  BUSY,
  REQUEST_TIME,
  // Adapters: an instance each; in the order of AdapterFigures.
  PACKETS_IN,
  BYTES_IN,
  ERRORS_IN,
  PACKETS_OUT,
  BYTES_OUT,
  ERRORS_OUT,
  COLLISIONS,
  // File systems: an instance each, which is the device.
  MOUNT_POINT,
  CAPACITY,
  FREE_SPACE,
  AVAILABLE,
  FILES,
  FREE_FILES,
  // Processes: an instance each, which is the number.
  COMMAND_LINE,
  IMAGE,
  STATE,
  PARENT,
  START,
  PROCESS_USER,
  PROCESS_SYSTEM,
  CHILDREN_USER,
  CHILDREN_SYSTEM,
  MINOR_FAULTS,
  MAJOR_FAULTS,
  CHILDREN_MINOR,
  CHILDREN_MAJOR,
  VIRTUAL,
  RESIDENT,
  OWNER,
  // The first of the protocol counters, in the kernel's order.
  PROTOCOLS
};

struct MetricRow {
  Metric metric;
  std::string_view name;
};
constexpr MetricRow METRICS[] = {
    {Metric::NODE, "kernel.uname.nodename"},
    {Metric::UPTIME, "kernel.all.uptime"},
    {Metric::USER, "kernel.percpu.cpu.user"},
    {Metric::NICE, "kernel.percpu.cpu.nice"},
    {Metric::SYSTEM, "kernel.percpu.cpu.sys"},
    {Metric::INTERRUPTS, "kernel.percpu.cpu.intr"},
    {Metric::IDLE, "kernel.percpu.cpu.idle"},
    {Metric::WAIT, "kernel.percpu.cpu.wait.total"},
    {Metric::MEMORY, "mem.physmem"},
    {Metric::FREE, "mem.util.free"},
    {Metric::SHARED, "mem.util.shmem"},
    {Metric::BUFFERS, "mem.util.bufmem"},
    {Metric::CACHED, "mem.util.cached"},
    {Metric::PAGED_IN, "mem.vmstat.pgpgin"},
    {Metric::PAGED_OUT, "mem.vmstat.pgpgout"},
    {Metric::SWAPPED_IN, "mem.vmstat.pswpin"},
    {Metric::SWAPPED_OUT, "mem.vmstat.pswpout"},
    {Metric::READS, "disk.dev.read"},
    {Metric::READS_MERGED, "disk.dev.read_merge"},
    {Metric::SECTORS_READ, "disk.dev.blkread"},
    {Metric::READ_TIME, "disk.dev.read_rawactive"},
    {Metric::WRITES, "disk.dev.write"},
    {Metric::WRITES_MERGED, "disk.dev.write_merge"},
    {Metric::SECTORS_WRITTEN, "disk.dev.blkwrite"},
    {Metric::WRITE_TIME, "disk.dev.write_rawactive"},
    {Metric::UNDER_WAY, "disk.dev.inflight"},
    {Metric::BUSY, "disk.dev.avactive"},
    {Metric::REQUEST_TIME, "disk.dev.aveq"},
    {Metric::PACKETS_IN, "network.interface.in.packets"},
    {Metric::BYTES_IN, "network.interface.in.bytes"},
    {Metric::ERRORS_IN, "network.interface.in.errors"},
    {Metric::PACKETS_OUT, "network.interface.out.packets"},
    {Metric::BYTES_OUT, "network.interface.out.bytes"},
    {Metric::ERRORS_OUT, "network.interface.out.errors"},
    {Metric::COLLISIONS, "network.interface.collisions"},
    {Metric::MOUNT_POINT, "filesys.mountdir"},
    {Metric::CAPACITY, "filesys.capacity"},
    {Metric::FREE_SPACE, "filesys.free"},
    {Metric::AVAILABLE, "filesys.avail"},
    {Metric::FILES, "filesys.maxfiles"},
    {Metric::FREE_FILES, "filesys.freefiles"},
    {Metric::COMMAND_LINE, "proc.psinfo.psargs"},
    {Metric::IMAGE, "proc.psinfo.cmd"},
    {Metric::STATE, "proc.psinfo.sname"},
    {Metric::PARENT, "proc.psinfo.ppid"},
    {Metric::START, "proc.psinfo.start_time"},
    {Metric::PROCESS_USER, "proc.psinfo.utime"},
    {Metric::PROCESS_SYSTEM, "proc.psinfo.stime"},
    {Metric::CHILDREN_USER, "proc.psinfo.cutime"},
    {Metric::CHILDREN_SYSTEM, "proc.psinfo.cstime"},
    {Metric::MINOR_FAULTS, "proc.psinfo.minflt"},
    {Metric::MAJOR_FAULTS, "proc.psinfo.maj_flt"},
    {Metric::CHILDREN_MINOR, "proc.psinfo.cmin_flt"},
    {Metric::CHILDREN_MAJOR, "proc.psinfo.cmaj_flt"},
    {Metric::VIRTUAL, "proc.psinfo.vsize"},
    {Metric::RESIDENT, "proc.psinfo.rss"},
    {Metric::OWNER, "proc.id.euid_nm"},
};
static_assert(RowsAreInOrder(METRICS, &MetricRow::metric, static_cast<size_t>(Metric::PROTOCOLS)));

constexpr std::string_view PROTOCOL_METRICS[] = {
    "network.ip.forwarding",
    "network.ip.defaultttl",
    "network.ip.inreceives",
    "network.ip.inhdrerrors",
    "network.ip.inaddrerrors",
    "network.ip.forwdatagrams",
    "network.ip.inunknownprotos",
    "network.ip.indiscards",
    "network.ip.indelivers",
    "network.ip.outrequests",
    "network.ip.outdiscards",
    "network.ip.outnoroutes",
    "network.ip.reasmtimeout",
    "network.ip.reasmreqds",
    "network.ip.reasmoks",
    "network.ip.reasmfails",
    "network.ip.fragoks",
    "network.ip.fragfails",
    "network.ip.fragcreates",
    "network.icmp.inmsgs",
    "network.icmp.inerrors",
    "network.icmp.indestunreachs",
    "network.icmp.intimeexcds",
    "network.icmp.inparmprobs",
    "network.icmp.insrcquenchs",
    "network.icmp.inredirects",
    "network.icmp.inechos",
    "network.icmp.inechoreps",
    "network.icmp.intimestamps",
    "network.icmp.intimestampreps",
    "network.icmp.inaddrmasks",
    "network.icmp.inaddrmaskreps",
    "network.icmp.outmsgs",
    "network.icmp.outerrors",
    "network.icmp.outdestunreachs",
    "network.icmp.outtimeexcds",
    "network.icmp.outparmprobs",
    "network.icmp.outsrcquenchs",
    "network.icmp.outredirects",
    "network.icmp.outechos",
    "network.icmp.outechoreps",
    "network.icmp.outtimestamps",
    "network.icmp.outtimestampreps",
    "network.icmp.outaddrmasks",
    "network.icmp.outaddrmaskreps",
    "network.tcp.rtoalgorithm",
    "network.tcp.rtomin",
    "network.tcp.rtomax",
    "network.tcp.maxconn",
    "network.tcp.activeopens",
    "network.tcp.passiveopens",
    "network.tcp.attemptfails",
    "network.tcp.estabresets",
    "network.tcp.currestab",
    "network.tcp.insegs",
    "network.tcp.outsegs",
    "network.tcp.retranssegs",
    "network.udp.indatagrams",
    "network.udp.noports",
    "network.udp.inerrors",
    "network.udp.outdatagrams",
};
static_assert(std::size(PROTOCOL_METRICS) == std::tuple_size_v<host_file::ProtocolFigures>);
constexpr size_t METRIC_COUNT = std::size(METRICS) + std::size(PROTOCOL_METRICS);

// The name of the metric at a place: a `Metric`, or a protocol counter after it.
constexpr std::string_view MetricName(size_t place) {
  return place < std::size(METRICS) ? METRICS[place].name : PROTOCOL_METRICS[place - std::size(METRICS)];
}

}  // namespace ozmo::import
