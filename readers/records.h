// The records of one collection interval: what a reader delivers and a catalog builder reads.
//
// One struct a kind, shared by all formats; a format fills the members it has and the others stay at 0.
// The unit of a value is that of the rule that fills it: a member named Rate is per second, one named
// Time is in the collector's own unit (ticks, percent or a fraction; builders only use the proportions).
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace ozmo {

// The machine as its configuration record tells it; one for a whole walk.
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

// One for an interval. Each format has its own set of figures.
struct MemoryRecord {
  // Linux, AIX, HP-UX
  double freeKb = 0.0;
  float pageInRate = 0.0F;
  float pageOutRate = 0.0F;
  float swapInRate = 0.0F;
  float swapOutRate = 0.0F;

  // Linux
  double sharedKb = 0.0;
  float buffersKb = 0.0F;
  float cacheKb = 0.0F;
  float memoryValue306 = 0.0F;
  float memoryValue307 = 0.0F;

  // AIX, HP-UX
  float memoryValue302 = 0.0F;
  float memoryValue303 = 0.0F;
  float memoryValue304 = 0.0F;
  float pageRate306 = 0.0F;
  float pageRate307 = 0.0F;
  float pageRate308 = 0.0F;
  float pageRate309 = 0.0F;
  float pageRate326 = 0.0F;
  float pageRate327 = 0.0F;
  // Elements 20 and 21 are the store of pageRate311 and pageRate312 as well: an AIX file that brings both
  // writes over them.
  std::array<float, 22> vmValue{};
  std::array<int64_t, 4> vmRaw{};
  float pageRate311() const { return vmValue[20]; }
  float pageRate312() const { return vmValue[21]; }

  // Solaris and monitor text files
  double freePages = 0.0;

  // Solaris
  double memoryField301 = 0.0;
  double memoryField302 = 0.0;
  std::array<float, 6> memoryField304to309{};
  float pageInsPerSecond = 0.0F;
  float pageOutsPerSecond = 0.0F;
  float rate329 = 0.0F;
  float rate330 = 0.0F;
  float majorFaultsPerSecond = 0.0F;
  float copyOnWriteFaultsPerSecond = 0.0F;  // also of monitor text files
  float protectionFaultsPerSecond = 0.0F;
  float softLockFaultsPerSecond = 0.0F;
  float kernelAsFaultsPerSecond = 0.0F;
  float zeroFillFaultsPerSecond = 0.0F;
  float hatFaultsPerSecond = 0.0F;
  float asFaultsPerSecond = 0.0F;
  float swapInsPerSecond = 0.0F;
  float swapOutsPerSecond = 0.0F;

  // Tru64, in pages and faults per second
  float tru64FreePages = 0.0F;
  float tru64ActivePages = 0.0F;
  float tru64InactivePages = 0.0F;
  float tru64WiredPages = 0.0F;
  float tru64BufferCachePages = 0.0F;
  std::array<float, 6> tru64FaultRates{};  // kernel, COW, COW steals, ZFOD, KZFOD, UBC
  float tru64PageReadRate = 0.0F;
  float tru64PageWriteRate = 0.0F;
  float tru64PageSize = 0.0F;
  std::array<float, 8> tru64Values301to308{};

  // Monitor text files; sizes in pages of 4096 bytes
  float committedPages = 0.0F;
  float pageFaultsPerSecond = 0.0F;
  float commitLimitPages = 0.0F;
  float transitionFaultsPerSecond = 0.0F;
  float cacheFaultsPerSecond = 0.0F;
  float demandZeroFaultsPerSecond = 0.0F;
  float pagesPerSecond = 0.0F;
  float pageReadsPerSecond = 0.0F;
  float pagesOutPerSecond = 0.0F;
  float pageWritesPerSecond = 0.0F;
  float pagedPoolPages = 0.0F;
  float nonPagedPoolPages = 0.0F;
  double kernelPages = 0.0;
  float kernelPart1Pages = 0.0F;
  float kernelPart2Pages = 0.0F;
  float kernelPart3Pages = 0.0F;
  double cachePages = 0.0;
  float transitionRepurposedPerSecond = 0.0F;
  float committedPercent = 0.0F;
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

// Numbered protocol counters of binary formats (`counters`), or the named rates of monitor text files.
struct KernelCounters {
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

// An AIX logical partition.
struct PartitionRecord {
  std::string lparName;
  std::array<double, 52> lparValue{};
  uint64_t lparRaw = 0;
  double lparRate = 0.0;
  uint64_t lparTicks = 0;  // timebase
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
