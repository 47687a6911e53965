// A Windows host's monitor file: text rows of performance objects and counters, known by their title
// numbers. A value is the sum over the samples of an interval; the reader divides by their number.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "programs/sample/kinds.h"
#include "programs/sample/plant.h"

namespace ozmo::sample::vmr_sample {
namespace {

// The server of an office: mail from nine on, a lull at lunch, a virus scan after it, and backups late in
// the evening, longer ones at weekends.
constexpr Work WORKS[] = {
    {Shift::DAY, Days::WORKDAYS, 8.4, 11.9, 0.8, 0.5},
    {Shift::DAY, Days::WORKDAYS, 13.0, 16.9, 0.8, 0.4},
    {Shift::NIGHT, Days::ALL, 12.5, 13.3, 0.15, 0.35},
    {Shift::NIGHT, Days::WORKDAYS, 22.5, 24.2, 0.2, 0.45},
    {Shift::NIGHT, Days::WEEKEND, 20.0, 27.0, 0.3, 0.5},
};

constexpr ProgramDescription PROGRAMS[] = {
    {"System", "SYSTEM", 1, 0.8, 0, 1},
    {"svchost", "SYSTEM", 6, 0.5, 0, 22},
    {"lsass", "SYSTEM", 1, 0.2, 0, 12},
    {"services", "SYSTEM", 1, 0.1, 0, 7},
    {"snmp", "SYSTEM", 1, 0.2, 0, 6},
    {"sqlservr", "SQL", 1, 9.0, 0, 900},
    {"store", "EXCHANGE", 1, 7.0, 0, 700},
    {"w3wp", "IIS", 4, 5.0, 0, 120},
    {"w3wp", "IIS", 4, 4.0, 90, 120, Shift::DAY},
    {"EXCEL", "tomas", 3, 2.0, 70, 60, Shift::DAY},
    {"OUTLOOK", "tomas", 3, 1.2, 180, 70, Shift::DAY},
    {"explorer", "tomas", 4, 0.4, 240, 25, Shift::DAY},
    {"msbuild", "leila", 3, 6.0, 5, 80, Shift::DAY},
    {"cl", "leila", 4, 6.5, 3, 50, Shift::DAY},
    {"powershell", "leila", 2, 2.5, 20, 45, Shift::DAY},
    {"ntbackup", "BACKUP", 2, 8.0, 90, 30, Shift::NIGHT},
    {"rtvscan", "SYSTEM", 1, 9.0, 15, 70, Shift::NIGHT},
};

constexpr DiskDescription DISKS[] = {
    {"0 C:", 70, 0.55, 5.0, 16, 70000},
    {"1 D:", 140, 0.75, 4.0, 8, 140000, Shift::DAY},
    {"2 E:", 85, 0.70, 6.5, 32, 280000},
    {"3 F: G:", 60, 0.60, 6.0, 32, 280000, Shift::DAY},
    {"4 L:", 55, 0.05, 3.0, 16, 140000, Shift::DAY},
    {"5 X:", 70, 0.10, 9.0, 128, 900000, Shift::NIGHT},
};

constexpr AdapterDescription ADAPTERS[] = {{"lan", 9000}};

constexpr HostDescription HOST{.name = "OFFICE",
                               .processors = 2,
                               .memoryMb = 4096,
                               .second = 21,
                               .idleLoad = 0.08,
                               .systemShare = 0.32,
                               .waitShare = 0.2,
                               .cacheShare = 0.45,
                               .pagesPerSecond = 70,
                               .opensPerSecond = 30,
                               .works = WORKS,
                               .programs = PROGRAMS,
                               .disks = DISKS,
                               .fileSystems = {},
                               .adapters = ADAPTERS};

// What an object or one of its instances shows at a sample: counter title number and mean.
struct CounterFigure {
  int counter;
  double mean;
};

struct Instance {
  std::string name;
  int sampleCount;
  std::vector<CounterFigure> values;
};

// Sampling periods are whole seconds.
int SamplesPerInterval(const SampleOptions& options) {
  return options.intervalSeconds % 10 == 0 ? options.intervalSeconds / 10 : options.intervalSeconds;
}

std::string NumberText(double number) {
  // Sizes are read as whole numbers.
  const bool whole = number >= 1e6 || number == std::floor(number);
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), whole ? "%.0f" : "%.4f", number);
  return text.data();
}

void AppendCounterRow(std::string& out, const std::vector<CounterFigure>& values) {
  out += "5";
  for (const CounterFigure& value : values) {
    out += "~" + std::to_string(value.counter);
  }
  out += "\n";
}

void AppendDataRow(std::string& out, const std::vector<CounterFigure>& values, int sampleCount) {
  out += "6";
  for (const CounterFigure& value : values) {
    out += "~" + NumberText(value.mean * sampleCount);
  }
  out += "\n";
}

