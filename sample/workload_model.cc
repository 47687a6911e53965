#include "sample/workload_model.h"

#include <algorithm>
#include <cmath>

#include "sample/noise.h"

namespace ozmo::sample {
namespace {

constexpr int64_t DAY_SECONDS = 86400;
constexpr int WANDER_SECONDS = 600;

// What all figures of one interval are made from.
struct Moment {
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
};

double HourOfDay(int64_t time) { return static_cast<double>(time % DAY_SECONDS) / 3600; }

double Hump(double hour, double centre, double width) {
  const double distance = (hour - centre) / width;
  return std::exp(-distance * distance / 2);
}

double OfficeShare(double hour) {
  return std::min(1.0, Hump(hour, 10.5, 1.8) + 0.85 * Hump(hour, 14.8, 1.7));
}

double NightShare(double hour) { return Hump(hour, 2.2, 0.7); }

double ShiftShare(Shift shift, int64_t time) {
  switch (shift) {
    case Shift::OFFICE:
      return 0.05 + 0.95 * OfficeShare(HourOfDay(time));
    case Shift::NIGHT:
      return NightShare(HourOfDay(time));
    case Shift::ALWAYS:
      break;
  }
  return 1;
}

std::vector<CpuSample> SampleProcessors(const HostDescription& host, const Moment& moment) {
  std::vector<CpuSample> processors;
  for (int id = 0; id < host.processors; ++id) {
    CpuSample cpu;
    cpu.id = id;
    if (id < host.processors - host.foldedProcessors) {
      const double busy =
          std::clamp(moment.load * (0.7 + 0.6 * moment.Wander("processor", id)), 0.0, 0.97) * moment.interval;
      const double niceShare = 0.25 * NightShare(HourOfDay(moment.time));
      cpu.system = busy * (0.2 + 0.12 * moment.Wander("system", id));
      cpu.nice = (busy - cpu.system) * niceShare;
      cpu.user = busy - cpu.system - cpu.nice;
      cpu.wait = (moment.interval - busy) * 0.12 * moment.Wander("wait", id);
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

Life LifeOfSlot(const ProgramDescription& program, uint64_t stream, const Moment& moment) {
  if (program.lifeMinutes == 0) {
    return {0, static_cast<double>(moment.interval)};
  }
  const int64_t period = int64_t{program.lifeMinutes} * 60;
  const int64_t shifted =
      moment.time + static_cast<int64_t>(NoiseAt(stream, -1) * static_cast<double>(period));
  const int64_t number = shifted / period;
  const int64_t start = moment.time - shifted % period;
  if (NoiseAt(stream ^ 1, number) >= ShiftShare(program.shift, start)) {
    return {number, 0};
  }
  const double end =
      static_cast<double>(start) + static_cast<double>(period) * (0.4 + 0.6 * NoiseAt(stream, number));
  const double from = static_cast<double>(std::max(start, moment.time - moment.interval));
  return {number, std::max(0.0, std::min(end, static_cast<double>(moment.time)) - from)};
}

ProcessSample MakeProcess(const ProgramDescription& program, uint64_t stream, const Life& life,
                          const Moment& moment) {
  ProcessSample process;
  process.image = program.image;
  process.user = program.user;
  process.processId = 100 + static_cast<int>(30000 * NoiseAt(stream ^ 2, life.number));
  process.parentId = 1 + static_cast<int>(90 * NoiseAt(stream, -2));
  process.priority = 20 + static_cast<int>(40 * NoiseAt(stream, -3));
  process.aliveSeconds = life.aliveSeconds;
  process.residentKb = 1024.0 * program.residentMb * (0.8 + 0.4 * SmoothNoise(stream, moment.time, 3600));
  process.virtualKb = process.residentKb * (1.5 + NoiseAt(stream, -4));
  // The weight for now; SampleProcesses makes seconds of it.
  process.userSeconds = program.weight * (0.2 + 1.6 * SmoothNoise(stream ^ 3, moment.time, 300)) *
                        life.aliveSeconds / moment.interval;
  return process;
}

// Hands `busySeconds` out by weight; no process gets more than it lived.
void ShareProcessorTime(std::vector<ProcessSample>& processes, double busySeconds) {
  double weights = 0;
  for (const ProcessSample& process : processes) {
    weights += process.userSeconds;
  }
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

std::vector<ProcessSample> SampleProcesses(const HostDescription& host, const Moment& moment,
                                           double busySeconds) {
  std::vector<ProcessSample> processes;
  for (const ProgramDescription& program : host.programs) {
    for (int slot = 0; slot < program.count; ++slot) {
      const uint64_t stream = StreamOf(moment.seed, program.image, slot);
      const Life life = LifeOfSlot(program, stream, moment);
      if (life.aliveSeconds > 0) {
        processes.push_back(MakeProcess(program, stream, life, moment));
      }
    }
  }
  // A part of the time went to processes that came and went between two looks at the list.
  ShareProcessorTime(processes, 0.93 * busySeconds);
  return processes;
}

DiskSample SampleDisk(const DiskDescription& description, const Moment& moment) {
  const double level = (0.06 + 0.94 * moment.load) * (0.4 + 1.2 * moment.Wander(description.name));
  const double ops = std::floor(description.opsPerSecond * level * moment.interval);
  DiskSample disk;
  disk.name = description.name;
  disk.reads = std::floor(ops * description.readShare * moment.Around(description.name, 0.2));
  disk.writes = std::max(0.0, ops - disk.reads);
  disk.readKb = disk.reads * description.kbPerOp;
  disk.writeKb = disk.writes * description.kbPerOp * 0.6;
  const double busy = std::min(ops * description.serviceMs / 1000, 0.97 * moment.interval);
  const double readPart = disk.Operations() > 0 ? disk.reads / disk.Operations() : 0;
  disk.readSeconds = busy * readPart;
  disk.writeSeconds = busy * (1 - readPart);
  const double utilization = busy / moment.interval;
  disk.queueSeconds = busy + 0.8 * busy * utilization / (1 - utilization);
  disk.sizeMb = description.sizeMb;
  disk.freeMb =
      std::floor(description.sizeMb * (0.15 + 0.5 * NoiseAt(StreamOf(moment.seed, description.name), -1)));
  return disk;
}

FileSystemSample SampleFileSystem(const FileSystemDescription& description, const Moment& moment) {
  const double day = HourOfDay(moment.time) / 24;
  const double used = std::clamp(
      description.used + description.growth * day + 0.01 * moment.Wander(description.mount), 0.0, 1.0);
  FileSystemSample fileSystem;
  fileSystem.mount = description.mount;
  fileSystem.device = description.device;
  fileSystem.totalKb = 1024.0 * description.sizeMb;
  fileSystem.freeKb = std::floor(fileSystem.totalKb * (1 - used));
  // A twentieth is kept back for the superuser.
  fileSystem.availableKb = std::max(0.0, fileSystem.freeKb - std::floor(fileSystem.totalKb / 20));
  return fileSystem;
}

AdapterSample SampleAdapter(const AdapterDescription& description, const Moment& moment) {
  const double level = (0.03 + 0.97 * moment.load) * (0.5 + moment.Wander(description.name));
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

MemorySample SampleMemory(const HostDescription& host, const Moment& moment) {
  const double totalKb = 1024.0 * host.memoryMb;
  const double used = std::clamp(0.4 + 0.45 * moment.load + 0.08 * moment.Wander("memory"), 0.0, 0.98);
  const double usedKb = totalKb * used;
  const double pages = moment.load * moment.interval * moment.Around("paging", 0.3);
  const double swaps = std::max(0.0, used - 0.7) * 40 * moment.interval;
  MemorySample memory;
  memory.freeKb = std::floor(totalKb - usedKb);
  memory.activeKb = std::floor(usedKb * 0.42);
  memory.inactiveKb = std::floor(usedKb * 0.13);
  memory.cacheKb = std::floor(usedKb * 0.25);
  memory.buffersKb = std::floor(usedKb * 0.05);
  memory.sharedKb = std::floor(usedKb * 0.04);
  memory.wiredKb = std::floor(usedKb * 0.11);
  memory.pagesIn = std::floor(45 * pages);
  memory.pagesOut = std::floor(30 * pages);
  memory.swapsIn = std::floor(swaps);
  memory.swapsOut = std::floor(1.3 * swaps);
  memory.majorFaults = std::floor(8 * pages);
  memory.copyOnWriteFaults = std::floor(60 * pages);
  memory.zeroFillFaults = std::floor(140 * pages);
  memory.otherFaults = std::floor(35 * pages);
  return memory;
}

void SampleTcp(NetworkSample& network, const Moment& moment, double packetsIn, double packetsOut) {
  const double opens = moment.load * moment.interval * moment.Around("connections", 0.2);
  network.tcpActiveOpens = std::floor(3 * opens);
  network.tcpPassiveOpens = std::floor(9 * opens);
  network.tcpAttemptFails = std::floor(0.4 * opens);
  network.tcpResets = std::floor(0.6 * opens);
  network.tcpEstablished = std::floor(40 + 600 * moment.load * moment.Around("established", 0.1));
  network.tcpSegmentsOut = std::floor(0.85 * packetsOut);
  network.tcpRetransmitted = std::floor(0.004 * network.tcpSegmentsOut);
  network.tcpRetransmittedBytes = 620 * network.tcpRetransmitted;
  network.tcpAcksOut = std::floor(0.25 * network.tcpSegmentsOut);
  network.tcpUrgentOut = std::floor(0.001 * network.tcpSegmentsOut);
  network.tcpControlOut = network.tcpActiveOpens + network.tcpPassiveOpens;
  network.tcpDataSegmentsOut =
      std::max(0.0, network.tcpSegmentsOut - network.tcpAcksOut - network.tcpRetransmitted -
                        network.tcpUrgentOut - network.tcpControlOut);
  network.tcpDataBytesOut = 620 * network.tcpDataSegmentsOut;
  network.tcpSegmentsIn = std::floor(0.85 * packetsIn);
  network.tcpAcksIn = std::floor(0.3 * network.tcpSegmentsIn);
  network.tcpDuplicateAcksIn = std::floor(0.01 * network.tcpSegmentsIn);
  network.tcpInOrderIn = std::floor(0.6 * network.tcpSegmentsIn);
  network.tcpInOrderBytesIn = 380 * network.tcpInOrderIn;
  network.tcpOutOfOrderIn = std::floor(0.01 * network.tcpSegmentsIn);
  network.tcpOutOfOrderBytesIn = 380 * network.tcpOutOfOrderIn;
  network.tcpDuplicateIn = std::floor(0.005 * network.tcpSegmentsIn);
}

NetworkSample SampleNetwork(const std::vector<AdapterSample>& adapters, const Moment& moment) {
  double packetsIn = 0;
  double packetsOut = 0;
  for (const AdapterSample& adapter : adapters) {
    packetsIn += adapter.packetsIn;
    packetsOut += adapter.packetsOut;
  }
  NetworkSample network;
  SampleTcp(network, moment, packetsIn, packetsOut);
  network.ipReceived = packetsIn;
  network.ipForwarded = std::floor(0.02 * packetsIn);
  network.ipDiscarded = std::floor(0.002 * packetsIn);
  network.ipBad = std::floor(0.001 * packetsIn);
  network.ipDelivered = packetsIn - network.ipForwarded - network.ipDiscarded - 3 * network.ipBad;
  network.ipSent = packetsOut;
  network.udpIn = std::floor(0.12 * packetsIn);
  network.udpOut = std::floor(0.13 * packetsOut);
  return network;
}

}  // namespace

double LoadAt(uint64_t seed, int64_t wallTime) {
  const double hour = HourOfDay(wallTime);
  const double wander = SmoothNoise(StreamOf(seed, "load"), wallTime, WANDER_SECONDS) - 0.5;
  return std::clamp(0.06 + 0.72 * OfficeShare(hour) + 0.55 * NightShare(hour) + 0.1 * wander, 0.01, 1.0);
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
  const Moment moment{seed, wallTime, intervalSeconds, LoadAt(seed, wallTime)};
  HostSample sample;
  sample.wallTime = wallTime;
  sample.intervalSeconds = intervalSeconds;
  sample.processors = SampleProcessors(host, moment);
  const CpuSample all = sample.AllProcessors();
  sample.processes = SampleProcesses(host, moment, all.user + all.nice + all.system);
  for (const DiskDescription& disk : host.disks) {
    sample.disks.push_back(SampleDisk(disk, moment));
  }
  for (const FileSystemDescription& fileSystem : host.fileSystems) {
    sample.fileSystems.push_back(SampleFileSystem(fileSystem, moment));
  }
  for (const AdapterDescription& adapter : host.adapters) {
    sample.adapters.push_back(SampleAdapter(adapter, moment));
  }
  sample.memory = SampleMemory(host, moment);
  sample.network = SampleNetwork(sample.adapters, moment);
  return sample;
}

}  // namespace ozmo::sample
