#include "programs/sample/host_model.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "programs/sample/noise.h"

namespace ozmo::sample {
namespace {

constexpr int WANDER_SECONDS = 600;

// 0 before `from`, 1 after `from` + `width`, smooth between.
double Rise(double value, double from, double width) {
  const double share = std::clamp((value - from) / width, 0.0, 1.0);
  return share * share * (3 - 2 * share);
}

bool IsOn(Days days, int64_t day) {
  const int64_t weekday = (day + 4) % 7;  // Sunday is 0
  const bool isWeekend = weekday == 0 || weekday == 6;
  return days == Days::ALL || isWeekend == (days == Days::WEEKEND);
}

// The load of the stretches of one shift, or of all, that have begun on this day or the day before.
double WorkAt(const HostDescription& host, Shift shift, int64_t time) {
  double load = 0;
  for (const Work& work : host.works) {
    if (shift != Shift::BOTH && shift != work.shift) continue;
    for (const int64_t day : {time / SECONDS_OF_DAY, time / SECONDS_OF_DAY - 1}) {
      if (!IsOn(work.days, day)) continue;
      const double hour = static_cast<double>(time - day * SECONDS_OF_DAY) / 3600;
      const double half = work.slope / 2;
      load += work.height *
              std::min(Rise(hour, work.from - half, work.slope), 1 - Rise(hour, work.to - half, work.slope));
    }
  }
  return load;
}

// What all figures of one interval are made from.
struct HostMoment {
  const HostDescription& host;
  uint64_t seed;
  int64_t time;
  int interval;
  double load;

