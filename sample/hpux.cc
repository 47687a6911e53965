// An HP-UX host: a database and file server.

#include "sample/bsd_counters.h"
#include "sample/day.h"

namespace ozmo::sample {
namespace {

constexpr int PAGE_BYTES = 4096;
constexpr int TICKS_PER_SECOND = 100;

constexpr ProgramDescription PROGRAMS[] = {
    {"swapper", "root", 1, 0.05, 0, 1, Shift::ALWAYS},
    {"init", "root", 1, 0.02, 0, 1, Shift::ALWAYS},
    {"vhand", "root", 1, 0.4, 0, 1, Shift::ALWAYS},
    {"syncer", "root", 1, 0.3, 0, 1, Shift::ALWAYS},
    {"oracleERP", "oracle", 12, 5.0, 0, 200, Shift::ALWAYS},
    {"oracleERP", "oracle", 8, 7.0, 180, 160, Shift::OFFICE},
    {"f60webmx", "applmgr", 7, 3.0, 150, 70, Shift::OFFICE},
    {"FNDLIBR", "applmgr", 5, 2.2, 0, 60, Shift::ALWAYS},
    {"nfsd", "root", 6, 1.5, 0, 1, Shift::ALWAYS},
    {"smbd", "root", 8, 1.1, 140, 9, Shift::OFFICE},
    {"ksh", "ravi", 4, 0.2, 150, 2, Shift::OFFICE},
    {"awk", "ravi", 2, 4.0, 10, 3, Shift::OFFICE},
    {"aCC", "sofia", 3, 6.0, 6, 80, Shift::OFFICE},
    {"tusc", "sofia", 1, 1.0, 40, 4, Shift::OFFICE},
    {"sqlplus", "noor", 3, 1.3, 40, 22, Shift::OFFICE},
    {"omniback", "backup", 3, 7.0, 100, 35, Shift::NIGHT},
    {"fbackup", "backup", 2, 5.0, 60, 12, Shift::NIGHT},
    {"cmcld", "root", 1, 0.5, 0, 30, Shift::ALWAYS},
    {"snmpdm", "root", 1, 0.2, 0, 6, Shift::ALWAYS},
};

constexpr DiskDescription DISKS[] = {
    {"c1t6d0", 60, 0.55, 5.0, 16, 36000},           {"c2t6d0", 55, 0.10, 5.0, 16, 36000},
    {"c4t0d0", 110, 0.80, 3.5, 8, 140000},          {"c4t0d1", 95, 0.75, 4.0, 8, 140000},
    {"c4t0d2", 80, 0.70, 4.5, 32, 140000},          {"c4t0d3", 45, 0.60, 6.0, 32, 140000},
    {"c6t0d0", 30, 0.50, 7.0, 64, 140000},          {"c6t0d1", 25, 0.95, 6.5, 64, 140000},
    {"/dev/dsk/c6t0d2", 18, 0.40, 8.0, 24, 140000}, {"/dev/dsk/c6t0d3", 12, 0.30, 8.0, 24, 140000},
    {"c8t1d0", 6, 0.90, 9.0, 128, 140000},          {"c8t2d0", 3, 0.90, 9.0, 128, 140000},
};

constexpr FileSystemDescription FILE_SYSTEMS[] = {
    {"/", "/dev/vg00/lvol3", 2000, 0.39, 0.00},          {"/stand", "/dev/vg00/lvol1", 1800, 0.12, 0.00},
    {"/var", "/dev/vg00/lvol8", 9000, 0.61, 0.06},       {"/tmp", "/dev/vg00/lvol4", 4000, 0.05, 0.11},
    {"/home", "/dev/vg00/lvol5", 30000, 0.72, 0.02},     {"/opt", "/dev/vg00/lvol6", 9000, 0.77, 0.00},
    {"/oradata", "/dev/vg01/lvol1", 400000, 0.84, 0.02}, {"/oraarch", "/dev/vg01/lvol2", 60000, 0.21, 0.30},
};

constexpr AdapterDescription ADAPTERS[] = {
    {"lan0", 7000, 3}, {"lan1", 2400, 11}, {"lan900", 600, 0}, {"lo0", 300, 0}};

constexpr HostDescription HOST{6, 0, 16384, PROGRAMS, DISKS, FILE_SYSTEMS, ADAPTERS};

double Pages(double kilobytes) { return kilobytes * 1024 / PAGE_BYTES; }

void WriteHead(const SampleContext& context, SampleFile& file) {
  file.Write(5, FieldValues()
                    .Set(501, context.versionText)
                    .Set(502, "9000/800")
                    .Set(503, int64_t{context.host.memoryMb} * 1024)
                    .Set(504, "rp-sample")
                    .Set(505, "PA-RISC")
                    .Set(506, context.host.processors)
                    .Set(507, context.options.node)
                    .Set(508, context.options.utcOffset)
                    .Set(509, "HP-UX")
                    .Set(510, "B.11.11")
                    .Set(511, "U")
                    .Set(514, context.options.intervalSeconds)
                    .Set(515, context.options.intervalSeconds * 1000));
}

void WriteProcessors(const HostSample& sample, SampleFile& file) {
  const CpuSample all = sample.AllProcessors();
  const double busy = (all.user + all.nice + all.system) / sample.intervalSeconds;
  file.Write(1, FieldValues()
                    .Set(101, all.user)
                    .Set(102, all.system)
                    .Set(103, all.idle)
                    .Set(104, all.wait)
                    .Set(105, all.nice)
                    .Set(106, all.system * 900)
                    .Set(107, all.system * 1500)
                    .Set(114, busy)
                    .Set(115, busy * 0.9)
                    .Set(116, busy * 0.8));
  for (const CpuSample& cpu : sample.processors) {
    file.Write(8, FieldValues()
                      .Set(801, cpu.id)
                      .Set(802, cpu.idle)
                      .Set(803, cpu.user + cpu.nice)
                      .Set(804, cpu.wait)
                      .Set(805, cpu.system)
                      .Set(812, TICKS_PER_SECOND));
  }
}

void WriteMemory(const HostSample& sample, SampleFile& file) {
  const MemorySample& memory = sample.memory;
  file.Write(3, FieldValues()
                    .Set(301, Pages(memory.freeKb))
                    .Set(303, Pages(memory.activeKb))
                    .Set(304, Pages(memory.inactiveKb))
                    .Set(305, PAGE_BYTES)
                    .Set(306, memory.pagesIn)
                    .Set(307, memory.pagesOut)
                    .Set(310, memory.swapsIn)
                    .Set(311, memory.swapsOut)
                    .Set(313, memory.majorFaults)
                    .Set(322, Pages(memory.activeKb))
                    .Set(323, Pages(memory.inactiveKb))
                    .Set(326, memory.copyOnWriteFaults)
                    .Set(327, memory.zeroFillFaults));
}

void WriteDisks(const HostSample& sample, SampleFile& file) {
  for (const DiskSample& disk : sample.disks) {
    file.Write(2, FieldValues()
                      .Set(201, disk.name)
                      .Set(202, disk.Operations())
                      .Set(203, disk.readKb + disk.writeKb)
                      .Set(204, disk.Operations())
                      .Set(205, disk.queueSeconds - disk.BusySeconds())
                      .Set(206, disk.queueSeconds)
                      .Set(207, disk.queueSeconds)
                      .Set(208, disk.BusySeconds()));
  }
}

void WriteProcesses(const HostSample& sample, SampleFile& file) {
  for (const ProcessSample& process : sample.processes) {
    file.Write(4, FieldValues()
                      .Set(402, process.processId)
                      .Set(403, process.parentId)
                      .Set(404, process.parentId)
                      .Set(405, process.processId)
                      .Set(406, process.userSeconds)
                      .Set(407, process.systemSeconds)
                      .Set(408, Pages(process.residentKb))
                      .Set(409, process.minorFaults)
                      .Set(410, process.majorFaults)
                      .Set(412, Pages(process.virtualKb))
                      .Set(413, process.reads)
                      .Set(414, process.writes)
                      .Set(415, process.aliveSeconds)
                      .Set(416, process.priority)
                      .Set(417, process.image)
                      .Set(418, process.user));
  }
}

// The first part of the protocol counters, record 7, has the elements up to 63; the second part,
// record 11, those from 67. What a reader holds is the part that comes last, so the one with the TCP
// counters does.
void WriteProtocolCounters(const HostSample& sample, SampleFile& file) {
  FieldValues first;
  FieldValues second;
  for (const BsdCounter& counter : BsdCounters()) {
    const int element = counter.element;
    const double value = counter.value(sample.network);
    if (element <= 63) {
      first.Set(701 + element, value);
    } else if (element >= 67 && element <= 74) {
      second.Set(1001 + element - 67, value);
    } else if (element >= 76) {
      second.Set(1009 + element - 76, value);
    }
  }
  file.Write(11, second);
  file.Write(7, first);
}

void WriteFileSystems(const HostSample& sample, SampleFile& file) {
  for (const FileSystemSample& fileSystem : sample.fileSystems) {
    file.Write(9, FieldValues()
                      .Set(901, fileSystem.device)
                      .Set(902, fileSystem.mount)
                      .Set(903, 1024)
                      .Set(904, fileSystem.totalKb)
                      .Set(905, fileSystem.freeKb)
                      .Set(906, fileSystem.availableKb));
  }
}

void WriteSample(const SampleContext&, const HostSample& sample, SampleFile& file) {
  WriteProcessors(sample, file);
  WriteMemory(sample, file);
  WriteDisks(sample, file);
  WriteProcesses(sample, file);
  WriteProtocolCounters(sample, file);
  WriteFileSystems(sample, file);
  WriteAdapterRecords(sample, file);
  WriteSummaryRecords(sample, file);
}

}  // namespace

SampleResult WriteHpuxSample(const SampleOptions& options) {
  return WriteCollectorDays({"qtxh_", ByteOrder::BIG, HpuxLayout(), HOST, 6, 601, WriteHead, WriteSample},
                            options);
}

}  // namespace ozmo::sample
