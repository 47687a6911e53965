// How a platform's disk records become graphs: which names are disks, and which graphs a disk gets. Each
// platform's description says which of these it has.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "catalog/required.h"

namespace ozmo {

// What the graphs of one disk show for one interval.
struct DiskValues {
  float operations = 0.0F;  // per second
  float reads = 0.0F;
  float writes = 0.0F;
  float totalKb = 0.0F;  // per second
  float readKb = 0.0F;
  float writeKb = 0.0F;
  float queueLength = 0.0F;
  float utilization = 0.0F;  // percent
  float service = 0.0F;      // ms
  float response = 0.0F;     // ms
  float wait = 0.0F;         // ms, as plotted: the response less the service time twice
  float space = 0.0F;        // free over size, as whole numbers
  float freeGb = 0.0F;
  float usedGb = 0.0F;
};

// A trace and a graph of a disk. A %s is the disk's name; legends are used as they are.
struct DiskTrace {
  const char* labelFormat;
  const char* colour;
  float DiskValues::*figure;
};

struct DiskGraph {
  const char* code;
  const char* label;
  const char* titleFormat;
  const char* yTitle;
  const char* legendFormat;
  std::span<const DiskTrace> traces;
};

struct DiskSpec {
  // The disk of a record's name; absent for a name that is no disk.
  Required<std::optional<std::string_view> (*)(std::string_view recordName)> name;
  Required<std::span<const DiskGraph>> graphs;  // rows of a disk, in order
  bool timesMeasured = false;                   // service and response time are in the record
};

// Name rules that more than one platform has.
std::optional<std::string_view> DiskNameAsIs(std::string_view recordName);
// A leading "/dev/dsk/" is cut off.
std::optional<std::string_view> DiskNameWithoutDirectory(std::string_view recordName);

namespace disk_graphs {

inline constexpr DiskTrace OPERATION_TRACES[] = {{"%s Reads", "Green", &DiskValues::reads},
                                                 {"%s Writes", "Red", &DiskValues::writes}};
inline constexpr DiskTrace SUMMED_OPERATION_TRACES[] = {
    {"%s Reads+Writes", "Green", &DiskValues::operations}};
inline constexpr DiskTrace DATA_TRACES[] = {{"%s ReadKB", "Green", &DiskValues::readKb},
                                            {"%s WriteKB", "Red", &DiskValues::writeKb}};
inline constexpr DiskTrace SUMMED_DATA_TRACES[] = {{"%s ReadKB+WriteKB", "Red", &DiskValues::totalKb}};
inline constexpr DiskTrace QUEUE_TRACES[] = {{"%s qlen", "Red", &DiskValues::queueLength}};
inline constexpr DiskTrace UTILIZATION_TRACES[] = {{"%s util", "Red", &DiskValues::utilization}};
inline constexpr DiskTrace SPACE_TRACES[] = {{"%s GB free", "Green", &DiskValues::freeGb},
                                             {"%s GB used", "Red", &DiskValues::usedGb}};
inline constexpr DiskTrace WAIT_TRACES[] = {{"%s WaitTime", "Red", &DiskValues::wait},
                                            {"%s ServiceTime", "Blue", &DiskValues::service}};
inline constexpr DiskTrace RESPONSE_TRACES[] = {{"%s RespTime", "Red", &DiskValues::response}};

constexpr DiskGraph Operations(std::span<const DiskTrace> traces) {
  return {"DskOps", "I/O Rate", "I/O rate for %s", "I/Os per second", "%s %.1f/s  ", traces};
}
constexpr DiskGraph Data(std::span<const DiskTrace> traces) {
  return {"DskData", "Data Rate", "Data rate for %s", "Kbytes per second", "%s %.1fKb/s  ", traces};
}
inline constexpr DiskGraph QUEUE = {"Qlen", "Queue Length", "Queue length for %s",
                                    "Qlen", "%s  %.1f",     QUEUE_TRACES};
inline constexpr DiskGraph UTILIZATION = {
    "Util",       "Device Utilization", "Utilization for %s", "% Device Utilization",
    "%s %.1f%% ", UTILIZATION_TRACES};
// Gigabytes, with the percent legend.
inline constexpr DiskGraph SPACE = {"Space",  "Space Allocation", "Space Allocation for %s",
                                    "GBytes", "%s %.1f%% ",       SPACE_TRACES};
// The stray % of the two time legends is part of the text.
inline constexpr DiskGraph WAIT = {"WaitSrvT",  "Wait/Service Time", "Wait/Service Time for %s",
                                   "Time (ms)", "%s %.1f%ms ",       WAIT_TRACES};
inline constexpr DiskGraph RESPONSE = {"RespT",     "Response Time", "Response Time for %s",
                                       "Time (ms)", "%s %.1f%ms ",   RESPONSE_TRACES};

inline constexpr DiskGraph PLAIN[] = {
    Operations(OPERATION_TRACES), Data(DATA_TRACES), QUEUE, UTILIZATION, WAIT, RESPONSE};
inline constexpr DiskGraph WITH_SPACE[] = {
    Operations(OPERATION_TRACES), Data(DATA_TRACES), QUEUE, UTILIZATION, SPACE, WAIT, RESPONSE};
inline constexpr DiskGraph SUMMED[] = {
    Operations(SUMMED_OPERATION_TRACES), Data(SUMMED_DATA_TRACES), QUEUE, UTILIZATION, WAIT, RESPONSE};

}  // namespace disk_graphs

}  // namespace ozmo
