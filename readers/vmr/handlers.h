// What a data row of a monitor text file puts into the interval's records.
//
// Objects and counters go by their performance counter title numbers on the monitored host. A row's value is
// a sum over samples; most members take its mean. Counters and objects that aren't in our tables are passed
// over.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "readers/vmr/file.h"
#include "readers/vmr_context.h"

namespace ozmo {

// An object that a handler takes.
struct VmrObject;
// Null for any other.
const VmrObject* FindVmrObject(int32_t objectId);

// A value of a data row that a rule takes.
struct PlannedCounter {
  size_t field;
  size_t rule;  // in the table of the object in effect
};

// What the head of the file and the rows before a data row say of it. Rows stay in effect until replaced.
// Those of instances and counters are kept as they were read: what they say is worked out for the data rows
// that are wanted, which are few.
struct VmrRows {
  int32_t intervalSeconds = 0;
  int32_t samplesPerInterval = 0;
  const VmrObject* object = nullptr;
  int32_t objectSamples = 0;
  std::string instanceRow;
  bool hasInstance = false;          // false: the instance's name is no longer in effect, its samples are
  std::string counterRow;            // the name of each value of a data row
  std::vector<PlannedCounter> plan;  // those of them that are taken; stale after an object or counter row
  bool isPlanned = false;
  // Running totals of the TCP connection counters at the last sample.
  std::array<double, 4> previousConnections{};
};

// Gives a data row to the handler of the object in effect; a row of another object is dropped, and so is one
// that the context doesn't want.
void VmrStoreRow(VmrContext& context, VmrRows& rows, VmrLine& line);

}  // namespace ozmo
