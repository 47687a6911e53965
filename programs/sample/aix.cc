// AIX: big-endian. The host is a partition with virtual SCSI adapters among its disk records, which gives a
// part of its entitlement away.

#include "programs/sample/bsd_counters.h"
#include "programs/sample/sample_format.h"

namespace ozmo::sample::aix_sample {
namespace {

enum : uint32_t {
  P300 = 1,
  P300_64 = 2,
  P720 = 4,
  P720_64 = 8,
  P730 = 16,
  P730_64 = 32,
  P910 = 64,
  P910_64 = 128,
  ANY_P910 = P910 | P910_64,
  FROM_P730 = P730 | P730_64 | ANY_P910,
  FROM_P720 = P720 | P720_64 | FROM_P730,
  NARROW = P300 | P720 | P730 | P910,
  WIDE = P300_64 | P720_64 | P730_64 | P910_64,
  ALL = NARROW | WIDE,
};

// The host has no P910 collector: of such a file a reader shows the processes' pages as page faults too.
constexpr VersionLayout VERSIONS[] = {
    {"P730_64", P730_64}, {"P910_64", P910_64}, {"P910", P910}, {"P730", P730}, {"P720_64", P720_64},
    {"P720", P720},       {"P300_64", P300_64}, {"P300", P300}, {"540", P300},
};

// Processor time counts in ticks, a hundredth of a second each. The configuration record begins
// with the version: the width of its field 503 hangs on it.
constexpr SampleLayout RECORDS[] = {
    {1, 0, P300 | P720, "101-104:4*100 105-109:4"},
    {1, 0, P300_64 | P720_64, "101-104:8*100 105-109:8"},
    {1, 0, FROM_P730, "101-104:8*100 105-109:8 110-111:8*100 112-114:8*65536 115-117:8"},
    // Versions up to P720 count transfers in the older figures, 202 to 205, the later ones leave
    // these at 0. Service and wait times count in hundred thousandths of a millisecond.
    {2, 0, P300 | P720,
     "201:t 202:4 203:4*1000 204-205:4 206-213:8 214-215:8*100000000 216:8 217:8*100 218:8*100000000"},
    {2, 0, P300_64 | P720_64,
     "201:t 202:8 203:8*1000 204-205:8 206-213:8 214-215:8*100000000 216:8 217:8*100 218:8*100000000"},
    {2, 0, P730 | P910, "201:t 202-205:4*0 206-213:8 214-215:8*100000000 216:8 217:8*100 218:8*100000000"},
    {2, 0, P730_64 | P910_64,
     "201:t 202-205:8*0 206-213:8 214-215:8*100000000 216:8 217:8*100 218:8*100000000"},
    {3, 0, NARROW, "301-316:4"},
    {3, 0, WIDE, "301-310:4 311-316:8"},
    {4, 0, NARROW, "401-406:4 407-408:4/100 409-418:4 419-420:t"},
    {4, 0, WIDE, "401-406:4 407-408:8/100 409-416:8 417-418:4 419-420:t"},
    {5, 0, P300 | P720, "501:t 503:4 506:4 504-505:t 507:t 502:t 508:4 509-511:t 512-514:4"},
    {5, 0, P300_64 | P720_64, "501:t 503:8 506:4 504-505:t 507:t 502:t 508:4 509-511:t 512-514:4"},
    {5, 0, P730 | P910, "501:t 503:4 506:4 504-505:t 507:t 502:t 508:4 509-511:t 512-515:4"},
    {5, 0, P730_64 | P910_64, "501:t 503:8 506:4 504-505:t 507:t 502:t 508:4 509-511:t 512-515:4"},
    {6, 0, NARROW, "601:4"},
    {6, 0, WIDE, "601:8"},
    {7, 0, NARROW, "701-797:4"},
    {7, 0, WIDE, "701-797:8"},
    {8, 0, P300 | P720, "801:4 802-805:4*100 806-810:4"},
    {8, 0, P300_64 | P720_64, "801:4 802-805:8*100 806-810:8"},
    {8, 0, FROM_P730, "801:4 802-805:8*100 806-813:8"},
    {9, 0, ALL, "901-902:t 903-909:4"},
    {12, 0, ANY_P910, "1-26:8"},
    {13, 0, FROM_P730, "1:t 2-7:8"},
    // The partition; its times count in time base units.
    {14, 0, FROM_P730, "1:t 2-7:4 8-14:8 15:8*100 16-33:8 34-46:8*512000000 47-49:8 50:8*512000000"},
    {15, 0, FROM_P720, "1501:t 1502-1508:8"},
    {16, 0, FROM_P730, "1-8:8"},
    {17, 1, FROM_P730, ""},
    {18, 2, FROM_P730, ""},
    {19, 3, FROM_P730, ""},
    {21, 4, FROM_P730, ""},
    {22, 7, FROM_P730, ""},
    {23, 8, FROM_P730, ""},
    {24, 9, FROM_P730, ""},
    {25, 15, FROM_P730, ""},
    {26, 16, FROM_P730, ""},
    {29, 13, FROM_P730, ""},
    {31, 14, FROM_P730, ""},
};

constexpr int PAGE_BYTES = 4096;

// The database of a bank: counters and machines by day with a rush before closing time, postings from eight
// in the evening to after midnight, and a reorganisation at weekends. Two of the logical processors stay
// folded.
constexpr int PHYSICAL_PROCESSORS = 4;
constexpr int LOGICAL_PROCESSORS = 8;
constexpr int POOL_PROCESSORS = 8;
// The kernel's idle process, one a logical processor.
constexpr std::string_view IDLE_PROCESS = "wait";

constexpr Work WORKS[] = {
    {Shift::DAY, Days::WORKDAYS, 7.5, 17.8, 1.2, 0.4},     {Shift::DAY, Days::WORKDAYS, 15.4, 17.2, 0.8, 0.3},
    {Shift::NIGHT, Days::WORKDAYS, 20.0, 25.3, 0.2, 0.62}, {Shift::NIGHT, Days::WEEKEND, 9.0, 15.0, 0.4, 0.5},
    {Shift::DAY, Days::WEEKEND, 8.0, 22.0, 4.0, 0.12},     {Shift::NIGHT, Days::ALL, 4.0, 5.2, 0.3, 0.25},
};

constexpr ProgramDescription PROGRAMS[] = {
    {IDLE_PROCESS, "root", LOGICAL_PROCESSORS, 0.0, 0, 1},
    {"swapper", "root", 1, 0.02, 0, 1},
    {"init", "root", 1, 0.02, 0, 1},
    {"lrud", "root", 1, 0.4, 0, 1},
    {"syncd", "root", 1, 0.3, 0, 1},
    {"inetd", "root", 1, 0.1, 0, 2},
    {"aixmibd", "root", 1, 0.2, 0, 5},
    {"psdc", "root", 1, 0.3, 0, 8},
    {"dtwm", "helena", 1, 0.2, 500, 14, Shift::DAY},
    {"db2sysc", "db2inst1", 6, 9.0, 0, 900},
    {"db2fmp", "db2fenc1", 8, 5.0, 120, 90, Shift::DAY},
    {"java", "wasadm", 3, 8.0, 0, 600},
    {"httpd", "nobody", 10, 1.3, 90, 10, Shift::DAY},
    {"disp+work", "sapadm", 14, 4.0, 200, 150, Shift::DAY},
    {"ksh", "helena", 4, 0.2, 150, 2, Shift::DAY},
    {"perl", "helena", 2, 2.5, 25, 15, Shift::DAY},
    {"xlc", "dmitri", 3, 6.0, 5, 70, Shift::DAY},
    {"ftpd", "transfer", 3, 1.0, 20, 3, Shift::DAY},
    {"db2bp", "amara", 5, 1.5, 45, 20, Shift::DAY},
    {"sshd", "root", 4, 0.3, 240, 4, Shift::DAY},
    {"post_batch", "sapadm", 7, 9.0, 25, 180, Shift::NIGHT},
    {"dsmc", "backup", 3, 7.0, 100, 40, Shift::NIGHT},
    {"compress", "backup", 2, 9.0, 30, 2, Shift::NIGHT},
};

// Logical units of less than 2 GB each: disk sizes count in bytes and must fit their fields. The last disk is
// one that the database keeps without a file system.
constexpr DiskDescription DISKS[] = {
    {"hdisk0", 60, 0.55, 5.0, 16, 1900},
    {"vscsi0", 200, 0.60, 4.0, 16, 0},
    {"hdisk1", 55, 0.10, 5.0, 16, 1900, Shift::NIGHT},
    {"hdisk2", 160, 0.80, 3.5, 8, 2000, Shift::DAY},
    {"hdisk3", 120, 0.75, 4.0, 8, 2000},
    {"hdisk4", 80, 0.70, 5.5, 32, 1600, Shift::NIGHT},
    {"hdisk5", 45, 0.60, 6.0, 32, 1600, Shift::DAY},
    {"hdisk6", 30, 0.50, 7.0, 64, 1200, Shift::NIGHT},
    {"hdisk7", 25, 0.95, 6.5, 64, 1200, Shift::DAY},
    {"hdisk8", 18, 0.40, 8.0, 24, 1000},
    {"hdisk9", 12, 0.30, 8.0, 24, 1000},
    {"hdisk10", 36, 0.10, 9.0, 128, 800, Shift::NIGHT},
    {"hdisk11", 3, 0.90, 9.0, 128, 800},
    {"vscsi1", 100, 0.60, 4.0, 16, 0},
    {"hdisk12", 20, 0.50, 5.0, 4, 800, Shift::BOTH, true},
};

constexpr FileSystemDescription FILE_SYSTEMS[] = {
    {"/", "/dev/hd4", 2000, 0.41},
    {"/usr", "/dev/hd2", 8000, 0.66},
    {"/var", "/dev/hd9var", 6000, 0.52, 0.07},
    {"/tmp", "/dev/hd3", 4000, 0.06, 0.25, 9},
    {"/home", "/dev/hd1", 20000, 0.74, 0.02, 120},
    {"/opt", "/dev/hd10opt", 5000, 0.38},
    {"/db2", "/dev/fslv00", 90000, 0.82, 0.03, 96},
    {"/db2/logs", "/dev/fslv02", 30000, 0.12, 0.7, 8},
    {"/sap", "/dev/fslv01", 50000, 0.69, 0.02, 48},
};

constexpr AdapterDescription ADAPTERS[] = {
    {"en0", 7000, 2, Shift::DAY}, {"en1", 5200, 7, Shift::NIGHT}, {"en10", 700}, {"lo0", 300}};

constexpr HostDescription HOST{.name = "granite",
                               .processors = LOGICAL_PROCESSORS,
                               .foldedProcessors = 2,
                               .memoryMb = 16384,
                               .second = 23,
                               .idleLoad = 0.09,
                               .systemShare = 0.3,
                               .waitShare = 0.5,
                               .cacheShare = 0.7,
                               .pagesPerSecond = 220,
                               .opensPerSecond = 60,
                               .works = WORKS,
                               .programs = PROGRAMS,
                               .disks = DISKS,
                               .fileSystems = FILE_SYSTEMS,
                               .adapters = ADAPTERS};

void WriteHead(const SampleContext& context, SampleFile& file) {
  file.Write(5, {{501, context.versionText},
                 {502, "PowerPC_SAMPLE"},
                 {503, int64_t{context.host.memoryMb} * 1024},
                 {504, "Power,Sample"},
                 {505, "64-bit"},
                 {506, context.host.processors},
                 {507, context.node},
                 {508, context.options.utcOffset},
                 {509, "AIX"},
                 {510, "7.1"},
                 {511, "7100-03"},
                 {514, context.options.intervalSeconds},
                 {515, context.options.intervalSeconds * 1000}});
}

void WriteProcessors(const HostSample& sample, SampleFile& file) {
  const CpuSample all = sample.AllProcessors();
  const double busy = (all.user + all.nice + all.system) / sample.intervalSeconds;
  file.Write(1, {{101, all.user + all.nice},
                 {102, all.system},
                 {103, all.idle},
                 {104, all.wait},
                 {105, all.system * 900},
                 {106, all.system * 1500},
                 {112, busy},
                 {113, busy * 0.9},
                 {114, busy * 0.8}});
  for (const CpuSample& cpu : sample.processors) {
    file.Write(
        8, {{801, cpu.id}, {802, cpu.user + cpu.nice}, {803, cpu.system}, {804, cpu.idle}, {805, cpu.wait}});
  }
}

double Pages(double kilobytes) { return kilobytes * 1024 / PAGE_BYTES; }

void WriteMemory(const SampleContext& context, const HostSample& sample, SampleFile& file) {
  const MemorySample& memory = sample.memory;
  const double processKb = memory.activeKb + memory.inactiveKb;
  file.Write(3, {{301, Pages(memory.freeKb)},
                 {302, Pages(processKb)},
                 {303, Pages(memory.cacheKb)},
                 {304, memory.pagesIn},
                 {305, memory.pagesOut},
                 {307, memory.zeroFillFaults + memory.copyOnWriteFaults + memory.otherFaults},
                 {310, PAGE_BYTES},
                 {311, memory.zeroFillFaults},
                 {312, memory.copyOnWriteFaults}});
  file.Write(12, {{1, Pages(context.host.memoryMb * 1536.0)},
                  {3, Pages(context.host.memoryMb * 1024.0)},
                  {4, Pages(memory.freeKb)},
                  {5, Pages(memory.wiredKb)},
                  {7, Pages(processKb)},
                  {8, Pages(memory.wiredKb)},
                  {10, memory.otherFaults},
                  {11, memory.pagesIn},
                  {12, memory.pagesOut},
                  {19, Pages(memory.cacheKb)},
                  {23, 2097152}});
}

void WriteDisks(const HostSample& sample, SampleFile& file) {
  constexpr int BLOCK_BYTES = 512;
  for (const DiskSample& disk : sample.disks) {
    file.Write(2, {{201, disk.name},
                   // The older figures.
                   {202, disk.Operations()},
                   {203, disk.BusySeconds()},
                   {204, disk.readKb * 1024},
                   {205, disk.writeKb * 1024},
                   // The newer ones.
                   {207, disk.sizeMb * 1048576},
                   {208, disk.freeMb * 1048576},
                   {209, BLOCK_BYTES},
                   {210, disk.Operations()},
                   {211, disk.readKb * 1024 / BLOCK_BYTES},
                   {212, disk.writeKb * 1024 / BLOCK_BYTES},
                   {214, disk.readSeconds},
                   {215, disk.writeSeconds},
                   {217, disk.BusySeconds()},
                   {218, disk.queueSeconds - disk.BusySeconds()}});
  }
}

void WriteProcesses(const HostSample& sample, SampleFile& file) {
  const double idleEach = sample.AllProcessors().idle / LOGICAL_PROCESSORS;
  for (const ProcessSample& process : sample.processes) {
    const bool idle = process.image == IDLE_PROCESS;
    file.Write(4, {{402, process.processId},
                   {404, process.parentId},
                   {405, process.parentId},
                   {407, process.userSeconds},
                   {408, idle ? idleEach : process.systemSeconds},
                   {409, process.reads},
                   {410, process.writes},
                   {411, process.minorFaults},
                   {412, process.majorFaults},
                   {413, process.virtualKb},
                   {414, process.residentKb},
                   {417, process.aliveSeconds},
                   {418, process.priority},
                   {419, process.user},
                   {420, process.image}});
  }
}

// Fields 701 to 723 are elements 0 to 22, from 724 the field number is the element's plus 700, and
// from 774 one less. Element 31 is in two fields. Element 23 has no field.
void WriteProtocolCounters(const HostSample& sample, SampleFile& file) {
  FieldFigures counters;
  for (const BsdCounter& counter : BsdCounters()) {
    const double value = counter.value(sample.network);
    const int element = counter.element;
    if (element < 23) {
      counters.emplace_back(701 + element, value);
    } else if (element > 23) {
      counters.emplace_back((element < 74 ? 700 : 699) + element, value);
    }
    if (element == 31) {
      counters.emplace_back(741, value);
    }
  }
  file.Write(7, counters);
}

// A capped partition with dedicated processors that donates what it doesn't use.
void WritePartition(const SampleContext& context, const HostSample& sample, SampleFile& file) {
  const CpuSample all = sample.AllProcessors();
  const double physical = static_cast<double>(PHYSICAL_PROCESSORS) / LOGICAL_PROCESSORS;
  const double donated = all.idle * physical * 0.6;
  file.Write(14, {{1, context.node},
                  {3, 1},     // capped
                  {4, 0},     // shared mode
                  {5, 1},     // pool visible
                  {6, 1},     // donating
                  {15, 2.5},  // entitled
                  {16, PHYSICAL_PROCESSORS},
                  {30, POOL_PROCESSORS},
                  {34, (all.user + all.nice) * physical},
                  {35, all.system * physical},
                  {36, all.idle * physical * 0.1},
                  {37, all.wait * physical},
                  {38, donated},
                  {39, donated * 0.02},
                  {41, donated * 0.01},
                  {43, donated * 0.005},
                  {47, all.system * 3},    // phantom interrupts
                  {48, all.system * 40},   // involuntary switches
                  {49, all.system * 260},  // voluntary switches
                  {50, sample.intervalSeconds}});
}

void WriteSample(const SampleContext& context, const HostSample& sample, SampleFile& file) {
  WriteProcessors(sample, file);
  WriteMemory(context, sample, file);
  WriteDisks(sample, file);
  WriteProcesses(sample, file);
  WriteProtocolCounters(sample, file);
  WriteFileSystems({9, 901, false}, sample, file);
  WritePartition(context, sample, file);
  WriteAdaptersAndSummary(sample, file);
}

constexpr SampleFormat FORMAT{WrittenOrder::BIG, RECORDS, 6, 601, WriteHead, WriteSample};

std::string FileBytes(const SampleContext& context, const FileOfDay& file) {
  return CollectorBytes(FORMAT, context, file);
}

}  // namespace

const SampleKind KIND{
    .name = "aix", .host = HOST, .versions = VERSIONS, .filePrefix = "qtxa_", .fileBytes = FileBytes};

}  // namespace ozmo::sample::aix_sample
