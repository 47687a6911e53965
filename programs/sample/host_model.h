// The simulated days of one host, free of any platform.
//
// A host is described by constant tables: when it works, programs, disks, file systems, adapters.
// SampleHost() gives what that host did in the interval that ends at a given second. There is no state: every
// figure is worked out from the description, the seed and the time, so any part of a day can be made by
// itself and the same seed gives the same day.
//
// Units: times in seconds on the host's clock, sizes as the names say, counts are what happened in the
// interval.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace ozmo::sample {

inline constexpr int64_t SECONDS_OF_DAY = 86400;

// Work that people wait for, and work that is put off. Of both: programs, disks and adapters that serve
// either.
enum class Shift { BOTH, DAY, NIGHT };

enum class Days { ALL, WORKDAYS, WEEKEND };

// A stretch of work: it rises around `from`, falls around `to`, and takes `slope` hours to either.
struct Work {
  Shift shift;
  Days days;    // on which it begins
  double from;  // hour
  double to;    // hour; above 24 on the next day
  double slope;
  double height;  // what it adds to the host's load, 0 to 1
};

struct ProgramDescription {
  std::string_view image;
  std::string_view user;
  int count;        // process slots
  double weight;    // share of the processor time against the others
  int lifeMinutes;  // 0: such a process lives for good
  int residentMb;
  Shift shift = Shift::BOTH;  // of short lives: when there are any
};

struct DiskDescription {
  std::string_view name;
  double opsPerSecond;  // at full load
  double readShare;
  double serviceMs;
  double kbPerOp;
  int sizeMb;
  Shift shift = Shift::BOTH;
  bool isRaw = false;  // without a volume: all of it counts as free
};

// Fills from `used` by `swing`, is tidied up, and fills again, every `cycleHours`.
struct FileSystemDescription {
  std::string_view mount;
  std::string_view device;
  int sizeMb;
  double used;
  double swing = 0;
  double cycleHours = 24;
};

struct AdapterDescription {
  std::string_view name;
  double kbPerSecond;  // at full load
  double errorsPerHour = 0;
  Shift shift = Shift::BOTH;
};

struct HostDescription {
  std::string_view name;
  int processors;
  int foldedProcessors = 0;  // of these, the last ones never run
  int memoryMb;
  int second;             // of a minute, at which the collector looks
  double idleLoad;        // with nothing to do
  double systemShare;     // of the busy time
  double waitShare;       // of the idle time, at most
  double cacheShare;      // of the memory that the processes leave
  double pagesPerSecond;  // at full load
  double opensPerSecond;  // TCP connections, at full load
  std::span<const Work> works;
  std::span<const ProgramDescription> programs;
  std::span<const DiskDescription> disks;
  std::span<const FileSystemDescription> fileSystems;
  std::span<const AdapterDescription> adapters;
  int scale = 1;  // multiplies the process slots
};

// Processor time; the five add up to the interval.
struct CpuSample {
  int id = 0;
  double user = 0;
  double nice = 0;
  double system = 0;
  double wait = 0;
  double idle = 0;
};

struct ProcessSample {
  std::string_view image;
  std::string_view user;
  int processId = 0;
  int parentId = 0;
  int priority = 0;
  double userSeconds = 0;
  double systemSeconds = 0;
  double aliveSeconds = 0;
  double residentKb = 0;
  double virtualKb = 0;
  double minorFaults = 0;
  double majorFaults = 0;
  double reads = 0;
  double writes = 0;
};

struct DiskSample {
  std::string_view name;
  double reads = 0;
  double writes = 0;
  double readKb = 0;
  double writeKb = 0;
  double readSeconds = 0;  // serving reads; the disk is busy for both sums
  double writeSeconds = 0;
  double queueSeconds = 0;  // operations waiting, summed
  double sizeMb = 0;
  double freeMb = 0;

  double Operations() const { return reads + writes; }
  double BusySeconds() const { return readSeconds + writeSeconds; }
};

struct FileSystemSample {
  std::string_view mount;
  std::string_view device;
  double totalKb = 0;
  double freeKb = 0;
  double availableKb = 0;
};

struct AdapterSample {
  std::string_view name;
  double packetsIn = 0;
  double bytesIn = 0;
  double errorsIn = 0;
  double packetsOut = 0;
  double bytesOut = 0;
  double errorsOut = 0;
  double collisions = 0;
};

struct MemorySample {
  double freeKb = 0;
  double activeKb = 0;
  double inactiveKb = 0;
  double cacheKb = 0;
  double buffersKb = 0;
  double sharedKb = 0;
  double wiredKb = 0;
  double pagesIn = 0;
  double pagesOut = 0;
  double swapsIn = 0;
  double swapsOut = 0;
  double majorFaults = 0;
  double copyOnWriteFaults = 0;
  double zeroFillFaults = 0;
  double otherFaults = 0;
};

struct NetworkSample {
  double tcpActiveOpens = 0;
  double tcpPassiveOpens = 0;
  double tcpAttemptFails = 0;
  double tcpResets = 0;
  double tcpEstablished = 0;  // a level
  double tcpSegmentsOut = 0;
  double tcpDataSegmentsOut = 0;
  double tcpDataBytesOut = 0;
  double tcpRetransmitted = 0;
  double tcpRetransmittedBytes = 0;
  double tcpAcksOut = 0;
  double tcpUrgentOut = 0;
  double tcpControlOut = 0;
  double tcpSegmentsIn = 0;
  double tcpAcksIn = 0;
  double tcpDuplicateAcksIn = 0;
  double tcpInOrderIn = 0;
  double tcpInOrderBytesIn = 0;
  double tcpOutOfOrderIn = 0;
  double tcpOutOfOrderBytesIn = 0;
  double tcpDuplicateIn = 0;
  double ipReceived = 0;
  double ipDelivered = 0;
  double ipForwarded = 0;
  double ipDiscarded = 0;
  double ipBad = 0;
  double ipSent = 0;
  double udpIn = 0;
  double udpOut = 0;
};

struct HostSample {
  int64_t wallTime = 0;  // end of the interval on the host's clock, seconds since 1970
  int intervalSeconds = 0;
  std::vector<CpuSample> processors;
  std::vector<ProcessSample> processes;
  std::vector<DiskSample> disks;
  std::vector<FileSystemSample> fileSystems;
  std::vector<AdapterSample> adapters;
  MemorySample memory;
  NetworkSample network;

  // The processors as one.
  CpuSample AllProcessors() const;
};

HostSample SampleHost(const HostDescription& host, uint64_t seed, int64_t wallTime, int intervalSeconds);

// How busy the host is at a time, 0 to 1.
double LoadAt(const HostDescription& host, uint64_t seed, int64_t wallTime);

}  // namespace ozmo::sample
