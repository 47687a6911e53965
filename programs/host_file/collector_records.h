// The records of a Linux collector file, of collector version P730_64: little-endian, wide counters.
//
// A record is its length, its type and its fields, one after the other. Which fields a record has is given
// before the data, by a list of their ids (type R * 100) and a list of their divisors (type R * 10), which
// are all 1 here but for that of a large memory. A time record comes before the records of each sample and
// gives the end of their interval; the interval is what lies between it and the time record before.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "programs/host_file/host_figures.h"

namespace ozmo::host_file {

struct Configuration {
  std::string node;
  int32_t utcOffset = 0;  // of the host's standard time, in seconds, positive to the east
  bool daylightTime = false;
  int32_t intervalSeconds = 0;
  uint64_t memoryKilobytes = 0;
  size_t processors = 0;
  std::string system;  // the kernel's name, release, version and machine
  std::string release;
  std::string version;
  std::string machine;
};

// What a file begins with: the version's mark, the lists of all records, the configuration.
std::string HeadRecords(const Configuration& configuration);

std::string TimeRecord(int64_t time);

// A sample: the time record, the configuration, since processors, memory and the interval's length may
// change, and what `interval` holds.
std::string SampleRecords(int64_t time, const Configuration& configuration, const HostFigures& interval);

// What may come last in a file: the mark of the version again, and after its text, where readers don't look,
// a time of the writer's own.
constexpr size_t END_MARK_SIZE = 24;
std::string EndMark(int64_t end);

// --- Of a file that is there ---

// The time in the last END_MARK_SIZE bytes of a file; absent where they aren't such a mark.
std::optional<int64_t> TimeInEndMark(std::string_view bytes);

// The node that a file of this version is of, by its first bytes; empty where they aren't those of such a
// file.
std::string NodeInHead(std::string_view head);

// Whether a record of that type counts outside the span that a reader walks too, as time records and marks
// do.
bool CountsOutsideSpan(uint32_t type);

// --- Numbers, little-endian ---

void PutNumber(std::string& bytes, uint64_t value, size_t size);
// The 4-byte number at `place`; 0 where the bytes end before.
uint32_t NumberAt(std::string_view bytes, size_t place);

}  // namespace ozmo::host_file
