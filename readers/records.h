// The records of one collection interval: what a reader delivers and a catalog builder reads.
//
// One struct a kind, shared by all formats; a format fills the members it has and the others stay at 0.
// Members that no graph reads are there because the collectors bring them; rules lead to them by Detail. The
// unit of a value is that of the rule that fills it: a member named Rate is per second, one named Time is in
// the collector's own unit (ticks, percent or a fraction; builders only use the proportions).
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace ozmo {

// The machine as its configuration record gives it; one for a whole walk.
struct SystemConfig {
  std::string configNode;
  std::string versionText;
  std::array<std::string, 12> configText;  // the other texts of the record, by the format's own numbers
  int32_t cpuCount = 0;
  float memoryMb = 0.0F;
  int32_t pageSize = 0;          // bytes
  float intervalSeconds = 0.0F;  // collection interval
  int64_t intervalMillis = 0;    // as stored
  bool isOsf1V5 = false;         // Tru64: a mark of these hosts; nothing reads it
};

// One processor, or on the overall lists the machine as a whole.
struct ProcessorRecord {
  int32_t cpuId = 0;
  double userTime = 0.0;
  double niceTime = 0.0;
  double systemTime = 0.0;
  double idleTime = 0.0;
  double waitTime = 0.0;
  double interruptTime = 0.0;  // monitor text files only
  double dpcTime = 0.0;        // monitor text files only
  double clockTicks = 0.0;     // ticks per second, where a format brings them
  double coreValueA = 0.0;     // AIX
  double coreValueB = 0.0;     // AIX
  std::array<double, 8> eventRates{};
  double eventRateSum = 0.0;
  double extraSecondsA = 0.0;
  double extraSecondsB = 0.0;
  std::array<double, 3> loadAverage{};
};

// Overall counters of a Solaris or Tru64 host; no builder reads them.
struct RateRecord {
  std::array<float, 10> rates{};
  std::array<float, 3> percent{};
};

struct DiskRecord {
  std::string deviceName;
  std::string displayName;  // from the device aliases, where one matches
  float readRate = 0.0F;    // operations per second
  float writeRate = 0.0F;
  float ioRate = 0.0F;
  float readBytesRate = 0.0F;
  float writeBytesRate = 0.0F;
  float totalBytesRate = 0.0F;
  float readMergedRate = 0.0F;
  float writeMergedRate = 0.0F;
  float responsePerIo = 0.0F;
  float busyFraction = 0.0F;  // 0 to 1
  float queueLength = 0.0F;
  float waitPerIo = 0.0F;
  float servicePerIo = 0.0F;
  uint32_t size = 0;  // bytes
  uint32_t free = 0;
};

// One for an interval. A format fills the members that it brings; a member means the same in all of them.
struct MemoryRecord {
  // Levels, in pages of the machine. Monitor text files have pages of 4096 bytes.
  double freePages = 0.0;
  float activePages = 0.0F;
  float inactivePages = 0.0F;
  float wiredPages = 0.0F;
  float bufferCachePages = 0.0F;
  float processPages = 0.0F;
  float filePages = 0.0F;
  float committedPages = 0.0F;
  float commitLimitPages = 0.0F;
  float pagedPoolPages = 0.0F;
  float nonPagedPoolPages = 0.0F;
  double kernelPages = 0.0;
  float kernelPart1Pages = 0.0F;
  float kernelPart2Pages = 0.0F;
  float kernelPart3Pages = 0.0F;
  double cachePages = 0.0;

  // Levels in kilobytes
  double freeKb = 0.0;
  double sharedKb = 0.0;
  float buffersKb = 0.0F;
  float cacheKb = 0.0F;

  // Levels in megabytes
  float realMb = 0.0F;
  float freeMb = 0.0F;
  float processMb = 0.0F;
  float fileMb = 0.0F;
  float systemMb = 0.0F;

  float committedPercent = 0.0F;

  // Page-ins and the like per second, in the collector's own unit
  float pageInRate = 0.0F;
  float pageOutRate = 0.0F;
  float swapInRate = 0.0F;
  float swapOutRate = 0.0F;
  float pageReadRate = 0.0F;
  float pageWriteRate = 0.0F;
  float pageRate = 0.0F;  // of all pages to and from disk

  // Page faults per second: of all kinds, and by kind
  float pageFaultRate = 0.0F;
  float majorFaultRate = 0.0F;
  float copyOnWriteFaultRate = 0.0F;
  float copyOnWriteStealRate = 0.0F;
  float zeroFillFaultRate = 0.0F;
  float kernelZeroFillFaultRate = 0.0F;
  float execFillFaultRate = 0.0F;
  float protectionFaultRate = 0.0F;
  float softLockFaultRate = 0.0F;
  float kernelFaultRate = 0.0F;
  float kernelAddressFaultRate = 0.0F;
  float addressFaultRate = 0.0F;
  float translationFaultRate = 0.0F;
  float bufferCacheFaultRate = 0.0F;
  float transitionFaultRate = 0.0F;
  float transitionRepurposedRate = 0.0F;
  float cacheFaultRate = 0.0F;
  float demandZeroFaultRate = 0.0F;

  // Figures that nothing reads: by field number less 300, and of further memory records by field number.
  std::array<double, 42> unread{};
  std::array<double, 27> unreadMore{};
};

// One process. Records come from a pool and keep what they held: a field that a file doesn't carry shows
// the value of an earlier process.
struct ProcessRecord {
  std::string name;  // the image or command
  std::string userName;
  std::string idText;
  std::string extraText;
  int32_t processId = 0;
  int32_t processIdB = 0;
  int32_t processIdC = 0;
  int32_t processField403 = 0;
  int32_t processField406 = 0;
  float userCpuSeconds = 0.0F;
  float systemCpuSeconds = 0.0F;
  float otherCpuSeconds = 0.0F;
  float cpuPercent = 0.0F;
  float elapsedSeconds = 0.0F;
  float minorFaults = 0.0F;
  float majorFaults = 0.0F;
  float pageFaultsPerSecond = 0.0F;
  float ioReadsPerSecond = 0.0F;
  float ioWritesPerSecond = 0.0F;
  float ioReadBytesPerSecond = 0.0F;
  float ioWriteBytesPerSecond = 0.0F;
  std::array<float, 8> rates{};     // figures that no builder reads, by the format's own order
  std::array<int64_t, 6> values{};  // the same, whole numbers
  int64_t sizeVirtual = 0;          // kilobytes on binary formats
  int64_t sizeResident = 0;
  int32_t priority = 0;
};

// The protocol counters of a binary file, per second where they aren't levels. Which element is which counter
// is said beside each format, as are the names of the elements.
struct ProtocolCounters {
  std::array<float, 174> counters{};
  bool hasFirstPart = false;  // HP-UX: made by the record type of the first part
};

struct FileSystemRecord {
  std::string deviceName;
  std::string mountName;
  int64_t blockSize = 0;
  int64_t totalBlocks = 0;
  int64_t availableBlocks = 0;
  int64_t freeBlocks = 0;
  int64_t totalFiles = 0;
  int64_t freeFiles = 0;
  int64_t lastField = 0;
};

struct LanRecord {
  std::string adapterName;
  float packetsInRate = 0.0F;
  float bytesInRate = 0.0F;
  float errorsInRate = 0.0F;
  float packetsOutRate = 0.0F;
  float bytesOutRate = 0.0F;
  float errorsOutRate = 0.0F;
  float collisionRate = 0.0F;
};

// Gives a device the name that its users know it by.
struct DeviceAlias {
  std::string deviceName;
  std::string displayName;
};

// Two texts; only Tru64 files bring them.
struct NameRecord {
  std::string first;
  std::string second;
};

struct LoadItem {
  std::string itemName;
  std::array<float, 6> itemRates{};
};

struct SystemSummary {
  std::array<float, 8> values{};
};

// A logical partition, as its hypervisor describes it.
struct PartitionRecord {
  std::string name;
  // Flags, set where they aren't 0
  double isCapped = 0.0;
  double isShared = 0.0;  // shares its processors
  double seesPool = 0.0;
  double isDonating = 0.0;  // gives away the time of dedicated processors

  double entitledProcessors = 0.0;
  double onlineProcessors = 0.0;
  double poolProcessors = 0.0;

  // In counts of the time base
  uint64_t timeBase = 0;
  std::array<double, 4> timeByMode{};
  double donatedTime = 0.0;
  std::array<double, 3> spareTime{};  // given away, by kind

  // Per second
  double phantomInterruptRate = 0.0;
  double voluntarySwitchRate = 0.0;
  double involuntarySwitchRate = 0.0;

  std::array<double, 47> unread{};  // figures that nothing reads, by field number
};

// Protocol rates of a monitor text file, one member a counter.
struct NetworkRecord {
  float ipDatagramsPerSecond = 0.0F;
  float ipReceivedPerSecond = 0.0F;
  float ipHeaderErrors = 0.0F;
  float ipAddressErrors = 0.0F;
  float ipForwardedPerSecond = 0.0F;
  float ipUnknownProtocol = 0.0F;
  float ipReceivedDiscarded = 0.0F;
  float ipDeliveredPerSecond = 0.0F;
  float ipSentPerSecond = 0.0F;
  float ipOutboundDiscarded = 0.0F;
  float ipOutboundNoRoute = 0.0F;
  float ipFragmentsReceivedPerSecond = 0.0F;
  float ipReassembledPerSecond = 0.0F;
  float ipReassemblyFailures = 0.0F;
  float ipFragmentedPerSecond = 0.0F;
  float ipFragmentationFailures = 0.0F;
  float ipFragmentsCreatedPerSecond = 0.0F;
  float tcpSegmentsPerSecond = 0.0F;
  float tcpConnectionsEstablished = 0.0F;
  float tcpConnectionsActive = 0.0F;
  float tcpConnectionsPassive = 0.0F;
  float tcpConnectionFailures = 0.0F;
  float tcpConnectionsReset = 0.0F;
  float tcpSegmentsReceivedPerSecond = 0.0F;
  float tcpSegmentsSentPerSecond = 0.0F;
  float tcpSegmentsRetransmittedPerSecond = 0.0F;
  float udpDatagramsPerSecond = 0.0F;
  float udpReceivedPerSecond = 0.0F;
  float udpNoPortPerSecond = 0.0F;
  float udpReceivedErrors = 0.0F;
  float udpSentPerSecond = 0.0F;
};

}  // namespace ozmo
