// HP-UX: big-endian.

#include "programs/sample/bsd_counters.h"
#include "programs/sample/sample_format.h"

namespace ozmo::sample::hpux_sample {
namespace {

enum : uint32_t {
  V520 = 1,
  V530 = 2,
  P300 = 4,
  P300_64 = 8,
  P720 = 16,
  P720_64 = 32,
  P730 = 64,
  P730_64 = 128,
  ANY_P730 = P730 | P730_64,
  FROM_P720 = P720 | P720_64 | ANY_P730,
  FROM_P300 = P300 | P300_64 | FROM_P720,
  FROM_V530 = V530 | FROM_P300,
  NARROW = V520 | V530 | P300 | P720 | P730,
  WIDE = P300_64 | P720_64 | P730_64,
  ALL = NARROW | WIDE,
};

constexpr VersionLayout VERSIONS[] = {
    {"P730_64", P730_64}, {"P730", P730}, {"P720_64", P720_64}, {"P720", P720},
    {"P300_64", P300_64}, {"P300", P300}, {"540", P300},        {"V530", V530},
    {"V525", V520},       {"V520", V520}, {"V510", V520},
};

// Processor time counts in ticks, a hundredth of a second each; disk times in microseconds, disk
// data in blocks of 64 bytes.
constexpr SampleLayout RECORDS[] = {
    {1, 0, ALL, "101-105:4*100 106-113:4 114-116:4*100"},
    {2, 0, NARROW, "201:t 202:4 203:4*16 204:4 205-206:8*1000000 207:4*1000 208:4*100"},
    {2, 0, WIDE, "201:t 202:8 203:8*16 204:8 205-206:8*1000000 207:8*1000 208:8*100"},
    {3, 0, NARROW, "301:8 302-328:4"},
    {3, 0, WIDE, "301:8 302:4 303-323:8 324-325:4 326-328:8"},
    {4, 0, NARROW, "401-405:4 406-407:4/100 408-416:4 417-418:t"},
    {4, 0, WIDE, "401-405:4 406-407:8/100 408-414:8 415:4 416:8 417-418:t"},
    {5, 0, ALL, "503:8 506:4 504-505:t 507:t 501-502:t 508:4 509-511:t 512-515:4"},
    {6, 0, NARROW, "601:4"},
    {6, 0, WIDE, "601:8"},
    {7, 0, ALL, "701-765:4"},
    {8, 0, ALL, "801:4 802-805:4*100 806-812:4"},
    {9, 0, FROM_V530, "901-902:t 903-909:4"},
    {11, 0, FROM_P300, "1001-1015:4 1017:4 1016:4 1018-1100:4"},
    {13, 0, ANY_P730, "1:t 2-7:8"},
    {15, 0, FROM_P720, "1501:t 1502-1508:8"},
    {16, 0, ANY_P730, "1-8:8"},
    {17, 1, ANY_P730, ""},
    {18, 2, ANY_P730, ""},
    {19, 3, ANY_P730, ""},
    {21, 4, ANY_P730, ""},
    {22, 11, ANY_P730, ""},
    {23, 8, ANY_P730, ""},
    {24, 9, ANY_P730, ""},
    {25, 15, ANY_P730, ""},
    {26, 16, ANY_P730, ""},
    {29, 13, ANY_P730, ""},
};

constexpr int PAGE_BYTES = 4096;
constexpr int TICKS_PER_SECOND = 100;

// The planning system of a factory that works in two shifts: a step at each change, a planning run after the
// late one, and half a shift at weekends.
constexpr Work WORKS[] = {
    {Shift::DAY, Days::WORKDAYS, 5.8, 13.7, 0.5, 0.5},
    {Shift::DAY, Days::WORKDAYS, 14.2, 21.8, 0.5, 0.36},
    {Shift::NIGHT, Days::WORKDAYS, 22.3, 23.7, 0.2, 0.75},
    {Shift::NIGHT, Days::ALL, 2.0, 4.6, 0.3, 0.3},
    {Shift::DAY, Days::WEEKEND, 6.0, 12.0, 0.8, 0.25},
};

constexpr ProgramDescription PROGRAMS[] = {
    {"swapper", "root", 1, 0.05, 0, 1},
    {"init", "root", 1, 0.02, 0, 1},
    {"vhand", "root", 1, 0.4, 0, 1},
    {"syncer", "root", 1, 0.3, 0, 1},
    {"inetd", "root", 1, 0.1, 0, 2},
    {"snmpdm", "root", 1, 0.2, 0, 6},
    {"cmcld", "root", 1, 0.5, 0, 30},
    {"psdc", "root", 1, 0.3, 0, 9},
    {"dtwm", "ravi", 1, 0.2, 400, 14, Shift::DAY},
    {"oracleERP", "oracle", 12, 5.0, 0, 160},
    {"oracleERP", "oracle", 12, 7.0, 180, 130, Shift::DAY},
    {"f60webmx", "applmgr", 14, 3.0, 150, 70, Shift::DAY},
    {"FNDLIBR", "applmgr", 5, 2.2, 0, 60},
    {"nfsd", "root", 6, 1.5, 0, 1},
    {"smbd", "root", 8, 1.1, 140, 9, Shift::DAY},
    {"ksh", "ravi", 4, 0.2, 150, 2, Shift::DAY},
    {"awk", "ravi", 2, 4.0, 10, 3, Shift::DAY},
    {"aCC", "sofia", 3, 6.0, 6, 80, Shift::DAY},
    {"tusc", "sofia", 1, 1.0, 40, 4, Shift::DAY},
    {"sqlplus", "noor", 3, 1.3, 40, 22, Shift::DAY},
    {"mrpplan", "applmgr", 5, 9.0, 30, 220, Shift::NIGHT},
    {"omniback", "backup", 3, 7.0, 100, 35, Shift::NIGHT},
    {"fbackup", "backup", 2, 5.0, 60, 12, Shift::NIGHT},
};

constexpr DiskDescription DISKS[] = {
    {"c1t6d0", 60, 0.55, 5.0, 16, 36000},
    {"c2t6d0", 55, 0.10, 5.0, 16, 36000},
    {"c4t0d0", 130, 0.80, 3.5, 8, 140000, Shift::DAY},
    {"c4t0d1", 95, 0.75, 4.0, 8, 140000, Shift::DAY},
    {"c4t0d2", 80, 0.70, 4.5, 32, 140000},
    {"c4t0d3", 70, 0.60, 6.0, 32, 140000, Shift::NIGHT},
    {"c6t0d0", 30, 0.50, 7.0, 64, 140000, Shift::DAY},
    {"c6t0d1", 60, 0.95, 6.5, 64, 140000, Shift::NIGHT},
    {"/dev/dsk/c6t0d2", 18, 0.40, 8.0, 24, 140000},
    {"/dev/dsk/c6t0d3", 12, 0.30, 8.0, 24, 140000, Shift::DAY},
    {"c8t1d0", 45, 0.90, 9.0, 128, 140000, Shift::NIGHT},
    {"c8t2d0", 3, 0.90, 9.0, 128, 140000},
};

constexpr FileSystemDescription FILE_SYSTEMS[] = {
    {"/", "/dev/vg00/lvol3", 2000, 0.39},
    {"/stand", "/dev/vg00/lvol1", 1800, 0.12},
    {"/var", "/dev/vg00/lvol8", 9000, 0.61, 0.06},
    {"/tmp", "/dev/vg00/lvol4", 4000, 0.05, 0.2, 8},
    {"/home", "/dev/vg00/lvol5", 30000, 0.72, 0.02, 90},
    {"/opt", "/dev/vg00/lvol6", 9000, 0.77},
    {"/oradata", "/dev/vg01/lvol1", 400000, 0.84, 0.02, 120},
    {"/oraarch", "/dev/vg01/lvol2", 60000, 0.21, 0.45, 12},
};

constexpr AdapterDescription ADAPTERS[] = {
    {"lan0", 6000, 3, Shift::DAY}, {"lan1", 4400, 11, Shift::NIGHT}, {"lan900", 600}, {"lo0", 300}};

constexpr HostDescription HOST{.name = "harbor",
                               .processors = 6,
                               .memoryMb = 8192,
                               .second = 12,
                               .idleLoad = 0.06,
                               .systemShare = 0.27,
                               .waitShare = 0.3,
                               .cacheShare = 0.3,
                               .pagesPerSecond = 60,
                               .opensPerSecond = 40,
                               .works = WORKS,
                               .programs = PROGRAMS,
                               .disks = DISKS,
                               .fileSystems = FILE_SYSTEMS,
                               .adapters = ADAPTERS};

double Pages(double kilobytes) { return kilobytes * 1024 / PAGE_BYTES; }

void WriteHead(const SampleContext& context, SampleFile& file) {
  file.Write(5, {{501, context.versionText},
                 {502, "9000/800"},
                 {503, int64_t{context.host.memoryMb} * 1024},
                 {504, "rp-sample"},
                 {505, "PA-RISC"},
                 {506, context.host.processors},
                 {507, context.node},
                 {508, context.options.utcOffset},
                 {509, "HP-UX"},
                 {510, "B.11.11"},
                 {511, "U"},
                 {514, context.options.intervalSeconds},
                 {515, context.options.intervalSeconds * 1000}});
}

void WriteProcessors(const HostSample& sample, SampleFile& file) {
  const CpuSample all = sample.AllProcessors();
  const double busy = (all.user + all.nice + all.system) / sample.intervalSeconds;
  file.Write(1, {{101, all.user},
                 {102, all.system},
                 {103, all.idle},
                 {104, all.wait},
                 {105, all.nice},
                 {106, all.system * 900},
                 {107, all.system * 1500},
                 {114, busy},
                 {115, busy * 0.9},
                 {116, busy * 0.8}});
  for (const CpuSample& cpu : sample.processors) {
    file.Write(8, {{801, cpu.id},
                   {802, cpu.idle},
                   {803, cpu.user + cpu.nice},
                   {804, cpu.wait},
                   {805, cpu.system},
                   {812, TICKS_PER_SECOND}});
  }
}

void WriteMemory(const HostSample& sample, SampleFile& file) {
  const MemorySample& memory = sample.memory;
  file.Write(3, {{301, Pages(memory.freeKb)},
                 {303, Pages(memory.activeKb)},
                 {304, Pages(memory.inactiveKb)},
                 {305, PAGE_BYTES},
                 {306, memory.pagesIn},
                 {307, memory.pagesOut},
                 {310, memory.swapsIn},
                 {311, memory.swapsOut},
                 {313, memory.majorFaults},
                 {322, Pages(memory.activeKb)},
                 {323, Pages(memory.inactiveKb)},
                 {326, memory.copyOnWriteFaults},
                 {327, memory.zeroFillFaults}});
}

void WriteDisks(const HostSample& sample, SampleFile& file) {
  for (const DiskSample& disk : sample.disks) {
    file.Write(2, {{201, disk.name},
                   {202, disk.Operations()},
                   {203, disk.readKb + disk.writeKb},
                   {204, disk.Operations()},
                   {205, disk.queueSeconds - disk.BusySeconds()},
                   {206, disk.queueSeconds},
                   {207, disk.queueSeconds},
                   {208, disk.BusySeconds()}});
  }
}

void WriteProcesses(const HostSample& sample, SampleFile& file) {
  for (const ProcessSample& process : sample.processes) {
    file.Write(4, {{402, process.processId},
                   {403, process.parentId},
                   {404, process.parentId},
                   {405, process.processId},
                   {406, process.userSeconds},
                   {407, process.systemSeconds},
                   {408, Pages(process.residentKb)},
                   {409, process.minorFaults},
                   {410, process.majorFaults},
                   {412, Pages(process.virtualKb)},
                   {413, process.reads},
                   {414, process.writes},
                   {415, process.aliveSeconds},
                   {416, process.priority},
                   {417, process.image},
                   {418, process.user}});
  }
}

// The first part of the protocol counters, record 7, has the elements up to 63, TCP above all; the second
// part, record 11, those from 67: UDP and the rest of IP. A reader holds the part that comes last. By day
// that is the first, and at night, when files are moved over UDP, the second, so that a whole day shows
// either.
void WriteProtocolCounters(const HostSample& sample, SampleFile& file) {
  FieldFigures first;
  FieldFigures second;
  for (const BsdCounter& counter : BsdCounters()) {
    const int element = counter.element;
    const double value = counter.value(sample.network);
    if (element <= 63) {
      first.emplace_back(701 + element, value);
    } else if (element >= 67 && element <= 74) {
      second.emplace_back(1001 + element - 67, value);
    } else if (element >= 76) {
      second.emplace_back(1009 + element - 76, value);
    }
  }
  const int64_t hour = sample.wallTime % 86400 / 3600;
  const bool isNight = hour < 6 || hour >= 18;
  if (isNight) file.Write(7, first);
  file.Write(11, second);
  if (!isNight) file.Write(7, first);
}

void WriteSample(const SampleContext&, const HostSample& sample, SampleFile& file) {
  WriteProcessors(sample, file);
  WriteMemory(sample, file);
  WriteDisks(sample, file);
  WriteProcesses(sample, file);
  WriteProtocolCounters(sample, file);
  WriteFileSystems({9, 901, true}, sample, file);
  WriteAdaptersAndSummary(sample, file);
}

constexpr SampleFormat FORMAT{WrittenOrder::BIG, RECORDS, 6, 601, WriteHead, WriteSample};

std::string FileBytes(const SampleContext& context, const FileOfDay& file) {
  return CollectorBytes(FORMAT, context, file);
}

}  // namespace

const SampleKind KIND{
    .name = "hpux", .host = HOST, .versions = VERSIONS, .filePrefix = "qtxh_", .fileBytes = FileBytes};

}  // namespace ozmo::sample::hpux_sample
