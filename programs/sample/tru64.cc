// Tru64: little-endian. The files have a prefix that no reader claims.

#include "programs/sample/bsd_counters.h"
#include "programs/sample/sample_format.h"

namespace ozmo::sample::tru64_sample {
namespace {

enum : uint32_t {
  V520 = 1,
  P300 = 2,
  P720 = 4,
  P730 = 8,
  FROM_P720 = P720 | P730,
  FROM_P300 = P300 | FROM_P720,
  ALL = V520 | FROM_P300,
};

constexpr VersionLayout VERSIONS[] = {
    {"P730", P730}, {"P720", P720}, {"P300", P300}, {"V530", P300},
    {"V520", V520}, {"V510", V520}, {"V505", V520},
};

// Processors count 1024 ticks a second. What a process used of the machine counts in millionths of
// a percent, before P720 in hundredths.
constexpr SampleLayout RECORDS[] = {
    {1, 0, ALL, "101-108:4"},
    {2, 0, ALL, "201:t 202-203:8 204-207:8/100"},
    {3, 0, ALL, "301-302:4 303-330:8 331-332:4 333-334:8"},
    {4, 0, FROM_P720, "411:t 418:t 407-408:8*1000000 409-410:8 412-415:8 417:8 401-406:4 419-420:4"},
    {4, 0, V520 | P300, "401-406:4 407-408:8/100 409-410:8 412-417:8 411:t 418:t 421:t 419-420:4"},
    {5, 0, P730, "501:4 503:4 502:t 504-506:t 507:4 508-510:t 511-513:4 515:4"},
    {5, 0, V520 | P300 | P720, "501:4 503:4 502:t 504-506:t 507:4 508-510:t 511-513:4"},
    {6, 0, ALL, "601-602:t"},
    {7, 0, ALL, "701-703:t"},
    {8, 0, ALL, "801-803:4 804-808:8*1024 809:4"},
    {9, 0, ALL, "901:4"},
    {11, 0, ALL, "1101-1129:4"},
    {12, 0, FROM_P300, "1201-1202:t 1203-1208:4"},
    {15, 0, FROM_P720, "1501:t 1502-1508:8"},
    {16, 0, P730, "1-8:8"},
    {17, 1, P730, ""},
    {18, 2, P730, ""},
    {19, 3, P730, ""},
    {21, 4, P730, ""},
    {22, 11, P730, ""},
    {23, 8, P730, ""},
    {24, 12, P730, ""},
    {25, 15, P730, ""},
    {26, 16, P730, ""},
};

constexpr int PAGE_BYTES = 8192;
constexpr int TICKS_PER_SECOND = 1024;
constexpr int LAST_COUNTER_ELEMENT = 28;

// A machine for scientists: long computations from the evening to the morning and through the weekend, and
// people who look at the results by day.
constexpr Work WORKS[] = {
    {Shift::NIGHT, Days::ALL, 18.4, 30.8, 0.6, 0.62},
    {Shift::NIGHT, Days::WEEKEND, 6.8, 18.4, 0.6, 0.55},
    {Shift::DAY, Days::WORKDAYS, 9.2, 12.4, 1.6, 0.3},
    {Shift::DAY, Days::WORKDAYS, 13.4, 17.6, 1.2, 0.4},
};

constexpr ProgramDescription PROGRAMS[] = {
    {"kernel idle", "root", 1, 0.1, 0, 5},
    {"init", "root", 1, 0.02, 0, 1},
    {"advfsd", "root", 1, 0.3, 0, 4},
    {"inetd", "root", 1, 0.1, 0, 2},
    {"snmpd", "root", 1, 0.2, 0, 5},
    {"psdc", "root", 1, 0.3, 0, 7},
    {"nfsd", "root", 5, 1.2, 0, 1},
    {"oracle", "oracle", 8, 2.5, 0, 110},
    {"gaussian", "miriam", 4, 12.0, 300, 500, Shift::NIGHT},
    {"nastran", "pavel", 3, 10.0, 200, 350, Shift::NIGHT},
    {"charmm", "lucia", 3, 9.0, 140, 180, Shift::NIGHT},
    {"matlab", "pavel", 3, 5.0, 90, 150, Shift::DAY},
    {"f90", "miriam", 3, 6.0, 6, 60, Shift::DAY},
    {"idl", "akira", 2, 4.5, 70, 90, Shift::DAY},
    {"csh", "akira", 8, 0.2, 150, 2, Shift::DAY},
    {"emacs", "akira", 4, 0.3, 100, 20, Shift::DAY},
    {"dtwm", "lucia", 2, 0.2, 400, 14, Shift::DAY},
    {"dxterm", "lucia", 5, 0.2, 150, 8, Shift::DAY},
    {"sshd2", "root", 4, 0.3, 240, 4, Shift::DAY},
    {"perl", "lucia", 2, 2.5, 25, 15, Shift::DAY},
    {"vdump", "backup", 2, 6.0, 100, 12, Shift::NIGHT},
    {"gzip", "backup", 2, 9.0, 30, 2, Shift::NIGHT},
};

constexpr DiskDescription DISKS[] = {
    {"dsk0", 60, 0.55, 5.0, 16, 36000},
    {"dsk1", 55, 0.10, 5.0, 16, 36000, Shift::DAY},
    {"dsk2", 110, 0.80, 3.5, 8, 72000, Shift::NIGHT},
    {"dsk3", 95, 0.75, 5.0, 8, 72000, Shift::NIGHT},
    {"dsk4", 80, 0.70, 4.5, 32, 72000, Shift::DAY},
    {"dsk5", 45, 0.60, 6.0, 32, 72000},
    {"dsk6", 30, 0.50, 7.0, 64, 72000, Shift::NIGHT},
    {"dsk7", 25, 0.95, 6.5, 64, 72000, Shift::DAY},
    {"dsk8", 18, 0.40, 8.0, 24, 72000},
    {"dsk9", 12, 0.30, 8.0, 24, 72000},
    {"dsk10", 26, 0.20, 9.0, 128, 72000, Shift::NIGHT},
    {"cdrom0", 2, 1.00, 50.0, 64, 600, Shift::DAY},
};

constexpr FileSystemDescription FILE_SYSTEMS[] = {
    {"/", "root_domain#root", 1000, 0.47},
    {"/usr", "usr_domain#usr", 6000, 0.68},
    {"/var", "var_domain#var", 5000, 0.55, 0.06},
    {"/tmp", "tmp_domain#tmp", 8000, 0.08, 0.3, 11},
    {"/home", "home_domain#home", 50000, 0.76, 0.02, 72},
    {"/scratch", "scr_domain#scr", 70000, 0.30, 0.55, 36},
};

constexpr AdapterDescription ADAPTERS[] = {{"tu0", 5200, 3, Shift::DAY}, {"ee0", 2400, 9}, {"lo0", 300}};

constexpr HostDescription HOST{.name = "quasar",
                               .processors = 4,
                               .memoryMb = 6144,
                               .second = 26,
                               .idleLoad = 0.1,
                               .systemShare = 0.12,
                               .waitShare = 0.2,
                               .cacheShare = 0.5,
                               .pagesPerSecond = 45,
                               .opensPerSecond = 12,
                               .works = WORKS,
                               .programs = PROGRAMS,
                               .disks = DISKS,
                               .fileSystems = FILE_SYSTEMS,
                               .adapters = ADAPTERS};

double Pages(double kilobytes) { return kilobytes * 1024 / PAGE_BYTES; }

void WriteHead(const SampleContext& context, SampleFile& file) {
  file.Write(5, {// Thousands of bytes: this collector's megabyte has 1000 of them.
                 {501, int64_t{context.host.memoryMb} * 1000},
                 {502, "AlphaServer Sample"},
                 {503, context.host.processors},
                 {504, context.node},
                 {505, context.versionText},
                 {506, "alpha"},
                 {507, context.options.utcOffset},
                 {508, "OSF1"},
                 {509, "V5.1"},
                 {510, "2650"},
                 {513, context.options.intervalSeconds},
                 {515, context.options.intervalSeconds * 1000}});
  file.Write(6, {{601, "system"}, {602, context.node}});
  file.Write(7, {{701, "dsk10"}, {702, "archive"}, {703, "RZ1CB"}});
}

void WriteProcessors(const HostSample& sample, SampleFile& file) {
  const CpuSample all = sample.AllProcessors();
  file.Write(1, {{104, all.system * 900},
                 {105, all.system * 1500},
                 {106, all.system * 300},
                 {107, sample.processes.size()}});
  for (const CpuSample& cpu : sample.processors) {
    file.Write(8, {{801, cpu.id},
                   {804, cpu.nice},
                   {805, cpu.user},
                   {806, cpu.system},
                   {807, cpu.wait},
                   {808, cpu.idle},
                   {809, TICKS_PER_SECOND}});
  }
}

void WriteMemory(const HostSample& sample, SampleFile& file) {
  const MemorySample& memory = sample.memory;
  file.Write(3, {{309, PAGE_BYTES},
                 {310, Pages(memory.freeKb)},
                 {311, Pages(memory.activeKb)},
                 {312, Pages(memory.inactiveKb)},
                 {313, Pages(memory.wiredKb)},
                 {314, memory.otherFaults},
                 {315, memory.copyOnWriteFaults},
                 {316, memory.copyOnWriteFaults * 0.1},
                 {317, memory.zeroFillFaults},
                 {318, memory.zeroFillFaults * 0.15},
                 {319, memory.majorFaults},
                 {325, Pages(memory.cacheKb)},
                 {333, memory.pagesIn},
                 {334, memory.pagesOut}});
}

// Queue and times are means over the interval's operations.
void WriteDisks(const HostSample& sample, SampleFile& file) {
  for (const DiskSample& disk : sample.disks) {
    const double perOperation = disk.Operations() > 0 ? 1000 / disk.Operations() : 0;
    file.Write(2, {{201, disk.name},
                   {202, disk.Operations()},
                   {203, (disk.readKb + disk.writeKb) * 1024},
                   {204, disk.queueSeconds / sample.intervalSeconds},
                   {205, (disk.queueSeconds - disk.BusySeconds()) * perOperation},
                   {206, disk.BusySeconds() * perOperation},
                   {207, disk.queueSeconds * perOperation}});
  }
}

void WriteProcesses(const SampleContext& context, const HostSample& sample, SampleFile& file) {
  // Shares of the whole machine.
  const double percent = 100.0 / sample.intervalSeconds / context.host.processors;
  for (const ProcessSample& process : sample.processes) {
    file.Write(4, {{402, process.processId},
                   {405, process.parentId},
                   {407, process.userSeconds * percent},
                   {408, process.systemSeconds * percent},
                   {409, process.minorFaults},
                   {410, process.majorFaults},
                   {411, process.image},
                   {412, process.reads},
                   {413, process.writes},
                   {414, process.virtualKb},
                   {415, process.residentKb},
                   {416, process.residentKb * 1024},
                   {418, process.user},
                   {419, process.aliveSeconds},
                   {420, process.priority},
                   {421, process.image}});
  }
}

void WriteProtocolCounters(const HostSample& sample, SampleFile& file) {
  FieldFigures counters;
  for (const BsdCounter& counter : BsdCounters()) {
    if (counter.element <= LAST_COUNTER_ELEMENT) {
      counters.emplace_back(1101 + counter.element, counter.value(sample.network));
    }
  }
  file.Write(11, counters);
}

void WriteSample(const SampleContext& context, const HostSample& sample, SampleFile& file) {
  WriteProcessors(sample, file);
  WriteMemory(sample, file);
  WriteDisks(sample, file);
  WriteProcesses(context, sample, file);
  WriteProtocolCounters(sample, file);
  WriteFileSystems({12, 1201, false}, sample, file);
  WriteAdaptersAndSummary(sample, file);
}

constexpr SampleFormat FORMAT{WrittenOrder::LITTLE, RECORDS, 9, 901, WriteHead, WriteSample};

std::string FileBytes(const SampleContext& context, const FileOfDay& file) {
  return CollectorBytes(FORMAT, context, file);
}

}  // namespace

const SampleKind KIND{
    .name = "tru64", .host = HOST, .versions = VERSIONS, .filePrefix = "osf_", .fileBytes = FileBytes};

}  // namespace ozmo::sample::tru64_sample