void AppendObject(std::string& out, int object, int sampleCount, const std::vector<CounterFigure>& values) {
  out += "2~" + std::to_string(object) + "~" + std::to_string(sampleCount) + "\n";
  AppendCounterRow(out, values);
  AppendDataRow(out, values, sampleCount);
  out += "3\n";
}

// One counter row serves all instances of the object.
void AppendInstances(std::string& out, int object, const std::vector<Instance>& instances) {
  out += "2~" + std::to_string(object) + "\n";
  AppendCounterRow(out, instances.front().values);
  for (const Instance& instance : instances) {
    out += "4~" + instance.name + "~" + std::to_string(instance.sampleCount) + "\n";
    AppendDataRow(out, instance.values, instance.sampleCount);
  }
  out += "3\n";
}

Instance ProcessorInstance(const std::string& name, const CpuSample& cpu, double seconds, int sampleCount) {
  const double percent = 100 / seconds;
  return {name,
          sampleCount,
          {{6, (seconds - cpu.idle - cpu.wait) * percent},
           {142, (cpu.user + cpu.nice) * percent},
           {144, cpu.system * percent},
           {696, cpu.system * 0.12 * percent},
           {698, cpu.system * 0.08 * percent}}};
}

// The whole machine comes last, under the name "_Total".
void AppendProcessors(std::string& out, const HostSample& sample, int sampleCount) {
  std::vector<Instance> instances;
  for (const CpuSample& cpu : sample.processors) {
    instances.push_back(ProcessorInstance(std::to_string(cpu.id), cpu, sample.intervalSeconds, sampleCount));
  }
  const double allSeconds = sample.intervalSeconds * static_cast<double>(sample.processors.size());
  instances.push_back(ProcessorInstance("_Total", sample.AllProcessors(), allSeconds, sampleCount));
  AppendInstances(out, 238, instances);
}

void AppendMemory(std::string& out, const HostSample& sample, int sampleCount) {
  const MemorySample& memory = sample.memory;
  const double seconds = sample.intervalSeconds;
  const double totalKb = 1024.0 * HOST.memoryMb;
  AppendObject(out, 4, sampleCount,
               {{24, memory.freeKb * 1024},
                {26, (totalKb - memory.freeKb) * 1024},
                {28, (memory.zeroFillFaults + memory.copyOnWriteFaults + memory.otherFaults) / seconds},
                {30, totalKb * 1.5 * 1024},
                {32, memory.copyOnWriteFaults / seconds},
                {34, memory.otherFaults * 0.6 / seconds},
                {36, memory.otherFaults * 0.4 / seconds},
                {38, memory.zeroFillFaults / seconds},
                {40, (memory.pagesIn + memory.pagesOut) / seconds},
                {42, memory.pagesIn * 0.5 / seconds},
                {48, memory.pagesOut / seconds},
                {50, memory.pagesOut * 0.4 / seconds},
                {56, memory.wiredKb * 0.6 * 1024},
                {58, memory.wiredKb * 0.2 * 1024},
                {66, memory.wiredKb * 0.1 * 1024},
                {70, memory.wiredKb * 0.05 * 1024},
                {74, memory.wiredKb * 0.03 * 1024},
                {76, memory.wiredKb * 0.02 * 1024},
                {818, memory.cacheKb * 1024},
                {822, memory.otherFaults * 0.1 / seconds},
                {1406, 100 * (totalKb - memory.freeKb) / (totalKb * 1.5)}});
}

void AppendProcesses(std::string& out, const HostSample& sample, int sampleCount) {
  std::vector<Instance> instances;
  for (const ProcessSample& process : sample.processes) {
    const double alive = process.aliveSeconds;
    const int seen = std::max(1, static_cast<int>(std::lround(sampleCount * alive / sample.intervalSeconds)));
    instances.push_back({std::string(process.image),
                         seen,
                         {{6, 100 * (process.userSeconds + process.systemSeconds) / alive},
                          {28, process.minorFaults / alive},
                          {142, process.userSeconds},
                          {144, process.systemSeconds},
                          {174, std::floor(process.virtualKb) * 1024},
                          {180, std::floor(process.residentKb) * 1024},
                          {682, static_cast<double>(process.priority % 16)},
                          {684, alive},
                          {784, static_cast<double>(process.processId)},
                          {1412, process.reads / alive},
                          {1414, process.writes / alive},
                          {1420, process.reads * 8192 / alive},
                          {1422, process.writes * 8192 / alive}}});
  }
  const CpuSample all = sample.AllProcessors();
  instances.push_back({"Idle", sampleCount, instances.front().values});
  instances.back().values.front().mean = 100 * (all.idle + all.wait) / sample.intervalSeconds;
  instances.push_back({"_Total", sampleCount, instances.front().values});
  instances.back().values.front().mean = 100.0 * static_cast<double>(sample.processors.size());
  AppendInstances(out, 230, instances);
}

