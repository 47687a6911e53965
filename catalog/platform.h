// What makes one platform's catalog: the constant description that the driver of builder.h runs on.
#pragma once

#include <array>
#include <span>
#include <string>

#include "catalog/build_state.h"
#include "catalog/tables.h"
#include "readers/vmr_context.h"

namespace ozmo {

enum class PointCountRule { OF_DIFFERENCE, OF_QUOTIENTS };
enum class PointRule { NEAREST_MINUTE, TRUNCATED };

// One Top list of a platform. `labelFormat` holds a rank and a name; the rank of the first entry is
// `firstRank`. A list without a format isn't kept.
struct TopListText {
  const char* labelFormat = nullptr;
  int firstRank = 0;
  bool rescaled = false;  // by NormalizeProcessSeries
};

// The name trees of a run, in the order of this enum; each but DISK_RESPONSE has a Top list.
enum class NameTree { IMAGES, USERS, DISK_OPERATIONS, DISK_DATA, DISK_QUEUE, DISK_UTILIZATION, DISK_SPACE, DISK_RESPONSE, FILE_SYSTEMS, COUNT };
inline constexpr size_t NAME_TREE_COUNT = static_cast<size_t>(NameTree::COUNT);

struct PlatformSpec {
  std::span<const RecordText> records;
  std::span<const RowText> tree;

  PointCountRule pointCountRule;
  PointRule pointRule;
  int gapExtra;                        // maxGap is the interval in minutes plus this
  bool dropsBeyondEnd = false;         // an interval behind the last point is dropped
  bool sharesStartMissing = false;     // ProcessCpuSum starts as MISSING_POINT, not as 0
  bool walksWithoutOpen = false;       // the walk starts whatever ReaderOpen answered
  int skippedResult = 0;               // a result of ReaderNext that skips the interval and goes on
  Seconds detailLimit = 0;             // spans beyond it have no disks and file systems in detail; 0: none
  const char* secondClassFile = nullptr;

  std::array<TopListText, NAME_TREE_COUNT> topLists;

  // Passes over one interval, in this order. A null pass: the platform has no such data.
  using Pass = void (*)(BuildState& state, const VmrContext& context);
  bool (*usesInterval)(const VmrContext& context);
  Pass processors;
  Pass memory;
  Pass disks;
  Pass fileSystems;
  Pass adapters;
  Pass processes;
  Pass network;
  Pass partition = nullptr;

  // Measures the collection interval: intervalMinutes of the state. Null: from the first interval.
  Pass measureInterval = nullptr;
  // Behind the Top lists: removes idle processors.
  void (*finish)(BuildState& state) = nullptr;
};

extern const PlatformSpec SOLARIS_PLATFORM;
extern const PlatformSpec LINUX_PLATFORM;
extern const PlatformSpec AIX_PLATFORM;
extern const PlatformSpec HPUX_PLATFORM;
extern const PlatformSpec TRU64_PLATFORM;
extern const PlatformSpec VMR_PLATFORM;

}  // namespace ozmo
