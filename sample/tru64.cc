// A Tru64 host: a scientific computing server. Its files have a prefix that no reader claims.

#include "sample/bsd_counters.h"
#include "sample/day.h"

namespace ozmo::sample {
namespace {

constexpr int PAGE_BYTES = 8192;
constexpr int TICKS_PER_SECOND = 1024;
constexpr int LAST_COUNTER_ELEMENT = 28;

constexpr ProgramDescription PROGRAMS[] = {
    {"kernel idle", "root", 1, 0.1, 0, 5, Shift::ALWAYS},
    {"init", "root", 1, 0.02, 0, 1, Shift::ALWAYS},
    {"advfsd", "root", 1, 0.3, 0, 4, Shift::ALWAYS},
    {"nfsd", "root", 5, 1.2, 0, 1, Shift::ALWAYS},
    {"sshd2", "root", 4, 0.3, 240, 4, Shift::OFFICE},
    {"gaussian", "miriam", 3, 12.0, 300, 400, Shift::ALWAYS},
    {"nastran", "pavel", 2, 10.0, 200, 350, Shift::OFFICE},
    {"matlab", "pavel", 3, 5.0, 90, 150, Shift::OFFICE},
    {"f90", "miriam", 3, 6.0, 6, 60, Shift::OFFICE},
    {"oracle", "oracle", 8, 4.0, 0, 180, Shift::ALWAYS},
    {"idl", "akira", 2, 4.5, 70, 90, Shift::OFFICE},
    {"csh", "akira", 4, 0.2, 150, 2, Shift::OFFICE},
    {"emacs", "akira", 2, 0.3, 100, 20, Shift::OFFICE},
    {"dxterm", "lucia", 3, 0.2, 150, 8, Shift::OFFICE},
    {"perl", "lucia", 2, 2.5, 25, 15, Shift::OFFICE},
    {"vdump", "backup", 2, 6.0, 100, 12, Shift::NIGHT},
    {"gzip", "backup", 2, 9.0, 30, 2, Shift::NIGHT},
    {"snmpd", "root", 1, 0.2, 0, 5, Shift::ALWAYS},
};

constexpr DiskDescription DISKS[] = {
    {"dsk0", 60, 0.55, 5.0, 16, 36000},  {"dsk1", 55, 0.10, 5.0, 16, 36000},
    {"dsk2", 110, 0.80, 3.5, 8, 72000},  {"dsk3", 95, 0.75, 4.0, 8, 72000},
    {"dsk4", 80, 0.70, 4.5, 32, 72000},  {"dsk5", 45, 0.60, 6.0, 32, 72000},
    {"dsk6", 30, 0.50, 7.0, 64, 72000},  {"dsk7", 25, 0.95, 6.5, 64, 72000},
    {"dsk8", 18, 0.40, 8.0, 24, 72000},  {"dsk9", 12, 0.30, 8.0, 24, 72000},
    {"dsk10", 6, 0.90, 9.0, 128, 72000}, {"cdrom0", 0, 1.0, 50.0, 64, 600},
};

constexpr FileSystemDescription FILE_SYSTEMS[] = {
    {"/", "root_domain#root", 1000, 0.47, 0.00},      {"/usr", "usr_domain#usr", 6000, 0.68, 0.00},
    {"/var", "var_domain#var", 5000, 0.55, 0.06},     {"/tmp", "tmp_domain#tmp", 8000, 0.08, 0.20},
    {"/home", "home_domain#home", 50000, 0.76, 0.02}, {"/scratch", "scr_domain#scr", 70000, 0.50, 0.25},
};

constexpr AdapterDescription ADAPTERS[] = {{"tu0", 5200, 3}, {"ee0", 2400, 9}, {"lo0", 300, 0}};

constexpr HostDescription HOST{4, 0, 8192, PROGRAMS, DISKS, FILE_SYSTEMS, ADAPTERS};

double Pages(double kilobytes) { return kilobytes * 1024 / PAGE_BYTES; }

void WriteHead(const SampleContext& context, SampleFile& file) {
  file.Write(5, FieldValues()
                    // Thousands of bytes: this collector's megabyte has 1000 of them.
                    .Set(501, int64_t{context.host.memoryMb} * 1000)
                    .Set(502, "AlphaServer Sample")
                    .Set(503, context.host.processors)
                    .Set(504, context.options.node)
                    .Set(505, context.versionText)
                    .Set(506, "alpha")
                    .Set(507, context.options.utcOffset)
                    .Set(508, "OSF1")
                    .Set(509, "V5.1")
                    .Set(510, "2650")
                    .Set(513, context.options.intervalSeconds)
                    .Set(515, context.options.intervalSeconds * 1000));
  file.Write(6, FieldValues().Set(601, "system").Set(602, context.options.node));
  file.Write(7, FieldValues().Set(701, "dsk10").Set(702, "archive").Set(703, "RZ1CB"));
}

void WriteProcessors(const HostSample& sample, SampleFile& file) {
  const CpuSample all = sample.AllProcessors();
  file.Write(1, FieldValues()
                    .Set(104, all.system * 900)
                    .Set(105, all.system * 1500)
                    .Set(106, all.system * 300)
                    .Set(107, sample.processes.size()));
  for (const CpuSample& cpu : sample.processors) {
    file.Write(8, FieldValues()
                      .Set(801, cpu.id)
                      .Set(804, cpu.nice)
                      .Set(805, cpu.user)
                      .Set(806, cpu.system)
                      .Set(807, cpu.wait)
                      .Set(808, cpu.idle)
                      .Set(809, TICKS_PER_SECOND));
  }
}

void WriteMemory(const HostSample& sample, SampleFile& file) {
  const MemorySample& memory = sample.memory;
  file.Write(3, FieldValues()
                    .Set(309, PAGE_BYTES)
                    .Set(310, Pages(memory.freeKb))
                    .Set(311, Pages(memory.activeKb))
                    .Set(312, Pages(memory.inactiveKb))
                    .Set(313, Pages(memory.wiredKb))
                    .Set(314, memory.otherFaults)
                    .Set(315, memory.copyOnWriteFaults)
                    .Set(316, memory.copyOnWriteFaults * 0.1)
                    .Set(317, memory.zeroFillFaults)
                    .Set(318, memory.zeroFillFaults * 0.15)
                    .Set(319, memory.majorFaults)
                    .Set(325, Pages(memory.cacheKb))
                    .Set(333, memory.pagesIn)
                    .Set(334, memory.pagesOut));
}

// Queue and times are means over the interval's operations.
void WriteDisks(const HostSample& sample, SampleFile& file) {
  for (const DiskSample& disk : sample.disks) {
    const double perOperation = disk.Operations() > 0 ? 1000 / disk.Operations() : 0;
    file.Write(2, FieldValues()
                      .Set(201, disk.name)
                      .Set(202, disk.Operations())
                      .Set(203, (disk.readKb + disk.writeKb) * 1024)
                      .Set(204, disk.queueSeconds / sample.intervalSeconds)
                      .Set(205, (disk.queueSeconds - disk.BusySeconds()) * perOperation)
                      .Set(206, disk.BusySeconds() * perOperation)
                      .Set(207, disk.queueSeconds * perOperation));
  }
}

void WriteProcesses(const SampleContext& context, const HostSample& sample, SampleFile& file) {
  // Shares of the whole machine.
  const double percent = 100.0 / sample.intervalSeconds / context.host.processors;
  for (const ProcessSample& process : sample.processes) {
    file.Write(4, FieldValues()
                      .Set(402, process.processId)
                      .Set(405, process.parentId)
                      .Set(407, process.userSeconds * percent)
                      .Set(408, process.systemSeconds * percent)
                      .Set(409, process.minorFaults)
                      .Set(410, process.majorFaults)
                      .Set(411, process.image)
                      .Set(412, process.reads)
                      .Set(413, process.writes)
                      .Set(414, process.virtualKb)
                      .Set(415, process.residentKb)
                      .Set(416, process.residentKb * 1024)
                      .Set(418, process.user)
                      .Set(419, process.aliveSeconds)
                      .Set(420, process.priority)
                      .Set(421, process.image));
  }
}

void WriteProtocolCounters(const HostSample& sample, SampleFile& file) {
  FieldValues counters;
  for (const BsdCounter& counter : BsdCounters()) {
    if (counter.element <= LAST_COUNTER_ELEMENT) {
      counters.Set(1101 + counter.element, counter.value(sample.network));
    }
  }
  file.Write(11, counters);
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

void WriteSample(const SampleContext& context, const HostSample& sample, SampleFile& file) {
  WriteProcessors(sample, file);
  WriteMemory(sample, file);
  WriteDisks(sample, file);
  WriteProcesses(context, sample, file);
  WriteProtocolCounters(sample, file);
  WriteFileSystems(sample, file);
  WriteAdapterRecords(sample, file);
  WriteSummaryRecords(sample, file);
}

}  // namespace

SampleResult WriteTru64Sample(const SampleOptions& options) {
  return WriteCollectorDays({"osf_", ByteOrder::LITTLE, Tru64Layout(), HOST, 9, 901, WriteHead, WriteSample},
                            options);
}

}  // namespace ozmo::sample
