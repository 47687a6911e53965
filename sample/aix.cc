// An AIX partition: a database host with eight logical processors, two of which stay folded, virtual
// SCSI adapters among the disk records, and a part of its entitlement given away.

#include "sample/bsd_counters.h"
#include "sample/day.h"

namespace ozmo::sample {
namespace {

constexpr int PAGE_BYTES = 4096;
constexpr int PHYSICAL_PROCESSORS = 4;
constexpr int POOL_PROCESSORS = 16;
// The kernel's idle process, one a logical processor.
constexpr std::string_view IDLE_PROCESS = "wait";
constexpr int LOGICAL_PROCESSORS = 8;

constexpr ProgramDescription PROGRAMS[] = {
    {IDLE_PROCESS, "root", LOGICAL_PROCESSORS, 0.0, 0, 1, Shift::ALWAYS},
    {"swapper", "root", 1, 0.02, 0, 1, Shift::ALWAYS},
    {"init", "root", 1, 0.02, 0, 1, Shift::ALWAYS},
    {"lrud", "root", 1, 0.4, 0, 1, Shift::ALWAYS},
    {"syncd", "root", 1, 0.3, 0, 1, Shift::ALWAYS},
    {"db2sysc", "db2inst1", 6, 9.0, 0, 450, Shift::ALWAYS},
    {"db2fmp", "db2fenc1", 4, 5.0, 120, 90, Shift::OFFICE},
    {"java", "wasadm", 3, 8.0, 0, 600, Shift::ALWAYS},
    {"httpd", "nobody", 10, 1.3, 90, 10, Shift::OFFICE},
    {"disp+work", "sapadm", 9, 4.0, 200, 150, Shift::OFFICE},
    {"ksh", "helena", 4, 0.2, 150, 2, Shift::OFFICE},
    {"perl", "helena", 2, 2.5, 25, 15, Shift::OFFICE},
    {"xlc", "dmitri", 3, 6.0, 5, 70, Shift::OFFICE},
    {"ftpd", "transfer", 3, 1.0, 20, 3, Shift::OFFICE},
    {"db2bp", "amara", 3, 1.5, 45, 20, Shift::OFFICE},
    {"dsmc", "backup", 3, 7.0, 100, 40, Shift::NIGHT},
    {"compress", "backup", 2, 9.0, 30, 2, Shift::NIGHT},
    {"sshd", "root", 4, 0.3, 240, 4, Shift::OFFICE},
    {"aixmibd", "root", 1, 0.2, 0, 5, Shift::ALWAYS},
};

// Logical units of less than 2 GB each: disk sizes count in bytes and must fit their fields.
constexpr DiskDescription DISKS[] = {
    {"hdisk0", 60, 0.55, 5.0, 16, 1900}, {"vscsi0", 200, 0.6, 4.0, 16, 0},
    {"hdisk1", 55, 0.10, 5.0, 16, 1900}, {"hdisk2", 120, 0.80, 3.5, 8, 2000},
    {"hdisk3", 95, 0.75, 4.0, 8, 2000},  {"hdisk4", 80, 0.70, 4.5, 32, 1600},
    {"hdisk5", 45, 0.60, 6.0, 32, 1600}, {"hdisk6", 30, 0.50, 7.0, 64, 1200},
    {"hdisk7", 25, 0.95, 6.5, 64, 1200}, {"hdisk8", 18, 0.40, 8.0, 24, 1000},
    {"hdisk9", 12, 0.30, 8.0, 24, 1000}, {"hdisk10", 6, 0.90, 9.0, 128, 800},
    {"hdisk11", 3, 0.90, 9.0, 128, 800}, {"vscsi1", 100, 0.6, 4.0, 16, 0},
};

constexpr FileSystemDescription FILE_SYSTEMS[] = {
    {"/", "/dev/hd4", 2000, 0.41, 0.00},        {"/usr", "/dev/hd2", 8000, 0.66, 0.00},
    {"/var", "/dev/hd9var", 6000, 0.52, 0.07},  {"/tmp", "/dev/hd3", 4000, 0.06, 0.10},
    {"/home", "/dev/hd1", 20000, 0.74, 0.02},   {"/opt", "/dev/hd10opt", 5000, 0.38, 0.00},
    {"/db2", "/dev/fslv00", 90000, 0.82, 0.03}, {"/sap", "/dev/fslv01", 50000, 0.69, 0.01},
};

constexpr AdapterDescription ADAPTERS[] = {
    {"en0", 7000, 2}, {"en1", 2200, 7}, {"en10", 700, 0}, {"lo0", 300, 0}};

constexpr HostDescription HOST{LOGICAL_PROCESSORS, 2, 16384, PROGRAMS, DISKS, FILE_SYSTEMS, ADAPTERS};

void WriteHead(const SampleContext& context, SampleFile& file) {
  file.Write(5, FieldValues()
                    .Set(501, context.versionText)
                    .Set(502, "PowerPC_SAMPLE")
                    .Set(503, int64_t{context.host.memoryMb} * 1024)
                    .Set(504, "Power,Sample")
                    .Set(505, "64-bit")
                    .Set(506, context.host.processors)
                    .Set(507, context.options.node)
                    .Set(508, context.options.utcOffset)
                    .Set(509, "AIX")
                    .Set(510, "7.1")
                    .Set(511, "7100-03")
                    .Set(514, context.options.intervalSeconds)
                    .Set(515, context.options.intervalSeconds * 1000));
}

void WriteProcessors(const HostSample& sample, SampleFile& file) {
  const CpuSample all = sample.AllProcessors();
  const double busy = (all.user + all.nice + all.system) / sample.intervalSeconds;
  file.Write(1, FieldValues()
                    .Set(101, all.user + all.nice)
                    .Set(102, all.system)
                    .Set(103, all.idle)
                    .Set(104, all.wait)
                    .Set(105, all.system * 900)
                    .Set(106, all.system * 1500)
                    .Set(112, busy)
                    .Set(113, busy * 0.9)
                    .Set(114, busy * 0.8));
  for (const CpuSample& cpu : sample.processors) {
    file.Write(8, FieldValues()
                      .Set(801, cpu.id)
                      .Set(802, cpu.user + cpu.nice)
                      .Set(803, cpu.system)
                      .Set(804, cpu.idle)
                      .Set(805, cpu.wait));
  }
}

double Pages(double kilobytes) { return kilobytes * 1024 / PAGE_BYTES; }

void WriteMemory(const SampleContext& context, const HostSample& sample, SampleFile& file) {
  const MemorySample& memory = sample.memory;
  const double processKb = memory.activeKb + memory.inactiveKb;
  file.Write(3, FieldValues()
                    .Set(301, Pages(memory.freeKb))
                    .Set(302, Pages(processKb))
                    .Set(303, Pages(memory.cacheKb))
                    .Set(304, memory.pagesIn)
                    .Set(305, memory.pagesOut)
                    .Set(307, memory.zeroFillFaults + memory.copyOnWriteFaults + memory.otherFaults)
                    .Set(310, PAGE_BYTES)
                    .Set(311, memory.zeroFillFaults)
                    .Set(312, memory.copyOnWriteFaults));
  file.Write(12, FieldValues()
                     .Set(1, Pages(context.host.memoryMb * 1536.0))
                     .Set(3, Pages(context.host.memoryMb * 1024.0))
                     .Set(4, Pages(memory.freeKb))
                     .Set(5, Pages(memory.wiredKb))
                     .Set(7, Pages(processKb))
                     .Set(8, Pages(memory.wiredKb))
                     .Set(10, memory.otherFaults)
                     .Set(11, memory.pagesIn)
                     .Set(12, memory.pagesOut)
                     .Set(19, Pages(memory.cacheKb))
                     .Set(23, 2097152));
}

void WriteDisks(const HostSample& sample, SampleFile& file) {
  constexpr int BLOCK_BYTES = 512;
  for (const DiskSample& disk : sample.disks) {
    file.Write(2, FieldValues()
                      .Set(201, disk.name)
                      // The older figures.
                      .Set(202, disk.Operations())
                      .Set(203, disk.BusySeconds())
                      .Set(204, disk.readKb * 1024)
                      .Set(205, disk.writeKb * 1024)
                      // The newer ones.
                      .Set(207, disk.sizeMb * 1048576)
                      .Set(208, disk.freeMb * 1048576)
                      .Set(209, BLOCK_BYTES)
                      .Set(210, disk.Operations())
                      .Set(211, disk.readKb * 1024 / BLOCK_BYTES)
                      .Set(212, disk.writeKb * 1024 / BLOCK_BYTES)
                      .Set(214, disk.readSeconds)
                      .Set(215, disk.writeSeconds)
                      .Set(217, disk.BusySeconds())
                      .Set(218, disk.queueSeconds - disk.BusySeconds()));
  }
}

void WriteProcesses(const HostSample& sample, SampleFile& file) {
  const double idleEach = sample.AllProcessors().idle / LOGICAL_PROCESSORS;
  for (const ProcessSample& process : sample.processes) {
    const bool idle = process.image == IDLE_PROCESS;
    file.Write(4, FieldValues()
                      .Set(402, process.processId)
                      .Set(404, process.parentId)
                      .Set(405, process.parentId)
                      .Set(407, process.userSeconds)
                      .Set(408, idle ? idleEach : process.systemSeconds)
                      .Set(409, process.reads)
                      .Set(410, process.writes)
                      .Set(411, process.minorFaults)
                      .Set(412, process.majorFaults)
                      .Set(413, process.virtualKb)
                      .Set(414, process.residentKb)
                      .Set(417, process.aliveSeconds)
                      .Set(418, process.priority)
                      .Set(419, process.user)
                      .Set(420, process.image));
  }
}

// Fields 701 to 723 are elements 0 to 22, from 724 the field number is the element's plus 700, and
// from 774 one less. Element 31 stands in two fields. Element 23 has no field.
void WriteProtocolCounters(const HostSample& sample, SampleFile& file) {
  FieldValues counters;
  for (const BsdCounter& counter : BsdCounters()) {
    const double value = counter.value(sample.network);
    const int element = counter.element;
    if (element < 23) {
      counters.Set(701 + element, value);
    } else if (element > 23) {
      counters.Set((element < 74 ? 700 : 699) + element, value);
    }
    if (element == 31) {
      counters.Set(741, value);
    }
  }
  file.Write(7, counters);
}

void WriteFileSystems(const HostSample& sample, SampleFile& file) {
  for (const FileSystemSample& fileSystem : sample.fileSystems) {
    file.Write(9, FieldValues()
                      .Set(901, fileSystem.mount)
                      .Set(902, fileSystem.device)
                      .Set(903, 1024)
                      .Set(904, fileSystem.totalKb)
                      .Set(905, fileSystem.freeKb)
                      .Set(906, fileSystem.availableKb));
  }
}

// A capped partition with dedicated processors that donates what it doesn't use.
void WritePartition(const SampleContext& context, const HostSample& sample, SampleFile& file) {
  const CpuSample all = sample.AllProcessors();
  const double physical = static_cast<double>(PHYSICAL_PROCESSORS) / LOGICAL_PROCESSORS;
  const double donated = all.idle * physical * 0.6;
  file.Write(14, FieldValues()
                     .Set(1, context.options.node)
                     .Set(3, 1)     // capped
                     .Set(4, 0)     // shared mode
                     .Set(5, 1)     // pool visible
                     .Set(6, 1)     // donating
                     .Set(15, 2.5)  // entitled
                     .Set(16, PHYSICAL_PROCESSORS)
                     .Set(30, POOL_PROCESSORS)
                     .Set(34, (all.user + all.nice) * physical)
                     .Set(35, all.system * physical)
                     .Set(36, all.idle * physical * 0.1)
                     .Set(37, all.wait * physical)
                     .Set(38, donated)
                     .Set(39, donated * 0.02)
                     .Set(41, donated * 0.01)
                     .Set(43, donated * 0.005)
                     .Set(47, all.system * 3)    // phantom interrupts
                     .Set(48, all.system * 40)   // involuntary switches
                     .Set(49, all.system * 260)  // voluntary switches
                     .Set(50, sample.intervalSeconds));
}

void WriteSample(const SampleContext& context, const HostSample& sample, SampleFile& file) {
  WriteProcessors(sample, file);
  WriteMemory(context, sample, file);
  WriteDisks(sample, file);
  WriteProcesses(sample, file);
  WriteProtocolCounters(sample, file);
  WriteFileSystems(sample, file);
  WriteAdapterRecords(sample, file);
  WritePartition(context, sample, file);
  WriteSummaryRecords(sample, file);
}

}  // namespace

SampleResult WriteAixSample(const SampleOptions& options) {
  return WriteCollectorDays({"qtxa_", ByteOrder::BIG, AixLayout(), HOST, 6, 601, WriteHead, WriteSample},
                            options);
}

}  // namespace ozmo::sample