  double Wander(std::string_view name, int index = 0) const {
    return SmoothNoise(StreamOf(seed, name, index), time, WANDER_SECONDS);
  }
  // Around 1, from 1 - width to 1 + width.
  double Around(std::string_view name, double width, int index = 0) const {
    return 1 + width * (2 * NoiseAt(StreamOf(seed, name, index), time) - 1);
  }
  // How much a thing that serves one shift has to do, 0 to 1.
  double Level(Shift shift, double atRest) const {
    const double work = shift == Shift::BOTH ? load : std::min(1.0, WorkAt(host, shift, time));
    return atRest + (1 - atRest) * work;
  }
};

std::vector<CpuSample> SampleProcessors(const HostMoment& moment) {
  const HostDescription& host = moment.host;
  const double niceShare = 0.3 * std::min(1.0, WorkAt(host, Shift::NIGHT, moment.time));
  std::vector<CpuSample> processors;
  for (int id = 0; id < host.processors; ++id) {
    CpuSample cpu;
    cpu.id = id;
    if (id < host.processors - host.foldedProcessors) {
      // The first processors get a little more of the work, and the interrupts.
      const double lean = 1.1 - 0.2 * id / host.processors;
      const double share = moment.load * lean * (0.7 + 0.6 * moment.Wander("processor", id));
      const double busy = std::clamp(share, 0.0, 0.97) * moment.interval;
      cpu.system = busy * host.systemShare * (0.75 + 0.5 * moment.Wander("system", id));
      cpu.nice = (busy - cpu.system) * niceShare;
      cpu.user = busy - cpu.system - cpu.nice;
      cpu.wait = (moment.interval - busy) * host.waitShare * moment.load * moment.Wander("wait", id);
    }
    cpu.idle = moment.interval - cpu.user - cpu.nice - cpu.system - cpu.wait;
    processors.push_back(cpu);
  }
  return processors;
}

// One process slot of a program holds one process after the other. Each lives for a part of the
// slot's period, and only if the shift of its program calls for it.
struct Life {
  int64_t number = 0;
  double aliveSeconds = 0;  // within the interval
};

double ShiftShare(const HostDescription& host, Shift shift, int64_t time) {
  return shift == Shift::BOTH ? 0.8 : std::min(1.0, 0.03 + 1.5 * WorkAt(host, shift, time));
}

Life LifeOfSlot(const ProgramDescription& program, uint64_t stream, const HostMoment& moment) {
  if (program.lifeMinutes == 0) return {0, static_cast<double>(moment.interval)};
  const int64_t period = int64_t{program.lifeMinutes} * 60;
  const int64_t shifted =
      moment.time + static_cast<int64_t>(NoiseAt(stream, -1) * static_cast<double>(period));
  const int64_t number = shifted / period;
  const int64_t start = moment.time - shifted % period;
  if (NoiseAt(stream ^ 1, number) >= ShiftShare(moment.host, program.shift, start)) return {number, 0};
  const double end =
      static_cast<double>(start) + static_cast<double>(period) * (0.4 + 0.6 * NoiseAt(stream, number));
  const double from = static_cast<double>(std::max(start, moment.time - moment.interval));
  return {number, std::max(0.0, std::min(end, static_cast<double>(moment.time)) - from)};
}

ProcessSample MakeProcess(const ProgramDescription& program, uint64_t stream, const Life& life,
                          const HostMoment& moment) {
  ProcessSample process;
  process.image = program.image;
  process.user = program.user;
  process.processId = 100 + static_cast<int>(30000 * NoiseAt(stream ^ 2, life.number));
  process.parentId = 1 + static_cast<int>(90 * NoiseAt(stream, -2));
  process.priority = 20 + static_cast<int>(40 * NoiseAt(stream, -3));
  process.aliveSeconds = life.aliveSeconds;
  process.residentKb = 1024.0 * program.residentMb * (0.8 + 0.4 * SmoothNoise(stream, moment.time, 3600));
  process.virtualKb = process.residentKb * (1.5 + NoiseAt(stream, -4));
  // The weight for now; ShareProcessorTime makes seconds of it.
  process.userSeconds = program.weight * (0.2 + 1.6 * SmoothNoise(stream ^ 3, moment.time, 300)) *
                        life.aliveSeconds / moment.interval;
  return process;
}

// Hands `busySeconds` out by weight; no process gets more than it lived.
void ShareProcessorTime(std::vector<ProcessSample>& processes, double busySeconds) {
  double weights = 0;
  for (const ProcessSample& process : processes) weights += process.userSeconds;
  for (ProcessSample& process : processes) {
    const double share = weights > 0 ? process.userSeconds / weights : 0;
    const double seconds = std::min(busySeconds * share, process.aliveSeconds);
    process.userSeconds = seconds * 0.75;
    process.systemSeconds = seconds * 0.25;
    process.minorFaults = 2 + seconds * 90;
    process.majorFaults = seconds * 1.5;
    process.reads = seconds * 25;
    process.writes = seconds * 14;
  }
}

std::vector<ProcessSample> SampleProcesses(const HostMoment& moment, double busySeconds) {
  std::vector<ProcessSample> processes;
  for (const ProgramDescription& program : moment.host.programs) {
    for (int slot = 0; slot < program.count * moment.host.scale; ++slot) {
      const uint64_t stream = StreamOf(moment.seed, program.image, slot);
      const Life life = LifeOfSlot(program, stream, moment);
      if (life.aliveSeconds > 0) processes.push_back(MakeProcess(program, stream, life, moment));
    }
  }
  // A part of the time went to processes that came and went between two looks at the list.
  ShareProcessorTime(processes, 0.93 * busySeconds);
  return processes;
}

DiskSample SampleDisk(const DiskDescription& description, const HostMoment& moment) {
  const double level = moment.Level(description.shift, 0.05) * (0.4 + 1.2 * moment.Wander(description.name)) *
                       moment.Around(description.name, 0.15, 1);
  const double ops = std::floor(description.opsPerSecond * level * moment.interval);
  DiskSample disk;
  disk.name = description.name;
  disk.reads = std::floor(ops * std::min(1.0, description.readShare * moment.Around(description.name, 0.2)));
  disk.writes = ops - disk.reads;
  disk.readKb = disk.reads * description.kbPerOp;
  disk.writeKb = disk.writes * description.kbPerOp * 0.6;
  const double busy = std::min(ops * description.serviceMs / 1000, 0.95 * moment.interval);
  const double readPart = ops > 0 ? disk.reads / ops : 0;
  disk.readSeconds = busy * readPart;
  disk.writeSeconds = busy * (1 - readPart);
  // Operations come in bursts, so they wait more than the utilization alone would have them.
  const double utilization = busy / moment.interval;
  disk.queueSeconds = busy + 4 * busy * utilization / (1.1 - utilization);
  disk.sizeMb = description.sizeMb;
  const double freeShare = 0.15 + 0.5 * NoiseAt(StreamOf(moment.seed, description.name), -1) +
                           0.02 * moment.Wander(description.name, 2);
  disk.freeMb = description.sizeMb * (description.isRaw ? 1 : freeShare);
  return disk;
}

FileSystemSample SampleFileSystem(const FileSystemDescription& description, const HostMoment& moment) {
  const auto cycle = static_cast<int64_t>(description.cycleHours * 3600);
  const uint64_t stream = StreamOf(moment.seed, description.mount);
  const int64_t phase = static_cast<int64_t>(NoiseAt(stream, -1) * static_cast<double>(cycle));
  const double share = static_cast<double>((moment.time + phase) % cycle) / static_cast<double>(cycle);
  // Filled over nine tenths of the cycle, now faster, now slower.
  const double filled = Rise(share, -0.3, 1.2) * (1 - Rise(share, 0.9, 0.05));
  const double wander = SmoothNoise(stream, moment.time, 7200) * (0.004 + 0.2 * description.swing);
  const double used = std::clamp(description.used + description.swing * filled + wander, 0.0, 1.0);
  FileSystemSample fileSystem;
  fileSystem.mount = description.mount;
  fileSystem.device = description.device;
  fileSystem.totalKb = 1024.0 * description.sizeMb;
  fileSystem.freeKb = std::floor(fileSystem.totalKb * (1 - used));
  // A twentieth is kept back for the superuser.
  fileSystem.availableKb = std::max(0.0, fileSystem.freeKb - std::floor(fileSystem.totalKb / 20));
  return fileSystem;
}

AdapterSample SampleAdapter(const AdapterDescription& description, const HostMoment& moment) {
  const double level = moment.Level(description.shift, 0.03) * (0.5 + moment.Wander(description.name));
  const double bytes = 1024 * description.kbPerSecond * level * moment.interval;
  const double errors = description.errorsPerHour * level * moment.interval / 3600;
  const auto dropped = [&](std::string_view what, double share) {
    return std::floor(errors * share + NoiseAt(StreamOf(moment.seed, what), moment.time));
  };
  AdapterSample adapter;
  adapter.name = description.name;
  adapter.bytesIn = std::floor(bytes * 0.4 * moment.Around(description.name, 0.3));
  adapter.bytesOut = std::floor(bytes * 0.6 * moment.Around(description.name, 0.3, 1));
  adapter.packetsIn = std::floor(adapter.bytesIn / 380);
  adapter.packetsOut = std::floor(adapter.bytesOut / 620);
  if (description.errorsPerHour > 0) {
    adapter.errorsIn = dropped("errors in", 0.5);
    adapter.errorsOut = dropped("errors out", 0.2);
    adapter.collisions = dropped("collisions", 0.3);
  }
  return adapter;
}

// The processes take what they hold, the kernel a tenth, and files a share of what is left.
MemorySample SampleMemory(const std::vector<ProcessSample>& processes, const HostMoment& moment) {
  const double totalKb = 1024.0 * moment.host.memoryMb;
  const double residentKb =
      std::accumulate(processes.begin(), processes.end(), 0.0,
                      [](double sum, const ProcessSample& process) { return sum + process.residentKb; });
  const double processKb = std::min(residentKb, 0.8 * totalKb);
  const double wiredKb = totalKb * (0.08 + 0.02 * moment.Wander("kernel"));
  const double files = moment.host.cacheShare * (0.7 + 0.15 * moment.load + 0.15 * moment.Wander("files"));
  const double filesKb = (totalKb - processKb - wiredKb) * files;
  const double pages = moment.Level(Shift::BOTH, 0) * moment.host.pagesPerSecond * moment.interval *
                       moment.Around("paging", 0.3) * (0.5 + moment.Wander("paging"));
  const double swaps = pages * 0.2 * moment.load * moment.Wander("swapping");
  MemorySample memory;
  memory.freeKb = std::floor(totalKb - processKb - wiredKb - filesKb);
  memory.activeKb = std::floor(processKb * 0.75);
  memory.inactiveKb = std::floor(processKb * 0.25);
  memory.cacheKb = std::floor(filesKb * 0.85);
  memory.buffersKb = std::floor(filesKb * 0.15);
  memory.sharedKb = std::floor(processKb * 0.12);
  memory.wiredKb = std::floor(wiredKb);
  memory.pagesIn = std::floor(pages);
  memory.pagesOut = std::floor(0.7 * pages * moment.Around("page out", 0.4));
  memory.swapsIn = std::floor(swaps);
  memory.swapsOut = std::floor(1.3 * swaps);
  memory.majorFaults = std::floor(0.2 * pages);
  memory.copyOnWriteFaults = std::floor(1.3 * pages * moment.Around("copy on write", 0.3));
  memory.zeroFillFaults = std::floor(3 * pages * moment.Around("zero fill", 0.3));
  memory.otherFaults = std::floor(0.8 * pages * moment.Around("other faults", 0.3));
  return memory;
}

void SampleTcp(NetworkSample& network, const HostMoment& moment, double packetsIn, double packetsOut) {
  const double opens =
      moment.host.opensPerSecond * moment.load * moment.interval * (0.6 + 0.8 * moment.Wander("connections"));
  network.tcpActiveOpens = std::floor(0.25 * opens * moment.Around("active opens", 0.3));
  network.tcpPassiveOpens = std::floor(0.75 * opens);
  network.tcpAttemptFails = std::floor(0.04 * opens * moment.Around("attempt fails", 0.6));
  network.tcpResets = std::floor(0.06 * opens * moment.Around("resets", 0.5));
  network.tcpEstablished = std::floor(30 + moment.host.opensPerSecond * 25 * moment.load *
                                               (0.8 + 0.4 * moment.Wander("established")));
  network.tcpSegmentsOut = std::floor(0.85 * packetsOut);
  network.tcpRetransmitted = std::floor(0.01 * network.tcpSegmentsOut * moment.Wander("retransmitted"));
  network.tcpRetransmittedBytes = 620 * network.tcpRetransmitted;
  network.tcpAcksOut = std::floor(0.25 * network.tcpSegmentsOut * moment.Around("acks", 0.2));
  network.tcpUrgentOut = std::floor(0.002 * network.tcpSegmentsOut);
  network.tcpControlOut = network.tcpActiveOpens + network.tcpPassiveOpens;
  network.tcpDataSegmentsOut =
      std::max(0.0, network.tcpSegmentsOut - network.tcpAcksOut - network.tcpRetransmitted -
                        network.tcpUrgentOut - network.tcpControlOut);
  network.tcpDataBytesOut = 620 * network.tcpDataSegmentsOut;
  network.tcpSegmentsIn = std::floor(0.85 * packetsIn);
  network.tcpAcksIn = std::floor(0.3 * network.tcpSegmentsIn * moment.Around("acks", 0.2, 1));
  network.tcpDuplicateAcksIn = std::floor(0.02 * network.tcpSegmentsIn);
  network.tcpInOrderIn = std::floor(0.6 * network.tcpSegmentsIn);
  network.tcpInOrderBytesIn = 380 * network.tcpInOrderIn;
  network.tcpOutOfOrderIn = std::floor(0.02 * network.tcpSegmentsIn * moment.Wander("out of order"));
  network.tcpOutOfOrderBytesIn = 380 * network.tcpOutOfOrderIn;
  network.tcpDuplicateIn = std::floor(0.01 * network.tcpSegmentsIn * moment.Wander("duplicate"));
}

NetworkSample SampleNetwork(const std::vector<AdapterSample>& adapters, const HostMoment& moment) {
  double packetsIn = 0;
  double packetsOut = 0;
  for (const AdapterSample& adapter : adapters) {
    packetsIn += adapter.packetsIn;
    packetsOut += adapter.packetsOut;
  }
  NetworkSample network;
  SampleTcp(network, moment, packetsIn, packetsOut);
  network.ipReceived = packetsIn;
  network.ipForwarded = std::floor(0.04 * packetsIn * moment.Wander("forwarded"));
  network.ipDiscarded = std::floor(0.004 * packetsIn);
  network.ipBad = std::floor(0.002 * packetsIn);
  network.ipDelivered = packetsIn - network.ipForwarded - network.ipDiscarded - 3 * network.ipBad;
  network.ipSent = packetsOut;
  network.udpIn = std::floor(0.12 * packetsIn * moment.Around("udp", 0.3));
  network.udpOut = std::floor(0.13 * packetsOut * moment.Around("udp", 0.3, 1));
  return network;
}

}  // namespace

double LoadAt(const HostDescription& host, uint64_t seed, int64_t wallTime) {
  const double hours = SmoothNoise(StreamOf(seed, "hours"), wallTime, 5400);
  const double minutes = SmoothNoise(StreamOf(seed, "minutes"), wallTime, 240);
  const double load = host.idleLoad + WorkAt(host, Shift::BOTH, wallTime);
  return std::clamp(load * (0.55 + 0.5 * hours + 0.4 * minutes), 0.01, 1.0);
}

CpuSample HostSample::AllProcessors() const {
  CpuSample all;
  for (const CpuSample& cpu : processors) {
    all.user += cpu.user;
    all.nice += cpu.nice;
    all.system += cpu.system;
    all.wait += cpu.wait;
    all.idle += cpu.idle;
  }
  return all;
}

HostSample SampleHost(const HostDescription& host, uint64_t seed, int64_t wallTime, int intervalSeconds) {
  const uint64_t hostSeed = StreamOf(seed, host.name);
  const HostMoment moment{host, hostSeed, wallTime, intervalSeconds, LoadAt(host, hostSeed, wallTime)};
  HostSample sample;
  sample.wallTime = wallTime;
  sample.intervalSeconds = intervalSeconds;
  sample.processors = SampleProcessors(moment);
  const CpuSample all = sample.AllProcessors();
  sample.processes = SampleProcesses(moment, all.user + all.nice + all.system);
  for (const DiskDescription& disk : host.disks) sample.disks.push_back(SampleDisk(disk, moment));
  for (const FileSystemDescription& row : host.fileSystems) {
    sample.fileSystems.push_back(SampleFileSystem(row, moment));
  }
  for (const AdapterDescription& row : host.adapters) sample.adapters.push_back(SampleAdapter(row, moment));
  sample.memory = SampleMemory(sample.processes, moment);
  sample.network = SampleNetwork(sample.adapters, moment);
  return sample;
}

}  // namespace ozmo::sample