void AppendDisks(std::string& out, const HostSample& sample, int sampleCount) {
  constexpr double QUEUE_UNIT = 1e7;
  const double seconds = sample.intervalSeconds;
  std::vector<Instance> instances;
  for (const DiskSample& disk : sample.disks) {
    instances.push_back({std::string(disk.name),
                         sampleCount,
                         {{214, disk.reads / seconds},
                          {216, disk.writes / seconds},
                          {220, disk.readKb * 1024 / seconds},
                          {222, disk.writeKb * 1024 / seconds},
                          {1400, disk.queueSeconds / seconds * QUEUE_UNIT},
                          {1482, 100 * (1 - disk.BusySeconds() / seconds)}}});
  }
  instances.push_back({"_Total", sampleCount, instances.front().values});
  AppendInstances(out, 234, instances);
}

// The connection counters of the TCP object are the only running totals of a monitor file.
struct ConnectionTotals {
  double active = 1000;
  double passive = 3000;
  double failed = 50;
  double reset = 70;
};

void AppendNetwork(std::string& out, const HostSample& sample, int sampleCount, ConnectionTotals& totals) {
  const NetworkSample& network = sample.network;
  const double seconds = sample.intervalSeconds;
  totals.active += network.tcpActiveOpens;
  totals.passive += network.tcpPassiveOpens;
  totals.failed += network.tcpAttemptFails;
  totals.reset += network.tcpResets;
  AppendObject(out, 546, sampleCount,
               {{438, (network.ipReceived + network.ipSent) / seconds},
                {446, network.ipReceived / seconds},
                {552, network.ipBad},
                {554, network.ipBad},
                {556, network.ipForwarded / seconds},
                {558, network.ipBad},
                {560, network.ipDiscarded},
                {562, network.ipDelivered / seconds},
                {442, network.ipSent / seconds},
                {566, network.ipDiscarded},
                {568, network.ipBad / seconds}});
  AppendObject(out, 638, sampleCount,
               {{640, (network.tcpSegmentsIn + network.tcpSegmentsOut) / seconds},
                {642, network.tcpEstablished},
                {644, totals.active},
                {646, totals.passive},
                {648, totals.failed},
                {650, totals.reset},
                {652, network.tcpSegmentsIn / seconds},
                {654, network.tcpSegmentsOut / seconds},
                {656, network.tcpRetransmitted / seconds}});
  AppendObject(out, 658, sampleCount,
               {{438, (network.udpIn + network.udpOut) / seconds},
                {446, network.udpIn / seconds},
                {664, network.ipBad / seconds},
                {666, network.ipBad},
                {442, network.udpOut / seconds}});
}

int SecondOfDay(int64_t time) { return static_cast<int>(time % 86400); }

// The head: who measured what since when, and the configuration with its system line.
std::string Head(const SampleContext& context, const FileOfDay& dayFile) {
  const SampleOptions& options = context.options;
  const int period = 1000 * (options.intervalSeconds / SamplesPerInterval(options));
  const int start = SecondOfDay(dayFile.times.front());
  std::array<char, 160> numbers{};
  std::snprintf(numbers.data(), numbers.size(), "%d~%d~~%d~%u~%u~%d~%d~0\n", options.intervalSeconds, period,
                static_cast<int>(dayFile.date.year()), static_cast<unsigned>(dayFile.date.month()),
                static_cast<unsigned>(dayFile.date.day()), start / 3600, start / 60 % 60);
  return "<HEADER>~~~" + context.node + "~" + numbers.data() + "<META>\nsample\n<ENDMETA>\n<CONFIG>\n7~" +
         context.node + "~Windows Server~5.2~~~x86~~~" + std::to_string(HOST.processors) + "~" +
         std::to_string(HOST.memoryMb) + "\n<ENDCONFIG>\n";
}

std::string FileText(const SampleContext& context, const FileOfDay& dayFile) {
  const SampleOptions& options = context.options;
  const int sampleCount = SamplesPerInterval(options);
  ConnectionTotals totals;
  std::string out = Head(context, dayFile);
  for (const int64_t time : dayFile.times) {
    const HostSample sample = SampleAt(context, time);
    const int second = SecondOfDay(time);
    out += "1~~" + std::to_string(second / 3600) + "~" + std::to_string(second / 60 % 60) + "~" +
           std::to_string(second % 60) + "\n";
    AppendMemory(out, sample, sampleCount);
    AppendProcesses(out, sample, sampleCount);
    AppendDisks(out, sample, sampleCount);
    AppendProcessors(out, sample, sampleCount);
    AppendNetwork(out, sample, sampleCount, totals);
  }
  return out;
}

}  // namespace

const SampleKind KIND{.name = "vmr",
                      .host = HOST,
                      .versions = {},
                      .filePrefix = "qtx_",
                      .numberMark = "_",
                      .suffix = ".vmr",
                      .fileBytes = FileText};

}  // namespace ozmo::sample::vmr_sample
