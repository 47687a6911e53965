// The kinds of records that a walk delivers, so that a builder can say which it reads.
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace ozmo {

enum class RecordKind : uint8_t {
  CONFIGURATION,  // read in every walk
  PROCESSORS,
  MACHINE_CPU,  // the machine's processors as a whole, where a format has them apart
  MEMORY,
  DISKS,
  FILE_SYSTEMS,
  ADAPTERS,
  PROCESSES,
  PROTOCOLS,  // protocol counters or the named rates of monitor text files
  PARTITION,
  PROCESS_USERS,   // whose the processes are
  PROCESS_FAULTS,  // page faults of processes
  PROCESS_SIZES,   // memory of processes
  OTHERS,          // what no builder reads: no graph of any option shows it
  DETAILS,         // the fields that no builder reads of records that it does read
  COUNT
};

class RecordKinds {
 public:
  static RecordKinds All() {
    RecordKinds kinds;
    kinds.bits_.set();
    return kinds;
  }
  RecordKinds() { Add(RecordKind::CONFIGURATION); }
  RecordKinds(std::initializer_list<RecordKind> kinds) : RecordKinds() {
    for (const RecordKind kind : kinds) Add(kind);
  }

  void Add(RecordKind kind) { bits_.set(static_cast<size_t>(kind)); }
  bool Has(RecordKind kind) const { return bits_[static_cast<size_t>(kind)]; }

 private:
  std::bitset<static_cast<size_t>(RecordKind::COUNT)> bits_;
};

}  // namespace ozmo
