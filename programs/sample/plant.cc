#include "programs/sample/plant.h"

#include <algorithm>

namespace ozmo::sample {
namespace {

constexpr double SECONDS_OF_HOUR = 3600;

// A process on every other processor takes all that the processor has left.
void RunAway(HostSample& sample, double) {
  for (size_t place = 0; place < sample.processors.size(); place += 2) {
    CpuSample& cpu = sample.processors[place];
    const double taken = 0.95 * cpu.idle;
    cpu.idle -= taken;
    cpu.user += taken;
    ProcessSample process;
    process.image = "runaway";
    process.user = "nobody";
    process.processId = 31000 + static_cast<int>(place);
    process.parentId = 1;
    process.priority = 20;
    process.userSeconds = taken;
    process.aliveSeconds = sample.intervalSeconds;
    process.residentKb = process.virtualKb = 4096;
    sample.processes.push_back(process);
  }
}

// The first disk takes ten times as long for an operation, as far as the interval has room.
void SlowDisk(HostSample& sample, double) {
  if (sample.disks.empty()) return;
  DiskSample& disk = sample.disks.front();
  constexpr double SLOWER = 10;
  const double room = 0.95 * sample.intervalSeconds;
  const double longer = std::min(SLOWER, disk.BusySeconds() > 0 ? room / disk.BusySeconds() : 1.0);
  disk.readSeconds *= std::max(1.0, longer);
  disk.writeSeconds *= std::max(1.0, longer);
  disk.queueSeconds *= SLOWER;
}

// Nine tenths of the user's time become the system's.
void SystemTime(HostSample& sample, double) {
  for (CpuSample& cpu : sample.processors) {
    cpu.system += 0.9 * cpu.user;
    cpu.user *= 0.1;
  }
}

// The first process grows by a twentieth of the memory an hour, taken from what is free and from files.
void Leak(HostSample& sample, double hours) {
  MemorySample& memory = sample.memory;
  const double total = memory.freeKb + memory.activeKb + memory.inactiveKb + memory.cacheKb +
                       memory.buffersKb + memory.wiredKb;
  double wanted = total * hours / 20;
  for (double* source : {&memory.freeKb, &memory.cacheKb, &memory.buffersKb}) {
    const double taken = std::min(wanted, 0.9 * *source);
    *source -= taken;
    memory.activeKb += taken;
    wanted -= taken;
    if (!sample.processes.empty()) sample.processes.front().residentKb += taken;
  }
}

constexpr PlantedChange CHANGES[] = {
    {"runaway", "processes \"runaway\" on every other processor", RunAway},
    {"slow-disk", "the first disk ten times as slow", SlowDisk},
    {"system-time", "nine tenths of the user's processor time as the system's", SystemTime},
    {"leak", "a process that grows by a twentieth of the memory an hour", Leak},
};

}  // namespace

std::span<const PlantedChange> PlantedChanges() { return CHANGES; }

const PlantedChange* FindPlantedChange(std::string_view name) {
  const auto found = std::ranges::find(CHANGES, name, &PlantedChange::name);
  return found == std::end(CHANGES) ? nullptr : found;
}

HostSample SampleAt(const SampleContext& context, int64_t wallTime) {
  const SampleOptions& options = context.options;
  const auto seed = static_cast<uint64_t>(options.seed);
  HostSample sample = SampleHost(context.host, seed, wallTime, options.intervalSeconds);
  const PlantedChange* change = FindPlantedChange(options.plant);
  const double hours = static_cast<double>(wallTime % SECONDS_OF_DAY) / SECONDS_OF_HOUR - options.plantHour;
  if (change != nullptr && hours >= 0) change->act(sample, hours);
  return sample;
}

}  // namespace ozmo::sample
