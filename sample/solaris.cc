// A Solaris host: a database and web server with a few interactive users.

#include <algorithm>
#include <array>

#include "sample/day.h"

namespace ozmo::sample {
namespace {

constexpr int PAGE_BYTES = 8192;

constexpr ProgramDescription PROGRAMS[] = {
    {"sched", "root", 1, 0.05, 0, 1, Shift::ALWAYS},
    {"init", "root", 1, 0.02, 0, 2, Shift::ALWAYS},
    {"fsflush", "root", 1, 0.6, 0, 1, Shift::ALWAYS},
    {"sshd", "root", 4, 0.3, 240, 4, Shift::OFFICE},
    {"oracle", "oracle", 14, 5.0, 0, 220, Shift::ALWAYS},
    {"oracle", "oracle", 8, 7.0, 180, 180, Shift::OFFICE},
    {"java", "appsrv", 3, 9.0, 0, 512, Shift::ALWAYS},
    {"httpd", "webservd", 12, 1.6, 90, 12, Shift::OFFICE},
    {"sas", "anna", 2, 8.0, 75, 160, Shift::OFFICE},
    {"perl", "marek", 3, 2.5, 25, 18, Shift::OFFICE},
    {"bash", "marek", 3, 0.2, 150, 3, Shift::OFFICE},
    {"gcc", "yuki", 4, 4.0, 6, 40, Shift::OFFICE},
    {"vi", "yuki", 2, 0.1, 60, 5, Shift::OFFICE},
    {"sqlplus", "olga", 3, 1.2, 40, 22, Shift::OFFICE},
    {"rman", "oracle", 3, 12.0, 100, 90, Shift::NIGHT},
    {"ufsdump", "backup", 2, 6.0, 120, 25, Shift::NIGHT},
    {"gzip", "backup", 2, 9.0, 30, 6, Shift::NIGHT},
    {"snmpd", "snmp", 1, 0.3, 0, 9, Shift::ALWAYS},
    {"syslogd", "root", 1, 0.2, 0, 5, Shift::ALWAYS},
    {"ttymon", "root", 2, 0.01, 0, 2, Shift::ALWAYS},
};

// More disks than a Top 10 list has room for, some with the path that the catalog cuts off.
constexpr DiskDescription DISKS[] = {
    {"/dev/dsk/c0t0d0", 60, 0.55, 5.0, 16, 70000},  {"/dev/dsk/c0t1d0", 55, 0.10, 5.0, 16, 70000},
    {"/dev/dsk/c1t0d0", 120, 0.80, 3.5, 8, 140000}, {"/dev/dsk/c1t1d0", 95, 0.75, 4.0, 8, 140000},
    {"c1t2d0", 80, 0.70, 4.5, 32, 140000},          {"c1t3d0", 45, 0.60, 6.0, 32, 140000},
    {"c2t0d0", 30, 0.50, 7.0, 64, 280000},          {"c2t1d0", 25, 0.95, 6.5, 64, 280000},
    {"c2t2d0", 18, 0.40, 8.0, 24, 280000},          {"c2t3d0", 12, 0.30, 8.0, 24, 280000},
    {"c3t0d0", 6, 0.90, 9.0, 128, 500000},          {"c3t1d0", 2, 0.90, 9.0, 128, 500000},
};

constexpr FileSystemDescription FILE_SYSTEMS[] = {
    {"/", "/dev/dsk/c0t0d0s0", 12000, 0.48, 0.00},
    {"/var", "/dev/dsk/c0t0d0s3", 8000, 0.62, 0.05},
    {"/tmp", "swap", 4096, 0.02, 0.10},
    {"/export/home", "/dev/dsk/c0t1d0s7", 60000, 0.71, 0.02},
    {"/u01", "/dev/dsk/c1t0d0s6", 130000, 0.83, 0.03},
    {"/u02", "/dev/dsk/c1t1d0s6", 130000, 0.57, 0.01},
    {"/backup", "/dev/dsk/c3t0d0s6", 480000, 0.35, 0.08},
};

// The loopback adapter has no digit at its end and is in no graph.
constexpr AdapterDescription ADAPTERS[] = {
    {"bge0", 4500, 3}, {"bge1", 2500, 0}, {"ce0", 600, 12}, {"lo", 300, 0}};

constexpr HostDescription HOST{4, 0, 16384, PROGRAMS, DISKS, FILE_SYSTEMS, ADAPTERS};

// Counter fields 801 to 920 are the named statistics of the tcp, ip, icmp and udp modules in the
// kernel's order; the number here is the place in that order.
struct KernelStatistic {
  int slot;
  double NetworkSample::*counter;
};

constexpr KernelStatistic KERNEL_STATISTICS[] = {
    {4, &NetworkSample::tcpActiveOpens},
    {5, &NetworkSample::tcpPassiveOpens},
    {6, &NetworkSample::tcpAttemptFails},
    {7, &NetworkSample::tcpResets},
    {8, &NetworkSample::tcpEstablished},
    {9, &NetworkSample::tcpSegmentsIn},
    {10, &NetworkSample::tcpSegmentsOut},
    {11, &NetworkSample::tcpDataSegmentsOut},
    {12, &NetworkSample::tcpDataBytesOut},
    {13, &NetworkSample::tcpRetransmitted},
    {14, &NetworkSample::tcpRetransmittedBytes},
    {15, &NetworkSample::tcpAcksOut},
    {17, &NetworkSample::tcpUrgentOut},
    {23, &NetworkSample::tcpAcksIn},
    {25, &NetworkSample::tcpDuplicateAcksIn},
    {27, &NetworkSample::tcpInOrderIn},
    {28, &NetworkSample::tcpInOrderBytesIn},
    {29, &NetworkSample::tcpOutOfOrderIn},
    {30, &NetworkSample::tcpOutOfOrderBytesIn},
    {31, &NetworkSample::tcpDuplicateIn},
    {53, &NetworkSample::ipReceived},
    {54, &NetworkSample::ipBad},
    {55, &NetworkSample::ipBad},
    {56, &NetworkSample::ipForwarded},
    {57, &NetworkSample::ipBad},
    {58, &NetworkSample::ipDiscarded},
    {59, &NetworkSample::ipDelivered},
    {60, &NetworkSample::ipSent},
    {61, &NetworkSample::ipDiscarded},
    {116, &NetworkSample::udpIn},
    {118, &NetworkSample::udpOut},
};

void WriteHead(const SampleContext& context, SampleFile& file) {
  file.Write(5, FieldValues()
                    .Set(501, context.versionText)
                    .Set(502, "Sample-Fire")
                    .Set(503, int64_t{context.host.memoryMb} * 1024)
                    .Set(505, context.host.processors)
                    .Set(504, "sparcv9")
                    .Set(506, context.options.node)
                    .Set(507, context.options.utcOffset)
                    .Set(508, "SunOS")
                    .Set(509, "5.10")
                    .Set(510, "Generic_147440-01")
                    .Set(511, "sun4u")
                    .Set(514, context.options.intervalSeconds)
                    .Set(515, context.options.intervalSeconds * 1000));
}

void WriteProcessors(const HostSample& sample, SampleFile& file) {
  for (const CpuSample& cpu : sample.processors) {
    const double percent = 100.0 / sample.intervalSeconds;
    file.Write(6, FieldValues()
                      .Set(601, cpu.id)
                      .Set(603, "sparcv9")
                      .Set(604, "on-line")
                      .Set(605, (cpu.user + cpu.nice) * percent)
                      .Set(606, cpu.system * percent)
                      .Set(607, cpu.idle * percent)
                      .Set(613, cpu.wait * percent));
  }
}

void WriteMemory(const HostSample& sample, SampleFile& file) {
  const MemorySample& memory = sample.memory;
  const double pageKb = PAGE_BYTES / 1024.0;
  file.Write(3, FieldValues()
                    .Set(303, PAGE_BYTES)
                    .Set(327, memory.pagesIn)
                    .Set(328, memory.pagesOut)
                    .Set(331, memory.majorFaults)
                    .Set(332, memory.copyOnWriteFaults)
                    .Set(333, memory.otherFaults * 0.2)
                    .Set(334, memory.otherFaults * 0.3)
                    .Set(335, memory.otherFaults * 0.1)
                    .Set(336, memory.zeroFillFaults)
                    .Set(337, memory.otherFaults)
                    .Set(338, memory.otherFaults * 1.5)
                    .Set(339, memory.swapsIn)
                    .Set(340, memory.swapsOut)
                    .Set(341, memory.freeKb / pageKb));
}

void WriteDisks(const HostSample& sample, SampleFile& file) {
  for (const DiskSample& disk : sample.disks) {
    file.Write(2, FieldValues()
                      .Set(201, disk.name)
                      .Set(202, disk.readKb * 1024)
                      .Set(203, disk.writeKb * 1024)
                      .Set(204, disk.reads)
                      .Set(205, disk.writes)
                      .Set(206, disk.BusySeconds())
                      .Set(207, (disk.queueSeconds - disk.BusySeconds()))
                      .Set(208, disk.queueSeconds)
                      .Set(209, disk.BusySeconds())
                      .Set(210, disk.BusySeconds()));
  }
}

void WriteProcesses(const HostSample& sample, SampleFile& file) {
  for (const ProcessSample& process : sample.processes) {
    file.Write(4, FieldValues()
                      .Set(402, process.processId)
                      .Set(404, process.parentId)
                      .Set(407, process.residentKb * 1024 / PAGE_BYTES)
                      .Set(408, process.virtualKb * 1024 / PAGE_BYTES)
                      .Set(410, process.userSeconds)
                      .Set(411, process.systemSeconds)
                      .Set(413, process.reads)
                      .Set(414, process.writes)
                      .Set(415, process.image)
                      .Set(416, process.majorFaults)
                      .Set(417, process.minorFaults)
                      .Set(421, process.user)
                      .Set(422, process.aliveSeconds)
                      .Set(423, process.priority)
                      .Set(424, process.image)
                      .Set(425, process.residentKb * 1024 / PAGE_BYTES)
                      .Set(426, process.virtualKb * 1024 / PAGE_BYTES));
  }
}

void WriteKernelCounters(const HostSample& sample, SampleFile& file) {
  FieldValues counters;
  for (const KernelStatistic& statistic : KERNEL_STATISTICS) {
    counters.Set(801 + statistic.slot, sample.network.*statistic.counter);
  }
  file.Write(8, counters);
}

void WriteFileSystems(const HostSample& sample, SampleFile& file) {
  for (const FileSystemSample& fileSystem : sample.fileSystems) {
    file.Write(12, FieldValues()
                       .Set(1201, fileSystem.mount)
                       .Set(1202, fileSystem.device)
                       .Set(1203, 1024)
                       .Set(1204, fileSystem.totalKb)
                       .Set(1205, fileSystem.freeKb)
                       .Set(1206, fileSystem.availableKb));
  }
}

void WriteSample(const SampleContext&, const HostSample& sample, SampleFile& file) {
  const CpuSample all = sample.AllProcessors();
  file.Write(1, FieldValues()
                    .Set(101, all.user * 100)
                    .Set(102, all.system * 100)
                    .Set(103, all.idle * 100)
                    .Set(104, all.wait * 100)
                    .Set(112, sample.processes.size()));
  WriteProcessors(sample, file);
  WriteMemory(sample, file);
  WriteDisks(sample, file);
  WriteProcesses(sample, file);
  WriteKernelCounters(sample, file);
  WriteFileSystems(sample, file);
  WriteAdapterRecords(sample, file);
  WriteSummaryRecords(sample, file);
}

}  // namespace

SampleResult WriteSolarisSample(const SampleOptions& options) {
  const CollectorKind kind{options.littleEndian ? "qtxsx_" : "qtxs_",
                           options.littleEndian ? ByteOrder::LITTLE : ByteOrder::BIG,
                           SolarisLayout(),
                           HOST,
                           7,
                           701,
                           WriteHead,
                           WriteSample};
  return WriteCollectorDays(kind, options);
}

}  // namespace ozmo::sample
