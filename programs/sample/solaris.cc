// Solaris: big-endian, or little-endian under the other file prefix.

#include "programs/sample/sample_format.h"

namespace ozmo::sample::solaris_sample {
namespace {

enum : uint32_t { P300 = 1, P720 = 2, P730 = 4, FROM_P720 = P720 | P730, ALL = P300 | FROM_P720 };

constexpr VersionLayout VERSIONS[] = {{"P730", P730}, {"P720", P720}, {"P300", P300}};

constexpr SampleLayout RECORDS[] = {
    {1, 0, P730, "101-114:8"},
    {1, 0, P300 | P720, "101-109:8"},
    {2, 0, ALL, "201:t 202-203:8 204-205:4 206-211:8*1000000000 212-213:4"},
    {3, 0, ALL, "301-302:4 303-341:8"},
    {4, 0, FROM_P720,
     "421:t 415:t 401-406:4 409:4 423:4 422:4 410-412:8*1000000000 413-414:8 416-420:8 425-426:8"},
    {4, 0, P300, "401-409:4 410-412:8/100 413-414:8 415:t 416-420:8 421:t 422-423:4 424:t"},
    {5, 0, ALL, "501-502:t 503:8 505:4 504:t 506:t 507:4 508-511:t 512-515:4"},
    {6, 0, ALL, "601-602:4 603-604:t 605-613:8/100 614:4"},
    {7, 0, ALL, "701:4"},
    {8, 0, ALL, "801-920:4"},
    {12, 0, ALL, "1201-1202:t 1203-1209:8"},
    {13, 0, P730, "1:t 2-7:8"},
    {15, 0, FROM_P720, "1501:t 1502-1508:8"},
    {16, 0, P730, "1-8:8"},
    {17, 1, P730, ""},
    {18, 2, P730, ""},
    {19, 3, P730, ""},
    {21, 4, P730, "401-409:4 410-412:8*1000000000 413-414:4 415:t 416-420:4 421:t 422-423:4 424:t"},
    {22, 8, P730, ""},
    {23, 6, P730, ""},
    {24, 12, P730, ""},
    {25, 15, P730, ""},
    {26, 16, P730, ""},
    {29, 13, P730, ""},
};

constexpr int PAGE_BYTES = 8192;

// An accounting system with its database, and the web pages in front of it: mornings are busier than
// afternoons, the books are closed after seven, and whoever forgot something comes in at weekends.
constexpr Work WORKS[] = {
    {Shift::DAY, Days::WORKDAYS, 8.2, 12.1, 1.6, 0.58},   {Shift::DAY, Days::WORKDAYS, 13.0, 17.0, 1.4, 0.42},
    {Shift::NIGHT, Days::WORKDAYS, 19.2, 21.4, 0.3, 0.5}, {Shift::NIGHT, Days::ALL, 1.0, 3.2, 0.3, 0.38},
    {Shift::DAY, Days::WEEKEND, 10.5, 13.5, 2.5, 0.14},
};

constexpr ProgramDescription PROGRAMS[] = {
    {"sched", "root", 1, 0.05, 0, 1},
    {"init", "root", 1, 0.02, 0, 2},
    {"fsflush", "root", 1, 0.6, 0, 1},
    {"inetd", "root", 1, 0.1, 0, 4},
    {"syslogd", "root", 1, 0.2, 0, 5},
    {"snmpd", "snmp", 1, 0.3, 0, 9},
    {"psdc", "root", 1, 0.3, 0, 12},
    {"dtwm", "olga", 2, 0.2, 500, 14, Shift::DAY},
    {"sshd", "root", 4, 0.3, 240, 4, Shift::DAY},
    {"oracle", "oracle", 14, 5.0, 0, 220},
    {"oracle", "oracle", 12, 7.0, 180, 180, Shift::DAY},
    {"java", "appsrv", 3, 9.0, 0, 512},
    {"httpd", "webservd", 22, 1.6, 90, 12, Shift::DAY},
    {"sas", "anna", 3, 8.0, 75, 160, Shift::DAY},
    {"perl", "marek", 3, 2.5, 25, 18, Shift::DAY},
    {"bash", "marek", 5, 0.2, 150, 3, Shift::DAY},
    {"sqlplus", "olga", 6, 1.2, 40, 22, Shift::DAY},
    {"glpost", "oracle", 4, 9.0, 35, 140, Shift::NIGHT},
    {"rman", "oracle", 3, 12.0, 100, 90, Shift::NIGHT},
    {"ufsdump", "backup", 2, 6.0, 120, 25, Shift::NIGHT},
    {"gzip", "backup", 2, 9.0, 30, 6, Shift::NIGHT},
};

// More disks than a Top 10 list has room for, some with the path that the catalog cuts off.
constexpr DiskDescription DISKS[] = {
    {"/dev/dsk/c0t0d0", 60, 0.55, 5.0, 16, 70000},
    {"/dev/dsk/c0t1d0", 55, 0.10, 5.0, 16, 70000, Shift::NIGHT},
    {"/dev/dsk/c1t0d0", 140, 0.80, 3.5, 8, 140000, Shift::DAY},
    {"/dev/dsk/c1t1d0", 95, 0.75, 4.0, 8, 140000},
    {"c1t2d0", 80, 0.70, 4.5, 32, 140000, Shift::DAY},
    {"c1t3d0", 45, 0.60, 6.0, 32, 140000, Shift::NIGHT},
    {"c2t0d0", 30, 0.50, 7.0, 64, 280000},
    {"c2t1d0", 25, 0.95, 6.5, 64, 280000, Shift::DAY},
    {"c2t2d0", 18, 0.40, 8.0, 24, 280000},
    {"c2t3d0", 12, 0.30, 8.0, 24, 280000, Shift::DAY},
    {"c3t0d0", 70, 0.05, 9.0, 128, 500000, Shift::NIGHT},
    {"c3t1d0", 40, 0.90, 9.0, 128, 500000, Shift::NIGHT},
};

constexpr FileSystemDescription FILE_SYSTEMS[] = {
    {"/", "/dev/dsk/c0t0d0s0", 12000, 0.48},
    {"/var", "/dev/dsk/c0t0d0s3", 8000, 0.62, 0.08},
    {"/tmp", "swap", 4096, 0.02, 0.15, 7},
    {"/export/home", "/dev/dsk/c0t1d0s7", 60000, 0.71, 0.02},
    {"/u01", "/dev/dsk/c1t0d0s6", 130000, 0.83, 0.03, 72},
    {"/u02", "/dev/dsk/c1t1d0s6", 130000, 0.57},
    {"/backup", "/dev/dsk/c3t0d0s6", 480000, 0.35, 0.2, 48},
};

// The loopback adapter has no digit at its end and is in no graph.
constexpr AdapterDescription ADAPTERS[] = {
    {"bge0", 4500, 3, Shift::DAY}, {"bge1", 2500, 0, Shift::NIGHT}, {"ce0", 900, 12}, {"lo", 300}};

constexpr HostDescription HOST{.name = "ledger",
                               .processors = 4,
                               .memoryMb = 12288,
                               .second = 17,
                               .idleLoad = 0.07,
                               .systemShare = 0.24,
                               .waitShare = 0.25,
                               .cacheShare = 0.55,
                               .pagesPerSecond = 90,
                               .opensPerSecond = 140,
                               .works = WORKS,
                               .programs = PROGRAMS,
                               .disks = DISKS,
                               .fileSystems = FILE_SYSTEMS,
                               .adapters = ADAPTERS};

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
  file.Write(5, {{501, context.versionText},
                 {502, "Sample-Fire"},
                 {503, int64_t{context.host.memoryMb} * 1024},
                 {505, context.host.processors},
                 {504, "sparcv9"},
                 {506, context.node},
                 {507, context.options.utcOffset},
                 {508, "SunOS"},
                 {509, "5.10"},
                 {510, "Generic_147440-01"},
                 {511, "sun4u"},
                 {514, context.options.intervalSeconds},
                 {515, context.options.intervalSeconds * 1000}});
}

void WriteProcessors(const HostSample& sample, SampleFile& file) {
  for (const CpuSample& cpu : sample.processors) {
    const double percent = 100.0 / sample.intervalSeconds;
    file.Write(6, {{601, cpu.id},
                   {603, "sparcv9"},
                   {604, "on-line"},
                   {605, (cpu.user + cpu.nice) * percent},
                   {606, cpu.system * percent},
                   {607, cpu.idle * percent},
                   {613, cpu.wait * percent}});
  }
}

void WriteMemory(const HostSample& sample, SampleFile& file) {
  const MemorySample& memory = sample.memory;
  const double pageKb = PAGE_BYTES / 1024.0;
  file.Write(3, {{303, PAGE_BYTES},
                 {327, memory.pagesIn},
                 {328, memory.pagesOut},
                 {331, memory.majorFaults},
                 {332, memory.copyOnWriteFaults},
                 {333, memory.otherFaults * 0.2},
                 {334, memory.otherFaults * 0.3},
                 {335, memory.otherFaults * 0.1},
                 {336, memory.zeroFillFaults},
                 {337, memory.otherFaults},
                 {338, memory.otherFaults * 1.5},
                 {339, memory.swapsIn},
                 {340, memory.swapsOut},
                 {341, memory.freeKb / pageKb}});
}

void WriteDisks(const HostSample& sample, SampleFile& file) {
  for (const DiskSample& disk : sample.disks) {
    file.Write(2, {{201, disk.name},
                   {202, disk.readKb * 1024},
                   {203, disk.writeKb * 1024},
                   {204, disk.reads},
                   {205, disk.writes},
                   {206, disk.BusySeconds()},
                   {207, (disk.queueSeconds - disk.BusySeconds())},
                   {208, disk.queueSeconds},
                   {209, disk.BusySeconds()},
                   {210, disk.BusySeconds()}});
  }
}

void WriteProcesses(const HostSample& sample, SampleFile& file) {
  for (const ProcessSample& process : sample.processes) {
    file.Write(4, {{402, process.processId},
                   {404, process.parentId},
                   {407, process.residentKb * 1024 / PAGE_BYTES},
                   {408, process.virtualKb * 1024 / PAGE_BYTES},
                   {410, process.userSeconds},
                   {411, process.systemSeconds},
                   {413, process.reads},
                   {414, process.writes},
                   {415, process.image},
                   {416, process.majorFaults},
                   {417, process.minorFaults},
                   {421, process.user},
                   {422, process.aliveSeconds},
                   {423, process.priority},
                   {424, process.image},
                   {425, process.residentKb * 1024 / PAGE_BYTES},
                   {426, process.virtualKb * 1024 / PAGE_BYTES}});
  }
}

void WriteKernelCounters(const HostSample& sample, SampleFile& file) {
  FieldFigures counters;
  for (const KernelStatistic& statistic : KERNEL_STATISTICS) {
    counters.emplace_back(801 + statistic.slot, sample.network.*statistic.counter);
  }
  file.Write(8, counters);
}

void WriteSample(const SampleContext&, const HostSample& sample, SampleFile& file) {
  const CpuSample all = sample.AllProcessors();
  file.Write(1, {{101, all.user * 100},
                 {102, all.system * 100},
                 {103, all.idle * 100},
                 {104, all.wait * 100},
                 {112, sample.processes.size()}});
  WriteProcessors(sample, file);
  WriteMemory(sample, file);
  WriteDisks(sample, file);
  WriteProcesses(sample, file);
  WriteKernelCounters(sample, file);
  WriteFileSystems({12, 1201, false}, sample, file);
  WriteAdaptersAndSummary(sample, file);
}

constexpr SampleFormat FORMAT{WrittenOrder::BIG, RECORDS, 7, 701, WriteHead, WriteSample};

std::string FileBytes(const SampleContext& context, const FileOfDay& file) {
  return CollectorBytes(FORMAT, context, file);
}

}  // namespace

const SampleKind KIND{.name = "solaris",
                      .host = HOST,
                      .versions = VERSIONS,
                      .filePrefix = "qtxs_",
                      .littleEndianPrefix = "qtxsx_",
                      .fileBytes = FileBytes};

}  // namespace ozmo::sample::solaris_sample
