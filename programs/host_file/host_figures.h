// What the kernel publishes of a host.
//
// One shape serves twice. As HostReader fills it, a counter is what was counted since boot; as DifferenceOf
// (in difference.h) makes it, a counter is what was counted in an interval. A level is the figure of the
// moment in both. Lists are in the kernel's order.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ozmo::host_file {

// Ticks are hundredths of a second, the unit of the kernel's own files.
constexpr uint64_t TICKS_PER_SECOND = 100;

// Counters of ticks.
struct ProcessorFigures {
  int32_t id = 0;
  uint64_t user = 0;
  uint64_t nice = 0;
  uint64_t system = 0;  // with hard and soft interrupts
  uint64_t idle = 0;
  uint64_t wait = 0;  // idle, with a read or write under way
};
inline constexpr uint64_t ProcessorFigures::*PROCESSOR_COUNTERS[] = {
    &ProcessorFigures::user, &ProcessorFigures::nice, &ProcessorFigures::system, &ProcessorFigures::idle,
    &ProcessorFigures::wait};

// Levels, in kilobytes.
struct MemoryFigures {
  uint64_t total = 0;
  uint64_t free = 0;
  uint64_t shared = 0;
  uint64_t buffers = 0;
  uint64_t cached = 0;  // file contents; without what is shared
};

// Counters, in pages.
struct PagingFigures {
  uint64_t pagedIn = 0;
  uint64_t pagedOut = 0;
  uint64_t swappedIn = 0;
  uint64_t swappedOut = 0;
};
inline constexpr uint64_t PagingFigures::*PAGING_COUNTERS[] = {
    &PagingFigures::pagedIn, &PagingFigures::pagedOut, &PagingFigures::swappedIn, &PagingFigures::swappedOut};

// The figures of a disk, in the kernel's order: reads, reads merged, sectors read, milliseconds of reads, the
// same four of writes, requests under way, busy milliseconds, milliseconds of all requests. All are counters
// but the requests under way.
struct DiskFigures {
  static constexpr size_t UNDER_WAY = 8;
  std::string name;
  std::array<uint64_t, 11> figures{};
};

// What a process has used.
struct ProcessUse {
  uint64_t userTicks = 0;
  uint64_t systemTicks = 0;
  uint64_t minorFaults = 0;
  uint64_t majorFaults = 0;
};
inline constexpr uint64_t ProcessUse::*USE_COUNTERS[] = {&ProcessUse::userTicks, &ProcessUse::systemTicks,
                                                         &ProcessUse::minorFaults, &ProcessUse::majorFaults};

struct ProcessFigures {
  int32_t id = 0;
  int32_t parent = 0;
  uint64_t start = 0;     // ticks since boot; with the id it names the process, as ids are used again
  bool hasEnded = false;  // its first thread has, or is about to; others may live on
  ProcessUse own;
  ProcessUse children;  // of those that have ended and were waited for, and of their children likewise
  uint64_t virtualBytes = 0;
  uint64_t residentBytes = 0;
  std::string
      image;  // the kernel's name of the program, at most 15 letters; of a thread of its own, the command
  std::string command;  // with arguments
  std::string user;
};

// The protocol counters of the kernel in its own order: 19 of IP, 26 of ICMP, 12 of TCP, 4 of UDP.
using ProtocolFigures = std::array<uint64_t, 61>;
// The levels among them: forwarding and time to live of IP; of TCP the kind of its time-out, the shortest,
// the longest, the limit of connections, and the connections that are established.
inline constexpr size_t PROTOCOL_LEVELS[] = {0, 1, 45, 46, 47, 48, 53};

// Levels. Sizes are in blocks.
struct FileSystemFigures {
  std::string device;
  std::string mountPoint;
  uint64_t blockSize = 0;
  uint64_t blocks = 0;
  uint64_t freeBlocks = 0;
  uint64_t availableBlocks = 0;  // to an ordinary user
  uint64_t files = 0;
  uint64_t freeFiles = 0;
};

// Counters: packets, bytes and errors received, packets, bytes and errors sent, collisions.
struct AdapterFigures {
  std::string name;
  std::array<uint64_t, 7> figures{};
};

struct HostFigures {
  uint64_t uptime = 0;  // in ticks, taken before anything else
  std::vector<ProcessorFigures> processors;
  MemoryFigures memory;
  PagingFigures paging;
  std::vector<DiskFigures> disks;
  std::vector<ProcessFigures> processes;  // by id
  bool hasProtocols = false;
  ProtocolFigures protocols{};
  std::vector<AdapterFigures> adapters;
  std::vector<FileSystemFigures> fileSystems;
};

}  // namespace ozmo::host_file
