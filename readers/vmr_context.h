// The cursor through which a catalog builder walks a file: a reader fills it with the records of one
// interval at a time.
//
// Each pair of members holds what a record type and its twin type deliver, the base type's first. Builders
// read the first.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "readers/record_kinds.h"
#include "readers/record_list.h"
#include "readers/records.h"
#include "runtime/times.h"

namespace ozmo {

inline constexpr Seconds DEFAULT_UTC_OFFSET = -18000;

// What a record type and its twin type deliver.
template <class Store>
struct TwinPair {
  Store primary;
  Store twin;
  Store& Of(bool isTwin) { return isTwin ? twin : primary; }
};

struct VmrContext {
  std::string nodeName;     // of the data
  std::string dataPath;     // file being read
  Seconds periodStart = 0;  // of this interval; before Open, of the requested span
  Seconds periodEnd = 0;    // the interval's time stamp
  Seconds utcOffset = DEFAULT_UTC_OFFSET;
  int32_t dstFlag = 0;  // of the file; no graph depends on it

  // The records that the builder reads, set before Open. Others may be stepped over.
  RecordKinds kinds = RecordKinds::All();

  // Kept for the whole walk.
  std::optional<SystemConfig> config;
  std::map<std::string, std::string, std::less<>> deviceAliases;  // display name by device name

  // Emptied and refilled at each Next.
  TwinPair<RecordList<ProcessorRecord>> processors;
  TwinPair<RecordList<ProcessorRecord>> overallCpu;
  TwinPair<RecordList<RateRecord>> rateItems;
  TwinPair<RecordList<DiskRecord>> disks;
  TwinPair<RecordList<FileSystemRecord>> fileSystems;
  TwinPair<RecordList<LanRecord>> lans;
  TwinPair<RecordList<LoadItem>> loadItems;
  TwinPair<RecordList<ProcessRecord>> processes;
  RecordList<NameRecord> names;
  TwinPair<std::optional<MemoryRecord>> memory;
  TwinPair<std::optional<ProtocolCounters>> protocolCounters;
  TwinPair<std::optional<SystemSummary>> summary;
  std::optional<NetworkRecord> network;
  std::optional<PartitionRecord> partition;
};

// A process record for the base or the twin list. Both lists draw on the records of earlier base lists.
ProcessRecord& ContextPushProcess(VmrContext& context, bool isTwin);

// Empties the interval's records. Base process records stay for reuse with what they hold.
void ContextFree(VmrContext& context);

// The same, and what is kept for the whole walk, names and pools included.
void ContextFreeDeep(VmrContext& context);

// Copies to the record the name its device is known by; no match leaves it as it is.
void ContextFindAlias(const VmrContext& context, DiskRecord& disk);

}  // namespace ozmo
