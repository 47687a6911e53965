// Linux: little-endian. The disk list has partitions beside the disks.

#include "programs/sample/sample_format.h"

namespace ozmo::sample::linux_sample {
namespace {

enum : uint32_t {
  P300 = 1,
  P300_64 = 2,
  P720 = 4,
  P720_64 = 8,
  P730 = 16,
  P730_64 = 32,
  ANY_P300 = P300 | P300_64,
  ANY_P720 = P720 | P720_64,
  ANY_P730 = P730 | P730_64,
  FROM_P720 = ANY_P720 | ANY_P730,
  NARROW = P300 | P720 | P730,
  WIDE = P300_64 | P720_64 | P730_64,
  ALL = NARROW | WIDE,
};

constexpr VersionLayout VERSIONS[] = {
    {"P730_64", P730_64}, {"P730", P730}, {"P720_64", P720_64}, {"P720", P720},
    {"P300_64", P300_64}, {"P300", P300}, {"540", P300},
};

constexpr std::string_view NARROW_PROCESS =
    "401-406:4 407-408:4*100 409-410:4 412:t 414-417:4 411:4 419-428:4 413:t";

// Processor time counts in ticks, a hundredth of a second each.
constexpr SampleLayout RECORDS[] = {
    {1, 0, P300, "101-104:4*100"},
    {1, 0, P300_64, "101-104:8*100"},
    {1, 0, ANY_P720, "101-105:8*100 106-112:8"},
    {1, 0, ANY_P730, "101-105:8*100 106-109:8"},
    {2, 0, P300, "201:t 202-205:4"},
    {2, 0, P300_64, "201:t 202-205:8"},
    {2, 0, FROM_P720, "201:t 206-208:8 209:8*1000 210-212:8 213:8*1000 214:8 215-216:8*1000"},
    {3, 0, NARROW, "301-311:4"},
    {3, 0, WIDE, "301-311:8"},
    {4, 0, NARROW, NARROW_PROCESS},
    {4, 0, WIDE, "401-406:4 407-408:8*100 409-410:8 412:t 414-417:8 411:4 419-428:8 413:t"},
    {5, 0, ANY_P300, "501:4 503:4 502:t 504-506:t 507:4 508-510:t 511-513:4"},
    {5, 0, FROM_P720, "501:4 503:4 502:t 504-506:t 507:4 508-510:t 511-513:4 515:4"},
    {7, 0, ALL, "701:4 702-703:t"},
    {8, 0, P300, "801:4 802-805:4*100 806:4"},
    {8, 0, P300_64, "801:4 802-805:8*100 806:8"},
    {8, 0, ANY_P720, "801:4 802-805:8*100 806:8 807:8*100 808-812:8"},
    {8, 0, ANY_P730, "801:4 802-805:8*100 806:8 807:8*100 808-810:8"},
    {9, 0, NARROW, "901:4"},
    {9, 0, WIDE, "901:8"},
    {11, 0, NARROW, "1101-1161:4"},
    {11, 0, WIDE, "1101-1161:8"},
    {13, 0, ANY_P730, "1:t 2-7:8"},
    {14, 0, NARROW, "1401-1402:t 1403-1409:4"},
    {14, 0, WIDE, "1401-1402:t 1403-1409:8"},
    {15, 0, FROM_P720, "1501:t 1502-1508:8"},
    {16, 0, ANY_P730, "1-8:8"},
    {17, 1, ANY_P730, ""},
    {18, 2, ANY_P730, "201:t 202-205:4"},
    {19, 3, ANY_P730, "301-311:4"},
    {21, 4, ANY_P730, NARROW_PROCESS},
    {22, 11, ANY_P730, "1101-1161:4"},
    {23, 8, ANY_P730, ""},
    {24, 14, ANY_P730, "1401-1402:t 1403-1409:4"},
    {25, 15, ANY_P730, ""},
    {26, 16, ANY_P730, ""},
    {29, 13, ANY_P730, ""},
};

constexpr int PAGE_BYTES = 4096;
constexpr int TICKS_PER_SECOND = 100;

// Where a company builds and tests its software: people come late and stay late, a full build runs at noon
// and in the small hours, and some work at weekends.
constexpr Work WORKS[] = {
    {Shift::DAY, Days::WORKDAYS, 9.8, 18.6, 2.4, 0.42},  {Shift::DAY, Days::WORKDAYS, 12.1, 12.8, 0.2, 0.4},
    {Shift::DAY, Days::WORKDAYS, 16.3, 17.2, 0.2, 0.35}, {Shift::NIGHT, Days::ALL, 3.0, 4.6, 0.15, 0.8},
    {Shift::NIGHT, Days::ALL, 22.4, 23.6, 0.3, 0.3},     {Shift::DAY, Days::WEEKEND, 14.0, 21.0, 3.0, 0.2},
};

constexpr ProgramDescription PROGRAMS[] = {
    {"init", "root", 1, 0.02, 0, 2},
    {"kswapd0", "root", 1, 0.3, 0, 1},
    {"kjournald", "root", 3, 0.2, 0, 1},
    {"syslogd", "root", 1, 0.1, 0, 2},
    {"snmpd", "root", 1, 0.3, 0, 8},
    {"psdc", "root", 1, 0.3, 0, 6},
    {"sshd", "root", 4, 0.3, 240, 4, Shift::DAY},
    {"postmaster", "postgres", 9, 4.5, 0, 64},
    {"postmaster", "postgres", 6, 6.0, 120, 64, Shift::DAY},
    {"java", "tomcat", 3, 9.0, 0, 512},
    {"httpd", "apache", 16, 1.4, 90, 14, Shift::DAY},
    {"php-cgi", "apache", 6, 2.0, 45, 24, Shift::DAY},
    {"make", "ingrid", 4, 0.5, 12, 8, Shift::DAY},
    {"cc1plus", "ingrid", 10, 7.0, 4, 90, Shift::DAY},
    {"ld", "ingrid", 2, 5.0, 5, 240, Shift::DAY},
    {"python", "jamal", 3, 3.5, 35, 45, Shift::DAY},
    {"R", "chen", 2, 8.0, 80, 300, Shift::DAY},
    {"bash", "jamal", 4, 0.1, 160, 2, Shift::DAY},
    {"vim", "ingrid", 2, 0.1, 60, 6, Shift::DAY},
    {"cc1plus", "build", 12, 9.0, 3, 110, Shift::NIGHT},
    {"ctest", "build", 6, 6.0, 9, 60, Shift::NIGHT},
    {"rsync", "backup", 3, 6.0, 60, 20, Shift::NIGHT},
    {"gzip", "backup", 3, 9.0, 25, 2, Shift::NIGHT},
    {"updatedb", "nobody", 1, 4.0, 50, 8, Shift::NIGHT},
};

constexpr DiskDescription DISKS[] = {
    {"sda", 90, 0.55, 5.0, 16, 140000},
    {"sda1", 20, 0.55, 5.0, 16, 20000},
    {"sda2", 70, 0.55, 5.0, 16, 120000},
    {"sdb", 150, 0.75, 4.0, 8, 140000, Shift::DAY},
    {"sdb1", 150, 0.75, 4.0, 8, 140000, Shift::DAY},
    {"sdc", 60, 0.70, 4.5, 32, 280000},
    {"sdd", 45, 0.60, 6.0, 32, 280000, Shift::DAY},
    {"sde", 90, 0.30, 6.5, 64, 280000, Shift::NIGHT},
    {"hda", 4, 0.90, 9.0, 24, 80000},
    {"hda1", 4, 0.90, 9.0, 24, 80000},
    {"cciss/c0d0", 110, 0.65, 3.5, 16, 72000, Shift::DAY},
    {"cciss/c0d0p1", 110, 0.65, 3.5, 16, 72000, Shift::DAY},
    {"cciss/c0d1", 75, 0.80, 5.0, 64, 72000, Shift::NIGHT},
    {"dm-0", 50, 0.55, 5.0, 16, 60000},
    {"dm-1", 15, 0.55, 5.0, 16, 60000, Shift::DAY},
    {"dm-2", 8, 0.10, 5.0, 16, 60000, Shift::NIGHT},
    {"md0", 70, 0.05, 6.0, 32, 280000, Shift::NIGHT},
};

constexpr FileSystemDescription FILE_SYSTEMS[] = {
    {"/", "/dev/mapper/vg0-root", 18000, 0.44},
    {"/boot", "/dev/sda1", 500, 0.31},
    {"/home", "/dev/mapper/vg0-home", 58000, 0.73, 0.03, 96},
    {"/var", "/dev/mapper/vg0-var", 20000, 0.58, 0.06},
    {"/tmp", "tmpfs", 4000, 0.05, 0.3, 5},
    {"/srv/pg", "/dev/sdb1", 135000, 0.81, 0.02, 60},
    {"/srv/www", "/dev/cciss/c0d0p1", 70000, 0.39},
    {"/srv/build", "/dev/sde", 270000, 0.22, 0.5, 24},
    {"/backup", "/dev/md0", 270000, 0.28, 0.2, 72},
};

constexpr AdapterDescription ADAPTERS[] = {
    {"lo", 400}, {"eth0", 9000, 2, Shift::DAY}, {"eth1", 5600, 9, Shift::NIGHT}, {"bond0", 3000}};

constexpr HostDescription HOST{.name = "forge",
                               .processors = 8,
                               .memoryMb = 8192,
                               .second = 8,
                               .idleLoad = 0.05,
                               .systemShare = 0.2,
                               .waitShare = 0.4,
                               .cacheShare = 0.85,
                               .pagesPerSecond = 160,
                               .opensPerSecond = 25,
                               .works = WORKS,
                               .programs = PROGRAMS,
                               .disks = DISKS,
                               .fileSystems = FILE_SYSTEMS,
                               .adapters = ADAPTERS};

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
    {54, &NetworkSample::tcpSegmentsIn},
    {55, &NetworkSample::tcpSegmentsOut},
    {56, &NetworkSample::tcpRetransmitted},
    {57, &NetworkSample::udpIn},
    {60, &NetworkSample::udpOut},
};

void WriteHead(const SampleContext& context, SampleFile& file) {
  file.WriteTag(context.versionText);
  file.Write(5, {{501, int64_t{context.host.memoryMb} * 1024},
                 {503, context.host.processors},
                 {502, "GenuineSample"},
                 {504, context.node},
                 {505, context.versionText},
                 {506, "x86_64"},
                 {507, context.options.utcOffset},
                 {508, "Linux"},
                 {509, "2.6.32"},
                 {510, "#1 SMP"},
                 {513, context.options.intervalSeconds},
                 {515, context.options.intervalSeconds * 1000}});
}

void WriteProcessors(const HostSample& sample, SampleFile& file) {
  const CpuSample all = sample.AllProcessors();
  file.Write(1, {{101, all.user},
                 {102, all.nice},
                 {103, all.system},
                 {104, all.idle},
                 {105, all.wait},
                 {106, all.system * 900},
                 {107, all.system * 1500},
                 {108, sample.processes.size() / 10},
                 {109, all.user + all.system}});
  for (const CpuSample& cpu : sample.processors) {
    file.Write(8, {{801, cpu.id},
                   {802, cpu.user},
                   {803, cpu.nice},
                   {804, cpu.system},
                   {805, cpu.idle},
                   {806, TICKS_PER_SECOND},
                   {807, cpu.wait}});
  }
}

void WriteMemory(const HostSample& sample, SampleFile& file) {
  const MemorySample& memory = sample.memory;
  file.Write(3, {{302, memory.freeKb},
                 {303, memory.sharedKb},
                 {304, memory.buffersKb},
                 {305, memory.cacheKb},
                 {306, 2097152},
                 {307, 1900000},
                 {308, memory.pagesIn},
                 {309, memory.pagesOut},
                 {310, memory.swapsIn},
                 {311, memory.swapsOut}});
}

void WriteDisks(const HostSample& sample, SampleFile& file) {
  constexpr int SECTORS_PER_KB = 2;
  for (const DiskSample& disk : sample.disks) {
    file.Write(2, {{201, disk.name},
                   // The older figures.
                   {202, disk.reads},
                   {203, disk.writes},
                   {204, disk.readKb * 1024},
                   {205, disk.writeKb * 1024},
                   // The newer ones.
                   {206, disk.reads},
                   {207, disk.reads * 0.1},
                   {208, disk.readKb * SECTORS_PER_KB},
                   {209, disk.readSeconds},
                   {210, disk.writes},
                   {211, disk.writes * 0.3},
                   {212, disk.writeKb * SECTORS_PER_KB},
                   {213, disk.writeSeconds},
                   {215, disk.BusySeconds()},
                   {216, disk.queueSeconds}});
  }
}

void WriteProcesses(const HostSample& sample, SampleFile& file) {
  for (const ProcessSample& process : sample.processes) {
    file.Write(4, {{402, process.processId},
                   {405, process.parentId},
                   {407, process.userSeconds},
                   {408, process.systemSeconds},
                   {412, process.image},
                   {413, process.user},
                   {414, process.minorFaults},
                   {415, process.majorFaults},
                   {420, process.virtualKb * 1024},
                   {421, process.residentKb * 1024 / PAGE_BYTES}});
  }
}

void WriteProtocolCounters(const HostSample& sample, SampleFile& file) {
  FieldFigures counters{{1101, 1}, {1102, 64}};  // forwarding on, and the default time to live
  for (const ProtocolCounter& row : PROTOCOL_COUNTERS) {
    counters.emplace_back(1101 + row.place, sample.network.*row.counter);
  }
  // A level, but counted like the others: summed over the seconds.
  counters.emplace_back(1154, sample.network.tcpEstablished * sample.intervalSeconds);
  file.Write(11, counters);
}

void WriteSample(const SampleContext&, const HostSample& sample, SampleFile& file) {
  WriteProcessors(sample, file);
  WriteMemory(sample, file);
  WriteDisks(sample, file);
  WriteProcesses(sample, file);
  file.Write(7, {{701, 1}, {702, "sda"}, {703, "system disk"}});
  WriteProtocolCounters(sample, file);
  WriteFileSystems({14, 1401, true}, sample, file);
  WriteAdaptersAndSummary(sample, file);
}

constexpr SampleFormat FORMAT{WrittenOrder::LITTLE, RECORDS, 9, 901, WriteHead, WriteSample};

std::string FileBytes(const SampleContext& context, const FileOfDay& file) {
  return CollectorBytes(FORMAT, context, file);
}

}  // namespace

const SampleKind KIND{
    .name = "linux", .host = HOST, .versions = VERSIONS, .filePrefix = "qtxl_", .fileBytes = FileBytes};

}  // namespace ozmo::sample::linux_sample
