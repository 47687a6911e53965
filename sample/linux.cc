// A Linux host: a build and application server. Its disk list has partitions beside the disks.

#include "sample/day.h"

namespace ozmo::sample {
namespace {

constexpr int PAGE_BYTES = 4096;
constexpr int TICKS_PER_SECOND = 100;

constexpr ProgramDescription PROGRAMS[] = {
    {"init", "root", 1, 0.02, 0, 2, Shift::ALWAYS},
    {"kswapd0", "root", 1, 0.3, 0, 1, Shift::ALWAYS},
    {"kjournald", "root", 3, 0.2, 0, 1, Shift::ALWAYS},
    {"crond", "root", 1, 0.05, 0, 2, Shift::ALWAYS},
    {"sshd", "root", 4, 0.3, 240, 4, Shift::OFFICE},
    {"postmaster", "postgres", 9, 4.5, 0, 64, Shift::ALWAYS},
    {"postmaster", "postgres", 6, 6.0, 120, 64, Shift::OFFICE},
    {"java", "tomcat", 3, 9.0, 0, 512, Shift::ALWAYS},
    {"httpd", "apache", 16, 1.4, 90, 14, Shift::OFFICE},
    {"php-cgi", "apache", 6, 2.0, 45, 24, Shift::OFFICE},
    {"cc1plus", "ingrid", 6, 7.0, 4, 90, Shift::OFFICE},
    {"ld", "ingrid", 2, 5.0, 5, 120, Shift::OFFICE},
    {"python", "jamal", 3, 3.5, 35, 45, Shift::OFFICE},
    {"R", "chen", 2, 8.0, 80, 300, Shift::OFFICE},
    {"bash", "jamal", 4, 0.1, 160, 2, Shift::OFFICE},
    {"vim", "ingrid", 2, 0.1, 60, 6, Shift::OFFICE},
    {"rsync", "backup", 3, 6.0, 60, 20, Shift::NIGHT},
    {"gzip", "backup", 3, 9.0, 25, 2, Shift::NIGHT},
    {"updatedb", "nobody", 1, 4.0, 50, 8, Shift::NIGHT},
    {"snmpd", "root", 1, 0.3, 0, 8, Shift::ALWAYS},
};

constexpr DiskDescription DISKS[] = {
    {"sda", 90, 0.55, 5.0, 16, 140000},       {"sda1", 20, 0.55, 5.0, 16, 20000},
    {"sda2", 70, 0.55, 5.0, 16, 120000},      {"sdb", 110, 0.75, 4.0, 8, 140000},
    {"sdb1", 110, 0.75, 4.0, 8, 140000},      {"sdc", 60, 0.70, 4.5, 32, 280000},
    {"sdd", 45, 0.60, 6.0, 32, 280000},       {"sde", 25, 0.30, 6.5, 64, 280000},
    {"hda", 4, 0.90, 9.0, 24, 80000},         {"hda1", 4, 0.90, 9.0, 24, 80000},
    {"cciss/c0d0", 80, 0.65, 3.5, 16, 72000}, {"cciss/c0d0p1", 80, 0.65, 3.5, 16, 72000},
    {"cciss/c0d1", 35, 0.80, 4.0, 64, 72000}, {"dm-0", 50, 0.55, 5.0, 16, 60000},
    {"dm-1", 15, 0.55, 5.0, 16, 60000},       {"dm-2", 8, 0.10, 5.0, 16, 60000},
    {"md0", 30, 0.50, 6.0, 32, 280000},
};

constexpr FileSystemDescription FILE_SYSTEMS[] = {
    {"/", "/dev/mapper/vg0-root", 18000, 0.44, 0.00},
    {"/boot", "/dev/sda1", 500, 0.31, 0.00},
    {"/home", "/dev/mapper/vg0-home", 58000, 0.73, 0.02},
    {"/var", "/dev/mapper/vg0-var", 20000, 0.58, 0.06},
    {"/tmp", "tmpfs", 4000, 0.03, 0.12},
    {"/srv/pg", "/dev/sdb1", 135000, 0.81, 0.03},
    {"/srv/www", "/dev/cciss/c0d0p1", 70000, 0.39, 0.01},
    {"/backup", "/dev/md0", 270000, 0.28, 0.09},
};

constexpr AdapterDescription ADAPTERS[] = {
    {"lo", 400, 0}, {"eth0", 11000, 2}, {"eth1", 2600, 9}, {"bond0", 3000, 0}};

constexpr HostDescription HOST{8, 0, 16384, PROGRAMS, DISKS, FILE_SYSTEMS, ADAPTERS};

// Places in the kernel's own order of its protocol counters; field 1101 is place 0.
struct ProtocolCounter {
  int place;
  double NetworkSample::*counter;
};

constexpr ProtocolCounter PROTOCOL_COUNTERS[] = {
    {2, &NetworkSample::ipReceived},
    {3, &NetworkSample::ipBad},
    {4, &NetworkSample::ipBad},
    {5, &NetworkSample::ipForwarded},
    {6, &NetworkSample::ipBad},
    {7, &NetworkSample::ipDiscarded},
    {8, &NetworkSample::ipDelivered},
    {9, &NetworkSample::ipSent},
    {49, &NetworkSample::tcpActiveOpens},
    {50, &NetworkSample::tcpPassiveOpens},
    {51, &NetworkSample::tcpAttemptFails},
    {52, &NetworkSample::tcpResets},
    {53, &NetworkSample::tcpEstablished},
    {54, &NetworkSample::tcpSegmentsIn},
    {55, &NetworkSample::tcpSegmentsOut},
    {56, &NetworkSample::tcpRetransmitted},
    {57, &NetworkSample::udpIn},
    {60, &NetworkSample::udpOut},
};

void WriteHead(const SampleContext& context, SampleFile& file) {
  file.WriteTag(context.versionText);
  file.Write(5, FieldValues()
                    .Set(501, int64_t{context.host.memoryMb} * 1024)
                    .Set(503, context.host.processors)
                    .Set(502, "GenuineSample")
                    .Set(504, context.options.node)
                    .Set(505, context.versionText)
                    .Set(506, "x86_64")
                    .Set(507, context.options.utcOffset)
                    .Set(508, "Linux")
                    .Set(509, "2.6.32")
                    .Set(510, "#1 SMP")
                    .Set(513, context.options.intervalSeconds)
                    .Set(515, context.options.intervalSeconds * 1000));
}

void WriteProcessors(const HostSample& sample, SampleFile& file) {
  const CpuSample all = sample.AllProcessors();
  file.Write(1, FieldValues()
                    .Set(101, all.user)
                    .Set(102, all.nice)
                    .Set(103, all.system)
                    .Set(104, all.idle)
                    .Set(105, all.wait)
                    .Set(106, all.system * 900)
                    .Set(107, all.system * 1500)
                    .Set(108, sample.processes.size() / 10)
                    .Set(109, all.user + all.system));
  for (const CpuSample& cpu : sample.processors) {
    file.Write(8, FieldValues()
                      .Set(801, cpu.id)
                      .Set(802, cpu.user)
                      .Set(803, cpu.nice)
                      .Set(804, cpu.system)
                      .Set(805, cpu.idle)
                      .Set(806, TICKS_PER_SECOND)
                      .Set(807, cpu.wait));
  }
}

void WriteMemory(const HostSample& sample, SampleFile& file) {
  const MemorySample& memory = sample.memory;
  file.Write(3, FieldValues()
                    .Set(302, memory.freeKb)
                    .Set(303, memory.sharedKb)
                    .Set(304, memory.buffersKb)
                    .Set(305, memory.cacheKb)
                    .Set(306, 2097152)
                    .Set(307, 1900000)
                    .Set(308, memory.pagesIn)
                    .Set(309, memory.pagesOut)
                    .Set(310, memory.swapsIn)
                    .Set(311, memory.swapsOut));
}

void WriteDisks(const HostSample& sample, SampleFile& file) {
  constexpr int SECTORS_PER_KB = 2;
  for (const DiskSample& disk : sample.disks) {
    file.Write(2, FieldValues()
                      .Set(201, disk.name)
                      // The older figures.
                      .Set(202, disk.reads)
                      .Set(203, disk.writes)
                      .Set(204, disk.readKb * 1024)
                      .Set(205, disk.writeKb * 1024)
                      // The newer ones.
                      .Set(206, disk.reads)
                      .Set(207, disk.reads * 0.1)
                      .Set(208, disk.readKb * SECTORS_PER_KB)
                      .Set(209, disk.readSeconds)
                      .Set(210, disk.writes)
                      .Set(211, disk.writes * 0.3)
                      .Set(212, disk.writeKb * SECTORS_PER_KB)
                      .Set(213, disk.writeSeconds)
                      .Set(215, disk.BusySeconds())
                      .Set(216, disk.queueSeconds));
  }
}

void WriteProcesses(const HostSample& sample, SampleFile& file) {
  for (const ProcessSample& process : sample.processes) {
    file.Write(4, FieldValues()
                      .Set(402, process.processId)
                      .Set(405, process.parentId)
                      .Set(407, process.userSeconds)
                      .Set(408, process.systemSeconds)
                      .Set(412, process.image)
                      .Set(413, process.user)
                      .Set(414, process.minorFaults)
                      .Set(415, process.majorFaults)
                      .Set(420, process.virtualKb * 1024)
                      .Set(421, process.residentKb * 1024 / PAGE_BYTES));
  }
}

void WriteProtocolCounters(const HostSample& sample, SampleFile& file) {
  FieldValues counters;
  // Forwarding on, and the default time to live.
  counters.Set(1101, 1).Set(1102, 64);
  for (const ProtocolCounter& row : PROTOCOL_COUNTERS) {
    counters.Set(1101 + row.place, sample.network.*row.counter);
  }
  file.Write(11, counters);
}

void WriteFileSystems(const HostSample& sample, SampleFile& file) {
  for (const FileSystemSample& fileSystem : sample.fileSystems) {
    file.Write(14, FieldValues()
                       .Set(1401, fileSystem.device)
                       .Set(1402, fileSystem.mount)
                       .Set(1403, 1024)
                       .Set(1404, fileSystem.totalKb)
                       .Set(1405, fileSystem.freeKb)
                       .Set(1406, fileSystem.availableKb)
                       .Set(1407, fileSystem.totalKb / 16)
                       .Set(1408, fileSystem.freeKb / 16));
  }
}

void WriteSample(const SampleContext&, const HostSample& sample, SampleFile& file) {
  WriteProcessors(sample, file);
  WriteMemory(sample, file);
  WriteDisks(sample, file);
  WriteProcesses(sample, file);
  file.Write(7, FieldValues().Set(701, 1).Set(702, "sda").Set(703, "system disk"));
  WriteProtocolCounters(sample, file);
  WriteFileSystems(sample, file);
  WriteAdapterRecords(sample, file);
  WriteSummaryRecords(sample, file);
}

}  // namespace

SampleResult WriteLinuxSample(const SampleOptions& options) {
  return WriteCollectorDays({"qtxl_", ByteOrder::LITTLE, LinuxLayout(), HOST, 9, 901, WriteHead, WriteSample},
                            options);
}

}  // namespace ozmo::sample
